#include "windows/alerts/frmSentMessage.h"

#include "controls/list/EmptyHint.h"
#include "controls/look/ScreenPlacement.h"
#include "controls/look/TabOrder.h"
#include "engine/alerts/mod_SentView.h"
#include "windows/alerts/RecipientList.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTabWidget>
#include <QVBoxLayout>

namespace tessel {

frmSentMessage::frmSentMessage(const NotificationHistory& history, QWidget* parent)
    : QDialog(parent), m_history(history), m_to(new QLineEdit(this)), m_text(new QPlainTextEdit(this)),
      m_users(new QListWidget(this)), m_hint(new EmptyHint(m_users)), m_stamp(new QLabel(this)) {
    constexpr int kGrid = 8;
    setWindowTitle(tr("Sent Message"));
    resize(sizeForLetters(*this, QSize(460, 360)));
    m_to->setObjectName(QStringLiteral("txtTo"));
    m_to->setReadOnly(true);
    m_text->setObjectName(QStringLiteral("txtNote"));
    m_text->setAccessibleName(QStringLiteral("Original Message"));
    m_text->setReadOnly(true);
    m_users->setObjectName(QStringLiteral("lstUsers"));
    m_users->setAccessibleName(QStringLiteral("Recipients"));
    m_stamp->setTextFormat(Qt::PlainText);
    m_stamp->setWordWrap(true);
    auto* const tabs = new QTabWidget(this);
    m_text->setTabChangesFocus(true);
    tabs->addTab(m_text, QStringLiteral("Original Message"));
    tabs->addTab(m_users, QStringLiteral("Recipients"));
    auto* const label = new QLabel(tr("&To:"), this);
    label->setBuddy(m_to);
    auto* const top = new QHBoxLayout;
    top->addWidget(label);
    top->addWidget(m_to, 1);
    auto* const close = new QPushButton(QStringLiteral(" Close "), this);
    close->setObjectName(QStringLiteral("cmdClose"));
    connect(close, &QPushButton::clicked, this, &QDialog::reject);
    auto* const bottom = new QHBoxLayout;
    bottom->addWidget(m_stamp, 1);
    bottom->addWidget(close);
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(2 * kGrid, 2 * kGrid, 2 * kGrid, 2 * kGrid);
    layout->setSpacing(kGrid);
    layout->addLayout(top);
    layout->addWidget(tabs, 1);
    layout->addLayout(bottom);
    tabAsLaidOut(*this);
    OpenMessage();
    close->setFocus();
}

void frmSentMessage::take(const WindowRequest&) {
    OpenMessage();
}

void frmSentMessage::OpenMessage() {
    const SentView view = SentViewOf(m_history.openedMessage());
    m_to->setText(view.to);
    m_to->setCursorPosition(0);
    m_text->setPlainText(view.text);
    m_stamp->setText(view.stamp);
    m_users->clear();
    for (const Recipient& recipient : view.recipients) {
        addRecipient(*m_users, recipient);
    }
    m_hint->setState({view.recipients.isEmpty() ? view.to : QString(), {}, static_cast<int>(Image::Home)});
}

} // namespace tessel
