// The program as its users and its neighbours meet it: several real stations, started once for all
// cases, and a neighbour that speaks to them from outside. The cases run in the order in which they
// stand; the last ones end the stations.
#include "Peer.h"
#include "Screen.h"
#include "StationProcess.h"
#include "support/World.h"

#include <QRegularExpression>
#include <QSysInfo>

#include <gtest/gtest.h>

#include <array>
#include <csignal>
#include <memory>

using namespace tessel;

namespace {

// Seconds. Nothing here waits longer than it must, so these cost time only where something is wrong.
constexpr double kSlow = 40;
constexpr double kNetworkUp = 5;
constexpr double kEndWithin = 15;
const QString kTslapp = QStringLiteral(TESSEL_TSLAPP);
const QString kProgram = QStringLiteral(TESSEL_PROGRAM);

enum Which { Alpha, Beta, Gamma, Far, kStations };
const std::array<QByteArray, kStations> kSIDs = {"100AA100AAA0", "100AA100AAA1", "100AA100AAA2",
                                                 "100AA100AAA5"};

struct Office {
    Peer air;
    Peer far{"224.0.1.200", 5748};
    Screen screen;
    std::array<std::unique_ptr<StationProcess>, kStations> stations;

    StationProcess& operator[](Which which) { return *stations[which]; }
    bool wait(double seconds, const std::function<bool()>& done) {
        return waitUntil({&air, &far}, seconds, done);
    }
    bool hears(Which which, const char* code, Moment since, std::size_t times = 1) {
        Peer& peer = which == Far ? far : air;
        return wait(kSlow, [&] { return peer.of(code, kSIDs[which], since).size() >= times; });
    }
    xcb_window_t mainWindow(Which which) { return screen.find(stations[which]->pid(), "Tessel Status"); }

    void startAll() {
        const auto user = &StationProcess::userFile;
        const auto make = [this](Which which, const QByteArray& userCfg, const QByteArray& netCfg = {}) {
            stations[which] = std::make_unique<StationProcess>(userCfg, netCfg);
        };
        make(Alpha, user("Alpha", kSIDs[Alpha], 5, {}));
        make(Beta, user("Beta", kSIDs[Beta], 41, {}));
        make(Gamma, user("Gamma", kSIDs[Gamma], 3, "EOC=1\r\n"));
        make(Far, user("Far", kSIDs[Far], 7, {}), "[Config]\r\nnet=3\r\n");
        const std::array<QStringList, kStations> arguments = {
            QStringList(), {QStringLiteral("/B")}, {QStringLiteral("/l")}};
        for (std::size_t i = 0; i < stations.size(); ++i) {
            stations[i]->start(arguments[i]);
        }
    }
};

class Stations : public testing::Test {
protected:
    static void SetUpTestSuite() {
        ASSERT_EQ(qgetenv("TESSEL_NETNS"), "1") << "to be run by scripts/in-netns alone";
        office = std::make_unique<Office>();
        ASSERT_TRUE(office->air.isOpen() && office->far.isOpen() && office->screen.isOpen());
        office->startAll();
        for (const Which which : {Alpha, Beta, Gamma, Far}) {
            ASSERT_TRUE(office->hears(which, "XAN", {})) << "station " << which << " never announced itself";
        }
    }
    static void TearDownTestSuite() { office.reset(); }

    static RawPacket packet(const char* code, const QString& body = {}) {
        RawPacket made;
        made.code = QLatin1String(code);
        made.body = body;
        return made;
    }
    static QString directed(Which which, const QStringList& values) {
        return (QStringList(QString::fromLatin1(kSIDs[which])) + values).join(QStringLiteral(".\u20AC."));
    }
    static Moment now() { return std::chrono::steady_clock::now(); }

    static std::unique_ptr<Office> office;
};
std::unique_ptr<Office> Stations::office;

} // namespace

// What a user of the client sees is what the table holds: all of the own group, none of another that
// shares its port.
TEST_F(Stations, HearTheirOwnGroupAlone) {
    office->wait(3.5, [] { return false; }); // the announcements of the start are answered by then
    const auto locations = [](Which which) {
        QStringList names;
        const auto ended = (*office)[which].runBeside(kTslapp, {QStringLiteral("--locations")});
        EXPECT_EQ(ended.exitCode, 0);
        for (const QByteArray& line : ended.output.split('\n')) {
            if (line.contains('\t')) {
                names += QString::fromUtf8(line.left(line.indexOf('\t')));
            }
        }
        names.sort();
        return names;
    };
    const QStringList here = locations(Alpha);
    for (const char* const name : {"Alpha", "Beta", "Gamma"}) {
        EXPECT_EQ(here.count(QLatin1String(name)), 1) << name;
    }
    EXPECT_FALSE(here.contains("Far"));
    EXPECT_EQ(locations(Far), QStringList({"Far"}));
    for (const HeardPacket& packet : office->far.all()) {
        EXPECT_EQ(packet.SID(), kSIDs[Far]);
    }
    EXPECT_EQ((*office)[Alpha].runBeside(kTslapp, {QStringLiteral("--nonsense")}).exitCode, 2);
    // The same table goes into the report, which the client itself writes.
    const QString report = (*office)[Alpha].folder() + QLatin1String("/report.txt");
    EXPECT_EQ((*office)[Alpha].runBeside(kTslapp, {QStringLiteral("--report"), report}).exitCode, 0);
    EXPECT_TRUE((*office)[Alpha].bytes(QStringLiteral("report.txt")).contains("\nGamma\t"));
    EXPECT_EQ((*office)[Alpha].runBeside(kTslapp, {QStringLiteral("--report")}).exitCode, 2);
    EXPECT_EQ(
        (*office)[Alpha].runBeside(kTslapp, {QStringLiteral("--report"), (*office)[Alpha].folder()}).exitCode,
        3);
}

// An order is carried out by the one it names, told to all, and kept.
TEST_F(Stations, ObeyOrdersFromOutside) {
    const Moment start = now();
    office->air.send(packet("XALN", directed(Alpha, {QStringLiteral("  Zur\u00FCck um 3 ")})).bytes());
    office->air.send(packet("XAS2", directed(Beta, {QStringLiteral("At lunch"), QString()})).bytes());
    ASSERT_TRUE(office->hears(Alpha, "XALNU", start));
    ASSERT_TRUE(office->hears(Beta, "XAS", start));
    EXPECT_EQ(office->air.of("XALNU", kSIDs[Alpha], start)[0].field(6), "Zur\xFC"
                                                                        "ck um 3");
    EXPECT_TRUE((*office)[Alpha]
                    .bytes(QStringLiteral("user.cfg"))
                    .contains("ACTIVE=Zur\xFC"
                              "ck um 3"));
    const HeardPacket set = office->air.of("XAS", kSIDs[Beta], start)[0];
    EXPECT_TRUE(set.field(5).startsWith("At lunch.\x80.")) << set.field(5).toStdString();
    EXPECT_EQ(set.field(8), "");

    const Moment clearing = now();
    office->air.send(packet("XAS1", QString::fromLatin1(kSIDs[Beta])).bytes());
    ASSERT_TRUE(office->hears(Beta, "XAS", clearing));
    EXPECT_TRUE(office->air.of("XAS", kSIDs[Beta], clearing)[0].field(5).startsWith(".\x80."));
    EXPECT_TRUE(office->air.of("XALNU", kSIDs[Beta], start).empty());
    EXPECT_TRUE(office->air.of("XAS", kSIDs[Alpha], start).empty());
}

// Who clicks the icon again wants to see the program, and no second location of the same name.
TEST_F(Stations, ASecondStartBringsUpTheFirst) {
    office->screen.cover();
    ASSERT_FALSE(office->screen.isOnTop(office->mainWindow(Beta)));
    const QByteArray before = (*office)[Beta].bytes(QStringLiteral("user.cfg"));
    const Moment start = now();
    EXPECT_EQ((*office)[Beta].runBeside(kProgram, {}).exitCode, 0);
    EXPECT_TRUE(office->wait(kSlow, [] { return office->screen.isOnTop(office->mainWindow(Beta)); }));
    EXPECT_EQ((*office)[Beta].bytes(QStringLiteral("user.cfg")), before);
    EXPECT_TRUE((*office)[Beta].isRunning());
    EXPECT_TRUE(office->air.of("XD", kSIDs[Beta], start).empty());
}

// An installer prepares the folders where no screen is.
TEST_F(Stations, SetUpFoldersWithoutADisplay) {
    StationProcess bare({});
    EXPECT_EQ(bare.runBeside(kProgram, {QStringLiteral("/L")}, false).exitCode, 0);
    for (const char* const file : {"status.dat", "snippet.dat"}) {
        EXPECT_FALSE(bare.bytes(QLatin1String(file)).isEmpty()) << file;
    }
    EXPECT_TRUE(bare.bytes(QStringLiteral("user.cfg")).isEmpty());
}

// A station that was killed, and a network that is told to restart, both come back by themselves.
TEST_F(Stations, ComeBackAfterACrashAndAfterARestartOfTheNetwork) {
    StationProcess& killed = (*office)[Far];
    killed.signal(SIGKILL);
    killed.waitEnd(kEndWithin);
    EXPECT_NE(killed.read(QStringLiteral("Program"), QStringLiteral("START")), "");
    EXPECT_EQ(killed.read(QStringLiteral("Program"), QStringLiteral("SHTDWN")), "");
    const Moment start = now();
    killed.start();
    office->air.send(packet("ZA01").bytes());
    for (const Which which : {Alpha, Beta, Gamma}) {
        ASSERT_TRUE(office->hears(which, "XD", start)) << which;
        ASSERT_TRUE(office->hears(which, "XAN", start)) << which;
        const double away = secondsBetween(office->air.of("XD", kSIDs[which], start)[0].at,
                                           office->air.of("XAN", kSIDs[which], start)[0].at);
        EXPECT_GE(away, kNetworkUp) << which;
    }
    ASSERT_TRUE(office->hears(Far, "XAN", start));
    EXPECT_TRUE(office->far.of("XD", kSIDs[Far]).empty());
}

// However a station ends, the others must not wait minutes for it to fade from their lists.
TEST_F(Stations, SayGoodbyeOnEveryOrderlyEnd) {
    office->screen.close(office->mainWindow(Alpha));
    office->wait(1, [] { return false; });
    EXPECT_TRUE((*office)[Alpha].isRunning()) << "the cross minimises, as nobody said otherwise";
    const Moment start = now();
    (*office)[Alpha].signal(SIGTERM);
    (*office)[Beta].signal(SIGINT);
    office->screen.close(office->mainWindow(Gamma));
    office->far.send(packet("ZA00").bytes());
    for (const Which which : {Alpha, Beta, Gamma, Far}) {
        EXPECT_TRUE(office->hears(which, "XD", start)) << which;
        EXPECT_EQ((*office)[which].waitEnd(kEndWithin), 0) << which;
        office->wait(0, [] { return false; });
        EXPECT_EQ((which == Far ? office->far : office->air).of("XD", kSIDs[which], start).size(), 1U)
            << which;
        for (const char* const key : {"VER", "OS", "WIN", "START", "DATE", "SHTDWN", "SHTDWNDATE"}) {
            EXPECT_NE((*office)[which].read(QStringLiteral("Program"), QLatin1String(key)), "") << key;
        }
    }
}
