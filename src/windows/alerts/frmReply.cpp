#include "windows/alerts/frmReply.h"

#include "controls/edit/MessageEdit.h"
#include "controls/look/ElidedLabel.h"
#include "controls/look/ScreenPlacement.h"
#include "engine/station.h"
#include "windows/alerts/MessageFields.h"

#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QShortcut>
#include <QVBoxLayout>

namespace tessel {

namespace {
constexpr int kGrid = 8;
constexpr QSize kFirstSize(580, 480);
} // namespace

frmReply::frmReply(Station& station, QWidget* parent)
    : QDialog(parent), m_station(station), m_group(new QGroupBox(this)), m_heading(new ElidedLabel(m_group)),
      m_original(new QPlainTextEdit(m_group)),
      m_answer(new MessageFields(station, QStringLiteral("Compose a Response"), this)),
      m_reply(new QPushButton(this)), m_ack(new QPushButton(tr("&Acknowledge (F2)"), this)) {
    setWindowTitle(tr("Message"));
    resize(sizeForLetters(*this, kFirstSize));
    m_group->setObjectName(QStringLiteral("grpOriginal"));
    m_heading->setObjectName(QStringLiteral("lblHeading"));
    QFont bold = m_heading->font();
    bold.setBold(true);
    m_heading->setFont(bold);
    m_original->setObjectName(QStringLiteral("txtOriginal"));
    m_original->setAccessibleName(tr("Message"));
    m_original->setReadOnly(true);
    m_original->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    m_original->setTabChangesFocus(true);
    m_reply->setObjectName(QStringLiteral("cmdReply"));
    m_answer->setSendButton(*m_reply);
    m_ack->setObjectName(QStringLiteral("cmdAck"));
    m_ack->setToolTip(tr("Tell the sender that you have read this"));
    auto* const close = new QPushButton(QStringLiteral(" Close "), this);
    close->setObjectName(QStringLiteral("cmdClose"));
    close->setToolTip(QStringLiteral("Close this message"));
    for (QPushButton* const button : {m_ack, m_reply, close}) {
        button->setAutoDefault(false);
    }

    auto* const inner = new QVBoxLayout(m_group);
    inner->addWidget(m_heading);
    inner->addWidget(m_original, 1);
    auto* const answer = new QGroupBox(QStringLiteral("Compose a Response"), this);
    (new QVBoxLayout(answer))->addWidget(m_answer);
    auto* const buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(m_ack);
    buttons->addWidget(m_reply);
    buttons->addWidget(close);
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(2 * kGrid, 2 * kGrid, 2 * kGrid, 2 * kGrid);
    layout->setSpacing(kGrid);
    layout->addWidget(m_group, 1);
    layout->addWidget(answer, 1);
    layout->addWidget(m_answer->remark());
    layout->addLayout(buttons);
    setTabOrder(m_original, m_answer);
    setTabOrder(m_answer, m_ack);

    connect(close, &QPushButton::clicked, this, &QDialog::reject);
    connect(m_answer, &MessageFields::escapePressed, this, &QDialog::reject);
    connect(m_answer, &MessageFields::sendPressed, m_reply, &QPushButton::click);
    connect(m_reply, &QPushButton::clicked, this, [this] { CreateMessage(m_answer->text().message()); });
    connect(m_ack, &QPushButton::clicked, this, &frmReply::acknowledge);
    connect(new QShortcut(Qt::Key_F2, this), &QShortcut::activated, m_ack, &QPushButton::click);
    connect(&m_answer->text(), &MessageEdit::textChanged, this,
            [this] { m_station.reply.setDraft(m_answer->text().toPlainText()); });
    connect(&m_station.reply, &Reply::loaded, this, &frmReply::LoadMessage);
    connect(&m_station.network, &NetworkMC::canSendChanged, this, &frmReply::showCanReply);
    connect(&m_station.views.rptEndpoints, &ReportRecords::changed, this, &frmReply::showCanReply);
    LoadMessage();
}

void frmReply::LoadMessage() {
    Reply& reply = m_station.reply;
    setResult(0); // nothing has been answered yet
    m_heading->setLine(reply.heading());
    m_group->setAccessibleName(reply.heading());
    m_original->setPlainText(reply.original());
    m_answer->text().setPlainText(reply.draft());
    m_answer->text().moveCursor(QTextCursor::End);
    m_answer->setUsable(reply.canReply());
    m_reply->setText(reply.ReplyToEveryone() ? tr("&Reply to Everyone") : tr("&Reply"));
    m_ack->setVisible(reply.offersAcknowledge());
    showCanReply();
    if (reply.canReply()) {
        m_answer->text().setFocus();
    } else {
        m_original->setFocus();
    }
}

// The sender may go, and come back. Who is at the answer stays there meanwhile: the next key, a blank maybe,
// would press another button.
void frmReply::showCanReply() {
    const bool known = m_station.reply.canReply();
    const bool sends = m_station.own.canSend();
    const QWidget* const at = focusWidget();
    const bool answering = at == &m_answer->text() || at == m_reply || at == m_ack;
    if (known || !answering) {
        m_answer->setUsable(known);
    }
    if (answering && !(known && sends)) {
        m_answer->text().setFocus();
    }
    // Its key works whether it is shown or not.
    m_ack->setEnabled(known && sends && m_station.reply.offersAcknowledge());
    m_reply->setEnabled(known && sends);
    m_answer->setObstacle(!known   ? tr("The sender is offline: an answer could not arrive")
                          : !sends ? tr("Offline: nothing can be sent now")
                                   : QString());
}

void frmReply::acknowledge() {
    const QString text = m_station.reply.acknowledgement();
    m_answer->text().setPlainText(text);
    CreateMessage(text);
}

void frmReply::CreateMessage(const QString& text) {
    // Once: a second press may be on its way.
    if (result() != Accepted && m_answer->settle(m_station.reply.CreateMessage(text))) {
        accept();
    }
}

} // namespace tessel
