// Windows, popups and session that write down what was asked of them.
#pragma once

#include "engine/ports/cPopupDisplay.h"
#include "engine/ports/cPorts.h"
#include "engine/ports/cSession.h"
#include "engine/ports/cWindows.h"

#include <array>
#include <functional>
#include <optional>
#include <vector>

namespace tessel {

class RecordingWindows : public Windows {
public:
    explicit RecordingWindows(QStringList& calls) : m_calls(calls) {}

    // What a request for this window reads like among the calls.
    static QString shown(WindowId window) {
        return QStringLiteral("showWindow %1").arg(static_cast<int>(window));
    }

    std::vector<WindowRequest> requests;
    // What real windows do when they are asked for the main one.
    std::function<void()> onShowMain;
    bool minimised = false;
    int shaken = 0;  // pixels of all shakes together
    QPoint shakenTo; // how far the window is from its place

    void show(const WindowRequest& request) override {
        requests.push_back(request);
        m_calls += request.window == WindowId::Welcome ? QStringLiteral("showWelcome")
                   : request.window == WindowId::Main  ? QStringLiteral("showMain")
                                                       : shown(request.window);
        if (request.window == WindowId::Main && onShowMain) {
            onShowMain();
        }
    }
    void bringUp() override { m_calls += QStringLiteral("bringUp"); }
    void minimiseMain() override { m_calls += QStringLiteral("minimiseMain"); }
    void restoreMain() override { m_calls += QStringLiteral("restoreMain"); }
    void ResetScreenPosition() override { m_calls += QStringLiteral("ResetScreenPosition"); }
    void saveMainPlace() override { m_calls += QStringLiteral("saveMainPlace"); }
    bool shakeMain(int dx, int dy) override {
        m_calls += QStringLiteral("shakeMain");
        shakenTo = minimised ? QPoint() : QPoint(dx, dy);
        shaken += shakenTo.manhattanLength();
        return !minimised;
    }
    void unloadForms() override { m_calls += QStringLiteral("unloadForms"); }
    void unloadMain() override { m_calls += QStringLiteral("unloadMain"); }

private:
    QStringList& m_calls;
};

class RecordingPopups : public PopupDisplay {
public:
    explicit RecordingPopups(QStringList& calls) : m_calls(calls) {}

    // What is up at the moment.
    std::optional<PopupContent>& operator[](std::size_t popup) { return m_up[popup]; }

    void show(PopupId popup, const PopupContent& content) override {
        m_calls += QStringLiteral("showPopup %1").arg(static_cast<int>(popup));
        m_up[static_cast<std::size_t>(popup)] = content;
    }
    void close(PopupId popup) override {
        m_calls += QStringLiteral("closePopup %1").arg(static_cast<int>(popup));
        m_up[static_cast<std::size_t>(popup)].reset();
    }
    void closeAll() override { m_calls += QStringLiteral("closePopups"); }
    void Set_TrayPopup(const QString& title, const QString& text) override {
        m_calls += QStringLiteral("Set_TrayPopup ") + title + u'|' + text;
    }

private:
    QStringList& m_calls;
    std::array<std::optional<PopupContent>, kPopupCount> m_up;
};

class RecordingSession : public Session {
public:
    explicit RecordingSession(QStringList& calls) : m_calls(calls) {}

    bool openPath(const QString& path) override {
        m_calls += QStringLiteral("openPath ") + path.section(u'/', -1);
        return true;
    }
    void startProgram(const QString& path, const QStringList& arguments) override {
        m_calls += QStringLiteral("startProgram ") + path.section(u'/', -1) + u' ' + arguments.join(u' ');
    }
    void SetAutoStart(bool on) override {
        m_calls += QStringLiteral("SetAutoStart %1").arg(on ? 1 : 0);
        m_autoStart = on;
    }
    bool autoStart() const override { return m_autoStart; }

private:
    QStringList& m_calls;
    bool m_autoStart = false;
};

// The three together, with one list of all calls in their order.
struct RecordingDesktop {
    QStringList calls;
    RecordingWindows windows{calls};
    RecordingPopups popups{calls};
    RecordingSession session{calls};

    Ports ports(Clock& clock, Link& link, Sounds& sounds, HotKeys& keys) {
        return {clock, link, windows, popups, session, sounds, keys};
    }
};

} // namespace tessel
