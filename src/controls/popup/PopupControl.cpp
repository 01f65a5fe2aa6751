#include "controls/popup/PopupControl.h"

#include "controls/list/ReportColors.h"
#include "controls/list/ReportText.h"

#include <QAbstractButton>
#include <QApplication>
#include <QFontMetrics>
#include <QLinearGradient>
#include <QMouseEvent>
#include <QPainter>
#include <QScreen>
#include <QStyle>

#include <algorithm>
#include <cmath>

namespace tessel {

namespace {

constexpr int kScreenMargin = 8;
constexpr int kMeantFor = 10; // points, for all sizes in pixels below
constexpr QSize kLargest{360, 260};
constexpr int kNoticeWidth = 300;
constexpr QSize kMessage{270, 140};
constexpr int kMostLines = 8;
constexpr int kMostLabelLines = 3;
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
void makeReadable(const QColor& text, QColor& from, QColor& to) {
    const QColor away = textOn(text);
    const QColor firstFrom = from;
    const QColor firstTo = to;
    for (int step = 0; step <= kGradientProbes && worstContrast(text, from, to) < kReadableContrast; ++step) {
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
    QSize sizeHint() const override {
        const QFontMetrics metrics(font());
        const int height = metrics.height() + 6;
        return {m_sign == Sign::Text ? metrics.horizontalAdvance(text()) + 16 : height, height};
    }

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        const QRectF box = QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5);
        QColor veil = m_ink;
        veil.setAlphaF(isDown() ? 0.14F : underMouse() ? 0.08F : 0.0F);
        painter.setPen(m_sign == Sign::Text ? QPen(m_ink) : QPen(Qt::NoPen));
        painter.setBrush(veil);
        painter.drawRoundedRect(box, 3, 3);
        const QPointF middle = box.center();
        const double arm = height() * 0.2;
        painter.setPen(QPen(m_ink, std::max(1.5, height() / 14.0), Qt::SolidLine, Qt::RoundCap));
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
                              Qt::WindowDoesNotAcceptFocus) {
    setAttribute(Qt::WA_ShowWithoutActivating);
    setAttribute(Qt::WA_OpaquePaintEvent);
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

void PopupControl::show(const PopupLook& look, QPoint topLeft) {
    endDrag(); // and a press on what was up before is no click on this
    const QScreen* screen = QGuiApplication::screenAt(topLeft);
    if (screen == nullptr) {
        screen = QGuiApplication::primaryScreen();
    }
    m_look = look;
    setFont(fontFor(look));
    m_plan = plan(look, screen != nullptr ? screen->availableSize() : QSize(800, 600));
    chooseColors();
    setFixedSize(m_plan.size);
    placeButtons();
    move(topLeft);
    setWindowOpacity(std::clamp(look.opacity, 0.0, 1.0));
    // What it is about comes first, so that nobody takes it for the window of the program.
    setWindowTitle(singleLine(
        look.label.isEmpty() ? look.caption : look.label + QStringLiteral(" – ") + look.caption, kTipChars));
    setAccessibleName(singleLine(look.caption + u' ' + look.label + u' ' + look.text, kTipChars));
    if (!testAttribute(Qt::WA_X11NetWmWindowTypeNotification)) {
        // Some desktops hide tool windows while another program is at work, but no notifications.
        // Only a window that exists already hears of it.
        create();
        setAttribute(Qt::WA_X11NetWmWindowTypeNotification);
    }
    QWidget::show();
    raise();
    update();
    tellAlert();
}

QSize PopupControl::sizeFor(const PopupLook& look, const QRect& freeArea) {
    return plan(look, freeArea.size()).size;
}

QPoint PopupControl::defaultPlace(QSize popup, const QRect& freeArea) {
    return {std::max(freeArea.left(), freeArea.right() + 1 - popup.width() - kScreenMargin),
            std::max(freeArea.top(), freeArea.bottom() + 1 - popup.height() - kScreenMargin)};
}

// --- layout ------------------------------------------------------------------------------------

QFont PopupControl::fontFor(const PopupLook& look) const {
    QFont font = QApplication::font(this);
    if (look.fontSize > 0) {
        font.setPointSize(std::clamp(look.fontSize, kLeastFont, kLargestFont));
    }
    return font;
}

PopupControl::Plan PopupControl::plan(const PopupLook& look, QSize most) const {
    const QFont plain = fontFor(look);
    QFont bold = plain;
    bold.setBold(true);
    QFont meant = plain;
    meant.setPointSize(kMeantFor);
    const int line = QFontMetrics(plain).height();
    const double scale = static_cast<double>(line) / QFontMetrics(meant).height();
    const auto scaled = [scale](int pixels) { return static_cast<int>(std::lround(pixels * scale)); };
    const auto scaledSize = [&scaled](QSize size) {
        return QSize(scaled(size.width()), scaled(size.height()));
    };
    const int edge = 3;
    const int pad = scaled(10);
    const int band = line + scaled(10);
    const int iconSize = line >= 30 ? 48 : line >= 23 ? 32 : 24;
    const QSize least = scaledSize(look.leastSize.expandedTo(look.messageLayout ? kMessage : QSize(0, 0)));
    const QSize room = scaledSize(kLargest).expandedTo(least).boundedTo(most);

    Plan plan;
    const int width =
        std::min(room.width(), std::max(least.width(), look.messageLayout ? 0 : scaled(kNoticeWidth)));
    const int foot = !look.messageLayout && (!look.time.isEmpty() || look.turnOffButton) ? line + 6 + pad : 0;
    const int textLeft = edge + pad + (look.icon.isNull() ? 0 : iconSize + pad);
    const int textWidth = std::max(1, width - textLeft - pad - edge);
    int lines = std::clamp((room.height() - band - foot - 2 * pad - edge) / line, 1, kMostLines + 2);
    const bool labelled = !look.label.trimmed().isEmpty();
    int textHeight = 0;
    if (labelled) {
        plan.label.emplace(look.label, bold, textWidth, std::min(lines, kMostLabelLines));
        textHeight += plan.label->height();
        lines -= plan.label->lineCount();
    }
    // A blank line stands between the two as long as it takes no line of the text.
    plan.gap = labelled && lines > 3 ? line : 0;
    lines -= plan.gap > 0 ? 1 : 0;
    if (lines > 0 && !look.text.trimmed().isEmpty()) {
        plan.words.emplace(look.text, plain, textWidth, std::min(lines, kMostLines));
        textHeight += plan.gap + plan.words->height();
    }
    const int bodyHeight = std::max(textHeight, look.icon.isNull() ? 0 : iconSize) + 2 * pad;
    plan.size =
        QSize(width, std::min(std::max(band + bodyHeight + foot + edge, least.height()), room.height()));

    plan.band = QRect(0, 0, width, band);
    plan.body = QRect(edge, band, width - 2 * edge, plan.size.height() - band - edge);
    plan.icon = QRect(edge + pad, band + pad, iconSize, iconSize);
    plan.text = QRect(textLeft, band + pad, textWidth, plan.size.height() - band - foot - pad - edge);
    const int button = band - 6;
    int right = width - edge;
    const auto take = [&](Button which) {
        plan.buttons[which] = QRect(right - button, 3, button, button);
        right -= button + 2;
    };
    take(Close);
    if (look.optionsButton) {
        take(Options);
    }
    plan.caption = QRect(edge + pad, 0, right - edge - 2 * pad, band);
    const int footTop = plan.size.height() - edge - pad / 2 - line - 6;
    if (look.turnOffButton && !look.messageLayout) {
        const QSize size(QFontMetrics(plain).horizontalAdvance(m_buttons[TurnOff]->text()) + 16, line + 6);
        plan.buttons[TurnOff] = QRect(QPoint(width - edge - pad - size.width(), footTop), size);
    }
    const int timeRight = plan.buttons[TurnOff].isNull() ? width - pad : plan.buttons[TurnOff].left() - pad;
    plan.time = QRect(edge + pad, footTop, timeRight - edge - pad, foot > 0 ? line + 6 : 0);
    return plan;
}

void PopupControl::placeButtons() {
    for (std::size_t i = 0; i < kButtons; ++i) {
        m_buttons[i]->setGeometry(m_plan.buttons[i]);
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
    m_frameTo = orElse(m_look.frameTo, blend(window, accent, 0.3));
    m_band = {orElse(m_look.frameFrom, accent), {}, Qt::white};
    m_band.to = blend(m_band.from, m_frameTo,
                      static_cast<double>(m_plan.band.height()) / std::max(1, m_plan.size.height()));
    makeReadable(m_band.text, m_band.from, m_band.to);

    m_body = {orElse(m_look.bodyFrom, window), orElse(m_look.bodyTo, window), {}};
    const QColor white = Qt::white;
    const QColor black = Qt::black;
    m_body.text = worstContrast(black, m_body.from, m_body.to) >= worstContrast(white, m_body.from, m_body.to)
                      ? black
                      : white;
    makeReadable(m_body.text, m_body.from, m_body.to);
}

// --- painting ----------------------------------------------------------------------------------

void PopupControl::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    QLinearGradient frame(0, 0, 0, height());
    frame.setColorAt(0, m_band.from);
    frame.setColorAt(std::clamp(static_cast<double>(m_plan.band.height()) / height(), 0.0, 1.0), m_band.to);
    frame.setColorAt(1, m_frameTo);
    painter.fillRect(rect(), frame);
    QLinearGradient body(0, m_plan.body.top(), 0, m_plan.body.bottom());
    body.setColorAt(0, m_body.from);
    body.setColorAt(1, m_body.to);
    painter.fillRect(m_plan.body, body);
    // Frames that run to white end nowhere on a white desktop.
    painter.setPen(blend(m_band.from, Qt::black, 0.25));
    painter.drawRect(rect().adjusted(0, 0, -1, -1));

    QFont bold = font();
    bold.setBold(true);
    painter.setFont(bold);
    painter.setPen(m_band.text);
    painter.drawText(
        m_plan.caption, Qt::AlignVCenter | Qt::TextSingleLine,
        QFontMetrics(bold).elidedText(singleLine(m_look.caption), Qt::ElideRight, m_plan.caption.width()));
    m_look.icon.paint(&painter, m_plan.icon);
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
    if (!dragged && way.manhattanLength() < QApplication::startDragDistance() &&
        m_plan.body.contains(event->position().toPoint())) {
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
        emit moved(pos());
    }
}

} // namespace tessel
