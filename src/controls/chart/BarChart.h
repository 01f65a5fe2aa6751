// Bars over a row of days or hours, with an axis of values and a line that reads one of them out.
#pragma once

#include "controls/chart/ChartView.h"

namespace tessel {

class BarChart : public ChartView {
    Q_OBJECT
public:
    // Which marks stay where there is no room for all.
    enum class Marks { FromFirst, FromLast };

    // `unknownText`: stands over points that have no value.
    BarChart(Marks marks, QString unknownText, QWidget* parent = nullptr);

protected:
    void paintPoints(QPainter& painter, const QRect& room) override;
    int pointAt(const QPoint& place, const QRect& room) const override;
    QRect pointRect(int point, const QRect& room) const override;
    int pageStep() const override;
    QSize leastRoom() const override;

private:
    struct Plan {
        QRect readout;
        QRect bars;
        qint64 step = 1; // between lines of the axis, in units
        qint64 top = 1;  // value at the upper end
    };
    Plan plan(const QRect& room) const;
    QRectF column(const Plan& plan, int point) const;
    void paintAxis(QPainter& painter, const Plan& plan);
    void paintMarks(QPainter& painter, const Plan& plan);
    void paintUnknown(QPainter& painter, const Plan& plan);

    Marks m_marks;
    QString m_unknownText;
};

} // namespace tessel
