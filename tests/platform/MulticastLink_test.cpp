#include "platform/MulticastLink.h"
#include "waiting.h"

#include "engine/network/mod_NetworkGroups.h"

#include <gmock/gmock.h>

#include <QProcess>

#include <arpa/inet.h>
#include <optional>
#include <sys/socket.h>
#include <unistd.h>
#include <utility>

using namespace tessel;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

LinkConfig configOf(int group) {
    const NetworkGroup& row = kNetworkGroups[static_cast<std::size_t>(group)];
    LinkConfig config;
    config.maxPacketSize = 65507;
    config.localPort = config.remotePort = row.port;
    config.group = config.remoteHost = QString::fromLatin1(row.address);
    config.timeToLive = row.timeToLive;
    return config;
}

// A link that keeps what it hears.
struct Listener {
    explicit Listener(const MulticastLink::Room& room = {}) : link(room) {
        QObject::connect(&link, &Link::letGo, &link, [this](int datagrams, qint64 bytes) {
            letGo += datagrams;
            letGoBytes += bytes;
        });
        QObject::connect(&link, &Link::lost, &link, [this](quint32 datagrams) { lost += datagrams; });
        QObject::connect(&link, &Link::dataIn, &link, [this](QByteArrayView datagram, quint32 source) {
            heard.push_back(datagram.toByteArray());
            lastSource = source;
            if (onData) {
                onData(datagram);
            }
        });
        QObject::connect(&link, &Link::error, &link,
                         [this](int number, const QString&) { errors.push_back(number); });
    }

    MulticastLink link;
    std::vector<QByteArray> heard;
    std::vector<int> errors;
    quint32 lastSource = 0;
    int letGo = 0;
    qint64 letGoBytes = 0;
    quint32 lost = 0;
    std::function<void(QByteArrayView)> onData;
};

bool run(const char* program, const QStringList& arguments) {
    return QProcess::execute(QString::fromLatin1(program), arguments) == 0;
}

class Socket {
public:
    Socket() : m_descriptor(::socket(AF_INET, SOCK_DGRAM, 0)) {}
    ~Socket() { ::close(m_descriptor); }
    Socket(const Socket&) = delete;
    Socket& operator=(const Socket&) = delete;

    bool bindTo(int port) { return ::bind(m_descriptor, address("0.0.0.0", port), sizeof(sockaddr_in)) == 0; }
    bool send(const QByteArray& bytes, const char* to, int port) {
        return ::sendto(m_descriptor, bytes.constData(), static_cast<std::size_t>(bytes.size()), 0,
                        address(to, port), sizeof(sockaddr_in)) == bytes.size();
    }

private:
    const sockaddr* address(const char* host, int port) {
        m_address.sin_family = AF_INET;
        m_address.sin_port = htons(static_cast<std::uint16_t>(port));
        inet_pton(AF_INET, host, &m_address.sin_addr);
        return reinterpret_cast<const sockaddr*>(&m_address);
    }

    int m_descriptor;
    sockaddr_in m_address{};
};

class MulticastLinkTest : public testing::Test {
protected:
    // Sends for real: anywhere but in a network of its own it refuses.
    void SetUp() override { ASSERT_EQ(qgetenv("TESSEL_NETNS"), "1") << "to be started by scripts/in-netns"; }
    // The interface goes down with all its routes.
    static bool interfaceDown() { return run("ip", {"link", "set", "lo", "down"}); }
    static bool interfaceUp() {
        return run("ip", {"link", "set", "lo", "up"}) &&
               run("ip", {"route", "replace", "224.0.0.0/4", "dev", "lo"});
    }
};

} // namespace

// Own packets feed the own row, and several stations of one machine are an office too. Twice heard
// would be a message shown twice.
TEST_F(MulticastLinkTest, EveryStationOfTheMachineHearsEveryDatagramOnceItsOwnToo) {
    Listener a;
    Listener b;
    ASSERT_TRUE(a.link.open(configOf(0)));
    ASSERT_TRUE(b.link.open(configOf(0)));
    a.link.send("from a");
    b.link.send("from b");
    ASSERT_TRUE(waitUntil([&] { return a.heard.size() >= 2 && b.heard.size() >= 2; }));
    letPass();
    EXPECT_THAT(a.heard, ElementsAre("from a", "from b"));
    EXPECT_THAT(b.heard, ElementsAre("from a", "from b"));

    a.link.close();
    b.link.send("after");
    ASSERT_TRUE(waitUntil([&] { return b.heard.size() == 3; }));
    EXPECT_EQ(a.heard.size(), 2U);
    EXPECT_THAT(a.errors, IsEmpty());
}

// The group is all that separates two offices; two of the groups share their port.
TEST_F(MulticastLinkTest, HearsItsOwnGroupAloneAndNothingSentToTheMachine) {
    Listener zero;
    Listener three;
    ASSERT_EQ(configOf(0).localPort, configOf(3).localPort);
    ASSERT_TRUE(zero.link.open(configOf(0)));
    ASSERT_TRUE(three.link.open(configOf(3)));
    Socket stranger;
    ASSERT_TRUE(stranger.send("to the machine", "127.0.0.1", configOf(0).localPort));
    zero.link.send("to group 0");
    three.link.send("to group 3");
    ASSERT_TRUE(waitUntil([&] { return !zero.heard.empty() && !three.heard.empty(); }));
    letPass();
    EXPECT_THAT(zero.heard, ElementsAre("to group 0"));
    EXPECT_THAT(three.heard, ElementsAre("to group 3"));
}

TEST_F(MulticastLinkTest, DatagramsOfEverySizeComeWholeAndInOrder) {
    Listener one;
    ASSERT_TRUE(one.link.open(configOf(0)));
    constexpr int kLargest = 65507; // of UDP
    std::vector<QByteArray> sent;
    for (const int size : {1, 0, 8048, kLargest, 2}) {
        QByteArray datagram(size, '\0');
        for (int i = 0; i < size; ++i) {
            datagram[i] = static_cast<char>(i);
        }
        sent.push_back(datagram);
        one.link.send(datagram);
    }
    ASSERT_TRUE(waitUntil([&] { return one.heard.size() >= sent.size(); }));
    EXPECT_EQ(one.heard, sent);
}

// A handler may wait, as the goodbye does: others are handled in the meantime, and it goes on reading
// the datagram that it was given.
TEST_F(MulticastLinkTest, AHandlerThatWaitsLosesNothingAndKeepsItsBytes) {
    Listener one;
    ASSERT_TRUE(one.link.open(configOf(0)));
    const QByteArray first(5000, '1');
    int depth = 0;
    int deepest = 0;
    bool changed = false;
    one.onData = [&](QByteArrayView datagram) {
        const QByteArray before = datagram.toByteArray();
        deepest = std::max(deepest, ++depth);
        if (depth <= 3) {
            for (int i = 0; i < 5; ++i) {
                one.link.send(QByteArray(5000, static_cast<char>('a' + depth)));
            }
            const std::size_t heard = one.heard.size();
            waitUntil([&] { return one.heard.size() > heard; });
        }
        changed = changed || datagram != before;
        --depth;
    };
    one.link.send(first);
    const auto settled = [&] { return depth == 0 && one.heard.size() >= 16; };
    ASSERT_TRUE(waitUntil(settled)) << one.heard.size();
    letPass();
    EXPECT_GT(deepest, 2) << "nothing was handled while a handler waited";
    EXPECT_FALSE(changed);
    // Each of the first three depths answers each datagram that it gets with five more.
    EXPECT_EQ(one.heard.front(), first);
    EXPECT_EQ((one.heard.size() - 1) % 5, 0U);
}

// A small queue of the system's, and handlers that are slow: what comes meanwhile waits in own memory.
TEST_F(MulticastLinkTest, WhatComesWhileAHandlerIsSlowIsTakenInFirst) {
    Listener one({.queueBytes = 64 << 10, .bytes = 8 << 20});
    ASSERT_TRUE(one.link.open(configOf(0)));
    constexpr int kMessages = 600; // three times what the queue holds
    int sent = 0;
    one.onData = [&](QByteArrayView) {
        for (int i = 0; i < 20 && sent < kMessages; ++i) {
            one.link.send(QByteArray::number(sent++).leftJustified(300));
        }
        ::usleep(1000);
    };
    one.link.send("first");
    ASSERT_TRUE(waitUntil([&] { return one.heard.size() == kMessages + 1U; })) << one.heard.size();
    EXPECT_EQ(one.lost, 0U);
    for (int i = 0; i < kMessages; ++i) {
        ASSERT_EQ(one.heard[static_cast<std::size_t>(i) + 1].trimmed().toInt(), i);
    }
}

DatagramWeight weightOf(QByteArrayView datagram) {
    return {datagram.startsWith("urgent") ? 1U : 0U, 0};
}

// Without room the engine says what goes. Nothing goes uncounted.
TEST_F(MulticastLinkTest, WithoutRoomTheSieveDecidesAndAllIsCounted) {
    Listener one({.queueBytes = 4 << 20, .bytes = 100'000});
    ASSERT_TRUE(one.link.open(configOf(0)));
    one.onData = [](QByteArrayView) { ::usleep(1000); };
    one.link.setSieve(weightOf, [](const std::vector<WaitingDatagram>& waiting, qsizetype) {
        std::vector<bool> goes;
        for (const WaitingDatagram& datagram : waiting) {
            goes.push_back(datagram.weight.importance == 0);
        }
        return goes;
    });
    qint64 bytes = 0;
    constexpr int kAll = 1000;
    for (int i = 0; i < kAll; ++i) {
        const QByteArray datagram =
            (i % 5 == 0 ? "urgent " : "k ") + QByteArray::number(i).leftJustified(200);
        bytes += datagram.size();
        one.link.send(datagram);
    }
    ASSERT_TRUE(waitUntil([&] { return one.heard.size() + static_cast<std::size_t>(one.letGo) == kAll; }));
    EXPECT_GT(one.letGo, 100);
    int alerts = 0;
    int last = -1;
    for (const QByteArray& datagram : one.heard) {
        bytes -= datagram.size();
        alerts += datagram.startsWith('u') ? 1 : 0;
        const int number = datagram.trimmed().split(' ').last().toInt();
        EXPECT_GT(number, last) << "out of order";
        last = number;
    }
    EXPECT_EQ(alerts, kAll / 5);
    EXPECT_EQ(bytes, one.letGoBytes);
}

// A flood of what takes its time: whoever rings behind it is heard soon, not after all of it.
TEST_F(MulticastLinkTest, NobodyWaitsBehindMinutesOfAFlood) {
    Listener one;
    ASSERT_TRUE(one.link.open(configOf(0)));
    constexpr int kAll = 6000; // a minute and more of handling
    bool heard = false;
    one.onData = [&](QByteArrayView datagram) {
        heard = heard || datagram.startsWith("urgent");
        ::usleep(heard ? 0 : 10000);
    };
    one.link.setSieve(weightOf, [](const std::vector<WaitingDatagram>& waiting, qsizetype bytes) {
        std::vector<bool> goes;
        for (const WaitingDatagram& datagram : waiting) {
            goes.push_back(bytes > 0 && datagram.weight.importance == 0);
            bytes -= goes.back() ? datagram.size : 0;
        }
        return goes;
    });
    for (int i = 0; i < kAll; ++i) {
        one.link.send(QByteArray(300, 'x'));
        if (i % 100 == 0) {
            letPass(1);
        }
    }
    one.link.send("urgent");
    EXPECT_TRUE(waitUntil([&] { return heard; }, 25000));
    EXPECT_GT(one.letGo, kAll / 2);
}

TEST_F(MulticastLinkTest, WhatTheSystemGivesUpIsTold) {
    Listener one({.queueBytes = 8 << 10, .bytes = 8 << 20});
    ASSERT_TRUE(one.link.open(configOf(0)));
    for (int i = 0; i < 500; ++i) {
        one.link.send(QByteArray(300, 'x'));
    }
    letPass();
    one.link.send("behind them"); // tells of those before it
    ASSERT_TRUE(waitUntil([&] { return one.heard.size() + one.lost == 501; })) << one.heard.size();
    EXPECT_GT(one.lost, 0U);
}

// Slow handlers must not keep the windows and timers from their turn until all is drained.
TEST_F(MulticastLinkTest, TimersTickBetweenTheTurnsOfALongDrain) {
    Listener one;
    ASSERT_TRUE(one.link.open(configOf(0)));
    constexpr std::size_t kCount = 60;
    std::optional<std::size_t> heardAtTick;
    one.onData = [&](QByteArrayView) {
        if (one.heard.size() == 1) {
            QTimer::singleShot(0, &one.link, [&] { heardAtTick = one.heard.size(); });
        }
        ::usleep(5000);
    };
    for (std::size_t i = 0; i < kCount; ++i) {
        one.link.send("slow");
    }
    ASSERT_TRUE(waitUntil([&] { return one.heard.size() == kCount && heardAtTick.has_value(); }));
    EXPECT_LT(*heardAtTick, kCount / 2);
}

// An order to restart the network arrives as a datagram, and so closes the socket that it is read from.
TEST_F(MulticastLinkTest, AHandlerMayCloseAndOpenTheLink) {
    Listener one;
    ASSERT_TRUE(one.link.open(configOf(0)));
    one.onData = [&](QByteArrayView) { one.link.close(); };
    one.link.send("close");
    one.link.send("never heard");
    ASSERT_TRUE(waitUntil([&] { return !one.link.isActive(); }));
    letPass();
    EXPECT_THAT(one.heard, ElementsAre("close"));

    ASSERT_TRUE(one.link.open(configOf(0)));
    one.onData = [&](QByteArrayView datagram) {
        if (datagram == QByteArrayView("move")) {
            one.link.close();
            ASSERT_TRUE(one.link.open(configOf(3)));
            one.link.send("in the other group");
        }
    };
    one.link.send("move");
    ASSERT_TRUE(waitUntil([&] { return one.heard.size() >= 3; }));
    letPass();
    EXPECT_THAT(one.heard, ElementsAre("close", "move", "in the other group"));
    EXPECT_THAT(one.errors, IsEmpty());
}

// Whatever is wrong with net.cfg or the machine, the station says so and can be started again.
TEST_F(MulticastLinkTest, AFailedOpenLeavesNothingBehindAndANewOneWorks) {
    const auto refused = [](const std::function<void(LinkConfig&)>& spoil) {
        Listener one;
        LinkConfig config = configOf(0);
        spoil(config);
        const bool opened = one.link.open(config);
        EXPECT_EQ(one.errors.size(), opened ? 0U : 1U);
        EXPECT_EQ(one.link.isActive(), opened);
        one.link.send("nothing happens");
        return !opened && one.link.open(configOf(0));
    };
    EXPECT_TRUE(refused([](LinkConfig& c) { c.group = QStringLiteral("10.1.2.3"); }));
    EXPECT_TRUE(refused([](LinkConfig& c) { c.group = QStringLiteral("no address"); }));
    EXPECT_TRUE(refused([](LinkConfig& c) { c.receiveInterface = QStringLiteral("10.1.2.3"); }));
    EXPECT_TRUE(refused([](LinkConfig& c) { c.localPort = 0; }));
    EXPECT_TRUE(refused([](LinkConfig& c) { c.timeToLive = 256; }));

    Socket exclusive;
    constexpr int kTakenPort = 18110;
    ASSERT_TRUE(exclusive.bindTo(kTakenPort));
    EXPECT_TRUE(refused([](LinkConfig& c) { c.localPort = kTakenPort; }));
}

TEST_F(MulticastLinkTest, AnOwnAddressSelectsTheInterface) {
    Listener one;
    LinkConfig config = configOf(1);
    config.localHost = config.sendInterface = config.receiveInterface = QStringLiteral("127.0.0.1");
    ASSERT_TRUE(one.link.open(config));
    one.link.send("by loop-back");
    EXPECT_TRUE(waitUntil([&] { return !one.heard.empty(); }));
    EXPECT_EQ(one.lastSource, 0x7F000001U);
    EXPECT_TRUE(one.link.isOwnAddress(one.lastSource));

    const auto adapters = one.link.adapters();
    ASSERT_FALSE(adapters.empty());
    EXPECT_EQ(adapters.back().name, "lo");
    EXPECT_EQ(adapters.back().address, "127.0.0.1");
}

// Interfaces with addresses come and go: the station must know of it, and whether its own is meant.
TEST_F(MulticastLinkTest, TellsWhenInterfacesChangeAndWhetherItsOwnIsThere) {
    Listener one;
    int changes = 0;
    QObject::connect(&one.link, &Link::interfacesChanged, &one.link, [&] { ++changes; });
    const auto changed = [&] {
        const bool came = waitUntil([&] { return changes > 0; });
        changes = 0;
        return came;
    };
    ASSERT_TRUE(one.link.open(configOf(0)));
    if (!run("ip", {"link", "add", "tsl0", "type", "bridge"})) {
        GTEST_SKIP() << "not allowed to make an interface";
    }
    EXPECT_TRUE(changed());
    const auto adapter = [&] {
        for (const Adapter& found : one.link.adapters()) {
            if (found.name == u"tsl0") {
                return found.address;
            }
        }
        return QStringLiteral("(none)");
    };
    EXPECT_EQ(adapter(), "") << "an adapter without an address keeps its place in the list";
    ASSERT_TRUE(run("ip", {"link", "set", "tsl0", "up"}));
    ASSERT_TRUE(run("ip", {"address", "add", "10.9.8.7/24", "dev", "tsl0"}));
    EXPECT_TRUE(changed());
    EXPECT_EQ(adapter(), "10.9.8.7");
    EXPECT_TRUE(one.link.isOwnAddress(0x0A090807));
    EXPECT_FALSE(one.link.isOwnAddress(0x0A090808));

    Listener there;
    LinkConfig config = configOf(1);
    config.localHost = config.sendInterface = config.receiveInterface = QStringLiteral("10.9.8.7");
    ASSERT_TRUE(there.link.open(config));
    EXPECT_TRUE(there.link.interfaceIsThere());
    EXPECT_TRUE(one.link.interfaceIsThere());
    letPass(); // what is still on its way
    changes = 0;
    ASSERT_TRUE(run("ip", {"address", "replace", "10.9.8.7/24", "dev", "tsl0", "valid_lft", "3600",
                           "preferred_lft", "3600"}));
    letPass();
    EXPECT_EQ(changes, 0) << "a lease that is renewed is no change";
    ASSERT_TRUE(run("ip", {"address", "add", "10.9.8.9/24", "dev", "tsl0"}));
    EXPECT_TRUE(changed());
    EXPECT_TRUE(there.link.interfaceIsThere());
    ASSERT_TRUE(run("ip", {"address", "delete", "10.9.8.7/24", "dev", "tsl0"}));
    EXPECT_TRUE(changed());
    EXPECT_FALSE(there.link.interfaceIsThere());
    EXPECT_TRUE(one.link.interfaceIsThere()) << "it is on another interface";
    ASSERT_TRUE(run("ip", {"link", "delete", "tsl0"}));
    EXPECT_TRUE(changed());
    EXPECT_FALSE(there.link.interfaceIsThere());
}

// A tunnel that comes up takes the routes: the station stays on the network on which it began.
TEST_F(MulticastLinkTest, KeepsToItsInterfaceWhenTheRoutesMoveOn) {
    if (!run("ip", {"link", "add", "tsl1", "type", "bridge"})) {
        GTEST_SKIP() << "not allowed to make an interface";
    }
    ASSERT_TRUE(run("ip", {"link", "set", "tsl1", "up"}));
    ASSERT_TRUE(run("ip", {"address", "add", "10.9.7.1/24", "dev", "tsl1"}));
    ASSERT_TRUE(run("ip", {"route", "replace", "224.0.0.0/4", "dev", "tsl1"}));
    Listener one;
    ASSERT_TRUE(one.link.open(configOf(0)));
    ASSERT_TRUE(run("ip", {"route", "replace", "224.0.0.0/4", "dev", "lo"}));
    one.link.send("where it began");
    EXPECT_TRUE(waitUntil([&] { return !one.heard.empty(); }));
    EXPECT_EQ(one.lastSource, 0x0A090701U);
    EXPECT_TRUE(one.link.interfaceIsThere());
    ASSERT_TRUE(run("ip", {"link", "delete", "tsl1"}));
    EXPECT_FALSE(one.link.interfaceIsThere());
    EXPECT_FALSE(one.link.rejoin());
}

TEST_F(MulticastLinkTest, JoinsAnewOnTheSameSocket) {
    Listener one;
    EXPECT_FALSE(one.link.rejoin());
    ASSERT_TRUE(one.link.open(configOf(0)));
    for (int i = 0; i < 100; ++i) { // more than the system lets a socket join
        ASSERT_TRUE(one.link.rejoin());
    }
    one.link.send("still there");
    EXPECT_TRUE(waitUntil([&] { return !one.heard.empty(); }));
    letPass();
    EXPECT_THAT(one.heard, ElementsAre("still there"));
    EXPECT_THAT(one.errors, IsEmpty());
}

// A cable that is pulled and put back: no flood of errors, and the same socket goes on.
TEST_F(MulticastLinkTest, GoesOnWhenTheInterfaceComesBack) {
    Listener one;
    ASSERT_TRUE(one.link.open(configOf(0)));
    if (!interfaceDown()) {
        GTEST_SKIP() << "not allowed to take the interface down";
    }
    one.link.send("into the void");
    one.link.send("again");
    letPass();
    EXPECT_EQ(one.errors.size(), 2U);
    EXPECT_THAT(one.heard, IsEmpty());
    Listener another;
    EXPECT_FALSE(another.link.open(configOf(0))) << "joined without an interface";

    ASSERT_TRUE(interfaceUp());
    EXPECT_TRUE(one.link.isActive());
    one.link.send("back");
    EXPECT_TRUE(waitUntil([&] { return !one.heard.empty(); }));
    EXPECT_THAT(one.heard, ElementsAre("back"));
    EXPECT_EQ(one.errors.size(), 2U);
}
