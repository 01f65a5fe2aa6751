#include "controls/edit/KeyFilterEdit.h"

#include <QKeyEvent>
#include <QMetaMethod>
#include <QValidator>

#include <algorithm>

namespace tessel {

// Every way into the box passes its validator, and a validator may mend what it sees.
class KeyFilterEdit::Filter : public QValidator {
public:
    using QValidator::QValidator;

    State validate(QString& text, int& cursor) const override {
        if (!m_allowed.isEmpty()) {
            for (qsizetype at = text.size() - 1; at >= 0; --at) {
                if (!m_allowed.contains(text.at(at).toCaseFolded())) {
                    text.remove(at, 1);
                    cursor -= at < cursor ? 1 : 0;
                }
            }
        }
        const int excess = static_cast<int>(text.size()) - m_maximum;
        if (excess > 0) {
            const int from = std::max(0, std::min(cursor, static_cast<int>(text.size())) - excess);
            text.remove(from, excess);
            cursor = from;
        }
        return Acceptable;
    }

    QString m_allowed; // folded
    int m_maximum = 32767;
};

KeyFilterEdit::KeyFilterEdit(QWidget* parent) : QLineEdit(parent), m_filter(new Filter(this)) {
    setValidator(m_filter);
}

void KeyFilterEdit::setAllowedCharacters(const QString& characters) {
    m_filter->m_allowed = characters.toCaseFolded();
    setText(text());
}

void KeyFilterEdit::setMaximumLength(int characters) {
    m_filter->m_maximum = std::max(0, characters);
    setText(text());
}

void KeyFilterEdit::keyPressEvent(QKeyEvent* event) {
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    const auto pressed = enter ? &KeyFilterEdit::enterPressed : &KeyFilterEdit::escapePressed;
    // Where nobody listens, the key is the dialog's.
    if ((enter || event->key() == Qt::Key_Escape) && isSignalConnected(QMetaMethod::fromSignal(pressed))) {
        event->accept();
        if (!event->isAutoRepeat()) {
            emit(this->*pressed)();
        }
        return;
    }
    QLineEdit::keyPressEvent(event);
}

} // namespace tessel
