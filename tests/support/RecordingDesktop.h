// A desktop that writes down what was asked of it.
#pragma once

#include "engine/ports/cDesktop.h"

#include <array>
#include <functional>
#include <optional>

namespace tessel {

class RecordingDesktop : public Desktop {
public:
    QStringList calls;
    // What a real desktop does when it is asked for the main window.
    std::function<void()> onShowMain;

    void showWelcome() override { calls += QStringLiteral("showWelcome"); }
    void showMain() override {
        calls += QStringLiteral("showMain");
        if (onShowMain) {
            onShowMain();
        }
    }
    void bringUp() override { calls += QStringLiteral("bringUp"); }
    void showWindow(WindowId window) override {
        calls += QStringLiteral("showWindow %1").arg(static_cast<int>(window));
    }
    void saveMainPlace() override { calls += QStringLiteral("saveMainPlace"); }
    void showPopup(PopupId popup, const PopupContent& content) override {
        calls += QStringLiteral("showPopup %1").arg(static_cast<int>(popup));
        popups[static_cast<std::size_t>(popup)] = content;
    }
    void closePopup(PopupId popup) override {
        calls += QStringLiteral("closePopup %1").arg(static_cast<int>(popup));
        popups[static_cast<std::size_t>(popup)].reset();
    }
    // What is up at the moment.
    std::array<std::optional<PopupContent>, kPopupCount> popups;
    void showBalloon(const QString& title, const QString& text) override {
        calls += QStringLiteral("showBalloon ") + title + u'|' + text;
    }
    bool shakeMain(int dx, int dy) override {
        calls += QStringLiteral("shakeMain");
        shakenTo = minimised ? QPoint() : QPoint(dx, dy);
        shaken += shakenTo.manhattanLength();
        return !minimised;
    }
    bool minimised = false;
    int shaken = 0;  // pixels of all shakes together
    QPoint shakenTo; // how far the window is from its place
    void minimiseMain() override { calls += QStringLiteral("minimiseMain"); }
    void restoreMain() override { calls += QStringLiteral("restoreMain"); }
    void ResetScreenPosition() override { calls += QStringLiteral("ResetScreenPosition"); }
    void closePopups() override { calls += QStringLiteral("closePopups"); }
    void unloadForms() override { calls += QStringLiteral("unloadForms"); }
    void unloadMain() override { calls += QStringLiteral("unloadMain"); }
    void SetAutoStart(bool on) override { calls += QStringLiteral("SetAutoStart %1").arg(on ? 1 : 0); }
    bool openPath(const QString& path) override {
        calls += QStringLiteral("openPath ") + path.section(u'/', -1);
        return true;
    }
    void startProgram(const QString& path, const QStringList& arguments) override {
        calls += QStringLiteral("startProgram ") + path.section(u'/', -1) + u' ' + arguments.join(u' ');
    }
};

} // namespace tessel
