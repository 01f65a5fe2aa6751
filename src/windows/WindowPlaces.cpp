#include "windows/WindowPlaces.h"

#include "controls/look/ScreenPlacement.h"
#include "engine/ports/cWindowRegistry.h"

#include <QEvent>
#include <QTimer>
#include <QWidget>

namespace tessel {

namespace {

constexpr int kFrameMs = 200; // by then a window manager has put its frame around a window

bool isUsual(const QWidget& window) {
    return (window.windowState() & (Qt::WindowMinimized | Qt::WindowMaximized | Qt::WindowFullScreen)) == 0;
}

void fitOnScreen(QWidget& window) {
    if (!window.isVisible() || !isUsual(window)) {
        return;
    }
    const QRect frame = window.frameGeometry();
    const QRect place = placedOnScreens(frame.topLeft(), frame.size(), freeScreenAreas());
    if (place != frame) {
        window.resize(window.size() - (frame.size() - place.size()));
        window.move(place.topLeft());
    }
}

class PlaceKeeper : public QObject {
public:
    // `lent`: where it stands as long as its own screen is missing.
    PlaceKeeper(QWidget& window, WindowRegistry& registry, std::optional<QPoint> lent)
        : QObject(&window), m_registry(registry), m_lent(lent) {
        window.installEventFilter(this);
    }

    bool eventFilter(QObject* watched, QEvent* event) override {
        auto* const window = static_cast<QWidget*>(watched);
        if (event->type() == QEvent::Show && !event->spontaneous()) {
            fitOnScreenSoon(*window, m_lent);
        }
        if (event->type() == QEvent::Hide && !event->spontaneous() && isUsual(*window)) {
            if (window->pos() != m_lent) {
                m_registry.SaveFormPos(window->objectName(), window->pos());
                m_lent.reset();
            }
            m_registry.SaveFormSize(window->objectName(), window->size());
        }
        return false;
    }

private:
    WindowRegistry& m_registry;
    std::optional<QPoint> m_lent;
};

} // namespace

void keepPlace(QWidget& window, WindowRegistry& registry, bool allScreens) {
    std::optional<QPoint> lent;
    const QList<QRect> screens = freeScreenAreas(allScreens);
    const auto position = registry.GetFormPos(window.objectName());
    if (position.has_value()) {
        const QSize size = registry.GetFormSize(window.objectName()).value_or(window.sizeHint());
        const QRect place = placedOnScreens(position, size.expandedTo(window.minimumSizeHint()), screens);
        window.resize(place.size());
        window.move(place.topLeft());
        if (!isOnScreens(*position, screens)) {
            lent = place.topLeft();
        }
    }
    new PlaceKeeper(window, registry, lent);
}

void fitOnScreenSoon(QWidget& window, std::optional<QPoint>& lent) {
    QTimer::singleShot(kFrameMs, &window, [&window, &lent] {
        fitOnScreen(window);
        // Its frame, not the user, may have moved it.
        if (lent) {
            lent = window.pos();
        }
    });
}

void putInFront(QWidget& window) {
    window.setWindowState(window.windowState() & ~Qt::WindowMinimized);
    window.show();
    window.raise();
    window.activateWindow();
}

} // namespace tessel
