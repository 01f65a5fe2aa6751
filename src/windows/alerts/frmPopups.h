// The three popups as real windows.
#pragma once

#include "controls/look/Images.h"
#include "engine/ports/cPopupDisplay.h"

#include <QPoint>
#include <QRect>
#include <QSize>

#include <array>
#include <functional>
#include <memory>

namespace tessel {

class PopupControl;
class Popups;

// A popup is built when it is first shown, and kept.
class PopupWindows : public PopupDisplay {
public:
    // `note`: shows a short note by the tray.
    explicit PopupWindows(std::function<void(const QString& title, const QString& text)> note);
    ~PopupWindows() override;

    // What the desktop can show and wants to show; nothing of it when nobody says so.
    struct Effects {
        std::function<bool()> composites; // windows that can be seen through
        std::function<bool()> animates;   // things that move
    };
    void setEffects(Effects effects) { m_effects = std::move(effects); }
    // Whom the user's clicks reach. Must be called before any popup is asked for.
    void setEngine(Popups& engine) { m_engine = &engine; }

    void show(PopupId popup, const PopupContent& content) override;
    void close(PopupId popup) override;
    void closeAll() override;
    void Set_TrayPopup(const QString& title, const QString& text) override { m_note(title, text); }

private:
    PopupControl& window(PopupId popup);
    // The default place, or above what stands there.
    QPoint freePlace(PopupId popup, QSize size, const QRect& area) const;

    std::function<void(const QString& title, const QString& text)> m_note;
    Popups* m_engine = nullptr;
    Effects m_effects;
    Images m_images;
    std::array<std::unique_ptr<PopupControl>, kPopupCount> m_windows;
};

} // namespace tessel
