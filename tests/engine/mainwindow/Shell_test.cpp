// Which view is open, how the lists look, and what of it comes back at the next start.
#include "support/LoneStation.h"

#include <gtest/gtest.h>

using namespace tessel;

namespace {

// How often something was told.
struct Count {
    int times = 0;
    Count(Shell& shell, void (Shell::*signal)()) {
        QObject::connect(&shell, signal, &shell, [this] { ++times; });
    }
};

class ShellState : public LoneStation {
protected:
    QString stored(const char* section, const char* key) {
        return me.get(kUserFile, QLatin1String(section), QLatin1String(key));
    }
    Shell& shell() { return me->shell; }
};

} // namespace

TEST_F(ShellState, TabsSayHowManyRowsTheirListsHave) {
    begin();
    EXPECT_EQ(shell().tabCaption(350), "Home ");
    hear({.SID = "222AA222AAA2", .code = "XAN"});
    hear({.SID = "333AA333AAA3", .code = "XAN", .presence = presence("Busy", "8:30:00 AM")});
    shell().CountLocationsTabs();
    EXPECT_EQ(shell().tabCaption(350), "Home (3)") << "the own row counts";
    EXPECT_EQ(shell().tabCaption(351), "Status (1)") << "the list is made when it is looked at";
    shell().SetTabView(351);
    EXPECT_EQ(shell().tabCaption(350), "Home (3)");
    EXPECT_EQ(shell().tabCaption(352), "Favorites ");
    EXPECT_EQ(shell().tabCaption(354), "");
}

TEST_F(ShellState, OpensOnTheLastViewButNeverOnTheInbox) {
    begin();
    EXPECT_EQ(shell().storedView(), 350);
    shell().SetTabView(351);
    EXPECT_EQ(stored("NAV", "1"), "351");
    shell().SetTabView(353);
    EXPECT_EQ(shell().view(), View::Inbox);
    EXPECT_EQ(stored("NAV", "1"), "351");
    EXPECT_EQ(shell().storedView(), 351);
}

TEST_F(ShellState, FontStaysWithinItsLimits) {
    begin();
    const Count changed(shell(), &Shell::reportFontChanged);
    for (int press = 0; press < 30; ++press) {
        shell().IncreaseReportFont();
    }
    EXPECT_EQ(changed.times, 10) << "from 10 to 20, and nothing at the limit";
    EXPECT_EQ(stored("Fonts", "EVFS"), "20");
    EXPECT_EQ(shell().increaseTip(), "Increase Font Size (20)");
    for (int press = 0; press < 30; ++press) {
        shell().DecreaseReportFont();
    }
    EXPECT_EQ(stored("Fonts", "EVFS"), "8");
    EXPECT_EQ(shell().decreaseTip(), "Decrease Font Size (8)");
    EXPECT_EQ(changed.times, 22);
}

TEST_F(ShellState, AFooterThatIsToStayIsNotSweptAwayByTheClockOfAnEarlierOne) {
    begin();
    me->footer.SetFooter("Online", {}, true);
    me->footer.SetFooter("Disconnecting", "Offline", false);
    world.run(30);
    EXPECT_EQ(me->footer.text(), "  Disconnecting");
    EXPECT_EQ(me->footer.tip(), "Offline");
}
