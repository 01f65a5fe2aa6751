// What the engines ask of the desktop and its windows.
#pragma once

#include "engine/ports/cPopup.h"

#include <QString>
#include <QStringList>

namespace tessel {

// Windows that can be asked for by name.
enum class WindowId {
    Endpoints,
    Adapters,
    NetworkInfo,
    SetStatus,
    StatusOptions,
    Notifications,
    GlobalDoorBell
};

// Implemented by the forms and by tests that record what was asked.
class Desktop {
public:
    Desktop() = default;
    virtual ~Desktop() = default;
    Desktop(const Desktop&) = delete;
    Desktop& operator=(const Desktop&) = delete;

    // Shows the dialog of the first run, which in the end shows the main window.
    virtual void showWelcome() = 0;
    // Loads and shows the main window.
    virtual void showMain() = 0;
    // Restores the main window and brings it to the foreground.
    virtual void bringUp() = 0;

    // Shows a window, or brings it to the front when it is open.
    virtual void showWindow(WindowId window) = 0;

    // Stores position and size of the main window.
    virtual void saveMainPlace() = 0;
    // Shows a popup above everything without taking the focus. One that is up is replaced.
    virtual void showPopup(PopupId popup, const PopupContent& content) = 0;
    virtual void closePopup(PopupId popup) = 0;
    virtual void closePopups() = 0;
    // A short note beside the tray, or wherever the desktop shows such notes.
    virtual void showBalloon(const QString& title, const QString& text) = 0;
    // Moves the main window from where it stands by so many pixels, without storing the place.
    // False while it is minimised or not there.
    virtual bool shakeMain(int dx, int dy) = 0;
    virtual void minimiseMain() = 0;
    // Normal size, neither minimised nor maximised.
    virtual void restoreMain() = 0;
    // Puts the main window back to its first place and size.
    virtual void ResetScreenPosition() = 0;
    // Unloads every window but the main one.
    virtual void unloadForms() = 0;
    // Unloads the main window, and with it ends the process.
    virtual void unloadMain() = 0;

    // Switches the start of the program with the user's session on or off.
    virtual void SetAutoStart(bool on) = 0;
    // Shows a file or a folder with whatever program the desktop has for it. False when there is none.
    virtual bool openPath(const QString& path) = 0;
    // Starts a program without waiting for it. Nothing happens when there is none at `path`.
    virtual void startProgram(const QString& path, const QStringList& arguments) = 0;
};

} // namespace tessel
