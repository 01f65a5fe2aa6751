// What the engines ask of the desktop, made of the real windows.
#pragma once

#include "engine/ports/cPorts.h"
#include "engine/ports/cSession.h"
#include "windows/FormWindows.h"
#include "windows/alerts/frmPopups.h"

namespace tessel {

// Opens files and starts programs with what the desktop has for them.
class DesktopSession : public Session {
public:
    explicit DesktopSession(WindowRegistry& registry) : m_registry(registry) {}

    bool openPath(const QString& path) override;
    void startProgram(const QString& path, const QStringList& arguments) override;
    void SetAutoStart(bool on) override;
    bool autoStart() const override;

private:
    WindowRegistry& m_registry;
};

struct FormDesktop {
    explicit FormDesktop(WindowRegistry& registry) : windows(registry), session(registry) {}

    // The station that the windows show. Must be called before any window is asked for.
    void setStation(Station& station);
    Ports ports(Clock& clock, Link& link, Sounds& sounds, HotKeys& keys) {
        return {clock, link, windows, popups, session, sounds, keys};
    }

    FormWindows windows;
    PopupWindows popups{[this](const QString& title, const QString& text) { windows.showNote(title, text); }};
    DesktopSession session;
};

} // namespace tessel
