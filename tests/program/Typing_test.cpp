// Who types in another program while the office rings must not lose a letter to it.
#include "OtherProgram.h"
#include "Peer.h"
#include "Screen.h"
#include "StationProcess.h"
#include "support/World.h"

#include <QProcess>

#include <gtest/gtest.h>

using namespace tessel;

namespace {

constexpr double kSlow = 40;
const QByteArray kSID = "100AA100AAA8";
const QString kMark = QStringLiteral(".\u20AC.");

struct Arrival {
    const char* code;
    QString body;
    const char* title; // of its popup
};

} // namespace

TEST(Popups, TakeNoLetterFromAnotherProgram) {
    ASSERT_EQ(qgetenv("TESSEL_NETNS"), "1") << "to be run by scripts/in-netns alone";
    Peer air;
    Screen screen;
    OtherProgram other;
    StationProcess station(StationProcess::userFile("Desk", kSID, 5, "DBBL=20\r\n"));
    station.start();
    ASSERT_TRUE(waitUntil({&air}, kSlow, [&] { return !air.of("XAN", kSID).empty(); }));

    const auto send = [&](const char* code, const QString& body, const QString& presence = {}) {
        RawPacket packet;
        packet.code = QLatin1String(code);
        packet.body = body;
        if (!presence.isEmpty()) {
            packet.presence = presence;
        }
        air.send(packet.bytes());
    };
    send("XAN", {}); // somebody of whom a status can be told
    const QString target = QString::fromLatin1(kSID) + kMark;
    const QString messages = QStringLiteral("0") + kMark + u':' + kMark + QStringLiteral("1AA1AA111AA%1") +
                             kMark + QStringLiteral("Please come");
    const Arrival arrivals[] = {
        {"XAD0", QStringLiteral("To all"), "DoorBell Everyone \xe2\x80\x93 Tessel DoorBell"},
        {"XAD1", target + QStringLiteral("Come"), "DoorBell \xe2\x80\x93 Tessel DoorBell"},
        {"XAP", target + QStringLiteral("Line 2"), "Phone Call \xe2\x80\x93 Tessel Phone Call"},
        {"XAUM", target + QStringLiteral("Now"), "Outside \xe2\x80\x93 Tessel Urgent"},
        {"XATE", messages.arg(1), "From: Outside"},
        {"XAS", {}, "Outside \xe2\x80\x93 Tessel Status"},
        {"XATE", messages.arg(2), "From: Outside"}, // instead of the one that is up
    };

    const QByteArray words = QByteArray("thequickbrownfoxjumpsoverthelazydog").repeated(8);
    other.comeToFront();
    other.focusNewWindows();
    QProcess typist;
    typist.start(QStringLiteral("xdotool"), {QStringLiteral("type"), QStringLiteral("--delay"),
                                             QStringLiteral("20"), QString::fromLatin1(words)});
    for (const Arrival& arrival : arrivals) {
        send(arrival.code, arrival.body,
             QStringLiteral("At lunch") + kMark + QStringLiteral("9:00:00") + kMark + u'0' + kMark + kMark +
                 u'0' + kMark + kMark + kMark + u'0' + kMark);
        EXPECT_TRUE(waitUntil({&air}, kSlow, [&] {
            other.typed();
            return screen.find(station.pid(), arrival.title) != XCB_NONE;
        })) << arrival.code;
    }
    // A click on one of them is no wish to go there either.
    const auto urgent = screen.find(station.pid(), arrivals[3].title);
    QProcess::execute(QStringLiteral("xdotool"),
                      {QStringLiteral("mousemove"), QStringLiteral("--window"), QString::number(urgent),
                       QStringLiteral("90"), QStringLiteral("60"), QStringLiteral("click"),
                       QStringLiteral("1")});
    EXPECT_TRUE(
        waitUntil({&air}, kSlow, [&] { return screen.find(station.pid(), arrivals[3].title) == XCB_NONE; }));
    EXPECT_TRUE(waitUntil({&air}, kSlow, [&] { return other.typed().size() >= words.size(); }));
    EXPECT_TRUE(typist.waitForFinished());
    EXPECT_EQ(other.typed(), words);
    EXPECT_EQ(other.timesLeft(), 0);
}
