// Others' statuses: what the user is told of them, and the Status and Favorites lists.
#include "support/LoneStation.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace tessel;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class OthersStatus : public LoneStation {
protected:
    void SetUp() override {
        me.addTones();
        user("Settings", "SHOWUSER", "1");
        begin();
        hear("XAN");
        noticed();
    }
    void status(const QString& text, const QString& tone = {}, const QString& SID = kOther) {
        hear({.SID = SID, .code = "XAS", .presence = presence(text, "8:58:00 AM") + tone});
    }
    // Popups and tones since the last call.
    QStringList noticed() {
        QStringList all = std::exchange(me.desktop.calls, {}).filter("showPopup");
        return all + std::exchange(me.sounds.played, {});
    }
    // What is wanted of the favorite in the first slot.
    void favorite(const QString& tone, bool popup) {
        ASSERT_TRUE(me->favorites.UpdateFavorite(0, "Outside", kOther, tone, popup));
    }
};

const QString kShown = QStringLiteral("showPopup 0");

} // namespace

TEST_F(OthersStatus, NoNoticeOfOwnChangesUnderDoNotDisturbOrWithFavoritesOnly) {
    me->status.SetCustomStatus("Mine");
    world.run(1);
    EXPECT_EQ(item(*me->views.rptEndpoints.find(kMe), LocationItem::Status).text, "Mine");
    EXPECT_THAT(me.desktop.calls.filter("showPopup"), IsEmpty());
    me->own.doNotDisturb = true;
    status("Under");
    me->own.doNotDisturb = false;
    me->settings.Settings_SNF.set(true);
    status("Not of interest");
    EXPECT_THAT(noticed(), IsEmpty());
    EXPECT_EQ(item(*me->views.rptEndpoints.find(kOther), LocationItem::Status).text, "Not of interest")
        << "the row changes all the same";
    status("Stranger", {}, "unknown");
    EXPECT_THAT(noticed(), IsEmpty()) << "who has no row is not told of";
}

TEST_F(OthersStatus, AFavoriteIsToldOfOnceByItsOwnSwitches) {
    ASSERT_EQ(me->favorites.AddFavorite("Outside", kOther, "0"), FavoriteAdded::Added);
    for (const bool favoritesOnly : {false, true}) {
        me->settings.Settings_SNF.set(favoritesOnly);
        status("Out");
        EXPECT_THAT(noticed(), ElementsAre(kShown, "Status.wav")) << favoritesOnly;
    }
    favorite("5", true);
    status("Out");
    EXPECT_THAT(noticed(), ElementsAre(kShown, "5A.wav"));
    status("Shared", "3");
    EXPECT_THAT(noticed(), ElementsAre(kShown, "3A.wav")) << "the status's own tone goes first";
    favorite("5", false);
    status("Out");
    EXPECT_THAT(noticed(), ElementsAre("5A.wav"));
    favorite("5", true);
    me->settings.Sound_SC.set(false);
    status("Out");
    EXPECT_THAT(noticed(), ElementsAre(kShown)) << "without a sound card not even the beep";
    me->settings.Sound_SC.set(true);
    me->favorites.RemoveFavoriteSlot(0, kOther);
    status("Left the favorites");
    EXPECT_THAT(noticed(), IsEmpty()) << "favorites only, and it is none any more";
}

TEST_F(OthersStatus, AStatusWhosePacketWasLostComesWithTheKeepAlive) {
    me->views.setStatusTabCurrent(true);
    const auto shownThere = [this] {
        me->views.rptStatusView.bringUpToDate();
        const ReportRecord* const row = me->views.rptStatusView.find(kOther);
        return row == nullptr ? QString() : item(*row, LocationItem::Status).text;
    };
    EXPECT_EQ(shownThere(), "");
    const auto& home = *me->views.rptEndpoints.find(kOther);
    for (const char* const lost : {"Out", "Lunch"}) {
        hear({.code = "XRKA", .presence = presence(lost, "8:50:00 AM")});
        EXPECT_EQ(shownThere(), QLatin1String(lost) + ": 10min");
        EXPECT_EQ(GetCurrentStatus(home), lost);
        EXPECT_TRUE(GetStatusActive(home));
        status("Back: 5min");
        EXPECT_EQ(GetCurrentStatus(home), "Back: 5min") << "its own text, not an age";
    }
    // Alike at their beginning, or in all but their age: both lists show the same.
    for (const char* const earlier : {"Back", "Back: 5min"}) {
        hear({.code = "XRKA", .presence = presence(earlier, "8:25:00 AM")});
        EXPECT_EQ(shownThere(), QLatin1String(earlier) + ": 35min");
        EXPECT_EQ(item(home, LocationItem::Status).text, shownThere());
        EXPECT_EQ(item(home, LocationItem::TIME).text, "8:25:00 AM");
        EXPECT_EQ(GetCurrentStatus(home), earlier);
    }
    hear({.code = "XAS"});
    EXPECT_EQ(GetCurrentStatus(home), "");
    hear({.SID = "late", .code = "XAN", .presence = presence("x")});
    EXPECT_EQ(GetCurrentStatus(*me->views.rptEndpoints.find(u"late")), "") << "the row shows none";
    world.clock.setLocal(QDateTime(QDate(2026, 3, 3), QTime(0, 5)));
    hear({.code = "XRKA", .presence = presence("Back: 5min", "8:58:00 AM")});
    EXPECT_EQ(shownThere(), "Back: 5min") << "after midnight the age is not known";
}
