#include "windows/alerts/frmReply.h"

#include "controls/edit/MessageEdit.h"
#include "engine/station.h"

#include <QComboBox>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QShortcut>
#include <QVBoxLayout>

namespace tessel {

namespace {
constexpr int kGrid = 8;
constexpr QSize kFirstSize(480, 460);
} // namespace

frmReply::frmReply(Station& station, QWidget* parent)
    : QDialog(parent), m_station(station), m_group(new QGroupBox(this)),
      m_original(new QPlainTextEdit(m_group)), m_text(new MessageEdit(this)), m_snippets(new QComboBox(this)),
      m_reply(new QPushButton(tr("&Reply"), this)), m_ack(new QPushButton(tr("&Acknowledge (F2)"), this)),
      m_note(new QLabel(this)) {
    setWindowTitle(tr("Message"));
    resize(kFirstSize);
    m_group->setObjectName(QStringLiteral("grpOriginal"));
    m_original->setObjectName(QStringLiteral("txtOriginal"));
    m_original->setAccessibleName(tr("Message"));
    m_original->setReadOnly(true);
    m_original->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    m_original->setTabChangesFocus(true);
    m_text->setObjectName(QStringLiteral("txtMessage"));
    m_text->setAccessibleName(QStringLiteral("Compose a Response"));
    m_text->setAllowedCharacters(kTypedCharacters);
    m_text->setMaximumLength(Compose::kLongestMessage);
    m_text->setSendOnEnter(m_station.settings.Settings_MSOE());
    m_text->setMend(FitMessage);
    m_snippets->setObjectName(QStringLiteral("cmbSnippit"));
    m_snippets->setAccessibleName(tr("Snippets"));
    m_snippets->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    m_snippets->addItem(QStringLiteral("Select a Snippet"));
    m_snippets->addItems(m_station.snippets.list());
    m_reply->setObjectName(QStringLiteral("cmdReply"));
    m_reply->setToolTip(m_station.settings.Settings_MSOE() ? tr("Enter") : tr("Ctrl+Enter"));
    m_ack->setObjectName(QStringLiteral("cmdAck"));
    m_ack->setToolTip(tr("Tell the sender that you have read this"));
    m_note->setTextFormat(Qt::PlainText);
    m_note->setWordWrap(true);
    auto* const close = new QPushButton(QStringLiteral(" Close "), this);
    close->setObjectName(QStringLiteral("cmdClose"));
    close->setToolTip(QStringLiteral("Close this message"));
    for (QPushButton* const button : {m_reply, m_ack, close}) {
        button->setAutoDefault(false);
    }

    auto* const inner = new QVBoxLayout(m_group);
    inner->addWidget(m_original);
    auto* const answer = new QGroupBox(QStringLiteral("Compose a Response"), this);
    auto* const lower = new QVBoxLayout(answer);
    lower->addWidget(m_snippets);
    lower->addWidget(m_text, 1);
    auto* const buttons = new QHBoxLayout;
    buttons->addWidget(m_note, 1);
    buttons->addWidget(m_ack);
    buttons->addWidget(m_reply);
    buttons->addWidget(close);
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(2 * kGrid, 2 * kGrid, 2 * kGrid, 2 * kGrid);
    layout->setSpacing(kGrid);
    layout->addWidget(m_group, 1);
    layout->addWidget(answer, 1);
    layout->addLayout(buttons);

    connect(close, &QPushButton::clicked, this, &QDialog::reject);
    connect(m_text, &MessageEdit::escapePressed, this, &QDialog::reject);
    connect(m_text, &MessageEdit::sendPressed, m_reply, &QPushButton::click);
    connect(m_reply, &QPushButton::clicked, this, [this] { CreateMessage(m_text->message()); });
    connect(m_ack, &QPushButton::clicked, this, &frmReply::acknowledge);
    connect(new QShortcut(Qt::Key_F2, this), &QShortcut::activated, m_ack, &QPushButton::click);
    connect(m_snippets, &QComboBox::activated, this, [this](int index) {
        if (index > 0) {
            m_text->append(m_snippets->itemText(index));
            m_snippets->setCurrentIndex(0);
            m_text->setFocus();
        }
    });
    connect(&m_station.reply, &Reply::loaded, this, &frmReply::LoadMessage);
    connect(&m_station.network, &NetworkMC::canSendChanged, this, &frmReply::showCanReply);
    connect(&m_station.views.rptEndpoints, &ReportRecords::changed, this, [this] {
        if (!m_text->isEnabled()) {
            showCanReply(); // the sender may be back
        }
    });
    LoadMessage();
}

void frmReply::LoadMessage() {
    Reply& reply = m_station.reply;
    m_group->setTitle(reply.heading().replace(u'&', QLatin1String("&&")));
    m_original->setPlainText(reply.original());
    m_text->clear();
    m_ack->setVisible(reply.offersAcknowledge());
    showCanReply();
    if (m_text->isEnabled()) {
        m_text->setFocus();
    }
}

void frmReply::showCanReply() {
    const bool known = m_station.reply.canReply();
    const bool sends = m_station.own.canSend();
    m_ack->setEnabled(known && sends);
    m_reply->setEnabled(known && sends);
    m_text->setEnabled(known);
    m_snippets->setEnabled(known);
    m_note->setText(!known   ? tr("The sender is offline: an answer could not arrive")
                    : !sends ? tr("Offline: nothing can be sent now")
                             : QString());
}

void frmReply::acknowledge() {
    const QString text = m_station.reply.acknowledgement();
    m_text->setPlainText(text);
    CreateMessage(text);
}

void frmReply::CreateMessage(const QString& text) {
    switch (m_station.reply.CreateMessage(text)) {
    case SendResult::Sent:
        accept();
        break;
    case SendResult::TooShort:
        m_text->clear();
        m_text->setFocus();
        break;
    case SendResult::TooLong:
        m_note->setText(tr("Too long to be sent"));
        break;
    case SendResult::NoRecipient:
    case SendResult::Offline:
        break;
    }
}

} // namespace tessel
