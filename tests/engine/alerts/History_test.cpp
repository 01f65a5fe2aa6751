// The notification history and its file: what is lost when the disk fails, the file is damaged or
// the program is killed.
#include "engine/core/mod_FileTools.h"
#include "support/LoneStation.h"

#include <QDir>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace tessel;
using testing::ElementsAre;

namespace {

const QString kFile = QStringLiteral("recents.dat");

class History : public LoneStation {
protected:
    QString path() const { return me.facts.appData + "Tessel Status/" + kFile; }
    QByteArray file() const { return me.fileBytes(kFile); }
    void store(const QByteArray& bytes) { ASSERT_TRUE(replaceFile(path(), bytes)); }
    const ReportRecords& list() { return me->history.rptNotifications; }
    int count() { return list().count(); }
    QString text(CardItem index, int row = 0) { return item(*list().at(row), index).text; }
    QStringList record(int row = 0) { return text(CardItem::Record, row).split(ValueMark); }
    QStringList records() {
        QStringList all;
        for (int row = 0; row < count(); ++row) {
            all += text(CardItem::Record, row);
        }
        return all;
    }
    void ring(const QString& text = "come") { hear("XAD1", body({kMe, text})); }
    void add(const HistoryEntry& entry) { me->history.AddItem(entry); }
    // The history as the next run reads it.
    void reload() { me->history.LoadRecents(); }
};

HistoryEntry event(HistoryCode code, const QString& SID = QStringLiteral("999XX999XXX9")) {
    return {code, "Word", "Room", "text", "9:00:00 AM", "3/2/2026", SID};
}

} // namespace

TEST_F(History, FileByteForByte) {
    begin();
    ring("come");
    hear({.code = "XATM",
          .body = body({"1", "Me:" + kMe + ListMark, "A11BBB222CC3", QString("Br\u00fche \u20AC")})});
    hear("XAUM", body({kMe, {}}));
    EXPECT_FALSE(FileExists(path())) << "not before its time";
    world.run(30);
    QByteArray expected =
        "3\r\n"
        "\"0~5~Urgent (Outside)~~~9:00:06 AM~3/2/2026~999XX999XXX9\"\r\n"
        "\"1~1~0~0~A11BBB222CC3~Outside~999XX999XXX9~Br\xfche \x80~9:00:06 AM~3/2/2026\"\r\n"
        "\"0~0~DoorBell~Outside~come~9:00:06 AM~3/2/2026~999XX999XXX9\"\r\n";
    EXPECT_EQ(file(), expected.replace('~', ".\x80."));
    EXPECT_EQ(QFile::permissions(path()) & (QFile::ReadGroup | QFile::ReadOther), QFile::Permissions())
        << "patient names stand in it";
}

TEST_F(History, CardsTellWhoAndWhat) {
    begin();
    ring("come");
    EXPECT_EQ(text(CardItem::Heading) + text(CardItem::Name), "From: Outside - DoorBell");
    EXPECT_EQ(text(CardItem::Text), "come");
    EXPECT_TRUE(text(CardItem::Stamp).startsWith("9:00:06 AM  "));
    EXPECT_EQ(item(*list().at(0), CardItem::Heading).icon, 12);
    EXPECT_EQ(item(*list().at(0), CardItem::Border).backColor, argb(0, 128, 0));
    hear("XAP", body({kMe, "call"}));
    EXPECT_EQ(text(CardItem::Name), "") << "a phone call names nobody";
    EXPECT_EQ(text(CardItem::Heading), "PhoneCall");
    EXPECT_EQ(item(*list().at(0), CardItem::Heading).icon, 19);
    const auto iconOf = [this](HistoryCode code) {
        me->history.AddItem({code, "word", "Ann", "text", "9:00:00 AM", "3/2/2026", kOther});
        return item(*list().at(0), CardItem::Heading).icon;
    };
    EXPECT_EQ(iconOf(HistoryCode::Urgent), 0);
    for (const HistoryCode quiet : {HistoryCode::StatusCleared, HistoryCode::Occupied, HistoryCode::Open,
                                    HistoryCode::StaffTagSet, HistoryCode::StaffTagCleared}) {
        EXPECT_NE(iconOf(quiet), 0) << "the urgent triangle is for what is urgent";
    }
    const auto heading = [this](int type, MessageLog log, bool everyone) {
        me->history.AddMessage({type, log, everyone, "id", "Ann", "SID", "first" + ListMark + "quoted",
                                "9:00:00 AM", "3/2/2026"});
        EXPECT_EQ(text(CardItem::Text), "first");
        return text(CardItem::Heading) + text(CardItem::Name);
    };
    EXPECT_EQ(heading(0, MessageLog::Received, true), "Everyone from Ann");
    EXPECT_EQ(heading(0, MessageLog::Received, false), "From Ann");
    EXPECT_EQ(heading(1, MessageLog::Received, false), "Reply from Ann");
    EXPECT_EQ(heading(0, MessageLog::SentToSeveral, true), "Sent to Everyone");
    EXPECT_EQ(heading(0, MessageLog::SentToSeveral, false), "Sent to Multiple ");
    EXPECT_EQ(heading(0, MessageLog::SentToOne, false), "Sent to Ann");
    me->history.AddMessage({0, MessageLog::Received, false, "id", "Ann", "SID", QString(151, u'w'), {}, {}});
    EXPECT_EQ(text(CardItem::Text), QString(150, u'w') + "...");
    EXPECT_EQ(record()[7].size(), 151) << "the whole text stays in the record";
}

TEST_F(History, DamagedFilesGiveWhatCanBeRead) {
    begin();
    for (int i = 0; i < 6; ++i) {
        ring("text " + QString::number(i));
    }
    me->history.SaveRecents();
    const QByteArray whole = file();
    const QStringList all = records();
    int most = 0;
    for (qsizetype size = 0; size <= whole.size(); size += 19) {
        store(whole.first(size));
        reload();
        ASSERT_LE(count(), 6);
        ASSERT_EQ(records(), all.first(count())) << size;
        most = std::max(most, count());
    }
    EXPECT_GE(most, 5);
    const QByteArray body = whole.mid(3);
    for (const char* const lie : {"99999999999\r\n", "-1\r\n", "many\r\n", "\r\n", "", "6\n"}) {
        store(lie + body);
        reload();
        EXPECT_EQ(records(), all) << lie << ": what counts nothing hides nothing";
    }
    store("2\r\n" + body);
    reload();
    EXPECT_EQ(count(), 2) << "the count is a bound";
    QByteArray foreign = "6\r\n\"0~1\"\r\n\"7~what\"\r\n\"\"\r\n\"1~0~0~0\"\r\n"
                         "\"0~4711~Word~Room~text~noon~the day after~SID\"\r\n"
                         "\"1~9~77~True~id~name~SID~body~time~date\"\r\n";
    store(foreign.replace('~', ".\x80."));
    reload();
    EXPECT_EQ(count(), 4) << "of a newer program or a broken one";
    EXPECT_EQ(text(CardItem::Stamp, 2), "noon  the day after");
}

TEST_F(History, SavedHalfAMinuteAfterTheLastEntryAndFiveAfterTheFirst) {
    begin();
    ring();
    world.run(20);
    ring();
    world.run(29);
    EXPECT_FALSE(FileExists(path()));
    world.run(1);
    EXPECT_TRUE(file().startsWith("2\r\n"));
    const std::int64_t first = world.clock.monotonicMs();
    const QByteArray before = file();
    while (file() == before) {
        ring();
        world.run(10);
        ASSERT_LE(world.clock.monotonicMs() - first, 300'000) << "a busy day is kept, too";
    }
    EXPECT_GT(world.clock.monotonicMs() - first, 200'000);
    const int all = count() + 1;
    ring("last");
    me->ExitProc();
    EXPECT_TRUE(file().startsWith(QByteArray::number(all))) << "an orderly end saves what came since";
    EXPECT_THAT(QDir(QFileInfo(path()).path()).entryList({kFile + ".*"}, QDir::Files),
                ElementsAre(kFile + ".journal"))
        << "nothing half written lies about";
}

TEST_F(History, AKilledProgramLosesNothing) {
    begin();
    ring("saved");
    world.run(30);
    ring("say \"when\"\r\n\u20AC");
    me->history.AddMessage(
        {0, MessageLog::Received, true, "id", "Ann", "SID", "body", "1:00:00 PM", "2/28/2026"});
    const QStringList before = records();
    ASSERT_EQ(before.size(), 3);
    reload();
    EXPECT_EQ(records(), before);
    ring("later");
    reload();
    ASSERT_EQ(count(), 4);
    EXPECT_EQ(records().mid(1), before);
    world.run(30);
    EXPECT_TRUE(file().startsWith("4\r\n")) << "the next run saves what it found";
    reload();
    EXPECT_EQ(count(), 4) << "once";

    QFile::remove(path());
    QDir().mkpath(path()); // a folder in the place of the file: it cannot be replaced
    me->history.ClearRecents();
    ring("two");
    QDir().rmdir(path());
    store("1\r\n\"" + QByteArray("0~0~W~L~one~T~D~S").replace('~', ".\x80.") + "\"\r\n");
    reload();
    ASSERT_EQ(count(), 1) << "what was cleared does not come back";
    EXPECT_EQ(record()[4], "two");
}

TEST_F(History, WithoutSavingNothingIsKeptAnywhere) {
    user("Recents", "SAVE", "0");
    begin();
    ring();
    world.run(60);
    reload();
    EXPECT_EQ(count(), 0);
    EXPECT_FALSE(FileExists(path() + ".journal"));
}

TEST_F(History, TheFileKeepsTheNewest) {
    begin();
    for (int i = 1; i <= 1201; ++i) {
        ring(QString::number(i));
    }
    world.run(30);
    EXPECT_TRUE(file().startsWith("1200\r\n"));
    EXPECT_EQ(count(), 1201);
    reload();
    ASSERT_EQ(count(), 1200);
    EXPECT_EQ(record()[4], "1201");
    EXPECT_EQ(record(1199)[4], "2");
    for (const auto& [limit, kept] :
         {std::pair{3, "3\r\n"}, {0, "0\r\n"}, {-4, "0\r\n"}, {9999, "1200\r\n"}}) {
        me->settings.Recents_SAVE_CNT.set(limit);
        me->history.SaveRecents();
        EXPECT_TRUE(file().startsWith(kept)) << limit;
    }
    me->history.ClearRecents();
    EXPECT_EQ(count(), 0);
    EXPECT_EQ(file(), "0\r\n") << "forgotten for good";
}

TEST_F(History, AFloodPushesOutTheOldestAndDoesNotGrow) {
    begin();
    const QString book(50000, u'w');
    for (int i = 0; i < 500; ++i) {
        hear({.code = "XATE", .body = body({"0", ":", QString::number(i), book})});
    }
    qsizetype characters = 0;
    for (const QString& text : records()) {
        characters += text.size();
    }
    EXPECT_LT(characters, 20'000'000);
    EXPECT_GT(count(), 100);
    EXPECT_EQ(record()[4], "499") << "the newest stays";
    EXPECT_LT(QFileInfo(path() + ".journal").size(), cJournal::kWantsSaveBytes + 100'000);
    me->history.ClearRecents();
    for (int i = 0; i < 21000; ++i) {
        add(event(HistoryCode::DoorBell));
    }
    EXPECT_LE(count(), 20000);
}
