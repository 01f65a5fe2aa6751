// What support is told: the facts in their order, a report without persons, the message test.
#include "engine/core/mod_Csv.h"
#include "support/LoneStation.h"

#include <gmock/gmock.h>

using namespace tessel;
using testing::ElementsAre;

using Support = LoneStation;

TEST_F(Support, InformationHasItsLabelsInOrder) {
    me.link.adapterList = {{"eth0", ""}, {"eth1", "10.0.0.7", true}};
    begin();
    QStringList labels;
    for (const QString& line : me->diagnostics.GetDiagInfo().split(u'\n')) {
        labels += line.section(u':', 0, 0);
    }
    EXPECT_THAT(labels, ElementsAre("Location", "Version", "OS", "UDP Port", "MCG", "TTL", "Net Bind",
                                    "Net Send", "Net Rcv", "Host", "HostIP", "Net", "Adapters", "DHCP",
                                    "Username", "Encode", "Admin"));
    EXPECT_TRUE(me->diagnostics.GetDiagInfo().contains("\nHostIP: 10.0.0.7\nNet: Online\n"));
    EXPECT_TRUE(me->diagnostics.GetDiagInfo().contains("\nDHCP: Yes\n"));
    admin("HotKeys", "R");
    me->start();
    EXPECT_TRUE(me->diagnostics.GetDiagInfo().contains("\nAdmin: True\nAdmin Flags: "));
}

// It leaves the office, and patients' names must not.
TEST_F(Support, TheReportTellsOfNoPerson) {
    user("Settings", "TestMode", "1");
    user("Note", "ACTIVE", "Secret note");
    begin();
    me->status.SetCustomStatus("Secret status");
    me->presence.SetLocationNote("Secret own note");
    hear({.code = "XAN",
          .presence = presence("Secret busy", "9:00:00 AM", true, "Secret patient"),
          .note = "Secret note"});
    hear({.code = "XALNU", .note = "Secret note"});
    hear("XATE", body({"0", {}, "1AA1AA1AAA1A", "a] Secret [b] text"}));
    hear("XATE", body({"0", {}, "1AA1AA1AAA1B", "a] Secret " + QString(4000, u'x') + "] Secret"}));
    hear("XAD1", body({kMe, "Secret bell"}));
    me->log.LogEvent("HotKey", "Cannot Register", "HK0");
    ASSERT_EQ(loggedWith("Secret"), 2) << "else this shows nothing";
    const QString report = me->diagnostics.HelpReport();
    EXPECT_FALSE(report.contains("Secret")) << qPrintable(report);
    for (const char* const told :
         {"\nLocation: Room 1\n", "\nOutside\toutside\t", "HotKey ,HK0 ,Cannot Register", "[...] ,Debug No",
          "\n== Versions ==\n", "packets sent "}) {
        EXPECT_TRUE(report.contains(told)) << told << qPrintable(report);
    }
}

TEST_F(Support, TheMessageTestSendsItsNumberAndWritesEachDown) {
    begin();
    sentCodes();
    const auto lines = [this] { return toText(me.fileBytes("mtest.txt")).split(u'\n', Qt::SkipEmptyParts); };
    me->messageTest.start(2, 3);
    world.run(1);
    EXPECT_EQ(sentCodes(), QStringList("XATE"));
    world.run(1);
    EXPECT_TRUE(sentCodes().isEmpty());
    world.run(10);
    EXPECT_EQ(sentCodes(), QStringList({"XATE", "XATE"}));
    EXPECT_FALSE(me->messageTest.running());
    ASSERT_EQ(lines().size(), 3);
    EXPECT_EQ(lines()[1], "9:00:09 AM ,3/2/2026 ,2 ,This is a an automated test message from Room 1. "
                          "Message #2 ,Sent");

    me->messageTest.start(1, 1000);
    world.run(1);
    me->network.Network_Stop();
    world.run(1);
    me->messageTest.stop();
    world.run(5);
    EXPECT_TRUE(lines().back().endsWith(" ,Offline"));
    EXPECT_EQ(me->messageTest.failed(), me->messageTest.done() - 1);
    EXPECT_TRUE(me->messageTest.KillmLog());
    EXPECT_TRUE(lines().isEmpty());
}

TEST(Csv, ValuesComeBackFromASpreadsheet) {
    EXPECT_EQ(csvLine({"a", "", "b,c", "say \"x\"", "two\r\nlines", QString(u'\u00E9')}),
              "a,,\"b,c\",\"say \"\"x\"\"\",\"two\r\nlines\",\xC3\xA9\r\n");
}
