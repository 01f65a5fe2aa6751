#include "controls/edit/MessageEdit.h"

#include <QKeyEvent>
#include <QMimeData>
#include <QScopedValueRollback>

namespace tessel {

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

void MessageEdit::keepWithin() {
    const QSignalBlocker quiet(this);
    const QString text = toPlainText();
    QString kept = m_mend ? m_mend(text) : text;
    while (kept.size() + kept.count(u'\n') > m_maximum) {
        kept.chop(1 + static_cast<int>((kept.size() + kept.count(u'\n') - m_maximum) / 2));
    }
    if (kept != text) {
        QTextCursor cursor = textCursor();
        const qsizetype behind = text.size() - cursor.position();
        cursor.select(QTextCursor::Document);
        cursor.insertText(kept);
        cursor.setPosition(static_cast<int>(std::max<qsizetype>(0, kept.size() - behind)));
        setTextCursor(cursor);
    }
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
        if (control || m_sendOnEnter) {
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
    if (printed && !m_allowed.isEmpty() && !m_allowed.contains(typed.at(0).toCaseFolded())) {
        event->accept();
        return;
    }
    QPlainTextEdit::keyPressEvent(event);
}

} // namespace tessel
