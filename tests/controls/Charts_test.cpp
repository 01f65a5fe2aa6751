// Charts: what the keyboard, the mouse and the clipboard get is what is painted, in any size.
#include "controls/chart/BarChart.h"
#include "controls/chart/ChartPalette.h"
#include "controls/chart/PieChart.h"
#include "controls/list/ReportColors.h"

#include <QApplication>
#include <QClipboard>
#include <QSignalSpy>
#include <QTest>

#include <gtest/gtest.h>

using namespace tessel;

namespace {
ChartSeries seriesOf(std::initializer_list<double> values) {
    ChartSeries series{"A title\nof two lines", "Name", "Value"};
    for (const double value : values) {
        const QString number = QString::number(value);
        series.points.push_back({.name = "Point " + number, .value = value, .text = number, .mark = number});
    }
    return series;
}
} // namespace

TEST(Charts, APointIsFoundWhereItIsPainted) {
    PieChart pie;
    BarChart bars(BarChart::Marks::FromLast, "not kept");
    ChartSeries series = seriesOf({0, 3, 1, 8});
    series.points[2].known = false;
    for (ChartView* const chart : {static_cast<ChartView*>(&pie), static_cast<ChartView*>(&bars)}) {
        chart->resize(400, 300);
        chart->setSeries(series);
        chart->show();
        for (int i = 0; i < 4; ++i) {
            const QModelIndex index = chart->model()->index(i, 0);
            EXPECT_EQ(chart->indexAt(chart->visualRect(index).center()), index) << i;
        }
        EXPECT_FALSE(chart->indexAt({1, 1}).isValid());
        QSignalSpy chosen(chart, &ChartView::pointChosen);
        QTest::keyClick(chart, Qt::Key_Home);
        QTest::keyClick(chart, Qt::Key_Right);
        QTest::keyClick(chart, Qt::Key_Return);
        QTest::keyClick(chart, Qt::Key_End);
        QTest::keyClick(chart, Qt::Key_Right);
        QTest::keyClick(chart, Qt::Key_Space);
        ASSERT_EQ(chosen.size(), 2);
        EXPECT_EQ(chosen[0][0], 1);
        EXPECT_EQ(chosen[1][0], 3);
        chart->copy();
        EXPECT_EQ(QApplication::clipboard()->text(),
                  "A title\nof two lines\nName\tValue\nPoint 0\t0\nPoint 3\t3\nPoint 1\t1\nPoint 8\t8\n");
    }
}

TEST(Charts, NoSizeAndNoNumbersAreTooStrangeToPaint) {
    for (const ChartSeries& series : {ChartSeries{}, seriesOf({}), seriesOf({0, 0}), seriesOf({5}),
                                      seriesOf({1e-9, 1e9}), seriesOf({2e18, 1e300}), [] {
                                          ChartSeries all = seriesOf({0, 0});
                                          all.points[0].known = all.points[1].known = false;
                                          all.points[0].name = QString(5000, u'x');
                                          return all;
                                      }()}) {
        PieChart pie;
        BarChart bars(BarChart::Marks::FromFirst, "not kept");
        for (ChartView* const chart : {static_cast<ChartView*>(&pie), static_cast<ChartView*>(&bars)}) {
            chart->setEmptyText("Nothing");
            chart->setSeries(series);
            for (const QSize size : {QSize(1, 1), QSize(30, 400), QSize(900, 20), QSize(500, 300)}) {
                chart->resize(size);
                EXPECT_FALSE(chart->grab().isNull());
                QTest::mouseClick(chart->viewport(), Qt::LeftButton);
            }
        }
    }
}

TEST(Charts, EveryColorStandsOutOnLightAndDark) {
    for (const char* const name : kChartPalettes) {
        for (const QColor& back : {QColor(Qt::white), QColor(0x1B, 0x1E, 0x24)}) {
            for (int i = 0; i < 12; ++i) {
                EXPECT_GE(contrastRatio(chartColor(name, i, back), back), 1.5) << name << i;
            }
        }
    }
    EXPECT_EQ(chartColor("no such palette", 1, Qt::white), chartColor("Danville", 1, Qt::white));
    EXPECT_EQ(chartPaletteNamed("vibrant pastel"), "Vibrant Pastel");
}
