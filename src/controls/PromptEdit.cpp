#include "controls/PromptEdit.h"

#include <QFocusEvent>
#include <QKeyEvent>

namespace tessel {

PromptEdit::PromptEdit(const QString& prompt, QWidget* parent) : QLineEdit(prompt, parent), m_prompt(prompt) {
    setClearButtonEnabled(false);
    connect(this, &QLineEdit::textChanged, this, [this] {
        dimPrompt();
        emit searchChanged(searchText());
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
    QPalette shown = parentWidget() != nullptr ? parentWidget()->palette() : QPalette();
    if (text() == m_prompt) {
        shown.setColor(QPalette::Text, shown.color(QPalette::PlaceholderText));
    }
    setPalette(shown);
}

void PromptEdit::focusInEvent(QFocusEvent* event) {
    QLineEdit::focusInEvent(event);
    if (text() == m_prompt) {
        clear();
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
