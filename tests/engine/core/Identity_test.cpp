// The id that makes a station the same location from day to day.
#include "engine/core/mod_FileTools.h"
#include "engine/core/mod_TimeText.h"
#include "support/LoneStation.h"

#include <QFile>
#include <QRegularExpression>

#include <gtest/gtest.h>

using namespace tessel;

class Identities : public LoneStation {
protected:
    // A start that finds nothing of the location: the user is asked for its name.
    void beginAnew() {
        world.start(0);
        ASSERT_TRUE(me.desktop.calls.contains("showWelcome"));
        WelcomeChoices choices;
        choices.location = "Room 1";
        me->profile.SaveWelcome(choices);
        me.desktop.windows.onShowMain();
        world.run(6);
        ASSERT_TRUE(me->own.online);
    }
};

TEST_F(Identities, FollowsItsMask) {
    const QRegularExpression SID("^\\d{3}[A-Z]{2}\\d{3}[A-Z]{3}\\d$");
    const QRegularExpression messageID("^[A-Z]\\d{2}[A-Z]{3}\\d{3}[A-Z]{2}\\d$");
    QSet<QString> seen;
    QSet<QChar> digits;
    QSet<QChar> letters;
    constexpr int kRounds = 4000;
    for (int i = 0; i < kRounds; ++i) {
        const QString id = me->identity.MakeRandomID(kSIDMask);
        ASSERT_TRUE(SID.match(id).hasMatch()) << id.toStdString();
        ASSERT_TRUE(messageID.match(me->identity.MakeMessageID()).hasMatch());
        seen.insert(id);
        digits.insert(id[0]);
        letters.insert(id[3]);
    }
    EXPECT_GE(seen.size(), kRounds - 1);
    EXPECT_EQ(digits.size(), 10);
    EXPECT_EQ(letters.size(), 26);
    EXPECT_EQ(me->identity.MakeRandomID("abcdefghijk#").left(11), "abcdefghijk");
    EXPECT_EQ(me->identity.MakeRandomID("#X"), "") << "no id of another length";
}

TEST_F(Identities, ResetHoldsFromTheNextStart) {
    begin();
    sentCodes();
    me->identity.ResetSID();
    me->network.RestartNetwork();
    const QString stored = me.get(kUserFile, "User", "SID");
    EXPECT_NE(stored, kMe);
    EXPECT_EQ(stored.size(), 12);
    world.run(10);
    EXPECT_EQ(me->own.SID, kMe);
    EXPECT_EQ(sentCodes(), QStringList({"XD", "XAN"}));
    EXPECT_NE(row(kMe), nullptr) << "the others go on knowing this run by the old id";
    EXPECT_EQ(loggedWith("SID Deleted"), 2);
    me->identity.LoadSID();
    EXPECT_EQ(me->own.SID, stored);
}

// A file that a crash of the machine filled with zeros, or an editor saved as something else.
TEST_F(Identities, ADamagedFileIsPutAsideAndTheUserIsTold) {
    const QString path = me.facts.appData + "Tessel Status/user.cfg";
    const QByteArray junk = QByteArray("[User]\nSID=111AA111AAA1\n") + QByteArray(100, '\0');
    ASSERT_TRUE(replaceFile(path + ".damaged", "an older one"));
    ASSERT_TRUE(replaceFile(path, junk));
    beginAnew();
    EXPECT_EQ(me.fileBytes("user.cfg.damaged"), "an older one");
    EXPECT_EQ(me.fileBytes("user.cfg.damaged2"), junk);
    EXPECT_EQ(me->own.SID.size(), 12);
    EXPECT_NE(me->own.SID, kMe);
    EXPECT_EQ(me.get(kUserFile, "User", "SID"), me->own.SID);
    EXPECT_EQ(loggedWith("FDM ,user.cfg was damaged and is kept as user.cfg.damaged2"), 1);
    world.run(30);
    EXPECT_EQ(me->footer.text().trimmed(), "user.cfg was damaged and is kept as user.cfg.damaged2");
    EXPECT_EQ(me.desktop.calls.filter("Set_TrayPopup").size(), 1);
    EXPECT_FALSE(me->saver.tmrSaver.enabled());
}

TEST_F(Identities, ADamagedFileThatCannotBePutAsideIsLeftAlone) {
    const QString path = me.facts.appData + "Tessel Status/user.cfg";
    const QByteArray junk = "nothing of ours";
    ASSERT_TRUE(replaceFile(path, junk));
    for (int number = 1; number <= 1000; ++number) {
        QFile taken(path + ".damaged" + (number == 1 ? QString() : QString::number(number)));
        ASSERT_TRUE(taken.open(QIODevice::WriteOnly));
    }
    beginAnew();
    EXPECT_EQ(me->own.SID, "");
    world.run(100);
    EXPECT_EQ(me->footer.text().trimmed(), "Not saved: user.cfg");
    me->ExitProc();
    EXPECT_EQ(me.fileBytes(kUserFile), junk);
}

TEST_F(Identities, AReadableFileWithoutAnIdGetsOne) {
    for (const char* const content : {"", "[Settings]\nEOC=1\n", "[User]\nSID=\n"}) {
        ASSERT_TRUE(replaceFile(me.facts.appData + "Tessel Status/user.cfg", content));
        me->folders.SetupFolders([](const QString&) { return false; });
        me->identity.LoadSID();
        EXPECT_EQ(me->own.SID.size(), 12);
        EXPECT_EQ(me.get(kUserFile, "User", "SID"), me->own.SID);
        EXPECT_FALSE(FileExists(me.facts.appData + "Tessel Status/user.cfg.damaged"));
    }
}

TEST_F(Identities, LinesOfTheErrorLogHoldTheirFields) {
    begin();
    me->own.location = "Room\n1";
    me->log.LogEvent("Source", "two\r\nlines, and a \u20AC", "C0");
    me->log.LogEvent({}, QString(100000, u'x'), {});
    const QStringList lines = errorLines();
    ASSERT_EQ(lines.size(), 2) << "nothing that is logged can fake a line";
    EXPECT_EQ(lines[0], "9:00:06 AM ,Source ,C0 ,two  lines, and a \u20AC ,3/2/2026 ," +
                            QString::fromLatin1(kVersion) + " ,111AA111AAA1 ,Room 1");
    EXPECT_LT(lines[1].size(), 3000);
}

// The lines before a crash must be there, however much came before them.
TEST_F(Identities, ALogThatIsFullMakesWayAndKeepsOneOldFile) {
    begin();
    const QString log = me->folders.dataFile("error.txt");
    ASSERT_TRUE(replaceFile(log + ".1", "older"));
    ASSERT_TRUE(replaceFile(log, QByteArray((4 << 20) - 30, 'x') + "\nlast but one\n"));
    EXPECT_TRUE(me->log.LogEvent("Source", "the last", {}));
    EXPECT_EQ(loggedWith("the last"), 1);
    EXPECT_EQ(errorLines().size(), 1);
    EXPECT_TRUE(me.fileBytes("error.txt.1").endsWith("\nlast but one\n"));
    const QStringList lines = me->log.lastLines(2);
    ASSERT_EQ(lines.size(), 2) << "from both files";
    EXPECT_EQ(lines[0], "last but one");
    EXPECT_TRUE(lines[1].contains("the last"));
}

TEST(TimeText, EveryMinuteOfTheDayComesBack) {
    EXPECT_EQ(timeText(0), "12:00:00 AM");
    EXPECT_EQ(timeText(12 * 3600 + 5), "12:00:05 PM");
    EXPECT_EQ(timeText(13 * 3600 + 62), "1:01:02 PM");
    for (int second = 0; second < 86400; second += 59) {
        ASSERT_EQ(parseTime(timeText(second)), second);
    }
    EXPECT_EQ(parseTime(u" 9:05 pm "), 21 * 3600 + 300);
    EXPECT_EQ(parseTime(u"21:05"), 21 * 3600 + 300);
    for (const char* const text : {"", " ", "9", "9:", ":5", "25:00", "9:60", "9:00:60", "0:30 AM",
                                   "13:00 PM", "9:00 XM", "9:00:00:00", "-1:00", "999:00"}) {
        EXPECT_EQ(parseTime(QString(text)), -1) << text;
    }
    EXPECT_EQ(dateText(QDate(2026, 3, 2)), "3/2/2026");
    EXPECT_EQ(dateText({}), "");
}

TEST(Timers, OneShotRepeatingAndOff) {
    VirtualClock clock;
    int shots = 0;
    int ticks = 0;
    Timer once(clock, "once", 1000, Timer::Kind::OneShot, [&] { ++shots; });
    Timer often(clock, "often", 400, Timer::Kind::Repeating, [&] { ++ticks; });
    once.setEnabled(true);
    often.setEnabled(true);
    clock.advance(900);
    once.setEnabled(true);
    clock.advance(100);
    EXPECT_EQ(shots, 1) << "enabling a timer that runs must not put it off";
    EXPECT_FALSE(once.enabled());
    EXPECT_EQ(ticks, 2);
    once.restart();
    clock.advance(900);
    once.restart();
    clock.advance(900);
    EXPECT_EQ(shots, 1) << "a restart puts it off";
    often.setInterval(0);
    clock.advance(10000);
    EXPECT_EQ(ticks, 7);
    EXPECT_EQ(shots, 2);
    clock.skipWall(-86400);
    EXPECT_EQ(clock.dateText(), "3/1/2026");
}
