// What an administrator can order from afar, and the meters of network usage.
#include "support/LoneStation.h"

#include <gtest/gtest.h>

using namespace tessel;

using Orders = LoneStation;

TEST_F(Orders, RestrictionsHoldFromTheNextStart) {
    begin();
    hear("ZAAS", body({kMe, "Updates" + ListMark + "R"}));
    hear("ZAAS", body({kOther, "HotKeys" + ListMark + "R"}));
    EXPECT_EQ(me.get(kAdminFile, "Admin", "Updates"), "R");
    EXPECT_EQ(me.get(kAdminFile, "Admin", "HotKeys"), "");
    EXPECT_FALSE(me->admin.AdminFilePresent);
    me->start();
    EXPECT_EQ(me->admin.Updates, "R");
    hear("ZAAS", body({kMe, "Updates"}));
    me->start();
    EXPECT_EQ(me->admin.Updates, "A") << "an empty value allows";
}

TEST_F(Orders, SettingsOfTheUserAreWrittenAndNothingElse) {
    begin();
    hear("ZAGS", body({kMe, "Settings" + ListMark + "EOC" + ListMark + "1"}));
    EXPECT_EQ(me.get(kUserFile, "Settings", "EOC"), "1");
    EXPECT_FALSE(me->settings.Settings_EOC()) << "from the next start on";
    const QByteArray written = me.fileBytes(kUserFile);
    for (const QString& text :
         {QString(), ListMark, "Set]tings" + ListMark + "a" + ListMark + "b",
          "S\n[User]" + ListMark + "SID" + ListMark + "x",
          "Settings" + ListMark + "a\n[User]\nSID" + ListMark + "b", QString("Settings")}) {
        hear("ZAGS", body({kMe, text}));
    }
    hear("ZAGS", body({kOther, "Settings" + ListMark + "EOC" + ListMark + "0"}));
    hear({.SID = kMe, .code = "ZAGS", .body = body({kMe, "Settings" + ListMark + "EOC" + ListMark + "0"})});
    EXPECT_EQ(me.fileBytes(kUserFile), written);
}

TEST_F(Orders, MetersGoOnFromTheLastRun) {
    user("Metrics", "NETS", "1000000000000");
    user("Metrics", "NETR", "500");
    begin();
    world.run(50);
    double sent = 0;
    for (const QByteArray& packet : world.network.sent) {
        sent += static_cast<double>(packet.size());
    }
    EXPECT_EQ(me.get(kUserFile, "Metrics", "NETS"), QString::number(1000000000000.0 + sent, 'f', 0));
    EXPECT_EQ(me->protocol.bytesReceived(), 500 + sent) << "the own packets come back";
    EXPECT_EQ(me.get(kUserFile, "Metrics", "NETLR"), "3/2/2026");
    world.clock.skipWall(86400);
    me->usage.SaveNetworkUsage(false);
    EXPECT_EQ(me.get(kUserFile, "Metrics", "NETLR"), "3/2/2026");
    me->usage.SaveNetworkUsage(true);
    EXPECT_EQ(me.get(kUserFile, "Metrics", "NETS"), "0");
    EXPECT_EQ(me.get(kUserFile, "Metrics", "NETLR"), "3/3/2026");
    EXPECT_EQ(me->protocol.bytesSent(), 0);
    EXPECT_EQ(loggedWith("NetworkUsage , ,Reset"), 1);

    for (const char* const junk : {"nan", "inf", "-5", "many", "1e999"}) {
        user("Metrics", "NETS", junk);
        me->settings.LoadSettings(false);
        me->usage.load();
        EXPECT_EQ(me->protocol.bytesSent(), 0) << junk;
    }
}
