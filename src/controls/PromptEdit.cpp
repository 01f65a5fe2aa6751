#include "controls/PromptEdit.h"

#include <QFocusEvent>
#include <QKeyEvent>

namespace tessel {

PromptEdit::PromptEdit(const QString& prompt, QWidget* parent) : QLineEdit(prompt, parent), m_prompt(prompt) {
    setClearButtonEnabled(false);
    connect(this, &QLineEdit::textChanged, this, [this] {
        dimPrompt();
        // The prompt comes and goes with the focus; that is no new search.
        if (const QString search = searchText(); search != m_told) {
            m_told = search;
            emit searchChanged(search);
        }
    });
    dimPrompt();
}

QString PromptEdit::searchText() const {
    return text() == m_prompt ? QString() : text();
}

void PromptEdit::clearSearch() {
    setText(m_prompt);
}

void PromptEdit::dimPrompt() {
    // All but the one colour stays inherited, so that a change of the desktop's colours comes through.
    QPalette shown;
    shown.setResolveMask(0);
    if (text() == m_prompt) {
        shown.setColor(QPalette::Text, palette().color(QPalette::PlaceholderText));
    }
    setPalette(shown);
}

void PromptEdit::focusInEvent(QFocusEvent* event) {
    QLineEdit::focusInEvent(event);
    if (text() == m_prompt) {
        // Unlike clear(), this leaves nothing to undo: Ctrl+Z must not bring the prompt in as text.
        setText({});
    }
}

void PromptEdit::focusOutEvent(QFocusEvent* event) {
    QLineEdit::focusOutEvent(event);
    // The box's own menu takes the focus for a moment without ending the search.
    if (text().isEmpty() && event->reason() != Qt::PopupFocusReason) {
        clearSearch();
    }
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
