// Others' statuses: what the user is told of them, and the Status and Favorites lists.
#include "engine/presence/cFavoriteLookup.h"
#include "support/LoneStation.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>
#include <random>

using namespace tessel;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

struct FakeFavorites : FavoriteLookup {
    std::map<QString, int> slots_;
    std::map<int, QString> tones;
    std::map<int, bool> popups;

    int slotOf(const QString& SID) const override {
        const auto found = slots_.find(SID);
        return found == slots_.end() ? -1 : found->second;
    }
    bool wantsPopup(int slot) const override { return popups.count(slot) == 0 || popups.at(slot); }
    QString toneOf(int slot) const override { return tones.count(slot) == 0 ? QString() : tones.at(slot); }
};

// A station beside which stand lists and notices of its kind that know favorites.
class OthersStatus : public LoneStation {
protected:
    void SetUp() override {
        me.addTones();
        user("Settings", "SHOWUSER", "1");
        begin();
        connectAll();
        hear("XAN");
    }

    void connectAll() {
        const auto on = [this](auto signal, auto slot) {
            QObject::connect(&me->endpoints, signal, &views, slot);
        };
        on(&Endpoints::added, &LocationViews::Add_to_Active);
        on(&Endpoints::removed, &LocationViews::Active_RemoveEndpoint);
        on(&Endpoints::statusChanged, &LocationViews::ProcessStatusUpdate);
        on(&Endpoints::statusChanged, &LocationViews::ProcessStatusUpdateFav);
        on(&Endpoints::locationChanged, &LocationViews::ProcessLocationUpdate);
        on(&Endpoints::staffTagChanged, &LocationViews::ProcessStaffUpdate);
        on(&Endpoints::noteChanged, &LocationViews::ProcessLocationNoteUpdate);
        on(&Endpoints::statusTimeRefreshed, &LocationViews::ProcessStatusTime);
        QObject::connect(&views, &LocationViews::statusSet, &views,
                         [this](const StatusNews& news) { notices.statusSet(news); });
        QObject::connect(&views, &LocationViews::statusCleared, &views,
                         [this](const QString& SID) { notices.statusCleared(SID); });
    }

    void status(const QString& text, const QString& tone = {}, const QString& SID = kOther) {
        hear({.SID = SID, .code = "XAS", .presence = presence(text, "8:58:00 AM") + tone});
    }
    // Popups and tones since the last call.
    QStringList noticed() {
        QStringList all = std::exchange(desktop.calls, {}).filter("showPopup");
        return all + std::exchange(sounds.played, {});
    }
    // A favorite from now on.
    void favorite(int slot, const QString& SID = kOther) {
        favorites.slots_[SID] = slot;
        hear("XD", {}, SID);
        hear("XAN", {}, SID);
        noticed();
    }
    const ReportRecord* favoriteRow() { return views.rptFavorites.find(kOther); }

    FakeFavorites favorites;
    RecordingDesktop desktop;
    RecordingSounds sounds;
    Popups popups{me->own, me->settings, me->data, world.clock, desktop.popups};
    Tones tones{me->own, me->settings, me->folders, me->ini, sounds};
    StatusNotices notices{me->own, me->settings, favorites, popups, tones};
    LocationViews views{me->own, me->settings, world.clock, favorites};
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
    EXPECT_EQ(item(*views.rptEndpoints.find(kOther), LocationItem::Status).text, "Not of interest")
        << "the row changes all the same";
    status("Stranger", {}, "unknown");
    EXPECT_THAT(noticed(), IsEmpty()) << "who has no row is not told of";
}

TEST_F(OthersStatus, AFavoriteIsToldOfOnceByItsOwnSwitches) {
    favorite(7);
    for (const bool favoritesOnly : {false, true}) {
        me->settings.Settings_SNF.set(favoritesOnly);
        status("Out");
        EXPECT_THAT(noticed(), ElementsAre(kShown, "Status.wav")) << favoritesOnly;
    }
    favorites.tones[7] = "5";
    status("Out");
    EXPECT_THAT(noticed(), ElementsAre(kShown, "5A.wav"));
    status("Shared", "3");
    EXPECT_THAT(noticed(), ElementsAre(kShown, "3A.wav")) << "the status's own tone goes first";
    favorites.popups[7] = false;
    status("Out");
    EXPECT_THAT(noticed(), ElementsAre("5A.wav"));
    favorites.popups[7] = true;
    me->settings.Sound_SC.set(false);
    status("Out");
    EXPECT_THAT(noticed(), ElementsAre(kShown)) << "without a sound card not even the beep";
    me->own.doNotDisturb = true;
    status("Out");
    EXPECT_THAT(noticed(), IsEmpty());
    me->own.doNotDisturb = false;
    me->settings.Sound_SC.set(true);
    favorites.slots_.clear();
    status("Left the favorites");
    EXPECT_THAT(noticed(), IsEmpty()) << "favorites only, and it is none any more";
    me->settings.Settings_SNF.set(false);
    status("Left the favorites");
    EXPECT_THAT(noticed(), ElementsAre(kShown, "Status.wav")) << "a row that is still there adds nothing";
}

TEST_F(OthersStatus, RowsOfFavorites) {
    favorites.slots_ = {{kOther, 7}, {"ghost", 51}, {"last", 50}};
    hear("XD");
    hear({.code = "XAN", .presence = presence("Out", "8:30:00 AM", true, "Ann"), .note = "a note"});
    hear("XAN", {}, "ghost");
    hear("XAN", {}, "last");
    ASSERT_TRUE(favoriteRow());
    EXPECT_EQ(views.rptFavorites.count(), 2) << "there are 51 slots";
    EXPECT_EQ(item(*favoriteRow(), LocationItem::Status).text, "Out: 30min");
    EXPECT_EQ(item(*favoriteRow(), LocationItem::VR).text, "7");
    EXPECT_EQ(item(*favoriteRow(), LocationItem::FavoriteVR).text, "TSL2");
    EXPECT_EQ(favoriteRow()->preview, "a note");
    hear({.code = "XALU", .presence = presence({}, {}, false, {}, 0, {}, true)});
    hear({.code = "XAST", .presence = presence({}, {}, false, {}, 36)});
    hear({.code = "XALNU", .note = "new"});
    hear({.code = "XRKA", .presence = presence("Out", "8:00:00 AM")});
    for (const ReportRecord* const row :
         {favoriteRow(), static_cast<const ReportRecord*>(views.rptEndpoints.find(kOther))}) {
        EXPECT_TRUE(isLocationDND(*row));
        EXPECT_FALSE(isOccupied(*row));
        EXPECT_EQ(GetOccupiedName(*row), "");
        EXPECT_EQ(GetStatusTag(*row), 36);
        EXPECT_EQ(row->tag, 36);
        EXPECT_EQ(row->preview, "");
        EXPECT_EQ(item(*row, LocationItem::Status).text, "Out: 1hr:0min");
        EXPECT_EQ(GetCurrentStatus(*row), "Out");
        EXPECT_FALSE(IsVirtualLocation(*row));
    }
    hear("XD");
    EXPECT_EQ(views.Active_FindSIDFav(kOther), -1);
    EXPECT_EQ(views.Active_FindSIDFav("last"), 0);
}

TEST_F(OthersStatus, AStatusWhosePacketWasLostComesWithTheKeepAlive) {
    views.setStatusTabCurrent(true);
    const auto shownThere = [this] {
        views.rptStatusView.bringUpToDate();
        const ReportRecord* const row = views.rptStatusView.find(kOther);
        return row == nullptr ? QString() : item(*row, LocationItem::Status).text;
    };
    EXPECT_EQ(shownThere(), "");
    const auto& home = *views.rptEndpoints.find(kOther);
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
    EXPECT_EQ(GetCurrentStatus(*views.rptEndpoints.find(u"late")), "") << "the row shows none";
    world.clock.setLocal(QDateTime(QDate(2026, 3, 3), QTime(0, 5)));
    hear({.code = "XRKA", .presence = presence("Back: 5min", "8:58:00 AM")});
    EXPECT_EQ(shownThere(), "Back: 5min") << "after midnight the age is not known";
}

// Whatever happens, the Status list is what one gets by making it anew from the Home list.
TEST_F(OthersStatus, StatusListEqualsARebuildAtAnyMoment) {
    const auto line = [](const ReportRecord& row) {
        QStringList parts{row.preview, row.tip(1), QString::number(row.tag), QString::number(row.pinned)};
        for (int index = 0; index < kLocationItems; ++index) {
            const ReportItem& cell = row.item(index);
            parts += cell.text + u'/' + QString::number(cell.value) + u'/' + QString::number(cell.foreColor) +
                     u'/' + QString::number(cell.backColor) + u'/' + QString::number(cell.icon);
        }
        return parts.join(u'|');
    };
    const auto linesOf = [&line](const ReportRecords& list) {
        QStringList lines;
        for (const auto& row : list.rows()) {
            lines += line(*row);
        }
        return lines;
    };
    const auto rebuilt = [&] {
        const FavoriteLookup none;
        LocationViews fresh(me->own, me->settings, world.clock, none);
        for (const auto& row : views.rptEndpoints.rows()) {
            if (item(*row, LocationItem::Status).text.size() < 2) {
                continue;
            }
            const QString block = item(*row, LocationItem::OST).text;
            EndpointAdded location{GetLocationName(*row),
                                   GetSID(*row),
                                   block,
                                   Presence::of(block),
                                   row->preview,
                                   static_cast<std::int16_t>(GetColorTag(*row)),
                                   item(*row, LocationItem::VR).text};
            location.presence.occupied = isOccupied(*row);
            location.presence.patientName = GetOccupiedName(*row);
            location.presence.doNotDisturb = isLocationDND(*row);
            location.presence.staffTag = static_cast<std::int16_t>(GetStatusTag(*row));
            fresh.Add_to_Active(location);
        }
        return linesOf(fresh.rptEndpoints);
    };

    std::mt19937 random(7);
    const auto oneOf = [&random](const std::vector<QString>& texts) {
        return texts[random() % texts.size()];
    };
    bool current = false;
    int compared = 0;
    for (int step = 0; step < 3000; ++step) {
        const QString SID = QString::number(random() % 12);
        const auto now =
            presence(oneOf({{}, "x", "Out", "Gone home", "Lunch"}), "8:50:00 AM", random() % 2 == 0,
                     oneOf({{}, "Ann"}), static_cast<int>(random() % 2) * 31, {}, random() % 3 == 0);
        const QString code = oneOf({"XAN", "XAN", "XAS", "XAS", "XAS", "XALU", "XAST", "XALNU", "XD"});
        hear({.SID = SID,
              .code = code,
              .presence = now,
              .note = oneOf({{}, "abc", "a note"}),
              .tagWord = QString::number(random() % 42) + ":0"});
        if (random() % 10 == 0) {
            world.run(60);
            // Ages grow with changes alone: a look without one may still show the old.
            if (current) {
                views.ProcessStatusView();
            }
        }
        if (random() % 20 == 0) {
            views.rptStatusView.bringUpToDate();
            current = !current;
            views.setStatusTabCurrent(current);
        }
        const QStringList before = linesOf(views.rptStatusView);
        views.rptStatusView.bringUpToDate();
        const QStringList shownNow = linesOf(views.rptStatusView);
        ASSERT_TRUE(shownNow == (current ? rebuilt() : before))
            << "step " << step << ' ' << code.toStdString() << (current ? "" : " hidden, it costs nothing")
            << '\n'
            << shownNow.join(u'\n').toStdString() << "\ninstead of\n"
            << (current ? rebuilt() : before).join(u'\n').toStdString();
        compared += current ? 1 : 0;
    }
    EXPECT_GT(compared, 500);
}
