// Taking leave: nothing rings by half while the network restarts, and nothing leaves a station behind its
// goodbye.
#include "support/LoneStation.h"

using namespace tessel;

namespace {

class Leaving : public LoneStation {
protected:
    void SetUp() override {
        me.addTones();
        begin();
        hear({.code = "XAN", .presence = presence("Busy", "9:00:00 AM", false, {}, 34)});
        for (const int id : {106, 107, 112, 404, 405, 406, 407, 410}) {
            ASSERT_TRUE(me->commands.enabled(id, viewRow())) << id;
        }
        sentCodes();
    }
    // Everything that a user may press to send an alert.
    void pressAll() {
        me->commands.Execute(404, viewRow(), "tea");
        me->alerts.SendQuickAlert(QuickAlert::Urgent, {kOther, 0}, "help");
        EXPECT_FALSE(me->alerts.SendDoorBell("text"));
        EXPECT_FALSE(me->alerts.SendDoorBell_Group("Room:" + kOther + ListMark, "text"));
        me->remoteCommands.execute("/db:text");
    }
    void expectOffline() {
        me.sounds.played.clear();
        me.desktop.calls.clear();
        for (const int id : {106, 107, 112, 404, 405, 406, 407, 410}) {
            EXPECT_FALSE(me->commands.enabled(id, viewRow())) << id;
        }
        pressAll();
        EXPECT_EQ(me->footer.text(), "  Not sent: offline");
        EXPECT_EQ(me.sounds.played, QStringList()) << "a tone says that it went out";
        EXPECT_EQ(me.desktop.calls, QStringList());
    }
};

} // namespace

TEST_F(Leaving, FromTheGoodbyeToTheNextStartNothingIsSentAndEverybodyIsTold) {
    QStringList whenDrawn;
    QObject::connect(&me->footer, &Footer::changed, [&] {
        whenDrawn += me->footer.text() + (me->commands.enabled(106, nullptr) ? " on" : " off");
    });
    Timer inTheGoodbye(world.clock, "probe", 500, Timer::Kind::OneShot, [this] {
        EXPECT_TRUE(me->own.online);
        hear("XAN"); // would be answered in three seconds, or in half a second if one came before
        hear({.code = "XALN", .body = body({kMe, "note from afar"})});
        expectOffline();
    });
    me->network.tmrAnnounce.setEnabled(true);
    world.clock.advance(2800);
    inTheGoodbye.setEnabled(true);
    me->network.RestartNetwork();
    EXPECT_EQ(sentCodes(), QStringList("XD"));
    EXPECT_EQ(whenDrawn.front(), "  Disconnecting off");
    hear("XAN");
    expectOffline();
    world.run(5);
    EXPECT_EQ(sentCodes(), QStringList("XAN"));
    EXPECT_EQ(whenDrawn.back(), "  Online on");
    EXPECT_EQ(me->own.note, "note from afar");
    me->commands.Execute(404, viewRow(), "tea");
    EXPECT_EQ(sentCodes(), QStringList("XAD1"));
}

TEST_F(Leaving, AnEndSaysGoodbyeLast) {
    hear("XAN", {}, "another");
    world.clock.advance(2500);
    me->ExitProc();
    world.run(60);
    EXPECT_EQ(sentCodes(), QStringList("XD"));
}

TEST_F(Leaving, ANewNameTakesLeaveOnceAndARestartMeanwhileIsNotForgotten) {
    Timer inTheGoodbye(world.clock, "probe", 500, Timer::Kind::OneShot, [this] {
        me->network.AnnounceAnew();
        me->commands.Execute(107, nullptr, {});
    });
    inTheGoodbye.setEnabled(true);
    me->network.AnnounceAnew();
    EXPECT_EQ(sentCodes(), QStringList({"XD", "XAN"}));
    EXPECT_EQ(me.link.opened, 1);
    Timer order(world.clock, "order", 500, Timer::Kind::OneShot, [this] { me->network.RestartNetwork(); });
    order.setEnabled(true);
    me->network.AnnounceAnew();
    world.run(6);
    EXPECT_EQ(me.link.opened, 2);
    EXPECT_TRUE(me->own.canSend());
}

TEST_F(Leaving, AStandingWordComesBackBehindARemark) {
    me.link.refuse = true;
    me->network.RestartNetwork();
    world.run(6);
    EXPECT_EQ(me->footer.text(), "  Offline");
    pressAll();
    EXPECT_EQ(me->footer.text(), "  Not sent: offline");
    world.run(20);
    EXPECT_EQ(me->footer.text(), "  Offline");
    me.link.refuse = false;
    me->network.RestartNetwork();
    world.run(26);
    EXPECT_EQ(me->footer.text(), "  Room 1");
}

// A cable that was out for a minute: who sits in which room changed meanwhile, and nobody heard of it.
TEST(NoWayOut, WhatNobodyHeardIsToldOnceThereIsAWay) {
    World world(2);
    world.settle();
    Station& away = *world[0].station;
    const auto seenAfar = [&] {
        const ReportRecord* const row = world[1]->views.rptEndpoints.find(away.own.SID);
        return row == nullptr ? QStringLiteral("(no row)")
                              : GetCurrentStatus(*row) + u'/' + GetOccupiedName(*row) + u'/' + row->preview +
                                    u'/' + QString::number(GetStatusTag(*row));
    };
    auto codes = [&world, seen = std::size_t{0}]() mutable {
        QStringList all;
        for (; seen < world.network.sent.size(); ++seen) {
            all += toText(cPacket::parse(world.network.sent[seen], false)->bytes(Field::Code));
        }
        return all;
    };
    away.status.SetCustomStatus(QStringLiteral("At lunch"));
    world.run(1);
    codes();

    world[0].link.noWay = true;
    away.status.TurnOffStatus();
    away.presence.SetOccupiedStatusRemote(true, QStringLiteral("Ann"));
    away.presence.SetOccupiedStatusRemote(false, {});
    away.presence.SetOccupiedStatusRemote(true, QStringLiteral("Miller"));
    away.presence.SetLocationNote(QStringLiteral("Knock first"));
    away.presence.Set_StaffTag(33);
    world.run(5);
    EXPECT_EQ(seenAfar(), "At lunch///0");
    EXPECT_EQ(codes(), QStringList());
    world[0].link.noWay = false;
    emit world[0].link.interfacesChanged();
    world.run(3);
    EXPECT_EQ(seenAfar(), "/Miller/Knock first/33");
    EXPECT_EQ(codes(), (QStringList{"XAS", "XALU", "XALNU", "XAST"})) << "each once";
    emit world[0].link.interfacesChanged();
    world.run(3);
    EXPECT_EQ(codes(), QStringList()) << "what was told is not told again";

    // Without any sign from the system the next keep-alive brings it; and a goodbye that nobody heard
    // leaves the row as it was.
    world[0].link.noWay = true;
    away.presence.SetOccupiedStatusRemote(false, {});
    world[0].link.noWay = false;
    world.run(46);
    EXPECT_EQ(seenAfar(), "//Knock first/33");
    world[0].link.noWay = true;
    away.network.RestartNetwork();
    world.run(2);
    away.presence.SetOccupiedStatusRemote(true, QStringLiteral("Moore"));
    world[0].link.noWay = false;
    world.run(6);
    EXPECT_EQ(seenAfar(), "/Moore/Knock first/33");
    codes();
    away.network.RestartNetwork();
    world.run(2);
    away.presence.SetOccupiedStatusRemote(false, {});
    world.run(6);
    EXPECT_FALSE(codes().contains("XALU")) << "behind a goodbye that was heard the announcement says it";
}
