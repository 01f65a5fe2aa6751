#include "controls/edit/OncePerDoubleClick.h"

#include <QAbstractButton>
#include <QEvent>

namespace tessel {

namespace {

class SecondClickFilter : public QObject {
public:
    using QObject::QObject;
    bool eventFilter(QObject* /*watched*/, QEvent* event) override {
        // The second press is told as this instead of as a press; its release then finds nothing pressed.
        return event->type() == QEvent::MouseButtonDblClick;
    }
};

} // namespace

void pressOncePerDoubleClick(QAbstractButton& button) {
    button.installEventFilter(new SecondClickFilter(&button));
}

} // namespace tessel
