// Where popups and short notes appear.
#pragma once

#include "engine/ports/cPopup.h"

namespace tessel {

// Implemented by the forms and by tests that record what was asked.
class PopupDisplay {
public:
    PopupDisplay() = default;
    virtual ~PopupDisplay() = default;
    PopupDisplay(const PopupDisplay&) = delete;
    PopupDisplay& operator=(const PopupDisplay&) = delete;

    // Shows a popup above everything without taking the focus. One that is up is replaced.
    virtual void show(PopupId popup, const PopupContent& content) = 0;
    virtual void close(PopupId popup) = 0;
    virtual void closeAll() = 0;
    // A short note beside the tray, or wherever the desktop shows such notes.
    virtual void Set_TrayPopup(const QString& title, const QString& text) = 0;
};

} // namespace tessel
