#include "windows/alerts/MessageFields.h"

#include "controls/edit/MessageEdit.h"
#include "controls/list/ReportText.h"
#include "engine/core/mod_Definitions.h"
#include "engine/station.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace tessel {

namespace {
constexpr int kGrid = 8;
constexpr int kFewLeft = 200; // characters, of which the user is told
} // namespace

MessageFields::MessageFields(Station& station, const QString& spoken, QWidget* parent)
    : QWidget(parent), m_station(station), m_snippets(new QComboBox(this)), m_text(new MessageEdit(this)),
      m_remark(new QLabel(this)) {
    m_snippets->setObjectName(QStringLiteral("cmbSnippit"));
    m_snippets->setAccessibleName(tr("Snippets"));
    m_snippets->setToolTip(tr("Put a short text into the message"));
    m_snippets->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    m_snippets->installEventFilter(this);
    m_snippets->view()->setObjectName(QStringLiteral("lstSnippit"));
    m_snippets->view()->setTextElideMode(Qt::ElideRight);
    m_text->setObjectName(QStringLiteral("txtMessage"));
    m_text->setAccessibleName(spoken);
    m_text->setAllowedCharacters(kTypedCharacters);
    m_text->setMaximumLength(Compose::kLongestMessage);
    m_text->setMend(FitMessage);
    takeSendKey();
    m_remark->setObjectName(QStringLiteral("lblRemark"));
    m_remark->setTextFormat(Qt::PlainText);
    m_remark->setWordWrap(true);
    m_remark->hide();
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(kGrid);
    layout->addWidget(m_snippets);
    layout->addWidget(m_text, 1);

    connect(m_text, &MessageEdit::sendPressed, this, &MessageFields::sendPressed);
    connect(m_text, &MessageEdit::escapePressed, this, &MessageFields::escapePressed);
    connect(m_text, &MessageEdit::textChanged, this, [this] {
        m_tooLong = false;
        showRemark();
    });
    connect(m_snippets, &QComboBox::activated, this, [this](int index) {
        if (index > 0) {
            m_text->append(m_snippets->itemData(index).toString());
            m_snippets->setCurrentIndex(0);
            m_text->setFocus();
        }
    });
    connect(&m_station.snippets, &Snippets::changed, this, &MessageFields::LoadSnippetDB);
    LoadSnippetDB();
}

void MessageFields::LoadSnippetDB() {
    m_snippets->clear();
    m_snippets->addItem(QStringLiteral("Select a Snippet"));
    for (const QString& snippet : m_station.snippets.list()) {
        m_snippets->addItem(singleLine(snippet), snippet);
    }
}

void MessageFields::setSendButton(QPushButton& button) {
    m_send = &button;
    takeSendKey();
}

void MessageFields::takeSendKey() {
    const bool byEnter = m_station.settings.Settings_MSOE();
    m_text->setSendOnEnter(byEnter);
    m_text->setPlaceholderText(byEnter ? tr("Enter sends, Shift+Enter begins a new line")
                                       : tr("Ctrl+Enter sends"));
    if (m_send != nullptr) {
        m_send->setToolTip(byEnter ? tr("Enter") : tr("Ctrl+Enter"));
    }
}

// The options may have been open beside this window.
void MessageFields::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::ActivationChange) {
        takeSendKey();
    }
}

// Only what is chosen from the open list goes into the text: no turn of the wheel, and no key that was meant
// for another field.
bool MessageFields::eventFilter(QObject* watched, QEvent* event) {
    if (watched != m_snippets) {
        return QWidget::eventFilter(watched, event);
    }
    if (event->type() == QEvent::Wheel) {
        event->ignore();
        return true;
    }
    if (event->type() != QEvent::KeyPress) {
        return false;
    }
    const auto& key = static_cast<const QKeyEvent&>(*event);
    const bool walks = key.key() == Qt::Key_Up || key.key() == Qt::Key_Down || key.key() == Qt::Key_PageUp ||
                       key.key() == Qt::Key_PageDown || key.key() == Qt::Key_Home || key.key() == Qt::Key_End;
    const bool letter = !key.text().isEmpty() && key.text().at(0).isPrint() && key.key() != Qt::Key_Space &&
                        (key.modifiers() & (Qt::ControlModifier | Qt::AltModifier)) == 0;
    if (walks || letter) {
        m_snippets->showPopup();
    }
    return walks || letter;
}

void MessageFields::setObstacle(const QString& text) {
    m_obstacle = text;
    showRemark();
}

void MessageFields::setUsable(bool usable) {
    m_text->setEnabled(usable);
    m_snippets->setEnabled(usable);
}

void MessageFields::showRemark() {
    const int room = m_text->room();
    m_remark->setText(m_tooLong               ? tr("Too long to be sent")
                      : !m_obstacle.isEmpty() ? m_obstacle
                      : room < kFewLeft       ? tr("%1 characters left").arg(room)
                                              : QString());
    m_remark->setVisible(!m_remark->text().isEmpty());
}

bool MessageFields::settle(SendResult result) {
    switch (result) {
    case SendResult::Sent:
        return true;
    case SendResult::TooShort:
        ClearQuickMessage();
        break;
    case SendResult::TooLong:
        m_tooLong = true;
        showRemark();
        break;
    case SendResult::NoRecipient:
    case SendResult::Offline:
        break;
    }
    return false;
}

// So that Ctrl+Z brings it back.
void MessageFields::ClearQuickMessage() {
    QTextCursor all(m_text->document());
    all.select(QTextCursor::Document);
    all.removeSelectedText();
    m_text->setFocus();
}

} // namespace tessel
