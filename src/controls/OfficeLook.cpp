#include "controls/OfficeLook.h"

#include <QApplication>
#include <QPalette>
#include <QStyle>
#include <QStyleFactory>

namespace tessel {

namespace {

constexpr int kMiddleLightness = 128;

struct Shades {
    QRgb window, base, alternate, text, dimmed, button, border, accent, accentText, link, tip;
};

constexpr Shades kLight{0xFFF4F5F7, 0xFFFFFFFF, 0xFFF7F8FA, 0xFF1E2329, 0xFF717A85, 0xFFFBFBFC,
                        0xFFC9CED6, 0xFF1F6FB2, 0xFFFFFFFF, 0xFF1F6FB2, 0xFFFFFFFF};
constexpr Shades kDark{0xFF23272E, 0xFF1B1E24, 0xFF20242A, 0xFFE6E9ED, 0xFF98A1AC, 0xFF2D323A,
                       0xFF3F4651, 0xFF3D8FD6, 0xFFFFFFFF, 0xFF6DB3EE, 0xFF2D323A};

QPalette paletteOf(const Shades& s) {
    QPalette palette;
    const auto set = [&palette](QPalette::ColorRole role, QRgb color) {
        palette.setColor(role, QColor(color));
    };
    set(QPalette::Window, s.window);
    set(QPalette::WindowText, s.text);
    set(QPalette::Base, s.base);
    set(QPalette::AlternateBase, s.alternate);
    set(QPalette::Text, s.text);
    set(QPalette::PlaceholderText, s.dimmed);
    set(QPalette::Button, s.button);
    set(QPalette::ButtonText, s.text);
    set(QPalette::BrightText, 0xFFFFFFFF);
    set(QPalette::Mid, s.border);
    set(QPalette::Dark, s.border);
    set(QPalette::Light, s.base);
    set(QPalette::Midlight, s.button);
    set(QPalette::Highlight, s.accent);
    set(QPalette::HighlightedText, s.accentText);
    set(QPalette::Link, s.link);
    set(QPalette::LinkVisited, s.link);
    set(QPalette::ToolTipBase, s.tip);
    set(QPalette::ToolTipText, s.text);
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
        palette.setColor(QPalette::Disabled, role, QColor(s.dimmed));
    }
    palette.setColor(QPalette::Disabled, QPalette::Highlight, QColor(s.border));
    return palette;
}

bool desktopIsDark(const QPalette& desktop) {
    const QByteArray wanted = qgetenv("TESSEL_THEME");
    if (wanted == "dark" || wanted == "light") {
        return wanted == "dark";
    }
    return qgetenv("GTK_THEME").endsWith(":dark") ||
           desktop.color(QPalette::Window).lightness() < kMiddleLightness;
}

} // namespace

void applyOfficeLook() {
    const bool dark = desktopIsDark(QApplication::palette());
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    QApplication::setPalette(paletteOf(dark ? kDark : kLight));
}

} // namespace tessel
