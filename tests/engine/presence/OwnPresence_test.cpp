// What this location does, and what others may make it do: each change is announced to all.
#include "support/LoneStation.h"

#include <gtest/gtest.h>

using namespace tessel;

namespace {
class OwnLocation : public LoneStation {
protected:
    void SetUp() override {
        begin();
        sentCodes();
    }
};
} // namespace

TEST_F(OwnLocation, StatusFromAfar) {
    hear("XAS2", body({kMe, "At the desk", {}}));
    EXPECT_EQ(me->own.status, "At the desk");
    EXPECT_EQ(me->own.statusTime, "9:00:06 AM");
    hear("XAS2", body({kMe, "x", {}}));
    hear("XAS2", body({kMe}));
    EXPECT_EQ(me->own.status, "At the desk") << "one character is no status";
    hear("XAS2", body({kMe, "No such entry", "25"}));
    hear("XAS2", body({kMe, "Not in the list", "3"}));
    hear("XAS2", body({kMe, "Nonsense", "three"}));
    hear("XAS2", body({kMe, "Nonsense", "-1"}));
    EXPECT_EQ(me->own.status, "At the desk") << "another office's list is not ours";
    me->own.statusTone = "Bell";
    hear("XAS1", kMe + "x");
    hear("XAS1", kMe);
    EXPECT_EQ(me->own.status + me->own.statusTime + me->own.statusTone, "");
    hear("XAS0");
    EXPECT_EQ(sentCodes(), QStringList({"XAS", "XAS", "XAS"}));
}

TEST_F(OwnLocation, RoomFromAfarIsAToggle) {
    hear("XALSN", body({kMe, "Ann"}));
    EXPECT_TRUE(me->own.occupied);
    EXPECT_EQ(me->own.patientName, "Ann");
    EXPECT_EQ(me->own.occupiedTime, "9:00:06 AM");
    hear("XALSN", body({kMe, "Bob"}));
    EXPECT_FALSE(me->own.occupied);
    EXPECT_EQ(me->own.patientName + me->own.occupiedTime, "") << "who left must not stay on the wire";
    hear("XALSN", body({kMe}));
    EXPECT_TRUE(me->own.occupied);
    EXPECT_EQ(me->own.patientName, "");
    hear("XALS", kMe);
    EXPECT_FALSE(me->own.occupied);
    hear("XALS", body({kMe, {}}));
    EXPECT_FALSE(me->own.occupied);
    EXPECT_EQ(sentCodes(), QStringList({"XALU", "XALU", "XALU", "XALU"}));
}

TEST_F(OwnLocation, NoteFromAfarIsKeptBetweenRuns) {
    hear("XALN", body({kMe, "  back at five  "}));
    EXPECT_EQ(me->own.note, "back at five");
    EXPECT_EQ(me.get(kUserFile, "note", "active"), "back at five");
    me->own.note.clear();
    me->start();
    EXPECT_EQ(me->own.note, "back at five");
    hear("XALN", body({kMe, "a\r\n[User]\nSID=x"}));
    EXPECT_EQ(me.get(kUserFile, "User", "SID"), kMe);
    hear("XALN", body({kMe, {}}));
    EXPECT_EQ(me.get(kUserFile, "Note", "ACTIVE"), "");
    EXPECT_EQ(sentCodes().count("XALNU"), 3);
}

TEST_F(OwnLocation, StaffTagFromAfar) {
    hear("XASTR", body({kMe, "31"}));
    EXPECT_EQ(me->own.staffTag, 31);
    EXPECT_EQ(me->own.staffTagTime, "9:00:06 AM");
    for (const char* const number : {"99999", "many", "", "3 1"}) {
        hear("XASTR", body({kMe, number}));
        EXPECT_EQ(me->own.staffTag, 31) << "unreadable is no order to clear: " << number;
    }
    hear("XASTR", body({kMe}));
    EXPECT_EQ(me->own.staffTag, 31);
    hear("XASTR", body({kMe, "0"}));
    EXPECT_EQ(me->own.staffTag, 0);
    EXPECT_EQ(me->own.staffTagTime, "");
    EXPECT_EQ(sentCodes().count("XAST"), 2);
}
