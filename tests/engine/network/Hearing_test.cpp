// A station that has gone deaf, or is not alone under its name, finds out by itself.
#include "engine/network/mod_Hearing.h"
#include "support/LoneStation.h"

#include <gtest/gtest.h>

using namespace tessel;

namespace {

constexpr std::int64_t kSecond = 1000;
const QString kCameBack = QStringLiteral("Multicast ,JOIN ,Multicast came back after a new join");

int logged(const WorldStation& station, const QString& text) {
    return static_cast<int>(toText(station.fileBytes(kErrorFile)).count(text));
}

class Hears : public LoneStation {
protected:
    QString footer() { return me->footer.text(); }
    std::int64_t now() { return world.clock.monotonicMs(); }
    std::vector<std::int64_t>& joins() { return me.link.rejoinedAt; }
};

} // namespace

// As behind a switch that forgets who listens.
TEST(Hearing, ADeafStationJoinsAnewAndRenewsFromThenOn) {
    World world(2);
    world.settle();
    world.run(100);
    WorldStation& deaf = world[1];
    EXPECT_TRUE(deaf.link.rejoinedAt.empty()) << "nothing is renewed without need";
    world.network.sent.clear();
    deaf.link.deafToOthers = true;
    const std::int64_t since = world.clock.monotonicMs();
    ASSERT_TRUE(world.runUntil(190, [&] { return logged(deaf, kCameBack) == 1; }));
    EXPECT_GE(deaf.link.rejoinedAt.front() - since, 45 * kSecond);
    EXPECT_EQ(deaf.link.opened, 1);
    EXPECT_EQ(world.locations(1), 2) << "no row was lost for it";
    for (const QByteArray& datagram : world.network.sent) {
        EXPECT_FALSE(datagram.contains("XD")) << "nobody is to see it go";
    }
    const std::size_t before = deaf.link.rejoinedAt.size();
    world.run(605);
    EXPECT_EQ(deaf.link.rejoinedAt.size(), before + 5) << "every two minutes";
    EXPECT_EQ(logged(deaf, kCameBack), 1);
    EXPECT_EQ(deaf->footer.text(), "  Room 2");
}

TEST_F(Hears, WhenAJoinDoesNotHelpItTriesAgainSeldomAndSaysSo) {
    begin();
    hear("XAN");
    hear("XAN", {}, "another");
    const std::int64_t silentSince = now();
    world.run(290);
    ASSERT_EQ(joins().size(), 1U);
    EXPECT_EQ(footer(), "  Room 1");
    world.run(100);
    EXPECT_EQ(footer(), "  No other location heard for 5 minutes");
    me->network.CanSend();
    world.run(3600);
    EXPECT_EQ(footer(), "  No other location heard for 5 minutes");
    EXPECT_GE(joins()[0] - silentSince, 90 * kSecond);
    for (std::size_t i = 1; i < joins().size(); ++i) {
        EXPECT_GE(joins()[i] - joins()[i - 1], 300 * kSecond);
    }
    EXPECT_GE(joins().size(), 11U);
    ASSERT_TRUE(world.runUntil(400, [&] { return now() - joins().back() > 60 * kSecond; }));
    hear("XRKA");
    EXPECT_EQ(footer(), "  Room 1");
    EXPECT_EQ(loggedWith(kCameBack), 0) << "it did not come back because of the join";

    hear("XD");
    hear("XD", {}, "another");
    const std::size_t before = joins().size();
    world.run(3600);
    EXPECT_EQ(joins().size(), before) << "an office whose others went home is no fault";
    EXPECT_EQ(footer(), "  Room 1");
}

TEST_F(Hears, NetCfgSwitchesTheJoiningOffOrAlwaysOn) {
    net("rejoin", "0");
    begin();
    hear("XAN");
    world.run(1000);
    EXPECT_TRUE(joins().empty());
    hear("XD"); // so that none is missed
    net("rejoin", "2");
    me->network.RestartNetwork();
    world.run(5 + 241);
    EXPECT_EQ(joins().size(), 2U);
    net("rejoin", "0");
    me->network.RestartNetwork();
    world.run(400);
    EXPECT_EQ(joins().size(), 2U);
}

TEST_F(Hears, WhenItDoesNotHearItselfTheNetworkRestartsOnceAnHour) {
    begin();
    me.link.deafToItself = true;
    world.run(150);
    EXPECT_EQ(me.link.opened, 2);
    EXPECT_EQ(loggedWith("Multicast ,LOOP"), 1);
    EXPECT_NE(footer(), "  Own packets do not come back");
    world.run(200);
    EXPECT_EQ(footer(), "  Own packets do not come back");
    world.run(3000);
    EXPECT_EQ(me.link.opened, 2);
    world.run(600);
    EXPECT_EQ(me.link.opened, 3);
    world.run(200);
    me.link.deafToItself = false;
    world.run(90);
    EXPECT_EQ(footer(), "  Room 1");
    EXPECT_EQ(world.locations(0), 1) << "and the own row is back";
}

TEST_F(Hears, AGoodbyeUnderItsOwnNameDoesNotTakeItsRowForGood) {
    begin();
    hear("XAN");
    world.run(50);
    sentCodes();
    hear("XD", {}, kMe);
    EXPECT_EQ(row(kMe), nullptr);
    world.run(91);
    EXPECT_NE(row(kMe), nullptr);
    EXPECT_NE(viewRow(kMe), nullptr);
    EXPECT_EQ(sentCodes().count("XAN"), 1) << "the others have lost it too";
    world.run(900);
    EXPECT_EQ(sentCodes().count("XAN"), 0);
}

TEST_F(Hears, TellsOnceAnHourThatAnotherHasItsIdentity) {
    begin();
    int told = 0;
    DuplicateIdentity last;
    QObject::connect(&me->hearing, &Hearing::duplicateIdentity, [&](const DuplicateIdentity& other) {
        ++told;
        last = other;
    });
    const auto asMe = [this](const QString& host, quint32 source) {
        world.network.inject(RawPacket{.SID = kMe, .host = host, .code = "XRKA"}.bytes(), source);
        world.clock.advance(1);
    };
    constexpr quint32 kElsewhere = 0xC0A80105;
    asMe("clone", kElsewhere);
    EXPECT_EQ(told, 0) << "own packets of before may still come in just after the start";
    world.run(5);
    asMe("host1", me.link.address);
    asMe("host1", 0);
    EXPECT_EQ(told, 0);
    asMe("host1", kElsewhere);
    asMe("clone", me.link.address);
    EXPECT_EQ(told, 1);
    EXPECT_EQ(last.address, "192.168.1.5");
    EXPECT_EQ(loggedWith("SID ,DSID ,Another computer has the same SID: host1 192.168.1.5"), 1);
    EXPECT_EQ(footer(), "  Another computer uses this location's identity");
    world.run(3600);
    asMe("clone", 0);
    EXPECT_EQ(told, 2);
    EXPECT_EQ(last.host, "clone");
    world.run(3600);
    me->network.AnnounceAnew();
    asMe("clone", kElsewhere);
    EXPECT_EQ(told, 2);
}

TEST_F(Hears, AnOfflineStationStartsWhenTheNetworkComes) {
    emit me.link.interfacesChanged();
    world.run(10);
    EXPECT_EQ(me.link.opened, 0) << "not before the program wants it, as during the first run";
    me.link.refuse = true;
    world.start(0);
    world.run(60);
    ASSERT_EQ(me.link.opened, 1);
    me.link.refuse = false;
    for (int step = 0; step < 10; ++step) { // link, address, routes
        emit me.link.interfacesChanged();
        world.clock.advance(500);
    }
    EXPECT_EQ(me.link.opened, 1) << "not before it has settled";
    world.clock.advance(1500);
    EXPECT_TRUE(me->own.online);
    EXPECT_EQ(sentCodes(), QStringList("XAN"));
    EXPECT_EQ(footer(), "  Online");
}

TEST_F(Hears, AnOnlineStationRestartsOnlyWhenItsOwnInterfaceIsNotAsItWas) {
    begin();
    emit me.link.interfacesChanged();
    world.run(10);
    EXPECT_EQ(me.link.opened, 1);
    me.link.interfaceThere = false;
    emit me.link.interfacesChanged();
    world.run(9);
    EXPECT_EQ(me.link.opened, 2);
    EXPECT_TRUE(me->own.online);
    me->ExitProc();
    emit me.link.interfacesChanged();
    world.run(60);
    EXPECT_EQ(me.link.opened, 2);
}

TEST_F(Hears, AChosenAdapterThatIsNotThereIsLogged) {
    me.link.adapterList = {{"lan", "10.0.0.1"}, {"dock", ""}};
    net("adapter", "7");
    world.start(0);
    world.run(6);
    EXPECT_EQ(footer(), "  Offline");
    EXPECT_EQ(loggedWith("Adapter ,7 ,There is no such network adapter, of 2"), 1);
    world.run(60);
    net("adapter", "1");
    for (int i = 0; i < 3; ++i) {
        emit me.link.interfacesChanged();
        world.run(3);
    }
    EXPECT_EQ(footer(), "  Offline");
    EXPECT_EQ(loggedWith("Adapter ,1 ,The network adapter has no address: dock"), 1) << "one line a minute";
    me.link.adapterList[1].address = QStringLiteral("10.0.0.2");
    emit me.link.interfacesChanged();
    world.run(3);
    EXPECT_EQ(me.link.config.receiveInterface, "10.0.0.2");
    EXPECT_EQ(footer(), "  Online");
}
