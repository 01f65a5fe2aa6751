// The commands by number: what each sends, when it can be used, and what it is called.
#include "support/LoneStation.h"

#include <gtest/gtest.h>

#include <set>

using namespace tessel;

namespace {

class CommandTable : public LoneStation {
protected:
    void SetUp() override {
        begin();
        hear({.location = "Lab", .code = "XAN", .tagWord = "7:"});
        sent();
    }
    QStringList does(int id, const ReportRecord* row = nullptr, const QString& text = {}) {
        sent();
        me.desktop.calls.clear();
        me->commands.Execute(id, row, text);
        return sent() + me.desktop.calls;
    }
    bool enabled(int id, const ReportRecord* row = nullptr) { return me->commands.enabled(id, row); }
    const ReportRecord* lab() { return viewRow(); }
    const ReportRecord* own() { return viewRow(kMe); }
    static QString shows(WindowId window) {
        return QStringLiteral("showWindow %1").arg(static_cast<int>(window));
    }
};

} // namespace

TEST_F(CommandTable, ClearsWhatOthersHaveSet) {
    EXPECT_FALSE(enabled(407, lab()));
    EXPECT_EQ(does(407, lab()), QStringList());
    hear({.code = "XAS", .presence = presence("Busy", "9:00:00 AM")});
    EXPECT_TRUE(enabled(407, lab()));
    EXPECT_EQ(does(407, lab()), QStringList({"XAS1 999XX999XXX9"}));

    EXPECT_FALSE(enabled(410, lab()));
    EXPECT_EQ(does(410, lab()), QStringList());
    hear({.code = "XAST", .presence = presence("Busy", {}, false, {}, 31, "9:00:00 AM"), .body = "31"});
    ASSERT_EQ(GetStatusTag(*lab()), 31);
    EXPECT_TRUE(enabled(410, lab()));
    EXPECT_EQ(does(410, lab()), QStringList({"XASTR 999XX999XXX9/0"}));
}

// The own row asks nobody: a request to oneself would travel to the whole office for nothing.
TEST_F(CommandTable, OwnRowActsHere) {
    EXPECT_FALSE(enabled(432, own()));
    me->status.SetCustomStatus("Busy");
    EXPECT_TRUE(enabled(432, own()));
    EXPECT_EQ(does(432, own()), QStringList({"XAS"}));
    EXPECT_EQ(me->own.status, "");
    EXPECT_FALSE(enabled(432, own()));

    me->status.SetCustomStatus("Busy");
    world.run(1);
    EXPECT_EQ(does(407, own()), QStringList({"XAS"}));
    EXPECT_EQ(me->own.status, "");

    EXPECT_FALSE(enabled(435, own()));
    me->presence.Set_StaffTag(33);
    EXPECT_TRUE(enabled(435, own()));
    does(435, own());
    EXPECT_EQ(me->own.staffTag, 0);
    EXPECT_EQ(does(438, own()), QStringList({shows(WindowId::SetStatus)}));

    EXPECT_TRUE(me->commands.isOwn(*own()));
    EXPECT_FALSE(me->commands.isOwn(*lab()));
}

// What would be lost on the way must not look as if it could be sent.
TEST_F(CommandTable, OfflineAndSwitchesGreyOut) {
    for (const int id : {106, 107, 112, 201, 202, 203, 205, 404, 405, 406, 433}) {
        EXPECT_TRUE(enabled(id, lab())) << id;
    }
    me->settings.QuickMenu_AlertPhone.set(false);
    EXPECT_TRUE(enabled(404, lab()));
    EXPECT_FALSE(enabled(405, lab()));
    EXPECT_EQ(does(405, lab(), "x"), QStringList());
    me->settings.QuickMenu_AlertPhone.set(true);

    me->own.online = false;
    for (const int id : {106, 107, 112, 201, 202, 203, 205, 404, 405, 406, 433}) {
        EXPECT_FALSE(enabled(id, lab())) << id;
        EXPECT_EQ(does(id, lab(), "x"), QStringList()) << id;
    }
    EXPECT_TRUE(enabled(350, nullptr));
    EXPECT_TRUE(enabled(100, nullptr));
}

// Many double-click everything: what switches must not be switched back by the same hand.
TEST_F(CommandTable, OfferedAndLockedAsSetAndSwitchedOncePerDoubleClick) {
    for (const int id : {30, 39, 201, 203, 205, 300}) {
        EXPECT_TRUE(findCommand(id)->oncePerDoubleClick) << id;
    }
    EXPECT_TRUE(me->commands.offered(*findCommand(33)));
    me->settings.Settings_SST.set(false);
    EXPECT_FALSE(me->commands.offered(*findCommand(33))) << "an office without staff tags";
    const int adapters = static_cast<int>(Command::Adapters);
    EXPECT_EQ(does(adapters), QStringList({shows(WindowId::Adapters)}));
    me->admin.NetworkSettings = QStringLiteral("R");
    EXPECT_EQ(does(adapters), QStringList());
    EXPECT_EQ(me->commands.tip(adapters), "Locked by the administrator");
}

TEST_F(CommandTable, RoomSaysWhoIsInIt) {
    EXPECT_EQ(me->commands.caption(205), "Seat Patient");
    EXPECT_FALSE(me->commands.checked(205));
    EXPECT_EQ(does(205), QStringList({shows(WindowId::PatientName)}));
    EXPECT_TRUE(me->own.occupied);
    EXPECT_EQ(me->commands.caption(433), "Remove Patient");
    EXPECT_TRUE(me->commands.checked(433));
    does(433);
    EXPECT_FALSE(me->own.occupied);

    // Names come from other stations: none may set a key, or pass for a line or shortcut of its own.
    hear("XALSN", body({kMe, "A&B\tCtrl+Q\nExit"}));
    EXPECT_EQ(me->commands.caption(205), "Remove Patient (A&&B Ctrl+Q Exit)");
}
