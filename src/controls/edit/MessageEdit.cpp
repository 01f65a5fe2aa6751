#include "controls/edit/MessageEdit.h"

#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QMimeData>

#include <algorithm>

namespace tessel {

namespace {

qsizetype sizeOf(QStringView text) {
    return text.size() + text.count(u'\n');
}

} // namespace

MessageEdit::MessageEdit(QWidget* parent) : QPlainTextEdit(parent) {
    setTabChangesFocus(true);
    connect(this, &QPlainTextEdit::textChanged, this, &MessageEdit::keepWithin);
}

QString MessageEdit::message() const {
    return toPlainText().replace(u'\n', QLatin1String("\r\n"));
}

void MessageEdit::append(const QString& text) {
    moveCursor(QTextCursor::End);
    insertPlainText(u' ' + text);
    moveCursor(QTextCursor::End);
}

int MessageEdit::room() const {
    return m_maximum - static_cast<int>(sizeOf(toPlainText()));
}

void MessageEdit::keepWithin() {
    const QSignalBlocker quiet(this);
    const QString text = toPlainText();
    QString kept = m_mend ? m_mend(text) : text;
    const qsizetype behind = text.size() - textCursor().position();
    qsizetype caret = std::max<qsizetype>(0, kept.size() - behind);
    qsizetype excess = sizeOf(kept) - m_maximum;
    // What was put in ends at the caret.
    for (; excess > 0 && caret > 0; --caret) {
        excess -= kept.at(caret - 1) == u'\n' ? 2 : 1;
        kept.remove(caret - 1, 1);
    }
    for (; excess > 0; kept.chop(1)) {
        excess -= kept.back() == u'\n' ? 2 : 1;
    }
    if (kept != text) {
        QTextCursor cursor = textCursor();
        cursor.select(QTextCursor::Document);
        cursor.insertText(kept);
        cursor.setPosition(static_cast<int>(caret));
        setTextCursor(cursor);
    }
}

bool MessageEdit::allowed(QChar character) const {
    return m_allowed.isEmpty() || m_allowed.contains(character.toCaseFolded());
}

void MessageEdit::inputMethodEvent(QInputMethodEvent* event) {
    QString typed = event->commitString();
    typed.removeIf([this](QChar character) { return !allowed(character); });
    if (typed == event->commitString()) {
        QPlainTextEdit::inputMethodEvent(event);
        return;
    }
    QInputMethodEvent kept(event->preeditString(), event->attributes());
    kept.setCommitString(typed, event->replacementStart(), event->replacementLength());
    QPlainTextEdit::inputMethodEvent(&kept);
    event->accept();
}

// Rich text has nothing to look for in a message.
void MessageEdit::insertFromMimeData(const QMimeData* source) {
    if (source->hasText()) {
        insertPlainText(source->text());
    }
}

void MessageEdit::keyPressEvent(QKeyEvent* event) {
    const bool control = (event->modifiers() & Qt::ControlModifier) != 0;
    switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        event->accept();
        if (control || (m_sendOnEnter && (event->modifiers() & Qt::ShiftModifier) == 0)) {
            if (!event->isAutoRepeat()) {
                emit sendPressed();
            }
            return;
        }
        break;
    case Qt::Key_Escape:
        event->accept();
        emit escapePressed();
        return;
    default:
        break;
    }
    const QString typed = event->text();
    const bool printed = !typed.isEmpty() && typed.at(0).isPrint() && !control;
    if (printed && !allowed(typed.at(0))) {
        event->accept();
        return;
    }
    QPlainTextEdit::keyPressEvent(event);
}

} // namespace tessel
