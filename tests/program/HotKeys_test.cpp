// The keys of the whole desktop, pressed while another program is in front.
#include "OtherProgram.h"
#include "Peer.h"
#include "StationProcess.h"

#include <QFile>
#include <QProcess>

#include <gtest/gtest.h>

using namespace tessel;

namespace {

constexpr double kSlow = 40;
constexpr double kNothing = 1.5;
const QByteArray kSID = "100AA100AAA7";
constexpr xcb_keycode_t kF2 = 68; // of the keyboard that Xvfb has

void type(const QStringList& arguments) {
    QProcess::execute(QStringLiteral("xdotool"), arguments);
}

} // namespace

TEST(SystemKeys, SetTheStatusFromWithinAnotherProgram) {
    ASSERT_EQ(qgetenv("TESSEL_NETNS"), "1") << "to be run by scripts/in-netns alone";
    Peer air;
    OtherProgram other;
    other.grabWithControl(kF2);
    StationProcess station(StationProcess::userFile("Desk", kSID, 5));
    QFile statuses(station.folder() + QStringLiteral("/status.dat"));
    ASSERT_TRUE(statuses.open(QIODevice::WriteOnly));
    statuses.write(
        "[status]\nN0=Desk\nM0=At the desk\nH0=1\nN1=Lunch\nM1=Lunch\nH1=1\nN2=Out\nM2=Out\nH2=4\n");
    statuses.close();
    station.start();
    ASSERT_TRUE(waitUntil({&air}, kSlow, [&] { return !air.of("XAN", kSID).empty(); }));
    other.comeToFront();

    const auto press = [&](const QStringList& keys, const QByteArray& status) {
        const Moment since = std::chrono::steady_clock::now();
        type(keys);
        const bool heard = waitUntil({&air}, status.isNull() ? kNothing : kSlow,
                                     [&] { return !air.of("XAS", kSID, since).empty(); });
        EXPECT_EQ(heard, !status.isNull()) << keys.join(u' ').toStdString();
        if (heard && !status.isNull()) {
            EXPECT_TRUE(air.of("XAS", kSID, since)[0].field(5).startsWith(status + ".\x80."));
        }
        waitUntil({&air}, 2.2, [] { return false; }); // past the limit on repeated changes
    };
    press({"key", "ctrl+F1"}, "At the desk");
    press({"key", "ctrl+3"}, "Out");
    // Lock keys are on for hours without anybody noticing.
    type({"key", "Caps_Lock"});
    type({"key", "Num_Lock"});
    press({"key", "ctrl+F1"}, "At the desk");
    type({"key", "Num_Lock"});
    type({"key", "Caps_Lock"});
    press({"key", "F1"}, {});
    press({"key", "ctrl+F2"}, {}); // the other program's
    EXPECT_TRUE(
        station.bytes(QStringLiteral("error.txt")).contains("Cannot Register HotKey for Quick Key 2"));

    // Held down for a second, a key is pressed once.
    const Moment since = std::chrono::steady_clock::now();
    type({"keydown", "ctrl", "keydown", "3", "sleep", "1.2", "keyup", "3", "keyup", "ctrl"});
    waitUntil({&air}, kNothing, [] { return false; });
    EXPECT_EQ(air.of("XAS", kSID, since).size(), 1U);
}
