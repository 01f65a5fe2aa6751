// The list of all locations: who is there, how long ago they were heard, and what of it users see.
#include "engine/core/mod_Limits.h"
#include "support/LoneStation.h"

#include <gtest/gtest.h>

using namespace tessel;

namespace {

class EndpointTable : public LoneStation {
protected:
    Argb age(const QString& SID = kOther) { return item(*row(SID), EndpointItem::LastRefresh).backColor; }
    void pass() { me->endpoints.Process_KeepAlive_Times(); }
    void skipMinutes(int minutes) { world.clock.skipWall(minutes * 60); }

    std::vector<HistoryEntry> history;
    void record() {
        QObject::connect(&me->endpoints, &Endpoints::historyEntry,
                         [this](const HistoryEntry& entry) { history.push_back(entry); });
    }
};

const QString kBlock =
    QStringList{"Out", "8:00:00 AM", "-1", "Ann", "31", "8:30:00 AM", "8:10:00 AM", "-1", "Bell"}.join(
        ValueMark);

} // namespace

TEST_F(EndpointTable, RowsHoldWhatAnAnnouncementSays) {
    begin();
    hear({.code = "XAN", .presence = kBlock, .note = "my note", .tagWord = "12:0", .body = "9.8.7"});
    const QStringList expected{"Outside",    "outside", "9.8.7",   "12:0", kOther, "9:00:06 AM", "", "Out",
                               "8:00:00 AM", "12",      "my note", "TSL2", kBlock, "8:30:00 AM"};
    for (int column = 0; column < expected.size(); ++column) {
        EXPECT_EQ(row(kOther)->item(column).text, expected[column]) << column;
    }
    EXPECT_EQ(item(*row(kOther), EndpointItem::StaffTag).value, 31);
    EXPECT_EQ(row(kOther)->tag, 31);
    EXPECT_EQ(item(*row(kOther), EndpointItem::Status).value, 1);
    EXPECT_EQ(row(kOther)->item(0).foreColor, kNoColor);
    for (int column = 0; column < kEndpointItems; ++column) {
        EXPECT_EQ(row(kMe)->item(column).foreColor, column <= 5 ? kGreen : kNoColor) << column;
    }

    hear({.location = "Renamed", .code = "XAN", .note = "other"});
    hear({.location = "Renamed", .code = "XANR", .note = "other"});
    EXPECT_EQ(cell(EndpointItem::Active), "Outside") << "only the first announcement fills the row";
    EXPECT_EQ(cell(EndpointItem::Note), "my note");
    EXPECT_TRUE(me->endpoints.Endpoint_VerifyOnline(kOther));
    EXPECT_EQ(me->endpoints.FindEndpointRow(kOther), 1);
    hear("XD");
    EXPECT_FALSE(me->endpoints.Endpoint_VerifyOnline(kOther));
    EXPECT_EQ(me->endpoints.FindEndpointRow(kOther), -1);
    EXPECT_EQ(me->endpoints.FindEndpointRow(kMe), 0);
    hear("XD", {}, kMe);
    EXPECT_EQ(me->views.rptEndpoints.count(), 0);
}

TEST_F(EndpointTable, AKeepAliveBringsALocationBackWithoutItsNote) {
    begin();
    hear({.code = "XRKA", .presence = kBlock, .note = "unheard", .body = "1.1.1"});
    EXPECT_EQ(cell(EndpointItem::Note), "6");
    EXPECT_EQ(cell(EndpointItem::Version), "1.1.1");
    EXPECT_EQ(viewRow()->preview, "");
    EXPECT_EQ(shown(LocationItem::Status), "Out: 1hr:0min");
    world.run(60);
    hear({.code = "XRKA", .presence = presence("In", "9:00:00 AM"), .body = "2.2.2"});
    EXPECT_EQ(cell(EndpointItem::LastRefresh), "9:01:06 AM");
    EXPECT_EQ(cell(EndpointItem::Version), "1.1.1") << "a keep-alive refreshes the time alone";
    EXPECT_EQ(cell(EndpointItem::Status), "Out");
    EXPECT_EQ(shown(LocationItem::Status), "In");
    hear({.code = "XRKA", .presence = presence("x", "9:00:00 AM")});
    EXPECT_EQ(shown(LocationItem::Status), "In") << "one character is no status";
    hear({.code = "XALNU", .note = "there it is"});
    EXPECT_EQ(cell(EndpointItem::Note), "there it is");
    EXPECT_EQ(viewRow()->preview, "there it is");
    hear({.code = "XRKA", .presence = "", .tagWord = ""});
    me->own.online = false;
    hear("XRKA", {}, "while offline");
    EXPECT_EQ(row("while offline"), nullptr);
}

TEST_F(EndpointTable, AgesWhiteYellowRedGone) {
    begin();
    hear("XAN");
    hear("XAN", {}, "talks");
    const Argb colors[] = {kNoColor, kNoColor, kYellow, kRed};
    for (int minutes = 0; minutes < 4; ++minutes) {
        pass();
        EXPECT_EQ(age(), colors[minutes]) << minutes;
        hear("XRKA", {}, "talks");
        pass();
        EXPECT_EQ(age("talks"), kNoColor);
        EXPECT_EQ(age(kMe), kNoColor);
        skipMinutes(1);
    }
    pass();
    EXPECT_EQ(row(kOther), nullptr);
    EXPECT_EQ(viewRow(), nullptr);
    EXPECT_NE(row("talks"), nullptr);
    EXPECT_NE(row(kMe), nullptr);
    EXPECT_EQ(loggedWith("NLR"), 0);
}

TEST_F(EndpointTable, MinutesOfSilenceAreTheAdministratorsChoice) {
    net("EPKM", "2");
    admin("KA", "1");
    begin();
    hear("XAN");
    pass();
    EXPECT_EQ(age(), kYellow);
    skipMinutes(1);
    pass();
    EXPECT_EQ(age(), kRed);
    for (int i = 0; i < 3; ++i) {
        skipMinutes(1);
        pass();
        ASSERT_NE(row(kOther), nullptr) << "a location that is kept stays listed and marked";
        EXPECT_EQ(age(), kRed);
    }
    hear("XRKA");
    pass();
    EXPECT_EQ(age(), kYellow);
    hear("XD");
    EXPECT_EQ(row(kOther), nullptr);
}

TEST_F(EndpointTable, AJumpOfTheClockResetsTheNetworkOnce) {
    begin();
    for (const int minutes : {4, -3, 600}) {
        const int before = loggedWith("NR ,NLR ,Network Layer Reset");
        hear("XAN");
        hear("XAN", {}, "another");
        skipMinutes(minutes);
        pass();
        EXPECT_EQ(world.locations(0), 0);
        EXPECT_EQ(loggedWith("NR ,NLR ,Network Layer Reset"), before + 1);
        world.run(10);
        EXPECT_TRUE(me->own.online);
        EXPECT_EQ(world.locations(0), 1);
    }
    skipMinutes(-1);
    pass();
    EXPECT_EQ(world.locations(0), 1) << "a minute back is no jump";
    EXPECT_EQ(loggedWith("NLR"), 3);
    EXPECT_EQ(sentCodes().count("XD"), 3);
}

TEST_F(EndpointTable, AFloodOfInventedLocationsStopsAtTheLimit) {
    begin();
    RawPacket packet{.code = "XAN"};
    for (int i = 0; i < kMaxEndpoints + 500; ++i) {
        packet.SID = QString::number(i);
        hear(packet);
    }
    EXPECT_EQ(world.locations(0), kMaxEndpoints);
    EXPECT_EQ(loggedWith("Table is full"), 1);
    hear({.SID = "5", .code = "XALNU", .note = "known"});
    EXPECT_EQ(cell(EndpointItem::Note, "5"), "known");
    EXPECT_EQ(me->views.rptEndpoints.count(), kMaxEndpoints);

    // All of them time out in one pass, and leave room.
    skipMinutes(3);
    pass();
    hear("XRKA", {}, "77");
    pass();
    skipMinutes(1);
    pass();
    EXPECT_EQ(world.locations(0), 2);
    EXPECT_EQ(me->views.rptEndpoints.count(), 2);
    EXPECT_EQ(me->views.Active_FindSID("77"), 1);
    hear("XAN", {}, "fresh");
    EXPECT_NE(viewRow("fresh"), nullptr);
}

TEST_F(EndpointTable, StatusChangesAndTheirHistory) {
    begin();
    record();
    hear({.code = "XAN"});
    hear({.code = "XAS", .presence = presence(" At lunch ", "9:00:00 AM"), .note = "n1"});
    EXPECT_EQ(cell(EndpointItem::Status), "At lunch");
    EXPECT_EQ(item(*row(kOther), EndpointItem::Status).value, 1);
    EXPECT_EQ(cell(EndpointItem::StatusTime), "9:00:00 AM");
    EXPECT_EQ(cell(EndpointItem::Note), "n1");
    skipMinutes(20);
    hear({.code = "XAS", .presence = presence("Back", "9:20:00 AM")});
    hear({.code = "XAS"});
    EXPECT_EQ(cell(EndpointItem::Status), " ");
    EXPECT_EQ(item(*row(kOther), EndpointItem::Status).value, 0);
    EXPECT_EQ(cell(EndpointItem::StatusTime), " ");
    EXPECT_EQ(cell(EndpointItem::Note), "");
    ASSERT_EQ(history.size(), 3U);
    EXPECT_EQ(history[0].code, HistoryCode::Status);
    EXPECT_EQ(history[0].SID, kOther);
    EXPECT_EQ(history[0].time, "9:00:06 AM");
    EXPECT_EQ(history[0].date, "3/2/2026");
    EXPECT_EQ(history[1].word, "Status Updated");
    EXPECT_EQ(history[1].text, " At lunch  ( : 20min ) ");
    EXPECT_EQ(history[2].code, HistoryCode::StatusCleared);
    EXPECT_EQ(history[2].text, "Back ( : 0min ) ");
    hear({.SID = "unknown", .code = "XAS", .presence = presence("Out")});
    EXPECT_EQ(history.size(), 3U);
    EXPECT_EQ(row("unknown"), nullptr) << "a status alone makes no location";
}

TEST_F(EndpointTable, OccupiedTagsAndNotesAndTheirHistory) {
    user("Recents", "LUC", "1");
    begin();
    record();
    hear({.code = "XAN", .presence = kBlock});
    hear({.code = "XALU", .presence = presence({}, {}, true, "Ann")});
    hear({.code = "XALU", .presence = presence({}, {}, true)});
    hear({.code = "XALU"});
    EXPECT_EQ(cell(EndpointItem::Presence), kBlock) << "the block of the last status stays";
    hear({.code = "XAST", .presence = presence({}, {}, false, {}, 35, "8:50:00 AM")});
    EXPECT_EQ(cell(EndpointItem::StaffTagTime), "8:50:00 AM");
    EXPECT_EQ(item(*row(kOther), EndpointItem::StaffTag).value, 35);
    hear({.code = "XAST"});
    EXPECT_EQ(cell(EndpointItem::StaffTagTime), "");
    EXPECT_EQ(item(*row(kOther), EndpointItem::StaffTag).value, 0);
    QStringList texts;
    for (const HistoryEntry& entry : history) {
        texts += QString::number(static_cast<int>(entry.code)) + u' ' + entry.text;
    }
    EXPECT_EQ(texts, QStringList({"4 Occupied (Ann)", "4 Occupied", "9 Open", "7 ", "8 : 10min"}));
    hear({.code = "XALNU", .note = "note"});
    hear({.code = "XALNU"});
    EXPECT_EQ(cell(EndpointItem::Note), "");
}

TEST_F(EndpointTable, TheOwnTagFollowsTheOwnPacket) {
    begin();
    me->presence.Set_StaffTag(33);
    world.run(1);
    EXPECT_EQ(item(*row(kMe), EndpointItem::StaffTag).value, 33);
    hear({.SID = kMe, .code = "XAST", .presence = presence({}, {}, false, {}, 36, "7:00:00 AM")});
    EXPECT_EQ(me->own.staffTag, 36);
    EXPECT_EQ(me->own.staffTagTime, "7:00:00 AM");
    hear({.code = "XAST", .presence = kBlock});
    EXPECT_EQ(me->own.staffTag, 36) << "another location's tag is not ours";
    hear({.SID = kMe, .code = "XAST", .presence = presence({}, {}, false, {}, 0, "7:00:00 AM")});
    EXPECT_EQ(me->own.staffTag, 0);
    EXPECT_EQ(me->own.staffTagTime, "") << "no tag, no time";
}
