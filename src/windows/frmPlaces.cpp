#include "windows/frmPlaces.h"

#include "controls/look/ScreenPlacement.h"
#include "engine/ports/cWindowRegistry.h"

#include <QEvent>
#include <QWidget>

namespace tessel {

namespace {

class PlaceKeeper : public QObject {
public:
    PlaceKeeper(QWidget& window, WindowRegistry& registry) : QObject(&window), m_registry(registry) {
        window.installEventFilter(this);
    }

    bool eventFilter(QObject* watched, QEvent* event) override {
        auto* const window = static_cast<QWidget*>(watched);
        const bool usual =
            (window->windowState() & (Qt::WindowMinimized | Qt::WindowMaximized | Qt::WindowFullScreen)) == 0;
        if (event->type() == QEvent::Hide && !event->spontaneous() && usual) {
            m_registry.SaveFormPos(window->objectName(), window->pos());
            m_registry.SaveFormSize(window->objectName(), window->size());
        }
        return false;
    }

private:
    WindowRegistry& m_registry;
};

} // namespace

void keepPlace(QWidget& window, WindowRegistry& registry) {
    const auto position = registry.GetFormPos(window.objectName());
    if (position.has_value()) {
        const QSize size = registry.GetFormSize(window.objectName()).value_or(window.sizeHint());
        const QRect place =
            placedOnScreens(position, size.expandedTo(window.minimumSizeHint()), freeScreenAreas());
        window.resize(place.size());
        window.move(place.topLeft());
    }
    new PlaceKeeper(window, registry);
}

} // namespace tessel
