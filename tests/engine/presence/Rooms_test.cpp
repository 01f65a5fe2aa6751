// Rooms, tags and notes at home and from afar, and the board of the occupied ones.
#include "support/LoneStation.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace tessel;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class Rooms : public LoneStation {
protected:
    void SetUp() override {
        begin();
        hear("XAN");
        sentCodes();
    }
    // Code and body of the last packet.
    QString last() const {
        const auto packet = cPacket::parse(world.network.sent.back(), false);
        return toText(packet->bytes(Field::Code)) + u' ' + packet->bodyText().replace(ValueMark, "/");
    }
    const WindowRequest& asked() const { return me.desktop.windows.requests.back(); }
    void room(const QString& SID, const QString& patient, const QString& since, int tag = 0,
              const QString& name = "Outside", const QString& note = {}) {
        RawPacket packet{.SID = SID, .location = name, .code = "XAN", .note = note};
        QStringList block = presence({}, {}, true, patient, tag).split(ValueMark);
        block[6] = since;
        packet.presence = block.join(ValueMark);
        hear(packet);
        packet.code = "XALU";
        hear(packet);
    }
    QStringList board() {
        QStringList lines;
        for (const auto& row : me->rooms.rptStatus.rows()) {
            lines +=
                (item(*row, RoomItem::Active).text + u'/' + item(*row, RoomItem::Patient).text + u'/' +
                 QString::number(item(*row, RoomItem::Staff).value) + u'/' + item(*row, RoomItem::Time).text);
        }
        return lines;
    }
};

} // namespace

TEST_F(Rooms, SeatingAsksAndTellsOnceTheNameIsKnown) {
    for (const auto& [typed, name] : {std::pair{"  Ann ", "Ann"}, {"A", ""}, {" B ", ""}, {"", ""}}) {
        me->presence.SetOccupiedStatus(true);
        EXPECT_EQ(asked().window, WindowId::PatientName);
        EXPECT_TRUE(asked().modal);
        EXPECT_THAT(sentCodes(), IsEmpty());
        me->presence.namePatient(typed);
        EXPECT_THAT(sentCodes(), ElementsAre("XALU"));
        EXPECT_EQ(me->own.patientName, name);
        me->presence.SetOccupiedStatus(true);
        EXPECT_THAT(sentCodes(), ElementsAre("XALU")) << "removing asks nobody";
        EXPECT_EQ(me->own.patientName + me->own.occupiedTime, "");
    }
    // Freed from afar while the window is open: the name must not stay on the wire.
    me->presence.SetOccupiedStatus(true);
    hear("XALSN", body({kMe, {}}));
    me->presence.namePatient("Late");
    EXPECT_FALSE(me->own.occupied);
    EXPECT_EQ(me->own.patientName, "");
    EXPECT_THAT(sentCodes(), ElementsAre("XALU"));
}

TEST_F(Rooms, RequestsNameTheirTargetAndCannotShiftAPacket) {
    LocationActions& to = me->actions;
    to.ToggleOccupied(kOther, " Ann ");
    EXPECT_EQ(last(), "XALSN " + kOther + "/Ann");
    to.ToggleOccupied(kOther, "A");
    EXPECT_EQ(last(), "XALSN " + kOther + "/");
    EXPECT_FALSE(to.SetNote(kOther, "abc "));
    EXPECT_TRUE(to.SetNote(kOther, " back R\u20AC soon .\u20AC. "));
    EXPECT_FALSE(last().section(u'/', 1).contains(QChar(0x20AC)));
    to.RemoveNote(kOther);
    EXPECT_EQ(last(), "XALN " + kOther + "/");
    to.Set_StaffTag(kOther, 33);
    EXPECT_EQ(last(), "XASTR " + kOther + "/33");
    EXPECT_FALSE(to.Set_Status(kOther, "x", -1));
    EXPECT_TRUE(to.Set_Status(kOther, "Lunch", -1));
    EXPECT_EQ(last(), "XAS2 " + kOther + "/Lunch/");
    EXPECT_TRUE(to.Set_Status(kOther, "Lunch", 4));
    EXPECT_EQ(last(), "XAS2 " + kOther + "/Lunch/4");
    to.Clear_Status(kOther);
    EXPECT_EQ(last(), "XAS1 " + kOther);
    sentCodes();
    to.ToggleOccupied({}, "Ann");
    EXPECT_THAT(sentCodes(), IsEmpty());
    EXPECT_FALSE(me->own.occupied);
}

TEST_F(Rooms, OwnNoteIsKeptAndItsRemovalForTodayOnly) {
    EXPECT_FALSE(me->presence.SetActiveNote("abc "));
    EXPECT_TRUE(me->presence.SetActiveNote(" back at five "));
    EXPECT_EQ(me->own.note, "back at five");
    me->presence.RemoveActiveNote();
    EXPECT_EQ(me->own.note, "");
    EXPECT_EQ(me.get(kUserFile, "Note", "ACTIVE"), "back at five");
    EXPECT_EQ(sentCodes(), QStringList({"XALNU", "XALNU"}));
}

TEST_F(Rooms, EachRowOpensItsOwnWindow) {
    const ReportRecord& other = *viewRow();
    const ReportRecord& own = *viewRow(kMe);
    me->actions.LaunchActionsWindow(own);
    EXPECT_EQ(asked().window, WindowId::SetStatus);
    me->actions.SetLocationNoteRemote(own);
    EXPECT_EQ(asked().window, WindowId::ActiveNote);
    me->actions.LaunchActionsWindow(other, ActionsPage::Favorite);
    EXPECT_EQ(asked().window, WindowId::Actions);
    EXPECT_EQ(asked().SID, kOther);
    EXPECT_EQ(asked().page, 1);
    me->actions.SetLocationNoteRemote(other);
    EXPECT_EQ(asked().window, WindowId::LocationNote);
    me->actions.SetOccupiedRemote(other);
    EXPECT_EQ(asked().window, WindowId::OccupiedRemote);
    EXPECT_FALSE(me->own.occupied);
    me->actions.AddtoFavoriteList(other);
    me->actions.AddtoFavoriteList(other);
    EXPECT_EQ(asked().window, WindowId::AlreadyFavorite);
    EXPECT_TRUE(me->actions.isFavorite(other));
    me->actions.removeFavorite(kOther);
    EXPECT_FALSE(me->actions.isFavorite(other));
    EXPECT_EQ(me->commands.caption(408, &other), "Seat Patient");
    room(kOther, "Ann", "9:00:00 AM");
    EXPECT_EQ(me->commands.caption(408, &other), "Remove Patient (Ann)");
}

TEST_F(Rooms, BoardIsMadeAnewOnceAMinute) {
    room("a", "Ann", "8:50:00 AM", 31, "Room B", "a note");
    room("b", {}, "8:00:00 AM", 0, "Room A");
    me->rooms.setMode(RoomStatus::Mode::Window);
    EXPECT_THAT(board(), ElementsAre("Room B/Ann/31/", "Room A//0/"));
    EXPECT_EQ(me->rooms.rptStatus.at(0)->preview, "a note");
    hear({.SID = "a", .location = "Room B", .code = "XALU"});
    room("c", "Carl", "9:00:00 AM", 0, "Room C");
    EXPECT_EQ(board().size(), 2) << "not before the minute";
    world.run(61);
    EXPECT_THAT(board(), ElementsAre("Room A//0/", "Room C/Carl/0/"));
    me->rooms.setMode(RoomStatus::Mode::Closed);
    hear({.SID = "c", .code = "XALU"});
    const auto revision = me->rooms.rptStatus.revision();
    world.run(200);
    EXPECT_EQ(me->rooms.rptStatus.revision(), revision) << "closed, it costs nothing";
}

// On a wall "no room is occupied" must be true.
TEST_F(Rooms, AnEmptyBoardSaysSoOnlyWhereTheOthersHaveAnswered) {
    world.run(5);
    EXPECT_TRUE(me->rooms.known());
    me->network.RestartNetwork();
    EXPECT_FALSE(me->rooms.known()) << "offline";
    int told = 0;
    QObject::connect(&me->rooms, &RoomStatus::knownChanged, [&told] { ++told; });
    world.run(5);
    EXPECT_TRUE(me->own.canSend());
    EXPECT_FALSE(me->rooms.known()) << "nobody has answered yet";
    world.run(4);
    EXPECT_TRUE(me->rooms.known());
    EXPECT_EQ(told, 2);
}

TEST_F(Rooms, LargeBoardFollowsWithinASecondAndCountsTheTime) {
    room("a", "Ann", "8:50:00 AM", 0, "Room A");
    room("b", "Bob", "7:55:00 AM", 0, "Room B");
    room("c", {}, {}, 0, "Room C");
    me->rooms.setMode(RoomStatus::Mode::Large);
    EXPECT_THAT(board(), ElementsAre("Room A/Ann/0/10 min", "Room B/Bob/0/1 h 05 min", "Room C//0/"));
    hear({.SID = "b", .location = "Room B", .code = "XALU"});
    world.run(1);
    EXPECT_THAT(board(), ElementsAre("Room A/Ann/0/10 min", "Room C//0/"));
    const auto revision = me->rooms.rptStatus.revision();
    world.run(30);
    EXPECT_EQ(me->rooms.rptStatus.revision(), revision) << "nothing changed";
    world.run(40);
    EXPECT_EQ(board().first(), "Room A/Ann/0/11 min");

    world.clock.setLocal(QDateTime(QDate(2026, 3, 3), QTime(0, 5)));
    EXPECT_EQ(me->roomTimes.occupiedFor("a", world.clock.secondOfDay()), "15 h 15 min") << "over midnight";
    world.clock.setLocal(QDateTime(QDate(2026, 3, 3), QTime(8, 45)));
    EXPECT_EQ(me->roomTimes.occupiedFor("a", world.clock.secondOfDay()), "0 min") << "its clock is ahead";
    room("a", "Ann", "11:59:34 PM", 0, "Room A");
    world.clock.setLocal(QDateTime(QDate(2026, 3, 4), QTime(0, 0, 53)));
    EXPECT_EQ(me->roomTimes.occupiedFor("a", world.clock.secondOfDay()), "1 min") << "not two";
    hear("XD", {}, "a");
    EXPECT_EQ(me->roomTimes.since("a"), "");
}
