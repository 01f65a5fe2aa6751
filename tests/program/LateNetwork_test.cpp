// The program on a machine whose network is not there yet, as on a laptop before its dock.
#include "Peer.h"
#include "StationProcess.h"

#include <QProcess>

#include <gtest/gtest.h>

#include <csignal>

using namespace tessel;

namespace {

bool ip(const QStringList& arguments) {
    return QProcess::execute(QStringLiteral("ip"), arguments) == 0;
}

} // namespace

TEST(LateNetwork, TheProgramComesUpByItself) {
    ASSERT_EQ(qgetenv("TESSEL_NETNS"), "1") << "to be run by scripts/in-netns alone";
    const QStringList route = {"224.0.0.0/4", "dev", "lo"};
    if (!ip(QStringList{"route", "delete"} + route)) {
        GTEST_SKIP() << "not allowed to change the routes";
    }
    const QByteArray SID = "100AA100AAA9";
    StationProcess station(StationProcess::userFile("Late", SID, 5), "[Config]\r\nka=1000\r\n");
    station.start();
    EXPECT_TRUE(waitUntil({}, 30, [&] { return station.bytes("error.txt").contains(" ,MSocket ,19 ,join"); }))
        << "it was to find no network";
    EXPECT_TRUE(ip(QStringList{"route", "add"} + route));
    Peer air;
    EXPECT_TRUE(waitUntil({&air}, 30, [&] { return !air.of("XAN", SID).empty(); }));
    EXPECT_TRUE(waitUntil({&air}, 30, [&] { return !air.of("XRKA", SID).empty(); }));
    station.signal(SIGTERM);
    EXPECT_EQ(station.waitEnd(15), 0);
}
