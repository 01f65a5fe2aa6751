#include "controls/chart/PieChart.h"

#include "controls/list/ReportColors.h"

#include <QPainter>
#include <QPainterPath>

#include <algorithm>
#include <cmath>
#include <numbers>

namespace tessel {

namespace {
constexpr int kGap = 16;
constexpr int kRowPadding = 6;
constexpr int kLeastPie = 120;
constexpr double kFullCircle = 360;
constexpr double kTop = 90;          // the first slice begins here and goes clockwise
constexpr double kPulledOut = 0.05;  // of the pie's side, for the slice that is looked at
constexpr double kWidestLabel = 0.3; // of the side
constexpr double kLabelAt = 0.68;    // of the radius
} // namespace

double PieChart::total() const {
    double sum = 0;
    for (const ChartPoint& point : series().points) {
        sum += point.value;
    }
    return sum;
}

PieChart::Plan PieChart::plan(const QRect& room) const {
    const QFontMetrics metrics = fontMetrics();
    int names = 0;
    int values = 0;
    for (const ChartPoint& point : series().points) {
        // The advance is rounded, and a text without its last fraction is cut.
        names = std::max(names, metrics.horizontalAdvance(point.name) + 1);
        values = std::max(values, metrics.horizontalAdvance(point.text));
    }
    Plan made;
    made.row = metrics.height() + kRowPadding;
    const int square = metrics.ascent() + kRowPadding;
    const int legendWidth = 2 * kRowPadding + square + names + kGap + values;
    const int legendHeight = made.row * count();
    // Beside the pie or below it, wherever the pie gets larger.
    const int beside = std::min(room.width() - legendWidth - kGap, room.height());
    const int below = std::min(room.width(), room.height() - legendHeight - kGap);
    const int side = std::max({beside, below, std::min({room.width(), room.height(), kLeastPie})});
    if (beside >= below) {
        const int left = room.left() + std::max(0, (room.width() - legendWidth - kGap - side) / 2);
        made.pie = QRect(left, room.top() + (room.height() - side) / 2, side, side);
        made.legend =
            QRect(left + side + kGap, room.top() + std::max(0, (room.height() - legendHeight) / 2),
                  std::max(0, std::min(legendWidth, room.right() - left - side - kGap)), legendHeight);
    } else {
        const int width = std::min(legendWidth, room.width());
        made.pie = QRect(room.left() + (room.width() - side) / 2, room.top(), side, side);
        made.legend =
            QRect(room.left() + (room.width() - width) / 2, made.pie.bottom() + kGap, width, legendHeight);
    }
    const auto border = static_cast<int>(made.pie.width() * kPulledOut) + 1;
    made.pie.adjust(border, border, -border, -border);
    made.names =
        std::clamp(names, 0, std::max(0, made.legend.width() - 2 * kRowPadding - square - kGap - values));
    return made;
}

QRect PieChart::legendRow(const Plan& plan, int point) const {
    return {plan.legend.left(), plan.legend.top() + point * plan.row, plan.legend.width(), plan.row};
}

void PieChart::paintPoints(QPainter& painter, const QRect& room) {
    const Plan places = plan(room);
    const double all = total();
    if (all > 0) {
        const QColor back = palette().color(QPalette::Base);
        double begin = kTop;
        for (int i = 0; i < count(); ++i) {
            const double span = -kFullCircle * point(i).value / all;
            if (span < 0) {
                QRectF box(places.pie);
                const double middle = (begin + span / 2) * std::numbers::pi / (kFullCircle / 2);
                const QPointF way(std::cos(middle), -std::sin(middle));
                if (i == shownPoint() && span > -kFullCircle) {
                    box.translate(way * box.width() * kPulledOut);
                }
                QPainterPath slice;
                if (span > -kFullCircle) {
                    slice.moveTo(box.center());
                    slice.arcTo(box, begin, span);
                    slice.closeSubpath();
                } else {
                    slice.addEllipse(box);
                }
                painter.setPen(QPen(back, 2));
                painter.setBrush(color(i));
                painter.drawPath(slice);
                // A number in the slice where it has room.
                const QRectF text = fontMetrics().boundingRect(point(i).text);
                const double radius = box.width() / 2 * kLabelAt;
                if (-span / kFullCircle * 2 * std::numbers::pi * radius > text.width() + kRowPadding &&
                    text.width() < box.width() * kWidestLabel) {
                    const QPointF at = span > -kFullCircle ? box.center() + way * radius : box.center();
                    painter.setPen(textOn(color(i)));
                    painter.drawText(QRectF(at - QPointF(text.width(), text.height()), 2 * text.size()),
                                     Qt::AlignCenter, point(i).text);
                }
            }
            begin += span;
        }
    }
    paintLegend(painter, places);
}

void PieChart::paintLegend(QPainter& painter, const Plan& places) {
    const QFontMetrics metrics = fontMetrics();
    const int square = metrics.ascent();
    for (int i = 0; i < count(); ++i) {
        const QRect row = legendRow(places, i);
        if (i == shownPoint()) {
            painter.setPen(Qt::NoPen);
            painter.setBrush(
                blend(palette().color(QPalette::Base), palette().color(QPalette::Highlight), 0.2));
            painter.drawRoundedRect(row, 3, 3);
        }
        const QRect key(row.left() + kRowPadding, row.top() + (row.height() - square) / 2, square, square);
        painter.setPen(Qt::NoPen);
        painter.setBrush(color(i));
        painter.drawRoundedRect(key, 2, 2);
        painter.setPen(palette().color(QPalette::Text));
        const QRect text(key.right() + kRowPadding, row.top(), row.right() - key.right() - 2 * kRowPadding,
                         row.height());
        painter.drawText(text, Qt::AlignLeft | Qt::AlignVCenter,
                         metrics.elidedText(point(i).name, Qt::ElideRight, places.names));
        painter.drawText(text, Qt::AlignRight | Qt::AlignVCenter, point(i).text);
    }
}

int PieChart::pointAt(const QPoint& place, const QRect& room) const {
    const Plan places = plan(room);
    for (int i = 0; i < count(); ++i) {
        if (legendRow(places, i).contains(place)) {
            return i;
        }
    }
    const QPointF way = QPointF(place) - QRectF(places.pie).center();
    const double all = total();
    if (all <= 0 || std::hypot(way.x(), way.y()) > places.pie.width() / 2.0) {
        return -1;
    }
    const double angle = std::atan2(-way.y(), way.x()) * (kFullCircle / 2) / std::numbers::pi;
    double left = std::fmod(kTop - angle + kFullCircle, kFullCircle) / kFullCircle * all;
    for (int i = 0; i < count(); ++i) {
        left -= point(i).value;
        if (left < 0) {
            return i;
        }
    }
    return count() - 1;
}

QRect PieChart::pointRect(int point, const QRect& room) const {
    return legendRow(plan(room), point);
}

QSize PieChart::leastRoom() const {
    const QFontMetrics metrics = fontMetrics();
    constexpr int kLetters = 30;
    constexpr int kLines = 10;
    return {kLetters * metrics.averageCharWidth(), kLines * metrics.lineSpacing()};
}

} // namespace tessel
