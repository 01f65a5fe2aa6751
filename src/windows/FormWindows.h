// Shows the windows of the table, and keeps those that are open.
#pragma once

#include "engine/ports/cWindows.h"

#include <QPointer>
#include <QWidget>

#include <map>

namespace tessel {

class Station;
class WindowRegistry;
class frmMain;
struct WindowRow;

// A window that reads more of a request than that it is to show.
class RequestedWindow {
public:
    // Comes with each request before the window shows, the first as well as those while it is open.
    virtual void take(const WindowRequest& request) = 0;

protected:
    ~RequestedWindow() = default;
};

class FormWindows : public Windows {
public:
    explicit FormWindows(WindowRegistry& registry);
    ~FormWindows() override;

    // Must be called before any window is asked for.
    void setStation(Station& station);
    // nullptr until it is first shown.
    frmMain* mainWindow() const;
    // nullptr while it is not there.
    QWidget* window(WindowId window) const;
    // A short note by the tray of the main window.
    void showNote(const QString& title, const QString& text);

    void show(const WindowRequest& request) override;
    void bringUp() override;
    void minimiseMain() override;
    void restoreMain() override;
    void ResetScreenPosition() override;
    void saveMainPlace() override;
    bool shakeMain(int dx, int dy) override;
    void unloadForms() override;
    void unloadMain() override;

private:
    QWidget* make(const WindowRow& row, bool modal);
    // Makes a dialog that is open hold the main window.
    void holdMain(QWidget& dialog);
    void Set_onTop();

    WindowRegistry& m_registry;
    Station* m_station = nullptr;
    std::map<WindowId, QPointer<QWidget>> m_windows;
};

} // namespace tessel
