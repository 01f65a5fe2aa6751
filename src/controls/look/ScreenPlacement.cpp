#include "controls/look/ScreenPlacement.h"

#include <QGuiApplication>
#include <QScreen>
#include <QWidget>

#include <algorithm>
#include <limits>

namespace tessel {

namespace {

int distance(QPoint point, const QRect& area) {
    const int dx = std::max({area.left() - point.x(), 0, point.x() - area.right()});
    const int dy = std::max({area.top() - point.y(), 0, point.y() - area.bottom()});
    return dx + dy;
}

} // namespace

QRect placedOnScreens(std::optional<QPoint> position, QSize wanted, const QList<QRect>& freeAreas) {
    if (freeAreas.isEmpty()) {
        return {position.value_or(QPoint()), wanted};
    }
    QRect area = freeAreas.first();
    if (position.has_value()) {
        // A window belongs where most users look: near its title.
        const QPoint title(position->x() + wanted.width() / 2, position->y());
        int nearest = std::numeric_limits<int>::max();
        for (const QRect& candidate : freeAreas) {
            if (const int away = distance(title, candidate); away < nearest) {
                nearest = away;
                area = candidate;
            }
        }
    }
    const QSize size = wanted.boundedTo(area.size());
    const QPoint middle = area.center() - QPoint(size.width() / 2, size.height() / 2);
    const QPoint asked = position.value_or(middle);
    return {QPoint(std::clamp(asked.x(), area.left(), area.right() - size.width() + 1),
                   std::clamp(asked.y(), area.top(), area.bottom() - size.height() + 1)),
            size};
}

bool isOnScreens(QPoint position, const QList<QRect>& freeAreas) {
    return std::any_of(freeAreas.begin(), freeAreas.end(),
                       [position](const QRect& area) { return area.contains(position); });
}

QList<QRect> freeScreenAreas(bool all) {
    QList<QRect> areas;
    const QScreen* const main = QGuiApplication::primaryScreen();
    if (main != nullptr) {
        areas += main->availableGeometry();
    }
    for (const QScreen* const screen : QGuiApplication::screens()) {
        if (all && screen != main) {
            areas += screen->availableGeometry();
        }
    }
    return areas;
}

QSize sizeForLetters(const QWidget& window, QSize usual) {
    constexpr int kUsualHeight = 16;
    constexpr QSize kFrame(16, 48); // of the desktop's own, about
    const QSize wanted =
        usual * std::max(1.0, static_cast<double>(window.fontMetrics().height()) / kUsualHeight);
    const QScreen* const screen = window.screen();
    return screen == nullptr ? wanted : wanted.boundedTo(screen->availableSize() - kFrame);
}

} // namespace tessel
