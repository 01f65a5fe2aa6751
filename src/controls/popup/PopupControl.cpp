#include "controls/popup/PopupControl.h"

#include "controls/list/ReportColors.h"
#include "controls/list/ReportText.h"
#include "controls/look/PaintKit.h"
#include "controls/look/Tokens.h"

#include <QAbstractButton>
#include <QApplication>
#include <QFontMetrics>
#include <QLinearGradient>
#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>
#include <QScreen>
#include <QStyle>
#include <QVariantAnimation>

#include <algorithm>
#include <cmath>

namespace tessel {

namespace {

constexpr int kLeastFont = 6;
constexpr int kLargestFont = 40;
constexpr int kGradientProbes = 16;

QColor mixed(const QColor& from, const QColor& to, int probe) {
    return blend(from, to, static_cast<double>(probe) / kGradientProbes);
}

double worstContrast(const QColor& text, const QColor& from, const QColor& to) {
    double worst = contrastRatio(text, from);
    for (int probe = 1; probe <= kGradientProbes; ++probe) {
        worst = std::min(worst, contrastRatio(text, mixed(from, to, probe)));
    }
    return worst;
}

// Moves both ends of a gradient away from the text's colour, no farther than it takes to read the
// text all over it.
void makeReadable(const QColor& text, QColor& from, QColor& to, double contrast) {
    const QColor away = textOn(text);
    const QColor firstFrom = from;
    const QColor firstTo = to;
    for (int step = 0; step <= kGradientProbes && worstContrast(text, from, to) < contrast; ++step) {
        const double share = static_cast<double>(step) / kGradientProbes;
        from = blend(firstFrom, away, share);
        to = blend(firstTo, away, share);
    }
}

// A flat button that cannot have the focus.
class PopupButton : public QAbstractButton {
public:
    enum class Sign { Cross, Dots, Text };

    PopupButton(Sign sign, QWidget* parent) : QAbstractButton(parent), m_sign(sign) {
        setFocusPolicy(Qt::NoFocus);
        setAttribute(Qt::WA_Hover);
        setCursor(Qt::ArrowCursor);
    }
    void setInk(const QColor& ink) {
        m_ink = ink;
        update();
    }

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        const QRectF box = QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5);
        QColor veil = m_ink;
        veil.setAlphaF(static_cast<float>(isDown()       ? look::kPopupButtonPressed
                                          : underMouse() ? look::kPopupButtonHovered
                                                         : 0.0));
        painter.setPen(m_sign == Sign::Text ? QPen(m_ink) : QPen(Qt::NoPen));
        painter.setBrush(veil);
        painter.drawRoundedRect(box, look::kRounding, look::kRounding);
        const QPointF middle = box.center();
        const double arm = height() * 0.2;
        painter.setPen(QPen(m_ink, std::max(look::kStroke, height() / 14.0), Qt::SolidLine, Qt::RoundCap));
        switch (m_sign) {
        case Sign::Cross:
            painter.drawLine(middle - QPointF(arm, arm), middle + QPointF(arm, arm));
            painter.drawLine(middle - QPointF(arm, -arm), middle + QPointF(arm, -arm));
            break;
        case Sign::Dots:
            painter.setPen(Qt::NoPen);
            painter.setBrush(m_ink);
            for (const int step : {-1, 0, 1}) {
                painter.drawEllipse(middle + QPointF(step * arm * 1.3, 0), arm * 0.4, arm * 0.4);
            }
            break;
        case Sign::Text:
            painter.drawText(rect(), Qt::AlignCenter | Qt::TextSingleLine, text());
            break;
        }
    }

private:
    Sign m_sign;
    QColor m_ink = Qt::white;
};

} // namespace

PopupControl::PopupControl(QWidget* parent)
    : AlertWidget(parent, Qt::Tool | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint |
                              Qt::WindowDoesNotAcceptFocus),
      m_fade(new QVariantAnimation(this)), m_pulse(new QVariantAnimation(this)) {
    setAttribute(Qt::WA_ShowWithoutActivating);
    m_fade->setStartValue(0.0);
    m_fade->setDuration(look::kFadeMs);
    connect(m_fade, &QVariantAnimation::valueChanged, this,
            [this](const QVariant& opacity) { setWindowOpacity(opacity.toDouble()); });
    m_pulse->setStartValue(0.0);
    m_pulse->setKeyValueAt(0.5, 1.0);
    m_pulse->setEndValue(0.0);
    m_pulse->setDuration(look::kPulseMs);
    m_pulse->setLoopCount(look::kPulses);
    connect(m_pulse, &QVariantAnimation::valueChanged, this, [this](const QVariant& veil) {
        m_veil = veil.toDouble();
        update();
    });
    setAttribute(Qt::WA_QuitOnClose, false); // the last window, if all others are hidden
    setFocusPolicy(Qt::NoFocus);

    const auto add = [this](Button button, PopupButton::Sign sign, const QString& name,
                            void (PopupControl::*clicked)()) {
        auto* made = new PopupButton(sign, this);
        made->setText(name);
        made->setAccessibleName(name);
        connect(made, &QAbstractButton::clicked, this, clicked);
        m_buttons[button] = made;
    };
    add(Close, PopupButton::Sign::Cross, tr("Close"), &PopupControl::closeClicked);
    add(Options, PopupButton::Sign::Dots, tr("Options"), &PopupControl::optionsClicked);
    add(TurnOff, PopupButton::Sign::Text, tr("Turn Off"), &PopupControl::turnOffClicked);
}

QSize PopupControl::prepare(const PopupLook& look, const QRect& freeArea) {
    endDrag(); // and a press on what was up before is no click on this
    m_look = look;
    plan(freeArea.size());
    return m_plan.size;
}

void PopupControl::show(QPoint topLeft) {
    const QScreen* screen = QGuiApplication::screenAt(topLeft);
    if (screen == nullptr) {
        screen = QGuiApplication::primaryScreen();
    }
    if (screen != nullptr && screen->availableSize() != m_most) {
        plan(screen->availableSize());
    }
    takeSurface();
    const bool wasUp = isVisible();
    chooseColors();
    setFixedSize(m_plan.size + 2 * QSize(m_margin, m_margin));
    placeButtons();
    move(topLeft - QPoint(m_margin, m_margin));
    // What it is about comes first, so that nobody takes it for the window of the program.
    setWindowTitle(singleLine(
        m_look.label.isEmpty() ? m_look.caption : m_look.label + QStringLiteral(" \u2013 ") + m_look.caption,
        kTipChars));
    setAccessibleName(singleLine(
        QStringList{m_look.caption, m_look.label, m_look.text, m_look.time}.join(u' ').trimmed(), kTipChars));
    if (!testAttribute(Qt::WA_X11NetWmWindowTypeNotification)) {
        // Some desktops hide tool windows while another program is at work, but no notifications.
        // Only a window that exists already hears of it.
        create();
        setAttribute(Qt::WA_X11NetWmWindowTypeNotification);
    }
    comeUp(wasUp);
}

// Round corners and a shadow want a window that can be seen through, which is made as such or not. On a
// desktop that has none of these the corners are cut off.
void PopupControl::takeSurface() {
    if (m_look.shadow != testAttribute(Qt::WA_TranslucentBackground)) {
        hide();
        destroy();
        setAttribute(Qt::WA_X11NetWmWindowTypeNotification, false);
        setAttribute(Qt::WA_TranslucentBackground, m_look.shadow);
        setAttribute(Qt::WA_NoSystemBackground, m_look.shadow);
    }
    m_margin = m_look.shadow ? look::kShadow : 0;
}

void PopupControl::comeUp(bool wasUp) {
    const double opacity = std::clamp(m_look.opacity, 0.0, 1.0);
    m_fade->stop();
    m_pulse->stop();
    m_veil = 0;
    const bool fades = m_look.motion && !wasUp;
    setWindowOpacity(fades ? 0 : opacity);
    if (m_look.shadow) {
        clearMask();
    } else {
        QPainterPath round;
        round.addRoundedRect(rect(), look::kCorner, look::kCorner);
        setMask(QRegion(round.toFillPolygon().toPolygon()));
    }
    QWidget::show();
    raise();
    update();
    if (fades) {
        m_fade->setEndValue(opacity);
        m_fade->start();
    }
    if (m_look.motion && m_look.pulse) {
        m_pulse->start();
    }
    tellAlert();
}

QRect PopupControl::box() const {
    return geometry().adjusted(m_margin, m_margin, -m_margin, -m_margin);
}

QPoint PopupControl::defaultPlace(QSize popup, const QRect& freeArea) {
    return {std::max(freeArea.left(), freeArea.right() + 1 - popup.width() - look::kSpace),
            std::max(freeArea.top(), freeArea.bottom() + 1 - popup.height() - look::kSpace)};
}

// --- layout ------------------------------------------------------------------------------------

void PopupControl::plan(QSize most) {
    QFont letters = QApplication::font(this);
    if (m_look.fontSize > 0) {
        letters.setPointSize(std::clamp(m_look.fontSize, kLeastFont, kLargestFont));
    }
    setFont(letters);
    m_most = most;
    m_plan = planned();
}

PopupControl::Plan PopupControl::planned() const {
    const PopupLook& look = m_look;
    const QFont plain = font();
    QFont large = plain;
    large.setWeight(QFont::DemiBold);
    large.setPointSizeF(plain.pointSizeF() * look::kLarger);
    QFont meant = plain;
    meant.setPointSize(look::kMeantFor);
    const int line = QFontMetrics(plain).height();
    const double unit = look::kPopupUnit * line / QFontMetrics(meant).height();
    const auto px = [unit](int units) { return static_cast<int>(std::lround(units * unit)); };
    const bool message = look.messageLayout;
    const int least =
        std::max(px(message ? look::kPopupMessageHeight : look::kPopupLeast), px(look.leastSize.height()));

    Plan plan;
    const int width = std::min(m_most.width(), px(std::max(look::kPopupUnits, look.leastSize.width())));
    const int highest = std::min(m_most.height(), std::max(least, px(look::kPopupMost)));
    const int band = px(look::kPopupBand);
    const int frame = look::kPopupFrame;
    const int pad = px(look::kPopupPad);
    const bool pictured = !look.icon.isNull() && !message;
    plan.strong = pictured ? px(look::kPopupIconColumn) : 0;
    plan.light = pictured ? plan.strong + px(look::kPopupFade) : 0;
    const int textLeft = message ? px(look::kPopupTextLeft) : plan.light + pad / 2;
    const int textRight = message ? width - px(look::kPopupTextLeft) : width - pad;
    const int textWidth = std::max(1, textRight - textLeft);
    const bool buttoned = look.turnOffButton && !message;
    const int footHeight = line + (buttoned ? 2 * look::kTight : 0);
    const int foot = buttoned || !look.time.isEmpty() ? footHeight + pad : 0;

    int room = highest - band - foot - 2 * pad - frame;
    int textHeight = 0;
    const int largeLine = QFontMetrics(large).height();
    if (!look.label.trimmed().isEmpty() && room >= largeLine) {
        plan.label.emplace(look.label, large, textWidth,
                           std::clamp(room / largeLine, 1, look::kPopupLabelLines));
        plan.gap = look::kTight;
        textHeight += plan.label->height() + plan.gap;
        room -= textHeight;
    }
    if (room >= line && !look.text.trimmed().isEmpty()) {
        plan.words.emplace(look.text, plain, textWidth, std::clamp(room / line, 1, look::kPopupLines));
        textHeight += plan.words->height();
    }
    const int iconSide = px(look::kPopupIcon);
    const int body = std::max(textHeight, pictured ? iconSide : 0) + 2 * pad;
    plan.size = QSize(width, std::min(std::max(band + body + foot + frame, least), highest));

    plan.band = QRect(0, 0, width, band);
    plan.body = QRect(frame, band, width - 2 * frame, plan.size.height() - band - frame);
    const int sign = message ? px(look::kPopupSign) : iconSide;
    plan.icon = message ? QRect(pad, (band - sign) / 2, sign, sign)
                        : QRect((plan.strong - iconSide) / 2 + frame / 2, band + pad, iconSide, iconSide);
    plan.text = QRect(textLeft, band + pad, textWidth, plan.size.height() - band - foot - pad - frame);
    const int button = band - look::kTight;
    int right = width - look::kTight;
    const auto take = [&](Button which) {
        plan.buttons[which] = QRect(right - button, (band - button) / 2, button, button);
        right -= button + look::kPopupButtonGap;
    };
    take(Close);
    if (look.optionsButton) {
        take(Options);
    }
    const int captionLeft = message && !look.icon.isNull() ? plan.icon.right() + 1 + look::kSpace : pad;
    plan.caption = QRect(captionLeft, 0, right - captionLeft - look::kTight, band);
    const int footTop = plan.size.height() - frame - pad / 2 - footHeight;
    if (buttoned) {
        const QSize size(QFontMetrics(plain).horizontalAdvance(m_buttons[TurnOff]->text()) + look::kWide,
                         footHeight);
        plan.buttons[TurnOff] = QRect(QPoint(textRight - size.width(), footTop), size);
    }
    const int timeRight = plan.buttons[TurnOff].isNull() ? textRight : plan.buttons[TurnOff].left() - pad / 2;
    plan.time = QRect(textLeft, footTop, timeRight - textLeft, foot > 0 ? footHeight : 0);
    return plan;
}

void PopupControl::placeButtons() {
    for (std::size_t i = 0; i < kButtons; ++i) {
        m_buttons[i]->setGeometry(m_plan.buttons[i].translated(m_margin, m_margin));
        m_buttons[i]->setVisible(!m_plan.buttons[i].isNull());
        static_cast<PopupButton*>(m_buttons[i])->setInk(i == TurnOff ? m_body.text : m_band.text);
    }
}

void PopupControl::chooseColors() {
    const auto orElse = [](const QColor& color, const QColor& otherwise) {
        return color.isValid() ? color : otherwise;
    };
    const QColor accent = palette().color(QPalette::Highlight);
    const QColor window = palette().color(QPalette::Base);
    m_frameTo = orElse(m_look.frameTo, blend(window, accent, look::kSelectedFocused));
    m_band = {orElse(m_look.frameFrom, accent), {}, Qt::white};
    m_band.to = blend(m_band.from, m_frameTo,
                      static_cast<double>(m_plan.band.height()) / std::max(1, m_plan.size.height()));
    makeReadable(m_band.text, m_band.from, m_band.to, look::kTextContrast);

    m_body = {orElse(m_look.bodyFrom, window), orElse(m_look.bodyTo, window), {}};
    // Everything that is read stands on the light end.
    m_body.text = textOn(m_body.to);
    QColor light = m_body.to;
    makeReadable(m_body.text, light, m_body.to, look::kPopupContrast);
}

// --- painting ----------------------------------------------------------------------------------

void PopupControl::paintShadow(QPainter& painter) const {
    painter.setPen(Qt::NoPen);
    const QRectF box(m_margin, m_margin, m_plan.size.width(), m_plan.size.height());
    for (int ring = m_margin; ring > 0; --ring) {
        // Each ring lies on those outside it, so that the ink grows towards the box.
        painter.setBrush(QColor::fromRgbF(0, 0, 0, static_cast<float>(look::kShadowInk / m_margin)));
        painter.drawRoundedRect(box.adjusted(-ring, look::kShadowFall - ring, ring, ring),
                                look::kCorner + ring, look::kCorner + ring);
    }
}

void PopupControl::paintBack(QPainter& painter) const {
    const QRectF box(QPointF(), m_plan.size);
    QLinearGradient frame(0, 0, 0, box.height());
    frame.setColorAt(0, m_band.from);
    frame.setColorAt(std::clamp(m_plan.band.height() / box.height(), 0.0, 1.0), m_band.to);
    frame.setColorAt(1, m_frameTo);
    // Frames that run to white end nowhere on a white desktop.
    PaintKit::paintBox(painter, box, look::kCorner, blend(m_band.from, Qt::black, look::kPopupEdge), frame);
    QLinearGradient body(0, 0, box.width(), 0);
    if (m_plan.light > 0) {
        body.setColorAt(0, m_body.from);
        body.setColorAt(m_plan.strong / box.width(), m_body.from);
        body.setColorAt(m_plan.light / box.width(), m_body.to);
    }
    body.setColorAt(1, m_body.to);
    // Round below, where the frame is.
    const QRectF room(m_plan.body);
    constexpr double kRound = look::kCorner - look::kPopupFrame;
    QPainterPath shape(room.topLeft());
    shape.lineTo(room.left(), room.bottom() - kRound);
    shape.quadTo(room.bottomLeft(), QPointF(room.left() + kRound, room.bottom()));
    shape.lineTo(room.right() - kRound, room.bottom());
    shape.quadTo(room.bottomRight(), QPointF(room.right(), room.bottom() - kRound));
    shape.lineTo(room.topRight());
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillPath(shape, body);
    if (m_veil > 0) {
        QColor veil = Qt::white;
        veil.setAlphaF(static_cast<float>(m_veil * look::kPulseInk));
        painter.setClipPath(shape);
        painter.fillRect(QRect(m_plan.body.topLeft(), QSize(m_plan.strong, m_plan.body.height())), veil);
        painter.setClipping(false);
    }
}

void PopupControl::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    if (m_margin > 0) {
        paintShadow(painter);
    }
    painter.translate(m_margin, m_margin);
    paintBack(painter);

    QFont strong = font();
    strong.setWeight(QFont::DemiBold);
    painter.setFont(strong);
    painter.setPen(m_band.text);
    painter.drawText(
        m_plan.caption, Qt::AlignVCenter | Qt::TextSingleLine,
        QFontMetrics(strong).elidedText(singleLine(m_look.caption), Qt::ElideRight, m_plan.caption.width()));
    if (m_look.framedIcon) {
        // A picture with a back of its own would drown in a colour like it.
        const QRectF back = QRectF(m_plan.icon).adjusted(-1, -1, 1, 1);
        painter.setBrush(Qt::white);
        painter.setPen(Qt::NoPen);
        painter.drawRoundedRect(back, back.width() / 4, back.width() / 4);
        painter.setBrush(Qt::NoBrush);
    }
    m_look.icon.paint(&painter, m_plan.icon, Qt::AlignCenter, QIcon::Selected);
    painter.setPen(m_body.text);
    QPoint at = m_plan.text.topLeft();
    const auto paintLines = [this, &painter, &at](const WrappedText& text) {
        text.paint(painter, at, std::max(0, m_plan.text.bottom() + 1 - at.y()) / text.lineHeight());
        at.ry() += text.height();
    };
    if (m_plan.label) {
        paintLines(*m_plan.label);
        at.ry() += m_plan.gap;
    }
    if (m_plan.words) {
        paintLines(*m_plan.words);
    }
    if (m_plan.time.height() > 0) {
        painter.setFont(font());
        painter.drawText(
            m_plan.time, Qt::AlignVCenter | Qt::TextSingleLine,
            fontMetrics().elidedText(singleLine(m_look.time), Qt::ElideRight, m_plan.time.width()));
    }
}

// --- mouse -------------------------------------------------------------------------------------

void PopupControl::mousePressEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton) {
        m_pressed = event->globalPosition().toPoint();
        m_pressedPlace = pos();
    }
}

void PopupControl::mouseMoveEvent(QMouseEvent* event) {
    if (!m_pressed || !m_look.movable) {
        return;
    }
    const QPoint way = event->globalPosition().toPoint() - *m_pressed;
    m_dragging = m_dragging || way.manhattanLength() >= QApplication::startDragDistance();
    if (m_dragging) {
        move(m_pressedPlace + way);
    }
}

void PopupControl::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton || !m_pressed) {
        return;
    }
    const QPoint way = event->globalPosition().toPoint() - *m_pressed;
    const bool dragged = m_dragging;
    endDrag();
    // The name of who writes is a part of the message: a click on it is one on the text.
    const QRect text = m_look.messageLayout ? m_plan.body | m_plan.band : m_plan.body;
    if (!dragged && way.manhattanLength() < QApplication::startDragDistance() &&
        text.contains(event->position().toPoint() - QPoint(m_margin, m_margin))) {
        emit textClicked();
    }
}

// The time of a popup may be over while it is held: the drag ends with it, where it was.
void PopupControl::hideEvent(QHideEvent* event) {
    AlertWidget::hideEvent(event);
    endDrag();
}

void PopupControl::endDrag() {
    m_pressed.reset();
    if (std::exchange(m_dragging, false)) {
        emit moved(box().topLeft());
    }
}

} // namespace tessel
