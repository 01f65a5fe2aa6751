#include "controls/look/OfficeLook.h"

#include "controls/list/ReportColors.h"
#include "controls/look/Tokens.h"

#include <QAbstractScrollArea>
#include <QApplication>
#include <QHash>
#include <QPainter>
#include <QPalette>
#include <QProxyStyle>
#include <QStyleOption>
#include <QTabBar>
#include <QToolButton>

namespace tessel {

namespace {

struct Shades {
    QRgb window, base, alternate, text, dimmed, button, border, accent, accentText, link, tip;
};

constexpr Shades kLight{0xFFF4F5F7, 0xFFFFFFFF, 0xFFF7F8FA, 0xFF1E2329, 0xFF5F6873, 0xFFFBFBFC,
                        0xFFC9CED6, 0xFF1F6FB2, 0xFFFFFFFF, 0xFF1F6FB2, 0xFFFFFFFF};
constexpr Shades kDark{0xFF23272E, 0xFF1B1E24, 0xFF20242A, 0xFFE6E9ED, 0xFFA3ACB7, 0xFF282D34,
                       0xFF3F4651, 0xFF2F79BF, 0xFFFFFFFF, 0xFF6DB3EE, 0xFF2D323A};

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

QFontMetrics boldMetrics(QFont font) {
    font.setBold(true);
    return QFontMetrics(font);
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
        const auto* const tab = qstyleoption_cast<const QStyleOptionTab*>(option);
        if (element == CE_ToolBar) {
            return; // a bar is no more than its buttons
        }
        if (element == CE_TabBarTabShape && tab != nullptr) {
            drawTab(*tab, *painter);
            return;
        }
        const auto* const item = qstyleoption_cast<const QStyleOptionMenuItem*>(option);
        if (element != CE_MenuItem || item == nullptr) {
            painter->save();
            if (element == CE_TabBarTabLabel && option->state.testFlag(State_Selected)) {
                QFont bold = painter->font();
                bold.setBold(true);
                painter->setFont(bold);
            }
            QProxyStyle::drawControl(element, option, painter, widget);
            painter->restore();
            return;
        }
        QStyleOptionMenuItem tinted = *item;
        QPalette& palette = tinted.palette;
        palette.setColor(QPalette::Highlight, blend(palette.color(QPalette::Window),
                                                    palette.color(QPalette::Highlight), look::kMenuTint));
        palette.setColor(QPalette::HighlightedText, palette.color(QPalette::Text));
        QProxyStyle::drawControl(element, &tinted, painter, widget);
    }

    // Room for the arrow beside the caption, and for the bold caption of the tab that is open.
    QSize sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& contents,
                           const QWidget* widget) const override {
        QSize size = QProxyStyle::sizeFromContents(type, option, contents, widget);
        const auto* const button = qstyleoption_cast<const QStyleOptionToolButton*>(option);
        if (type == CT_ToolButton && button != nullptr && opensMenu(*button)) {
            size.rwidth() += look::kMenuArrow;
        }
        if (type == CT_PushButton) {
            // Around large letters, more than around small ones.
            const auto more = [](int units) { return qRound(units * (letterScale() - 1)); };
            size += QSize(more(look::kWide), more(look::kTight));
        }
        const auto* const tab = qstyleoption_cast<const QStyleOptionTab*>(option);
        if (type == CT_TabBarTab && tab != nullptr && widget != nullptr) {
            size.rwidth() += boldMetrics(widget->font()).horizontalAdvance(tab->text) -
                             widget->fontMetrics().horizontalAdvance(tab->text);
        }
        return size;
    }

    int pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const override {
        switch (metric) {
        case PM_SmallIconSize:
        case PM_ButtonIconSize:
        case PM_IndicatorWidth:
        case PM_IndicatorHeight:
        case PM_ExclusiveIndicatorWidth:
        case PM_ExclusiveIndicatorHeight:
            return qRound(QProxyStyle::pixelMetric(metric, option, widget) * letterScale());
        case PM_ListViewIconSize:
            return pixelMetric(PM_SmallIconSize, option, widget);
        case PM_TabBarTabOverlap:
        case PM_TabBarTabShiftVertical:
        case PM_TabBarTabShiftHorizontal:
            return 0;
        case PM_TabBarTabHSpace:
            return widget != nullptr && widget->property(look::kTightTabs).toBool() ? look::kTightTabSpace
                                                                                    : look::kTabSpace;
        default:
            return QProxyStyle::pixelMetric(metric, option, widget);
        }
    }

    // The style derives the frame of a control from the colour of the window, too faint for what one types
    // into: such a control is given another window to derive it from.
    const QPalette& framed(const QPalette& palette) const {
        constexpr qsizetype kMost = 32; // palettes of single widgets come and go
        constexpr int kDarker = 140;    // percent, the style's own step
        const auto known = m_framed.constFind(palette.cacheKey());
        if (known != m_framed.constEnd()) {
            return *known;
        }
        if (m_framed.size() >= kMost) {
            m_framed.clear();
        }
        QPalette made = palette;
        const QColor frame = frameColor(palette);
        made.setColor(QPalette::Window, QColor::fromHsv(frame.hue(), frame.saturation(),
                                                        std::min(255, frame.value() * kDarker / 100)));
        return *m_framed.insert(palette.cacheKey(), made);
    }

    void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                            const QWidget* widget) const override {
        const auto* const button = qstyleoption_cast<const QStyleOptionToolButton*>(option);
        if (const auto* const combo = qstyleoption_cast<const QStyleOptionComboBox*>(option);
            control == CC_ComboBox && combo != nullptr) {
            QStyleOptionComboBox box = *combo;
            box.palette = framed(combo->palette);
            QProxyStyle::drawComplexControl(control, &box, painter, widget);
            drawFocus(*option, *painter, 0);
            return;
        }
        if (const auto* const group = qstyleoption_cast<const QStyleOptionGroupBox*>(option);
            control == CC_GroupBox && group != nullptr) {
            // The heading of what follows.
            painter->save();
            QFont heading = painter->font();
            heading.setWeight(QFont::DemiBold);
            painter->setFont(heading);
            QStyleOptionGroupBox box = *group;
            box.fontMetrics = QFontMetrics(heading);
            QProxyStyle::drawComplexControl(control, &box, painter, widget);
            painter->restore();
            return;
        }
        if (const auto* const spin = qstyleoption_cast<const QStyleOptionSpinBox*>(option);
            control == CC_SpinBox && spin != nullptr) {
            QStyleOptionSpinBox box = *spin;
            box.palette = framed(spin->palette);
            QProxyStyle::drawComplexControl(control, &box, painter, widget);
            drawFocus(*option, *painter, 0);
            return;
        }
        if (control != CC_ToolButton || button == nullptr || !opensMenu(*button)) {
            QProxyStyle::drawComplexControl(control, option, painter, widget);
            return;
        }
        drawToolPanel(*button, *painter);
        QStyleOptionToolButton rest = *button;
        rest.features &= ~QStyleOptionToolButton::HasMenu;
        rest.state &= ~(State_Raised | State_Sunken | State_On | State_MouseOver);
        const QRect arrow(rest.rect.right() - look::kMenuArrow, rest.rect.top(),
                          look::kMenuArrow - look::kTight, rest.rect.height());
        rest.rect.setRight(rest.rect.right() - look::kMenuArrow + look::kTight);
        rest.rect = visualRect(option->direction, option->rect, rest.rect);
        QProxyStyle::drawComplexControl(control, &rest, painter, widget);
        rest.rect = visualRect(option->direction, option->rect, arrow);
        QProxyStyle::drawPrimitive(PE_IndicatorArrowDown, &rest, painter, widget);
    }

    // The style's own is drawn for a light window alone.
    QIcon standardIcon(StandardPixmap icon, const QStyleOption* option,
                       const QWidget* widget) const override {
        switch (icon) {
        case SP_MessageBoxInformation:
            return sign(u'i', QApplication::palette().color(QPalette::Highlight), Qt::white);
        case SP_MessageBoxQuestion:
            return sign(u'?', QApplication::palette().color(QPalette::Highlight), Qt::white);
        case SP_MessageBoxWarning:
            return sign(u'!', QColor(look::kAlarm), Qt::black);
        case SP_MessageBoxCritical:
            return sign(u'!', QColor(look::kDanger), Qt::white);
        case SP_ToolBarHorizontalExtensionButton:
            break;
        default:
            return QProxyStyle::standardIcon(icon, option, widget);
        }
        constexpr int kSide = 16;
        QPixmap picture(kSide, kSide);
        picture.fill(Qt::transparent);
        QPainter painter(&picture);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(QPen(QApplication::palette().color(QPalette::ButtonText), look::kStroke));
        for (const double left : {4.0, 9.0}) {
            painter.drawPolyline(QPolygonF({QPointF(left, 4), QPointF(left + 4, 8), QPointF(left, 12)}));
        }
        return picture;
    }

    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override {
        if (element == PE_PanelButtonTool) {
            drawToolPanel(*option, *painter);
            return;
        }
        if (element == PE_PanelStatusBar) {
            painter->fillRect(QRect(0, 0, option->rect.width(), 1), option->palette.color(QPalette::Mid));
            return;
        }
        const bool bar = qobject_cast<const QToolButton*>(widget) != nullptr ||
                         qobject_cast<const QTabBar*>(widget) != nullptr;
        if (element == PE_FrameFocusRect && bar) {
            painter->setPen(QPen(option->palette.color(QPalette::Highlight), look::kFocus));
            painter->setBrush(Qt::NoBrush);
            painter->drawRect(option->rect.adjusted(-1, -1, 1, 1));
            return;
        }
        if (element == PE_IndicatorCheckBox || element == PE_IndicatorRadioButton ||
            element == PE_FrameLineEdit || element == PE_PanelButtonCommand) {
            drawFramed(element, *option, painter, widget);
            if (element == PE_FrameLineEdit) {
                drawFocus(*option, *painter, 0);
            } else if (element == PE_PanelButtonCommand &&
                       option->state.testFlag(State_KeyboardFocusChange)) {
                // Inside its frame, which also shows what Enter presses.
                drawFocus(*option, *painter, look::kFocus);
            }
            return;
        }
        QProxyStyle::drawPrimitive(element, option, painter, widget);
        if (m_dark && element == PE_PanelMenu) {
            painter->setPen(option->palette.color(QPalette::Mid));
            painter->setBrush(Qt::NoBrush);
            painter->drawRect(option->rect.adjusted(0, 0, -1, -1));
            return;
        }
        // A list that has the keyboard shows it, whether a row of it is chosen or not.
        if (element == PE_Frame && qobject_cast<const QAbstractScrollArea*>(widget) != nullptr &&
            widget->hasFocus()) {
            painter->setPen(option->palette.color(QPalette::Active, QPalette::Highlight));
            painter->setBrush(Qt::NoBrush);
            painter->drawRect(option->rect.adjusted(0, 0, -1, -1));
        }
    }

private:
    // How much larger than usual the letters of the desktop are; 1 at least.
    static double letterScale() { return std::max(1.0, QApplication::font().pointSizeF() / look::kMeantFor); }

    // What a question or a warning begins with.
    static QIcon sign(QChar letter, const QColor& color, const QColor& ink) {
        constexpr int kSide = 64; // more than it is ever shown in
        QPixmap picture(kSide, kSide);
        picture.fill(Qt::transparent);
        QPainter painter(&picture);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(Qt::NoPen);
        painter.setBrush(color);
        painter.drawEllipse(picture.rect());
        QFont font = QApplication::font();
        font.setBold(true);
        font.setPixelSize(kSide * 3 / 4);
        painter.setFont(font);
        painter.setPen(ink);
        painter.drawText(picture.rect(), Qt::AlignCenter, QString(letter));
        return QIcon(picture);
    }

    // What has the keyboard, in a frame that nobody overlooks.
    static void drawFocus(const QStyleOption& option, QPainter& painter, int inset) {
        if (!option.state.testFlag(State_HasFocus) || !option.state.testFlag(State_Enabled)) {
            return;
        }
        const double edge = inset + look::kFocus / 2.0;
        painter.save();
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(QPen(option.palette.color(QPalette::Highlight), look::kFocus));
        painter.setBrush(Qt::NoBrush);
        painter.drawRoundedRect(QRectF(option.rect).adjusted(edge, edge, -edge, -edge), look::kRounding,
                                look::kRounding);
        painter.restore();
    }

    static bool opensMenu(const QStyleOptionToolButton& button) {
        return button.features.testFlag(QStyleOptionToolButton::HasMenu) &&
               !button.features.testFlag(QStyleOptionToolButton::MenuButtonPopup);
    }

    // Each state has a shape of its own beside its colour: hovered a frame, pressed a thick one, checked
    // a bar at the foot.
    static void drawToolPanel(const QStyleOption& option, QPainter& painter) {
        const bool enabled = option.state.testFlag(State_Enabled);
        const bool down = option.state.testFlag(State_Sunken);
        const bool checked = option.state.testFlag(State_On);
        if (!down && !checked && !(enabled && option.state.testFlag(State_MouseOver))) {
            return;
        }
        const QPalette& palette = option.palette;
        const QColor accent = palette.color(QPalette::Highlight);
        const QColor under = palette.color(QPalette::Button);
        painter.save();
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(
            QPen(enabled ? blend(under, accent, down ? 1.0 : look::kUnfocused) : palette.color(QPalette::Mid),
                 down ? look::kFocus : 1));
        painter.setBrush(blend(under, accent,
                               down      ? look::kPressed
                               : checked ? look::kChecked
                                         : look::kHovered));
        painter.drawRoundedRect(QRectF(option.rect).adjusted(0.5, 0.5, -0.5, -0.5), look::kRounding,
                                look::kRounding);
        if (checked) {
            painter.fillRect(QRect(option.rect.left() + look::kRounding,
                                   option.rect.bottom() - look::kCheckBar,
                                   option.rect.width() - 2 * look::kRounding, look::kCheckBar),
                             enabled ? accent : palette.color(QPalette::PlaceholderText));
        }
        painter.restore();
    }

    // The current tab is open at its foot, where its page begins.
    static void drawTab(const QStyleOptionTab& tab, QPainter& painter) {
        const QPalette& palette = tab.palette;
        const QColor accent = palette.color(QPalette::Active, QPalette::Highlight);
        const QRect& box = tab.rect;
        if (tab.state.testFlag(State_Selected)) {
            const QColor border = palette.color(QPalette::Mid);
            painter.fillRect(box, palette.color(QPalette::Button));
            painter.fillRect(QRect(box.left(), box.top(), 1, box.height()), border);
            painter.fillRect(QRect(box.right(), box.top(), 1, box.height()), border);
            painter.fillRect(QRect(box.left(), box.top(), box.width(), look::kMark), accent);
        } else if (tab.state.testFlag(State_MouseOver) && tab.state.testFlag(State_Enabled)) {
            painter.fillRect(box.adjusted(1, 1, -1, 0),
                             blend(palette.color(QPalette::Window), accent, look::kHovered));
        }
    }

    void drawFramed(PrimitiveElement element, const QStyleOption& option, QPainter* painter,
                    const QWidget* widget) const {
        // The option must stay of its own kind, since the style looks into it.
        if (const auto* const button = qstyleoption_cast<const QStyleOptionButton*>(&option)) {
            QStyleOptionButton box = *button;
            box.palette = framed(button->palette);
            QProxyStyle::drawPrimitive(element, &box, painter, widget);
        } else if (const auto* const frame = qstyleoption_cast<const QStyleOptionFrame*>(&option)) {
            QStyleOptionFrame box = *frame;
            box.palette = framed(frame->palette);
            QProxyStyle::drawPrimitive(element, &box, painter, widget);
        } else {
            QStyleOption box = option;
            box.palette = framed(option.palette);
            QProxyStyle::drawPrimitive(element, &box, painter, widget);
        }
    }

    bool m_dark;
    mutable QHash<qint64, QPalette> m_framed; // by the key of the palette that it was made of
};

bool desktopIsDark(const QPalette& desktop) {
    const QByteArray wanted = qgetenv("TESSEL_THEME");
    if (wanted == "dark" || wanted == "light") {
        return wanted == "dark";
    }
    return qgetenv("GTK_THEME").endsWith(":dark") || isDark(desktop.color(QPalette::Window));
}

} // namespace

QPalette officePalette(bool dark) {
    return paletteOf(dark ? kDark : kLight);
}

QColor frameColor(const QPalette& palette) {
    QColor color = palette.color(QPalette::Mid);
    for (const QPalette::ColorRole back : {QPalette::Base, QPalette::Window, QPalette::Button}) {
        color = readableOn(color, palette.color(back), palette.color(QPalette::Text), look::kPartContrast);
    }
    return color;
}

void SetStyle() {
    const bool dark = desktopIsDark(QApplication::palette());
    QApplication::setStyle(new OfficeStyle(dark));
    QApplication::setPalette(officePalette(dark));
}

} // namespace tessel
