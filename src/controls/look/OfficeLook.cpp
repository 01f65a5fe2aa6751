#include "controls/look/OfficeLook.h"

#include "controls/list/ReportColors.h"

#include <QApplication>
#include <QPainter>
#include <QPalette>
#include <QProxyStyle>
#include <QStyleOption>

namespace tessel {

namespace {

constexpr int kMiddleLightness = 128;
constexpr double kMenuTint = 0.22; // of the accent colour on the row that is chosen

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

class OfficeStyle : public QProxyStyle {
public:
    explicit OfficeStyle(bool dark) : QProxyStyle(QStringLiteral("Fusion")), m_dark(dark) {}

    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* returned) const override {
        // The style's own pictures on buttons are of another family, and coarse.
        return hint == SH_DialogButtonBox_ButtonsHaveIcons
                   ? 0
                   : QProxyStyle::styleHint(hint, option, widget, returned);
    }

    // A row of a menu under the mouse is tinted like one of a list: on the full accent colour the
    // pictures before the captions would be lost.
    void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override {
        const auto* const item = qstyleoption_cast<const QStyleOptionMenuItem*>(option);
        if (element != CE_MenuItem || item == nullptr) {
            QProxyStyle::drawControl(element, option, painter, widget);
            return;
        }
        QStyleOptionMenuItem tinted = *item;
        QPalette& palette = tinted.palette;
        palette.setColor(QPalette::Highlight, blend(palette.color(QPalette::Window),
                                                    palette.color(QPalette::Highlight), kMenuTint));
        palette.setColor(QPalette::HighlightedText, palette.color(QPalette::Text));
        QProxyStyle::drawControl(element, &tinted, painter, widget);
    }

    // The style draws frames darker than the window, which nobody sees on a dark one.
    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override {
        QProxyStyle::drawPrimitive(element, option, painter, widget);
        if (m_dark && element == PE_PanelMenu) {
            painter->setPen(option->palette.color(QPalette::Mid));
            painter->setBrush(Qt::NoBrush);
            painter->drawRect(option->rect.adjusted(0, 0, -1, -1));
            return;
        }
        const bool box = element == PE_IndicatorCheckBox || element == PE_IndicatorRadioButton;
        // Where the focus is, the style's own frame is bright enough.
        if (!m_dark || (!box && (element != PE_FrameLineEdit || option->state.testFlag(State_HasFocus)))) {
            return;
        }
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing);
        painter->setPen(option->palette.color(box ? QPalette::PlaceholderText : QPalette::Mid));
        painter->setBrush(Qt::NoBrush);
        const QRectF frame = QRectF(option->rect).adjusted(0.5, 0.5, -0.5, -0.5);
        if (element == PE_IndicatorRadioButton) {
            painter->drawEllipse(frame);
        } else {
            painter->drawRoundedRect(frame, 2, 2);
        }
        painter->restore();
    }

private:
    bool m_dark;
};

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
    QApplication::setStyle(new OfficeStyle(dark));
    QApplication::setPalette(paletteOf(dark ? kDark : kLight));
}

} // namespace tessel
