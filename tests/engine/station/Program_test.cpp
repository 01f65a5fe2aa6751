// One run of the program from its start to its end: what is shown, written and told to the others.
#include "support/LoneStation.h"

#include <gtest/gtest.h>

using namespace tessel;

namespace {

// Writes down the state of things with each call, since the order is what matters.
struct Watch {
    Station* station = nullptr;
    QStringList seen;

    void note(const char* what) {
        const Timer* const timers[] = {&station->network.tmrNetStart, &station->network.tmrKA,
                                       &station->network.tmrAnnounce, &station->updates.tmrUpdates,
                                       &station->footer.tmrFooter,    &station->tmrExit};
        const auto running = std::count_if(std::begin(timers), std::end(timers),
                                           [](const Timer* timer) { return timer->enabled(); });
        seen += QStringLiteral("%1 exiting=%2 online=%3 timers=%4 stored=%5")
                    .arg(QLatin1String(what))
                    .arg(station->own.exiting)
                    .arg(station->own.online)
                    .arg(running > 0)
                    .arg(!station->data.ReadSettingRaw(kUserFile, "Program", "SHTDWN").isEmpty());
    }
};

class WatchingWindows : public RecordingWindows {
public:
    WatchingWindows(QStringList& calls, Watch& watch) : RecordingWindows(calls), m_watch(watch) {}
    void saveMainPlace() override { m_watch.note("place"); }
    void unloadForms() override { m_watch.note("forms"); }
    void unloadMain() override { m_watch.note("main"); }

private:
    Watch& m_watch;
};

class WatchingPopups : public RecordingPopups {
public:
    WatchingPopups(QStringList& calls, Watch& watch) : RecordingPopups(calls), m_watch(watch) {}
    void closeAll() override { m_watch.note("popups"); }

private:
    Watch& m_watch;
};

class Program : public LoneStation {
protected:
    QString record(const char* key) const { return me.get(kUserFile, "Program", QLatin1String(key)); }
    void runAgain() { me->start(); }
};

} // namespace

TEST_F(Program, RecordOfTheRunTellsACrash) {
    begin();
    EXPECT_EQ(record("START"), "9:00:00 AM");
    EXPECT_EQ(record("DATE"), "3/2/2026");
    EXPECT_EQ(record("VER"), kVersion);
    EXPECT_EQ(record("OS"), "Test OS");
    EXPECT_EQ(record("WIN"), "user1");
    EXPECT_EQ(record("SHTDWN"), "");
    EXPECT_TRUE(me.fileBytes(kUserFile).contains("SHTDWN="));
    world.run(3600);
    me->ExitProc();
    EXPECT_EQ(record("SHTDWN"), "10:00:07 AM");
    EXPECT_EQ(record("SHTDWNDATE"), "3/2/2026");
    world.clock.skipWall(86400);
    runAgain();
    EXPECT_EQ(record("SHTDWN"), "") << "until this run, too, has ended in order";
    EXPECT_EQ(record("SHTDWNDATE"), "3/2/2026");
    EXPECT_EQ(record("DATE"), "3/3/2026");
}

TEST_F(Program, EndsInOrderAndOnce) {
    Watch watch;
    WatchingWindows windows(me.desktop.calls, watch);
    WatchingPopups popups(me.desktop.calls, watch);
    world.start(0); // settles the folders and the files
    Station station(me.facts, {world.clock, me.link, windows, popups, me.desktop.session, me.sounds, me.keys},
                    2);
    watch.station = &station;
    windows.onShowMain = [&] {
        station.loadMain();
        station.mainLoaded();
    };
    station.start();
    world.run(6);
    ASSERT_TRUE(station.own.online);
    Timer impatient(world.clock, "impatient", 300, Timer::Kind::Repeating, [&] {
        station.ExitProc();
        station.protocol.receive(RawPacket{.code = "XAN"}.bytes());
        station.protocol.receive(RawPacket{.code = "ZA00"}.bytes());
    });
    impatient.setEnabled(true);
    const auto before = world.clock.monotonicMs();
    const double received = station.protocol.bytesReceived();
    sentCodes();
    station.ExitProc();
    EXPECT_EQ(world.clock.monotonicMs() - before, 1000);
    EXPECT_EQ(sentCodes().count("XD"), 1);
    EXPECT_EQ(watch.seen, QStringList({"place exiting=0 online=1 timers=1 stored=0",
                                       "popups exiting=1 online=0 timers=1 stored=0",
                                       "forms exiting=1 online=0 timers=0 stored=1",
                                       "main exiting=1 online=0 timers=0 stored=1"}));
    EXPECT_EQ(station.protocol.bytesReceived(), received) << "nothing is heard any more";
    world.run(100);
    EXPECT_EQ(watch.seen.size(), 4);
    station.network.tmrNetStart.setEnabled(true);
    world.run(6);
    EXPECT_FALSE(station.own.online) << "a program that has begun to end cannot be called back";
}

TEST_F(Program, FirstRunAsksBeforeTheMainWindowComes) {
    user("User", "FirstRun", QString());
    user("User", "LOCATION", QString());
    world.start(0);
    world.run(60);
    EXPECT_EQ(me.desktop.calls, QStringList("showWelcome"));
    EXPECT_EQ(me.link.opened, 0);
    me->profile.SaveWelcome({"  Front desk  ", 7, true});
    EXPECT_EQ(me.get(kUserFile, "User", "LOCATION"), "Front desk");
    EXPECT_EQ(me.get(kUserFile, "User", "FirstRun"), "0");
    EXPECT_EQ(me.get(kUserFile, "User", "TAG"), "7");
    EXPECT_EQ(me.get(kUserFile, "Settings", "DBNAV"), "1");
    EXPECT_EQ(me.desktop.calls, QStringList({"showWelcome", "SetAutoStart 1"}));
    EXPECT_EQ(me->own.TAG, 7);
    me.desktop.windows.show({WindowId::Main});
    world.run(6);
    EXPECT_EQ(cell(EndpointItem::Active, kMe), "Front desk");
    me->profile.SaveWelcome({"   ", 7, false});
    EXPECT_EQ(me.get(kUserFile, "User", "LOCATION"), "user1") << "a location is never nameless";
}

TEST_F(Program, UpdatesAreLookedForOnceAndOnlyWhereAllowed) {
    const QString helper = "startProgram update.exe /silent";
    user("Settings", "UPD", "1");
    world.start(0);
    world.clock.advance(29999);
    EXPECT_EQ(me.desktop.calls.count(helper), 0);
    world.run(200);
    EXPECT_EQ(me.desktop.calls.count(helper), 1);
    admin("Updates", "r");
    runAgain();
    world.run(31);
    EXPECT_EQ(me.desktop.calls.count(helper), 1);
    admin("Updates", "A");
    runAgain();
    me->own.remoteSession = true;
    world.run(31);
    EXPECT_EQ(me.desktop.calls.count(helper), 1) << "not for each client of a shared server";
    user("Settings", "UPD", "0");
    runAgain();
    world.run(31);
    EXPECT_EQ(me.desktop.calls.count(helper), 1);
}

TEST_F(Program, ClosingTheWindowIsNotAlwaysTheEnd) {
    begin();
    EXPECT_EQ(me->closing(CloseReason::User), CloseAction::Minimise);
    EXPECT_EQ(me->closing(CloseReason::Code), CloseAction::Close);
    EXPECT_TRUE(me->own.online);
    EXPECT_FALSE(me->own.exiting);
    EXPECT_EQ(me->closing(CloseReason::SessionEnd), CloseAction::Close);
    EXPECT_TRUE(me->own.exiting);
    EXPECT_EQ(sentCodes().last(), "XD") << "the others must hear it, whatever the user's setting";
}

// Who misses every tone must be able to find out why.
TEST_F(Program, AMissingPlayerIsOneLineInTheLogAndOneInTheInformation) {
    me.sounds.missing = "No player: /opt/tslsound";
    begin();
    me->alerts.SendDoorBell("tea");
    EXPECT_EQ(loggedWith("No player: /opt/tslsound"), 1);
    EXPECT_EQ(me->diagnostics.SoundInfo(), "No player: /opt/tslsound");
    EXPECT_TRUE(me->diagnostics.HelpReport().contains("\nNo player: /opt/tslsound\n"));
    me.sounds.missing.clear();
    EXPECT_EQ(me->diagnostics.SoundInfo(), "The sound player is there");
}
