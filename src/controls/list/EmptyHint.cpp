#include "controls/list/EmptyHint.h"

#include <QAbstractItemView>
#include <QEvent>

namespace tessel {

EmptyHint::EmptyHint(QAbstractItemView* view) : QLabel(view->viewport()) {
    constexpr int kMargin = 8;
    setTextFormat(Qt::PlainText);
    setWordWrap(true);
    setAlignment(Qt::AlignCenter);
    setMargin(kMargin);
    setForegroundRole(QPalette::PlaceholderText);
    setAttribute(Qt::WA_TransparentForMouseEvents);
    view->viewport()->installEventFilter(this);
    hide();
}

void EmptyHint::setHint(const QString& text) {
    setText(text);
    setVisible(!text.isEmpty());
    place();
}

bool EmptyHint::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Resize) {
        place();
    }
    return QLabel::eventFilter(watched, event);
}

void EmptyHint::place() {
    setGeometry(parentWidget()->rect());
}

} // namespace tessel
