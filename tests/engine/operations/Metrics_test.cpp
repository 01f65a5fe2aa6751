// How a location was used: the counters of a day, the thirty days, the hours, and what becomes of them
// when the file of the history is damaged, full or endless.
#include "engine/core/mod_FileTools.h"
#include "engine/core/mod_QuotedRecords.h"
#include "support/LoneStation.h"

#include <gmock/gmock.h>

using namespace tessel;
using testing::ElementsAre;

namespace {

const QDate kToday(2026, 3, 2); // of the virtual clock

class Usage : public LoneStation {
protected:
    static QString alert(int type, const QString& date = "3/2/2026", const QString& SID = kMe,
                         const QString& time = "9:30:00 AM") {
        return joinRecord({"0", QString::number(type), "word", "Room \"1\"", "text", time, date, SID});
    }
    static QString message(const QString& type, const QString& date = "3/2/2026") {
        return joinRecord({"1", type, "0", "-1", "id", "name", "sid", "two\r\nlines", "11:59:59 PM", date});
    }
    void recents(const QByteArray& bytes) {
        ASSERT_TRUE(replaceFile(me->folders.dataFile("recents.dat"), bytes));
    }
    void load(const QStringList& records, QDate date = kToday) {
        recents(writeQuotedRecords(records));
        me->metrics.LoadMetrics(kMe, date);
    }
    std::vector<int> counters() const {
        const DayCounters& found = me->metrics.counters();
        return {found.begin(), found.end()};
    }
    static QStringList texts(const ChartSeries& series) {
        QStringList found;
        for (const ChartPoint& point : series.points) {
            found += point.name + u'=' + point.text;
        }
        return found;
    }
    QStringList dates() const {
        QStringList found;
        for (const Metrics::Day& day : me->metrics.lstDates()) {
            found += day.text;
        }
        return found;
    }
};

} // namespace

TEST_F(Usage, CountsTheDayByTypeAndByWhoseItWas) {
    begin();
    QStringList records{message("0"), message("1"), message("0", "3/1/2026"), alert(3), alert(8),
                        alert(9),     alert(77)};
    for (const int type : {0, 10, 1, 5, 5, 2, 6, 4, 7}) {
        records += {alert(type), alert(type, "3/2/2026", kOther), alert(type, "3/1/2026")};
    }
    load(records);
    EXPECT_THAT(counters(), ElementsAre(2, 2, 2, 4, 1, 1, 1, 1, 1))
        << "others ring here too; their statuses are theirs";
    const ChartSeries pie = me->metrics.AddSeriesAlerts();
    EXPECT_TRUE(pie.title.startsWith("Usage for Room 1\n"));
    EXPECT_THAT(texts(pie),
                ElementsAre("DoorBell=2", "DoorBell Everyone=2", "PhoneCall=2", "Urget Alert=4", "Status=1",
                            "Status Changed=1", "Occupied=1", "Status Tags=1", "Messages=1"));
    EXPECT_THAT(dates(), ElementsAre("3/2/2026", "3/1/2026"));
    EXPECT_EQ(me->metrics.AddSeriesHours().points[9].value, 14);
    EXPECT_EQ(me->metrics.AddSeriesHours().points[23].value, 1);

    me->metrics.LoadMetrics(kMe, {2026, 2, 3});
    EXPECT_TRUE(me->metrics.AddSeriesAlerts().points.empty());
    EXPECT_THAT(dates(), ElementsAre("3/2/2026", "3/1/2026")) << "the same for every day";
}

TEST_F(Usage, TakesWhatIsOnlyInMemoryYet) {
    begin();
    hear("XAD1", body({kMe, "Please come"}));
    EXPECT_TRUE(me.fileBytes("recents.dat").isEmpty());
    me->metrics.LoadMetrics(kMe, kToday);
    EXPECT_EQ(counter(me->metrics.counters(), Counter::DoorBell), 1);
    EXPECT_TRUE(me.fileBytes("recents.dat").startsWith("1\r\n"));
}

// A day of which nothing is known must not pass for a quiet one.
TEST_F(Usage, DaysBeforeTheOldestRecordAreNotKept) {
    begin();
    load({alert(0), alert(0, "2/25/2026"), alert(0, "2/25/2026")});
    const ChartSeries days = me->metrics.AddSeriesDays();
    ASSERT_EQ(days.points.size(), 30);
    EXPECT_EQ(days.points[29].text, "1");
    EXPECT_TRUE(days.points[29].marked);
    EXPECT_EQ(days.points[28].text, "0");
    EXPECT_EQ(days.points[24].text, "2");
    for (std::size_t i = 0; i < 24; ++i) {
        EXPECT_FALSE(days.points[i].known);
        EXPECT_EQ(days.points[i].text, "not kept");
    }
    EXPECT_EQ(me->metrics.dayAt(24), QDate(2026, 2, 25));
    const QList<QByteArray> lines = me->metrics.csv().split('\n');
    ASSERT_EQ(lines.size(), 1 + 30 + 24 + 1);
    EXPECT_TRUE(lines[0].startsWith("Date,Hour,DoorBell,DoorBell Everyone,"));
    EXPECT_EQ(lines[1], "2026-02-01,all day" + QByteArray(",not kept").repeated(10) + "\r");
    EXPECT_EQ(lines[30], "2026-03-02,all day,1,0,0,0,0,0,0,0,0,1\r");
    EXPECT_EQ(lines[31 + 9], "2026-03-02,09:00,1,0,0,0,0,0,0,0,0,1\r");

    user("Recents", "SAVE_CNT", "3");
    me->settings.LoadSettings(false);
    me->metrics.LoadMetrics(kMe, {2026, 2, 25});
    EXPECT_TRUE(me->metrics.keptInPart({2026, 2, 25})) << "the file is full, and its oldest day cut";
    EXPECT_FALSE(me->metrics.remark().isEmpty());
    EXPECT_EQ(me->metrics.AddSeriesDays().points[24].text.left(2), "2,");

    recents("");
    me->metrics.LoadMetrics(kMe, kToday);
    EXPECT_EQ(me->metrics.AddSeriesDays().points[29].text, "0") << "today has only begun";
    EXPECT_EQ(me->metrics.AddSeriesDays().points[28].text, "not kept");
}

TEST_F(Usage, AnOldDayStandsAmongItsNeighbours) {
    begin();
    load({alert(0), alert(0, "7/4/2021")}, {2021, 7, 4});
    const ChartSeries days = me->metrics.AddSeriesDays();
    EXPECT_TRUE(days.points[15].marked);
    EXPECT_EQ(days.points[15].text, "1");
    EXPECT_EQ(days.points[14].text, "not kept");
    EXPECT_EQ(days.points[29].text, "0");
    EXPECT_EQ(me->metrics.dayAt(29), QDate(2021, 7, 18));
}

TEST_F(Usage, DamagedRecordsCountNothingAndCostNobodyElse) {
    begin();
    const auto line = [](const QString& record) { return writeQuotedRecords({record}).sliced(3); };
    const QByteArray good = line(alert(0));
    const QString mark = ValueMark;
    QByteArray bytes = "999\r\n\"\"\r\n\"0\"\r\n\"0" + toBytes(mark) + "0\"\r\n" + good;
    for (const QString& record :
         {alert(0, "13/45/2026"), alert(0, "yesterday"), alert(0, ""), alert(-1), message("x"), message(""),
          QString("2") + mark + alert(0), QString("00") + alert(0).mid(1)}) {
        bytes += line(record);
    }
    bytes += good.chopped(3) + "\r\n" + good + QByteArray(300, '\0') + "\r\n" + good;
    bytes += "\"0" + toBytes(mark) + "0" + toBytes(mark) + "say .|.x.|" + toBytes(mark) + "a" +
             toBytes(mark) + "b" + toBytes(mark) + "9:30:00 AM" + toBytes(mark) + "3/2/26" + toBytes(mark) +
             toBytes(kMe) + "\"\r\n\"0" + toBytes(mark + "0" + mark);
    recents(bytes);
    me->metrics.LoadMetrics(kMe, kToday);
    EXPECT_THAT(counters(), ElementsAre(4, 0, 0, 0, 0, 0, 0, 0, 0));
    EXPECT_THAT(dates(), ElementsAre("3/2/2026"));
}

TEST_F(Usage, CountersStopAtTheirEdge) {
    begin();
    user("Recents", "SAVE_CNT", "100000");
    me->settings.LoadSettings(false);
    load(QStringList(40000, alert(0)));
    EXPECT_EQ(counter(me->metrics.counters(), Counter::DoorBell), 32767);
    EXPECT_EQ(me->metrics.AddSeriesDays().points[29].text, "32767");
    EXPECT_EQ(me->metrics.remark(), "Counters stop at 32767");
    me->history.LoadRecents();
    EXPECT_EQ(me->history.rptNotifications.count(), 40000) << "the list follows what is to be kept";
}

TEST_F(Usage, TheNetworkSinceItsReset) {
    user("Metrics", "NETS", "1048576");
    user("Metrics", "NETR", "1573376");
    user("Metrics", "NETLR", "1/5/2026");
    me->start();
    const ChartSeries network = me->usage.AddSeriesNetwork();
    EXPECT_TRUE(network.title.startsWith("Tessel network usage since \n"));
    EXPECT_TRUE(network.title.contains("2026"));
    EXPECT_EQ(network.points[0].name, "Data Sent");
    EXPECT_EQ(network.points[0].value, 1);
    EXPECT_EQ(network.points[1].name, "Data Recieved");
    EXPECT_EQ(network.points[1].value, 1.5);
    EXPECT_EQ(NetworkUsage::BytesToMegabytes(1234567), 1.177);
    me->usage.SaveNetworkUsage(true);
    EXPECT_EQ(me->usage.since(), "3/2/2026");
    EXPECT_EQ(me->usage.AddSeriesNetwork().points[0].text, "0.000 Megabytes");
    EXPECT_EQ(me->usage.csv(), "Since,Network Usage,Megabytes\r\n3/2/2026,Data Sent,0.000\r\n"
                               "3/2/2026,Data Recieved,0.000\r\n");
}
