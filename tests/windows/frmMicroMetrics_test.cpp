// The usage window: its commands by number, days by key, what it saves; and the windows of support.
#include "controls/bars/CommandBars.h"
#include "controls/chart/BarChart.h"
#include "controls/chart/PieChart.h"
#include "engine/core/mod_Definitions.h"
#include "engine/core/mod_FileTools.h"
#include "engine/core/mod_QuotedRecords.h"
#include "support/gui_forms.h"
#include "windows/operations/frmMessageTest.h"
#include "windows/operations/frmMicroMetrics.h"
#include "windows/operations/frmNetworkInfo.h"

#include <QAccessible>
#include <QClipboard>
#include <QComboBox>
#include <QImage>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSpinBox>

#include <gtest/gtest.h>

using namespace tessel;

namespace {

class UsageWindow : public testing::Test {
protected:
    UsageWindow() {
        me.set(kUserFile, "User", "SID", "111AA111AAA1");
        world.settle();
        QStringList records;
        for (const char* const date : {"3/2/2026", "3/2/2026", "3/1/2026", "2/20/2026", "12/24/2025"}) {
            records += joinRecord({"0", "0", "w", "n", "t", "9:30:00 AM", date, "x"});
        }
        EXPECT_TRUE(replaceFile(me->folders.dataFile("recents.dat"), writeQuotedRecords(records)));
    }
    void open() {
        form.take({WindowId::MicroMetrics});
        form.show();
    }
    QAction* action(MetricsCommand command) {
        return form.findChild<CommandSet*>()->find(static_cast<int>(command));
    }
    template <typename T> T& child(const char* name) { return *form.findChild<T*>(QLatin1String(name)); }
    static double total(const ChartSeries& series) {
        double sum = 0;
        for (const ChartPoint& point : series.points) {
            sum += point.value;
        }
        return sum;
    }

    World world{1};
    WorldStation& me = world[0];
    frmMicroMetrics form{*me.station};
};

} // namespace

TEST_F(UsageWindow, ADayIsChosenByListByKeyAndByClick) {
    open();
    EXPECT_EQ(form.windowTitle(), "Tessel Status Usage");
    auto& dates = child<QComboBox>("lstDates");
    auto& pie = child<PieChart>("ChartControl");
    auto& days = child<BarChart>("ChartDays");
    EXPECT_EQ(dates.count(), 4);
    EXPECT_EQ(dates.currentIndex(), 0);
    EXPECT_EQ(pie.series().points.at(0).text, "2");

    days.setFocus();
    QTest::keyClick(&days, Qt::Key_Left);
    QTest::keyClick(&days, Qt::Key_Return);
    EXPECT_EQ(me->metrics.date(), QDate(2026, 3, 1));
    EXPECT_EQ(dates.currentIndex(), 1);
    QTest::keyClick(&days, Qt::Key_Home);
    QTest::keyClick(&days, Qt::Key_Return);
    EXPECT_EQ(total(pie.series()), 0) << "a kept day without records";

    dates.setFocus();
    QTest::keyClick(&dates, Qt::Key_End);
    EXPECT_EQ(me->metrics.date(), QDate(2025, 12, 24));
    EXPECT_EQ(total(pie.series()), 1);
    const QModelIndex before = days.model()->index(0, 0);
    EXPECT_EQ(before.siblingAtColumn(1).data().toString(), "not kept");
    QTest::mouseClick(days.viewport(), Qt::LeftButton, {}, days.visualRect(before).center());
    EXPECT_EQ(me->metrics.date(), QDate(2025, 12, 24)) << "there is nothing to show";

    world.run(static_cast<std::int64_t>(24) * 3600);
    EXPECT_EQ(me->metrics.date(), QDate(2025, 12, 24));
    action(MetricsCommand::Alerts)->trigger();
    EXPECT_EQ(me->metrics.date(), QDate(2026, 3, 3));
    world.run(static_cast<std::int64_t>(24) * 3600);
    EXPECT_EQ(me->metrics.date(), QDate(2026, 3, 4)) << "who looks at today goes on doing so";
}

TEST_F(UsageWindow, TheNetworkIsResetAfterAQuestion) {
    open();
    EXPECT_TRUE(action(MetricsCommand::Alerts)->isChecked());
    EXPECT_FALSE(action(MetricsCommand::ResetNetwork)->isVisible());
    action(MetricsCommand::Network)->trigger();
    EXPECT_EQ(me.get(kUserFile, "Metrics", "CHART"), "802");
    EXPECT_TRUE(action(MetricsCommand::Network)->isChecked());
    EXPECT_FALSE(child<QComboBox>("lstDates").isVisible());
    EXPECT_TRUE(child<PieChart>("ChartControl").series().title.startsWith("Tessel network usage since"));

    const double sent = me->protocol.bytesSent();
    EXPECT_GT(sent, 0);
    for (const auto answer : {QMessageBox::No, QMessageBox::Yes}) {
        EXPECT_EQ(me->protocol.bytesSent(), sent);
        action(MetricsCommand::ResetNetwork)->trigger();
        ASSERT_NE(openBox(), nullptr);
        EXPECT_EQ(openBox()->text(), "This will reset all Tessel Network usage numbers. \n  \n"
                                     "Are you sure you want to continue?  ");
        openBox()->button(answer)->click();
    }
    EXPECT_EQ(me->protocol.bytesSent(), 0);
    EXPECT_EQ(me.get(kUserFile, "Metrics", "NETS"), "0");

    action(static_cast<MetricsCommand>(212))->trigger();
    EXPECT_EQ(me.get(kUserFile, "Metrics", "PAL"), "Vibrant");
    EXPECT_TRUE(action(static_cast<MetricsCommand>(212))->isChecked());
    EXPECT_FALSE(action(static_cast<MetricsCommand>(215))->isChecked());
    form.take({WindowId::MicroMetrics});
    EXPECT_FALSE(child<QComboBox>("lstDates").isVisible()) << "it opens on the chart that was up";
}

TEST_F(UsageWindow, NumbersComeOutAsFileAsTextAndToAScreenReader) {
    open();
    const QString folder = me->folders.data();
    form.saveCsv(folder + "a.csv");
    EXPECT_EQ(me.fileBytes("a.csv"), me->metrics.csv());
    form.savePicture(folder + "a.png");
    EXPECT_GT(QImage(folder + "a.png").width(), 100);
    action(MetricsCommand::Copy)->trigger();
    const QString copied = QApplication::clipboard()->text();
    EXPECT_TRUE(copied.contains("\nDoorBell\t2\n")) << qPrintable(copied);
    EXPECT_TRUE(copied.contains("\tnot kept\n") || copied.contains("\t1\n"));

    auto* const access = QAccessible::queryAccessibleInterface(&child<BarChart>("ChartDays"));
    ASSERT_NE(access, nullptr);
    ASSERT_NE(access->tableInterface(), nullptr);
    EXPECT_EQ(access->tableInterface()->rowCount(), 30);
    EXPECT_EQ(access->tableInterface()->cellAt(29, 1)->text(QAccessible::Name), "2");
}

TEST(SupportWindows, TheReportIsWrittenAndTheLogShown) {
    World world(1);
    world.settle();
    WorldStation& me = world[0];
    me->log.LogEvent("HotKey", "Cannot Register HotKey for Quick Key 1", "HK0");
    frmNetworkInfo form(me->diagnostics, me->folders);
    EXPECT_EQ(form.findChild<QPlainTextEdit*>("txtInformation")->toPlainText(),
              me->diagnostics.GetDiagInfo());
    EXPECT_TRUE(form.findChild<QPlainTextEdit*>("txtLog")->toPlainText().contains("HK0"));
    form.saveReport(me->folders.dataFile("report.txt"));
    EXPECT_EQ(me.fileBytes("report.txt"), me->diagnostics.HelpReport().toUtf8());
}

TEST(SupportWindows, AMessageTestHoldsItsFieldsAndEndsWithItsWindow) {
    World world(1);
    world.settle();
    WorldStation& me = world[0];
    auto form = std::make_unique<frmMessageTest>(me->messageTest, me->session);
    form->show();
    auto& start = *form->findChild<QPushButton*>("cmdStart");
    auto& stop = *form->findChild<QPushButton*>("cmdStop");
    auto& count = *form->findChild<QSpinBox*>("txtmCNT");
    count.setValue(2);
    start.click();
    for (const char* const name : {"cmbTimer", "txtmCNT", "cmdStart"}) {
        EXPECT_FALSE(form->findChild<QWidget*>(QLatin1String(name))->isEnabled()) << name;
    }
    EXPECT_TRUE(stop.isEnabled());
    world.run(5);
    EXPECT_TRUE(start.isEnabled()) << "it is through";
    EXPECT_FALSE(stop.isEnabled());
    EXPECT_EQ(me.fileBytes("mtest.txt").count('\n'), 2);
    trigger(*form, "mnuView");
    EXPECT_TRUE(me.desktop.calls.contains("openPath mtest.txt"));
    start.click();
    form.reset();
    EXPECT_FALSE(me->messageTest.running());
}
