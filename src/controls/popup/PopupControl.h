// A small popup on the desktop that tells something without ever taking the focus.
#pragma once

#include "controls/list/WrappedText.h"
#include "controls/popup/AlertWidget.h"

#include <QColor>
#include <QIcon>
#include <QPoint>
#include <QRect>
#include <QString>

#include <array>
#include <optional>

class QAbstractButton;
class QVariantAnimation;

namespace tessel {

// All texts are plain. A colour that is not valid is the desktop's own.
struct PopupLook {
    QColor frameFrom; // from top to bottom
    QColor frameTo;
    QColor bodyFrom; // the end under the icon
    QColor bodyTo;   // the light end, under all that is read
    QString caption;
    QString label; // large, above the text
    QString text;
    QString time; // of the foot, with whom it comes from
    QIcon icon;
    bool framedIcon = false; // it has a back of its own
    int fontSize = 0;        // points; 0: the desktop's
    bool movable = true;
    double opacity = 1.0; // 0 to 1
    bool turnOffButton = false;
    bool optionsButton = false;
    bool messageLayout = false; // icon and caption in the band, no button in the foot
    bool shadow = false;        // the desktop draws what can be seen through
    bool motion = false;        // it fades in
    bool pulse = false;         // with motion: it calls twice, and is still then
    QSize leastSize;            // units
};

class PopupControl : public AlertWidget {
    Q_OBJECT
public:
    explicit PopupControl(QWidget* parent = nullptr);

    // Takes what it will show. Gives back how large that is on a screen with this free area, without its
    // shadow.
    QSize prepare(const PopupLook& look, const QRect& freeArea);
    // Comes up at this place with what was prepared, or shows it there when it is up.
    void show(QPoint topLeft);
    // What is seen of it on the screen, without its shadow.
    QRect box() const;
    // Lower right, a little off the edges; the upper left corner stays on the screen.
    static QPoint defaultPlace(QSize popup, const QRect& freeArea);

signals:
    void closeClicked();
    void textClicked();
    void turnOffClicked();
    void optionsClicked();
    // A drag has ended with the box here.
    void moved(QPoint topLeft);

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    enum Button { Close, Options, TurnOff, kButtons };
    struct Plan {
        QSize size;
        QRect band;
        QRect body;
        QRect caption;
        QRect icon;
        int strong = 0; // width of the end under the icon
        int light = 0;  // from where on the body is light
        QRect text;     // label and text
        QRect time;
        std::array<QRect, kButtons> buttons;
        std::optional<WrappedText> label;
        std::optional<WrappedText> words;
        int gap = 0; // between label and text
    };
    struct Shades {
        QColor from, to, text;
    };

    void plan(QSize most);
    Plan planned() const;
    void takeSurface();
    void chooseColors();
    void comeUp(bool wasUp);
    void paintShadow(QPainter& painter) const;
    void paintBack(QPainter& painter) const;
    void placeButtons();
    void endDrag();

    PopupLook m_look;
    QSize m_most; // that it was planned for
    Plan m_plan;
    Shades m_band;
    Shades m_body;
    QColor m_frameTo;
    std::array<QAbstractButton*, kButtons> m_buttons{};
    QVariantAnimation* m_fade;
    QVariantAnimation* m_pulse;
    double m_veil = 0;               // of the call, over the strong end
    int m_margin = 0;                // around the box, for its shadow
    std::optional<QPoint> m_pressed; // on the screen
    QPoint m_pressedPlace;           // of the popup then
    bool m_dragging = false;
};

} // namespace tessel
