#include "controls/edit/PromptEdit.h"

#include "controls/list/ReportColors.h"
#include "controls/look/Tokens.h"

#include <QAction>
#include <QKeyEvent>

namespace tessel {

PromptEdit::PromptEdit(const QString& prompt, QWidget* parent) : QLineEdit(parent) {
    connect(this, &QLineEdit::textChanged, this, [this] {
        if (m_cross != nullptr) {
            m_cross->setVisible(!text().isEmpty());
        }
        if (const QString search = searchText(); search != m_told) {
            m_told = search;
            emit searchChanged(search);
        }
    });
    setPrompt(prompt);
}

void PromptEdit::setPictures(const QIcon& search, const QIcon& clear) {
    if (m_glass == nullptr) {
        m_glass = addAction(search, LeadingPosition);
        m_cross = addAction(clear, TrailingPosition);
        m_cross->setToolTip(tr("Show all again (Escape)"));
        connect(m_glass, &QAction::triggered, this, [this] { setFocus(Qt::MouseFocusReason); });
        connect(m_cross, &QAction::triggered, this, &PromptEdit::clearSearch);
    }
    m_glass->setIcon(search);
    m_cross->setIcon(clear);
    m_cross->setVisible(!text().isEmpty());
}

void PromptEdit::clearSearch() {
    // Unlike clear(), this leaves nothing to undo: Ctrl+Z must not bring the search back.
    setText({});
}

void PromptEdit::setPrompt(const QString& prompt) {
    m_prompt = prompt;
    setPlaceholderText(hasFocus() ? QString() : prompt);
    clearSearch();
}

void PromptEdit::setBackColor(const QColor& color) {
    // All other colours stay inherited, so that a change of the desktop's colours comes through.
    const QPalette around = parentWidget() != nullptr ? parentWidget()->palette() : palette();
    const QColor base = around.color(QPalette::Base);
    const QColor back = isDark(base) ? blend(base, color, look::kSearchTint) : color;
    QPalette shown;
    shown.setResolveMask(0);
    shown.setColor(QPalette::Base, back);
    shown.setColor(QPalette::PlaceholderText,
                   readableOn(around.color(QPalette::PlaceholderText), back, around.color(QPalette::Text)));
    setPalette(shown);
}

void PromptEdit::focusInEvent(QFocusEvent* event) {
    QLineEdit::focusInEvent(event);
    setPlaceholderText({});
    emit entered(true);
}

void PromptEdit::focusOutEvent(QFocusEvent* event) {
    QLineEdit::focusOutEvent(event);
    setPlaceholderText(m_prompt);
    emit entered(false);
}

// Where Escape closes the window, the first one ends the search.
bool PromptEdit::event(QEvent* event) {
    if (event->type() == QEvent::ShortcutOverride &&
        static_cast<const QKeyEvent&>(*event).key() == Qt::Key_Escape && !text().isEmpty()) {
        event->accept();
        return true;
    }
    return QLineEdit::event(event);
}

void PromptEdit::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
    case Qt::Key_Escape:
        if (!text().isEmpty()) {
            clear();
            return;
        }
        break;
    case Qt::Key_Down:
    case Qt::Key_Return:
    case Qt::Key_Enter:
        emit leaveForList();
        return;
    default:
        break;
    }
    QLineEdit::keyPressEvent(event);
}

} // namespace tessel
