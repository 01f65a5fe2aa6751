// Going on line and off: the group, the adapter, the timers, and what the footer says meanwhile.
#include "engine/network/mod_NetworkGroups.h"
#include "support/LoneStation.h"

#include <gtest/gtest.h>

using namespace tessel;

namespace {
class NetworkLayer : public LoneStation {
protected:
    const LinkConfig& opened() {
        me->network.RestartNetwork();
        world.run(6);
        return me.link.config;
    }
    QString footer() const { return world0->footer.text(); }
    Station* world0 = me.station.get();
};
} // namespace

TEST_F(NetworkLayer, GroupsAndWhatMayOverrideThem) {
    begin();
    for (const char* const unknown : {"", "7", "-1", "x"}) {
        net("net", unknown);
        EXPECT_EQ(opened().group, "232.36.32.36") << unknown;
        EXPECT_EQ(me.link.config.remotePort, 5748);
    }
    for (const auto& [key, value] : {std::pair{"mclport", "6000"},
                                     {"mcrport", "6001"},
                                     {"mcgroup", "239.9.9.9"},
                                     {"mchost", "239.9.9.8"},
                                     {"mcttl", "3"},
                                     {"maxp", "1200"}}) {
        net(key, value);
    }
    net("net", "3");
    EXPECT_EQ(opened().group, "224.0.1.200") << "groups 3 and 4 are fixed";
    EXPECT_EQ(opened().timeToLive, 1);
    EXPECT_EQ(opened().maxPacketSize, 1200);
    net("net", "1");
    EXPECT_EQ(opened().group, "239.9.9.9");
    EXPECT_EQ(opened().remoteHost, "239.9.9.8");
    EXPECT_EQ(opened().localPort, 6000);
    EXPECT_EQ(opened().remotePort, 6001);
    EXPECT_EQ(opened().timeToLive, 3);
    net("mclport", "a port");
    EXPECT_LT(opened().localPort, 0) << "a wrong port must fail, and not be another one";
}

TEST_F(NetworkLayer, AdaptersAndInterfaces) {
    me.link.adapterList = {{"lan", "10.0.0.1"}, {"wlan", "10.0.0.2"}};
    begin();
    EXPECT_EQ(me.link.config.localHost, "");
    EXPECT_EQ(me.link.config.sendInterface, "");
    net("iphost", "192.168.1.5");
    EXPECT_EQ(opened().sendInterface, "192.168.1.5");
    EXPECT_EQ(me.link.config.localHost, "192.168.1.5");
    net("adapter", "1");
    EXPECT_EQ(opened().receiveInterface, "10.0.0.2") << "the adapter wins over the address";
    EXPECT_EQ(me->own.ownIPAddress, "10.0.0.2");
    net("adapov", "1");
    net("adprecv", "10.9.9.9");
    EXPECT_EQ(opened().receiveInterface, "10.9.9.9");
    EXPECT_EQ(opened().sendInterface, "") << "asked for by an empty key";
    net("adapov", "0");
    for (const char* const index : {"2", "-1", "lan"}) {
        net("adapter", index);
        opened();
        EXPECT_FALSE(me->own.online) << index;
        EXPECT_EQ(footer(), "  Offline");
    }

    me->network.ChooseAdapter(0, "10.0.0.1");
    world.run(6);
    EXPECT_TRUE(me->own.online);
    EXPECT_EQ(me.get(kNetFile, "Config", "adapter"), "0");
    EXPECT_EQ(me.get(kNetFile, "Config", "iphost"), "10.0.0.1");
    me->network.ResetAdapter();
    me->network.ChooseAdapter(-1, "0.0.0.0");
    world.run(6);
    EXPECT_EQ(me->own.ownIPAddress, "");
    EXPECT_EQ(me.link.config.localHost, "");
    EXPECT_EQ(me.get(kNetFile, "Config", "iphost"), "");
}

TEST_F(NetworkLayer, ComesUpFiveSecondsAfterTheStartAndKeepsItselfAlive) {
    EXPECT_TRUE(me->network.starting()) << "as the window is built";
    world.start(0);
    world.clock.advance(4999);
    EXPECT_TRUE(me->network.starting());
    EXPECT_EQ(me.link.opened, 0);
    EXPECT_EQ(footer(), "") << "before the first start nothing is shown";
    world.clock.advance(1);
    EXPECT_EQ(sentCodes(), QStringList("XAN"));
    EXPECT_EQ(footer(), "  Online");
    EXPECT_FALSE(me->network.starting());
    world.clock.advance(20000);
    EXPECT_EQ(footer(), "  Room 1");
    world.clock.advance(25000);
    EXPECT_EQ(sentCodes(), QStringList("XRKA"));
    world.run(90);
    EXPECT_EQ(sentCodes(), QStringList({"XRKA", "XRKA"}));
    me->network.Network_Start();
    EXPECT_EQ(me.link.opened, 1) << "a start while online must not announce anew";
    EXPECT_EQ(sentCodes(), QStringList());
}

TEST_F(NetworkLayer, RestartSaysGoodbyeOnceHoweverOftenItIsAskedFor) {
    begin();
    hear("XAN");
    sentCodes();
    QStringList footers;
    QObject::connect(&me->footer, &Footer::changed, [&] { footers += me->footer.text(); });
    const QByteArray order = RawPacket{.code = "ZA01"}.bytes();
    for (int delay = 0; delay < 40; ++delay) {
        world.network.inject(order + order + order);
    }
    bool onlineMeanwhile = false;
    Timer probe(world.clock, "probe", 990, Timer::Kind::OneShot, [&] { onlineMeanwhile = me->own.online; });
    probe.setEnabled(true);
    world.clock.advance(1000);
    EXPECT_TRUE(onlineMeanwhile) << "the goodbye needs a second to leave";
    EXPECT_EQ(sentCodes(), QStringList("XD"));
    EXPECT_FALSE(me->own.online);
    EXPECT_TRUE(me->network.starting());
    EXPECT_EQ(world.locations(0), 0);
    EXPECT_EQ(me->views.rptEndpoints.count(), 0);
    world.run(5);
    EXPECT_EQ(sentCodes(), QStringList("XAN"));
    EXPECT_EQ(me.link.opened, 2);
    EXPECT_EQ(footers, QStringList({"  Disconnecting", "  ", "  Online"}));
    EXPECT_EQ(world.locations(0), 1);
}

TEST_F(NetworkLayer, ManyAnnouncementsBringOneReply) {
    begin();
    sentCodes();
    for (int i = 0; i < 30; ++i) {
        hear("XAN", {}, QString::number(i % 7));
        world.clock.advance(90);
    }
    EXPECT_EQ(sentCodes(), QStringList());
    world.clock.advance(300);
    EXPECT_EQ(sentCodes(), QStringList("XANR")) << "three seconds after the first, not the last";
    hear("XANR", {}, "reply");
    hear("XAN", {}, kMe);
    world.run(4);
    EXPECT_EQ(sentCodes(), QStringList());
    hear("XAN", {}, "0");
    world.run(4);
    EXPECT_EQ(sentCodes(), QStringList("XANR")) << "one that is listed already may not know us";
}

TEST_F(NetworkLayer, ErrorsOfTheSocketAreLoggedAndDoNotFloodTheLog) {
    begin();
    emit me.link.error(0, "zero");
    EXPECT_EQ(loggedWith("MSocket ,0 ,zero"), 1);
    for (int i = 0; i < 100; ++i) {
        emit me.link.error(10054, "reset");
    }
    EXPECT_EQ(loggedWith("MSocket ,10054 ,reset"), 1);
    EXPECT_TRUE(me->own.online);
    EXPECT_EQ(footer(), "  Online");
    world.run(61);
    emit me.link.error(10054, "reset");
    EXPECT_EQ(loggedWith("MSocket ,10054 ,reset"), 2);
}

// A socket that is gone for good must not leave a station that believes to be online for ever.
TEST_F(NetworkLayer, ABrokenSocketIsReplaced) {
    begin();
    me.link.breakDown(5);
    EXPECT_EQ(footer(), "  Offline");
    world.run(8 * 60);
    EXPECT_TRUE(me->own.online);
    EXPECT_EQ(me.link.opened, 2);
    EXPECT_EQ(world.locations(0), 1);
}

TEST(NetworkGroups, AChangeOfTheGroupLeavesOneOfficeForAnother) {
    World world(3);
    world[2].set(kNetFile, "Config", "net", "3");
    world.settle();
    EXPECT_EQ(world.locations(0), 2);
    EXPECT_EQ(world.locations(2), 1) << "group 3 shares the port of group 0, and hears nothing of it";
    world[1]->network.SaveNetwork(3);
    world.run(10);
    EXPECT_EQ(world.locations(0), 1);
    EXPECT_EQ(world.locations(1), 2);
    EXPECT_EQ(world.locations(2), 2);
    const int opened = world[1].link.opened;
    world[1]->network.SaveNetwork(3);
    world.run(10);
    EXPECT_EQ(world[1].link.opened, opened) << "the same group again is no change";
    EXPECT_EQ(world[1]->network.networkGroupRow(), 3);
    world[1].set(kNetFile, "Config", "net", "9");
    EXPECT_EQ(world[1]->network.networkGroupRow(), 0);
}
