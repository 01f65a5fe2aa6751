// The windows, as the engines ask for them.
#pragma once

#include <QString>

#include <cstddef>

namespace tessel {

// Windows that can be asked for. Each has a row in the table of windows.
enum class WindowId {
    Welcome,
    Main,
    Endpoints,
    Adapters,
    NetworkInfo,
    SetStatus,
    Options,
    Notifications,
    GlobalDoorBell,
    RecentOptions,
    StatusButtonEditor,
    About,
    PatientName,
    OccupiedRemote,
    ActiveNote,
    LocationNote,
    Actions,
    FavEditor,
    AlreadyFavorite,
    RemoveFavorite,
    RoomStatus,
    GroupMessage,
    Reply,
    SentMessage,
    Snippit,
    MicroMetrics,
    MessageTest
};
inline constexpr std::size_t kWindowCount = static_cast<std::size_t>(WindowId::MessageTest) + 1;

// Page of the options that concerns messages.
inline constexpr int kMessageOptionsPage = 4;

// Which window is wanted, and what it is to show. A window reads what concerns it.
struct WindowRequest {
    WindowId window;
    QString SID{};      // the location that it is about; empty: none
    int page = 0;       // of a window with pages, or its mode; each window numbers its own
    int slot = -1;      // the entry on that page, say a quick status; -1: none
    QString text{};     // whatever else it starts with: recipients, the id of a message
    bool modal = false; // stands over the main window and holds it until it is closed
};

// Implemented by the forms and by tests that record what was asked.
class Windows {
public:
    Windows() = default;
    virtual ~Windows() = default;
    Windows(const Windows&) = delete;
    Windows& operator=(const Windows&) = delete;

    // Shows a window, or brings the open one to the front and tells it of the request.
    virtual void show(const WindowRequest& request) = 0;
    // The main window, or the dialog of the first run, at its normal size in the foreground.
    virtual void bringUp() = 0;

    // The main window alone. Nothing happens while it is not there.
    virtual void minimiseMain() = 0;
    // Normal size, neither minimised nor maximised.
    virtual void restoreMain() = 0;
    // Back to its first place and size.
    virtual void ResetScreenPosition() = 0;
    // Stores its position and size.
    virtual void saveMainPlace() = 0;
    // Moves it from where it rests by so many pixels, without storing the place. False while it is
    // minimised or not there.
    virtual bool shakeMain(int dx, int dy) = 0;

    // Unloads every window but the main one.
    virtual void unloadForms() = 0;
    // Unloads the main window, and with it ends the process.
    virtual void unloadMain() = 0;
};

} // namespace tessel
