#include "controls/edit/PromptEdit.h"

#include "controls/list/ReportColors.h"

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

void PromptEdit::setPrompt(const QString& prompt) {
    const bool inUse = hasFocus();
    m_prompt = prompt;
    setText(inUse ? QString() : prompt);
}

void PromptEdit::setBackColor(const QColor& color) {
    m_back = color;
    dimPrompt();
}

void PromptEdit::dimPrompt() {
    // All but the one colour stays inherited, so that a change of the desktop's colours comes through.
    QPalette shown;
    shown.setResolveMask(0);
    const QWidget* const above = parentWidget();
    const QPalette around = above != nullptr ? above->palette() : palette();
    if (m_back.isValid()) {
        constexpr int kMiddle = 128;
        constexpr double kShade = 0.25;
        const QColor base = around.color(QPalette::Base);
        shown.setColor(QPalette::Base, base.lightness() < kMiddle ? blend(base, m_back, kShade) : m_back);
    }
    if (text() == m_prompt) {
        const QColor back = shown.isBrushSet(QPalette::Active, QPalette::Base) ? shown.color(QPalette::Base)
                                                                               : around.color(QPalette::Base);
        shown.setColor(QPalette::Text, readableOn(around.color(QPalette::PlaceholderText), back,
                                                  around.color(QPalette::Text)));
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
