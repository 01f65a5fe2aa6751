// The desktop of the engines, made of the real windows.
#pragma once

#include "engine/ports/cDesktop.h"
#include "windows/alerts/frmPopups.h"

#include <QPointer>

#include <memory>

namespace tessel {

class Station;
class WindowRegistry;
class frmAdapters;
class frmEndpoints;
class frmMain;
class frmGlobalDoorBell;
class frmNetworkInfo;
class frmNotifications;
class frmSetStatus;
class frmWelcome;

// Builds each window when it is first asked for, and keeps it.
class FormDesktop : public Desktop {
public:
    explicit FormDesktop(WindowRegistry& registry);
    ~FormDesktop() override;

    // The station that the windows show. Must be called before any window is asked for.
    void setStation(Station& station);
    // nullptr until it is first shown.
    frmMain* mainWindow() const;

    void showWelcome() override;
    void showMain() override;
    void bringUp() override;
    void showWindow(WindowId window) override;
    void saveMainPlace() override;
    void showPopup(PopupId popup, const PopupContent& content) override;
    void closePopup(PopupId popup) override;
    void closePopups() override;
    void showBalloon(const QString& title, const QString& text) override;
    bool shakeMain(int dx, int dy) override;
    void minimiseMain() override;
    void restoreMain() override;
    void ResetScreenPosition() override;
    void unloadForms() override;
    void unloadMain() override;
    void SetAutoStart(bool on) override;
    bool openPath(const QString& path) override;
    void startProgram(const QString& path, const QStringList& arguments) override;

private:
    Station* m_station = nullptr;
    WindowRegistry& m_registry;
    QPointer<frmMain> m_main;
    QPointer<frmWelcome> m_welcome;
    QPointer<frmEndpoints> m_endpoints;
    QPointer<frmAdapters> m_adapters;
    QPointer<frmNetworkInfo> m_information;
    QPointer<frmSetStatus> m_setStatus;
    QPointer<frmGlobalDoorBell> m_globalDoorBell;
    QPointer<frmNotifications> m_notifications;
    std::unique_ptr<PopupWindows> m_popups;
};

} // namespace tessel
