#include "controls/chart/BarChart.h"

#include "controls/list/ReportColors.h"

#include <QPainter>

#include <algorithm>
#include <cmath>

namespace tessel {

namespace {
constexpr int kGap = 4;
constexpr int kPage = 7;           // a week of days
constexpr double kBarShare = 0.72; // of a column
constexpr double kUnmarked = 0.65; // of the colour, for bars beside the one that is marked
constexpr int kLines = 4;          // of the axis, at most

// 1, 2 or 5 times a power of ten, so that not more than `kLines` steps reach `most`.
qint64 niceStep(double most) {
    constexpr qint64 kMost = 1'000'000'000'000'000'000;
    for (qint64 power = 1;; power *= 10) {
        for (const qint64 step : {power, 2 * power, 5 * power}) {
            if (step >= kMost || most <= static_cast<double>(step) * kLines) {
                return step;
            }
        }
    }
}
} // namespace

BarChart::BarChart(Marks marks, QString unknownText, QWidget* parent)
    : ChartView(parent), m_marks(marks), m_unknownText(std::move(unknownText)) {}

int BarChart::pageStep() const {
    return kPage;
}

BarChart::Plan BarChart::plan(const QRect& room) const {
    const QFontMetrics metrics = fontMetrics();
    Plan made;
    double most = 1;
    for (const ChartPoint& point : series().points) {
        most = std::max(most, point.value);
    }
    made.step = niceStep(most);
    const double steps = std::ceil(most / static_cast<double>(made.step));
    made.top = made.step * static_cast<qint64>(std::clamp(steps, 1.0, static_cast<double>(kLines)));
    made.readout = QRect(room.left(), room.top(), room.width(), metrics.lineSpacing());
    made.bars = room.adjusted(metrics.horizontalAdvance(QString::number(made.top)) + 2 * kGap,
                              metrics.lineSpacing() + metrics.height() / 2, 0, -metrics.lineSpacing() - kGap);
    return made;
}

QRectF BarChart::column(const Plan& plan, int point) const {
    const double width = plan.bars.width() / static_cast<double>(std::max(1, count()));
    return {plan.bars.left() + point * width, static_cast<double>(plan.bars.top()), width,
            static_cast<double>(plan.bars.height())};
}

void BarChart::paintPoints(QPainter& painter, const QRect& room) {
    const Plan places = plan(room);
    paintAxis(painter, places);
    paintMarks(painter, places);
    paintUnknown(painter, places);
    const QColor back = palette().color(QPalette::Base);
    const bool anyMarked = std::any_of(series().points.begin(), series().points.end(),
                                       [](const ChartPoint& point) { return point.marked; });
    const int shown = shownPoint();
    for (int i = 0; i < count(); ++i) {
        const QRectF box = column(places, i);
        if (i == shown) {
            painter.setPen(Qt::NoPen);
            painter.setBrush(blend(back, palette().color(QPalette::Highlight), 0.2));
            painter.drawRect(box);
        }
        if (point(i).value > 0) {
            const double height =
                std::max(2.0, box.height() * point(i).value / static_cast<double>(places.top));
            const double side = box.width() * (1 - kBarShare) / 2;
            painter.setPen(Qt::NoPen);
            painter.setBrush(!anyMarked || point(i).marked ? color(0) : blend(back, color(0), kUnmarked));
            painter.drawRect(
                QRectF(box.left() + side, box.bottom() - height, box.width() - 2 * side, height));
        }
    }
    if (shown >= 0 && shown < count()) {
        painter.setPen(palette().color(QPalette::Text));
        painter.drawText(places.readout, Qt::AlignLeft | Qt::AlignVCenter,
                         fontMetrics().elidedText(pointText(shown), Qt::ElideRight, places.readout.width()));
    }
}

void BarChart::paintAxis(QPainter& painter, const Plan& places) {
    const QFontMetrics metrics = fontMetrics();
    const QColor faint = blend(palette().color(QPalette::Base), palette().color(QPalette::Text), 0.18);
    painter.setRenderHint(QPainter::Antialiasing, false);
    int lastTop = places.bars.bottom() + metrics.height();
    for (qint64 value = 0; value <= places.top; value += places.step) {
        // Values of a damaged history times pixels leave every whole number behind.
        const double share = static_cast<double>(value) / static_cast<double>(places.top);
        const int y = places.bars.bottom() - static_cast<int>(places.bars.height() * share);
        painter.setPen(value == 0 ? palette().color(QPalette::Mid) : faint);
        painter.drawLine(places.bars.left(), y, places.bars.right(), y);
        const QRect text(0, y - metrics.height() / 2, places.bars.left() - kGap, metrics.height());
        if (text.bottom() <= lastTop) {
            painter.setPen(palette().color(QPalette::PlaceholderText));
            painter.drawText(text, Qt::AlignRight | Qt::AlignVCenter, QString::number(value));
            lastTop = text.top();
        }
    }
    painter.setRenderHint(QPainter::Antialiasing);
}

void BarChart::paintMarks(QPainter& painter, const Plan& places) {
    const QFontMetrics metrics = fontMetrics();
    int widest = 1;
    for (const ChartPoint& point : series().points) {
        widest = std::max(widest, metrics.horizontalAdvance(point.mark));
    }
    const double width = std::max(1.0, column(places, 0).width());
    int step = std::max(1, static_cast<int>(std::ceil((widest + 2 * kGap) / width)));
    step = step == 5 && m_marks == Marks::FromFirst ? 6 : step; // hours read better so
    painter.setPen(palette().color(QPalette::PlaceholderText));
    const int first = m_marks == Marks::FromFirst || count() == 0 ? 0 : (count() - 1) % step;
    for (int i = first; i < count(); i += step) {
        const double middle = column(places, i).center().x();
        const QRectF text(middle - widest, places.bars.bottom() + kGap, 2.0 * widest, metrics.lineSpacing());
        painter.drawText(text, Qt::AlignCenter, point(i).mark);
    }
}

// A run of them is one hatched area, which nobody takes for small values.
void BarChart::paintUnknown(QPainter& painter, const Plan& places) {
    for (int i = 0; i < count(); ++i) {
        const int begin = i;
        while (i < count() && !point(i).known) {
            ++i;
        }
        if (i == begin) {
            continue;
        }
        const QRectF area = column(places, begin).united(column(places, i - 1));
        painter.setPen(Qt::NoPen);
        painter.setBrush(QBrush(palette().color(QPalette::Mid), Qt::BDiagPattern));
        painter.drawRect(area);
        const QRectF text = fontMetrics().boundingRect(m_unknownText).adjusted(-kGap, -kGap, kGap, kGap);
        if (text.width() < area.width()) {
            QRectF label(QPointF(), text.size());
            label.moveCenter(area.center());
            painter.setBrush(palette().color(QPalette::Base));
            painter.drawRect(label);
            painter.setPen(palette().color(QPalette::PlaceholderText));
            painter.drawText(label, Qt::AlignCenter, m_unknownText);
        }
    }
}

int BarChart::pointAt(const QPoint& place, const QRect& room) const {
    const Plan places = plan(room);
    // The mark below a bar belongs to it.
    if (count() == 0 ||
        !places.bars.adjusted(0, 0, 0, room.bottom() - places.bars.bottom()).contains(place)) {
        return -1;
    }
    return std::min(count() - 1,
                    static_cast<int>((place.x() - places.bars.left()) / column(places, 0).width()));
}

QRect BarChart::pointRect(int point, const QRect& room) const {
    return column(plan(room), point).toAlignedRect();
}

QSize BarChart::leastRoom() const {
    const QFontMetrics metrics = fontMetrics();
    constexpr int kLetters = 40;
    constexpr int kHeight = 8;
    return {kLetters * metrics.averageCharWidth(), kHeight * metrics.lineSpacing()};
}

} // namespace tessel
