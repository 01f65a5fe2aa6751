// The favorites: slots in user.cfg, rows at once, and whom the user is told of.
#include "support/LoneStation.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace tessel;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class FavoriteSlots : public LoneStation {
protected:
    FavoriteSlots() { me.addTones(); }

    QString stored(int slot) { return me.get(kUserFile, "Favorites", QString::number(slot)); }
    FavoriteAdded add(const QString& SID, const QString& name = "Room") {
        return me->favorites.AddFavorite(name, SID, Favorites::kDefaultTone);
    }
    void restart() { me->favorites.LoadFavorites(); }
    void status(const QString& text, const QString& tone = {}) {
        hear({.code = "XAS", .presence = presence(text, "8:58:00 AM") + tone});
    }
};

} // namespace

TEST_F(FavoriteSlots, FiftyOneFitAndAFreedOneIsTakenNext) {
    begin();
    for (int slot = 0; slot < 51; ++slot) {
        ASSERT_EQ(add(QStringLiteral("S%1").arg(slot)), FavoriteAdded::Added) << slot;
    }
    EXPECT_EQ(stored(0), "Room:|:S0:|:0");
    EXPECT_EQ(stored(50), "Room:|:S50:|:0");
    EXPECT_EQ(add("S51"), FavoriteAdded::Failed);
    EXPECT_EQ(loggedWith("Favorites are full"), 1);
    EXPECT_EQ(add("S7"), FavoriteAdded::AlreadyThere) << "however full it is";

    me->favorites.RemoveFavoriteSlot(3, "S4");
    EXPECT_EQ(stored(3), "Room:|:S3:|:0") << "a row that is not that slot's any more";
    me->favorites.RemoveFavoriteSlot(3, "S3");
    me->favorites.RemoveFavoriteSlot(40, "S40");
    EXPECT_EQ(stored(3), "");
    EXPECT_EQ(add("new"), FavoriteAdded::Added);
    EXPECT_EQ(me->favorites.FindFavoriteSlot("new"), 3);
    restart();
    EXPECT_EQ(me->favorites.usedSlots().size(), 50U);
    EXPECT_EQ(me->favorites.FindFavoriteSlot("new"), 3);
    EXPECT_FALSE(me->favorites.IsFavoriteSID("S40"));
}

TEST_F(FavoriteSlots, WhatAFileOrANameHoldsDoesNoHarm) {
    user("Favorites", "0", "garbage");
    user("Favorites", "2", ":|::|::|:");
    user("Favorites", "4", QStringLiteral("First:|:%1:|:../../tone").arg(kOther));
    user("Favorites", "5", QStringLiteral("Again:|:%1:|:3").arg(kOther));
    user("Favorites", "51", "Beyond:|:far:|:1");
    begin();
    EXPECT_THAT(me->favorites.usedSlots(), ElementsAre(0, 2, 4, 5));
    EXPECT_FALSE(me->favorites.IsFavoriteSID(""));
    EXPECT_FALSE(me->favorites.IsFavoriteSID("far"));
    hear("XAN");
    EXPECT_EQ(me->views.rptFavorites.count(), 1);
    EXPECT_EQ(me->favorites.toneOf(4), "") << "no tone is made of that";

    me->favorites.RemoveFavoriteSlot(4, kOther);
    ASSERT_EQ(me->views.rptFavorites.count(), 1) << "it stands in the file a second time";
    EXPECT_EQ(item(*me->views.rptFavorites.at(0), LocationItem::VR).value, 5);
    me->favorites.RemoveFavoriteSlot(5, kOther);
    EXPECT_EQ(me->views.rptFavorites.count(), 0);

    EXPECT_EQ(add("plain", "Room 3:|:X-ray"), FavoriteAdded::Added);
    EXPECT_EQ(add("a:|:b"), FavoriteAdded::Failed);
    EXPECT_EQ(add({}), FavoriteAdded::Failed);
    restart();
    EXPECT_TRUE(me->favorites.IsFavoriteSID("plain"));
    EXPECT_THAT(me->favorites.usedSlots(), ElementsAre(0, 1, 2)) << "what failed left its slot free";
}

TEST_F(FavoriteSlots, RowComesAndGoesAtOnceAndFollowsTheLocation) {
    begin();
    hear({.code = "XAN", .presence = presence("Out", "8:30:00 AM", true, "Ann", 34), .note = "a note"});
    EXPECT_EQ(me->views.rptFavorites.count(), 0);
    add(kOther);
    ASSERT_EQ(me->views.rptFavorites.count(), 1);
    const ReportRecord& row = *me->views.rptFavorites.at(0);
    EXPECT_EQ(GetLocationName(row), "Outside");
    EXPECT_EQ(item(row, LocationItem::Status).text, "Out: 30min");
    EXPECT_TRUE(isOccupied(row));
    EXPECT_EQ(GetOccupiedName(row), "Ann");
    EXPECT_EQ(GetStatusTag(row), 34);
    EXPECT_EQ(row.preview, "a note");
    EXPECT_EQ(item(row, LocationItem::FavoriteVR).text, "TSL2");
    hear({.code = "XALU"});
    EXPECT_FALSE(isOccupied(row));
    me->favorites.RemoveFavoriteSlot(0, kOther);
    EXPECT_EQ(me->views.rptFavorites.count(), 0);
    EXPECT_EQ(add("offline"), FavoriteAdded::Added);
    EXPECT_EQ(me->views.rptFavorites.count(), 0) << "a row only while it is online";
}

TEST_F(FavoriteSlots, ToneAndPopupOfItsOwnOutliveTheRun) {
    begin();
    hear("XAN");
    add(kOther, "Outside");
    EXPECT_TRUE(me->favorites.UpdateFavorite(0, "Outside", kOther, "5", false));
    EXPECT_EQ(stored(0), "Outside:|:" + kOther + ":|:5");
    EXPECT_FALSE(me->favorites.UpdateFavorite(51, "Outside", kOther, "5", false));
    restart();
    me.sounds.played.clear();
    status("Out");
    EXPECT_THAT(me.sounds.played, ElementsAre("5A.wav"));
    EXPECT_FALSE(me.desktop.popups[0].has_value());
    me->favorites.RemoveFavoriteSlot(0, kOther);
    add(kOther, "Outside");
    restart();
    me.sounds.played.clear();
    status("Lunch");
    EXPECT_THAT(me.sounds.played, ElementsAre("Status.wav"));
    EXPECT_TRUE(me.desktop.popups[0].has_value()) << "a fresh favorite shows its popups again";
}

// With these switches the history keeps favorites alone: who has none must not lose all entries for good.
TEST_F(FavoriteSlots, HistoryOfFavoritesAlone) {
    user("Recents", "STF", "1");
    user("Recents", "LUF", "1");
    begin();
    hear("XAN");
    const auto events = [this] {
        const int before = me->history.rptNotifications.count();
        status("Out");
        hear({.code = "XALU", .presence = presence("Out", "8:58:00 AM", true, "Ann")});
        hear({.code = "XALU", .presence = presence("Out", "8:58:00 AM")});
        return me->history.rptNotifications.count() - before;
    };
    EXPECT_EQ(events(), 0);
    add(kOther);
    EXPECT_GE(events(), 2);
}
