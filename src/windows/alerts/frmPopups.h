// The three popups as real windows.
#pragma once

#include "controls/look/Images.h"
#include "engine/ports/cPopup.h"

#include <QPoint>
#include <QRect>
#include <QSize>

#include <array>
#include <memory>

namespace tessel {

class PopupControl;
class Station;

// A popup is built when it is first shown, and kept.
class PopupWindows {
public:
    explicit PopupWindows(Station& station);
    ~PopupWindows();

    void show(PopupId popup, const PopupContent& content);
    void close(PopupId popup);
    void closeAll();

private:
    PopupControl& window(PopupId popup);
    // The default place, or above what stands there.
    QPoint freePlace(PopupId popup, QSize size, const QRect& area) const;

    Station& m_station;
    Images m_images;
    std::array<std::unique_ptr<PopupControl>, kPopupCount> m_windows;
};

} // namespace tessel
