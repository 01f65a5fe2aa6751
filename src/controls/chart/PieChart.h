// A pie with a legend beside or below it.
#pragma once

#include "controls/chart/ChartView.h"

namespace tessel {

class PieChart : public ChartView {
    Q_OBJECT
public:
    using ChartView::ChartView;

protected:
    void paintPoints(QPainter& painter, const QRect& room) override;
    int pointAt(const QPoint& place, const QRect& room) const override;
    QRect pointRect(int point, const QRect& room) const override;
    QSize leastRoom() const override;

private:
    struct Plan {
        QRect pie;
        QRect legend;
        int row = 0;   // height of a row of the legend
        int names = 0; // width of its first column
    };
    Plan plan(const QRect& room) const;
    QRect legendRow(const Plan& plan, int point) const;
    double total() const;
    void paintLegend(QPainter& painter, const Plan& plan);
};

} // namespace tessel
