// The shared statuses of an office: as shared.dat has them, edited, sent and taken over.
#include "engine/core/mod_Limits.h"
#include "support/LoneStation.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace tessel;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class SharedTable : public LoneStation {
protected:
    QStringList choices() {
        QStringList all;
        for (const SharedStatusChoice& choice : me->sharedStatus.FillSharedStatusList()) {
            all += QString::number(choice.index) + u' ' + choice.label + u' ' +
                   me->sharedStatus.entry(choice.index).Tone;
        }
        return all;
    }
};

} // namespace

TEST_F(SharedTable, FollowsTheFileAndOutlivesIt) {
    begin();
    EXPECT_FALSE(me->sharedStatus.fileThere());
    EXPECT_THAT(choices(), IsEmpty());
    for (const auto& [key, value] :
         {std::pair{"0", "Lunch:|:2"}, {"7", "No tone"}, {"19", "Late:|:0:|:more"}, {"20", "Beyond:|:1"}}) {
        me.set(kSharedFile, "sharedstatus", key, value);
    }
    me->sharedStatus.LoadSharedStatus();
    EXPECT_THAT(choices(), ElementsAre("0 Lunch 2", "7 No tone ", "19 Late 0"));
    EXPECT_TRUE(me->status.SetStatusIDX(19));
    EXPECT_EQ(me->own.status + me->own.statusTone, "Late0");
    EXPECT_FALSE(me->status.SetStatusIDX(20));

    ASSERT_TRUE(QFile::remove(me->folders.dataFile(kSharedFile)));
    me->sharedStatus.LoadSharedStatus();
    EXPECT_FALSE(me->sharedStatus.fileThere());
    EXPECT_THAT(choices(), IsEmpty());
    EXPECT_TRUE(me->sharedStatus.entry(0).Active) << "the table stays as it was";
}

namespace {

std::vector<SharedStatus::Row> rowsOf(const QStringList& texts) {
    std::vector<SharedStatus::Row> rows;
    for (const QString& text : texts) {
        rows.push_back({text, static_cast<int>(rows.size())});
    }
    return rows;
}

QString entriesOf(const QStringList& entries) {
    QString all;
    for (int i = 0; i < SharedStatus::kUsed; ++i) {
        all += entries.value(i) + QString::fromUtf8(".A\u20AC");
    }
    return all;
}

QString headerOf(const QString& user) {
    return QStringList{user, "host", "999XX999XXX9", "9:00:00 AM", "3/2/2026", "A00BBB000CC0"}.join(
        QString::fromUtf8(".A\u20AC"));
}

} // namespace

// One edits, all have it; who is asked to forget it forgets it, and who asked keeps it.
TEST(SharedStatusOffice, AListReachesAllAndIsRemovedFromTheOthersAlone) {
    World world(3);
    world.settle();
    SharedStatus& editor = world[0]->sharedStatus;
    EXPECT_EQ(editor.SaveStatus(rowsOf({"", "x"})), 1) << "one character stops the save";
    EXPECT_FALSE(editor.fileThere());
    EXPECT_EQ(editor.SaveStatus(rowsOf({"Lunch", "", "With:|:mark"})), -1);
    editor.SendToAllUsers();
    world.run(2);
    for (std::size_t i = 0; i < world.size(); ++i) {
        EXPECT_EQ(world[i].get(kSharedFile, "SharedStatus", "0"), "Lunch:|:0") << i;
        EXPECT_EQ(world[i].get(kSharedFile, "SharedStatus", "2"), "With mark:|:2") << i;
        EXPECT_EQ(world[i].get(kSharedFile, "Author", "user"), "Room 1") << i;
        EXPECT_EQ(world[i]->sharedStatus.LoadAuthorInformation().id, world[0]->own.SID) << i;
        EXPECT_EQ(world[i]->sharedStatus.LoadAuthorInformation().ver.size(), 12) << i;
    }
    EXPECT_EQ(editor.SaveStatus(rowsOf({"", "Away"})), -1);
    EXPECT_FALSE(world[0].fileBytes(kSharedFile).contains("Lunch")) << "a row that was emptied";
    editor.sendRemoveAll();
    world.run(2);
    EXPECT_TRUE(editor.fileThere());
    EXPECT_FALSE(world[1]->sharedStatus.fileThere());
    EXPECT_TRUE(world[2].fileBytes(kSharedFile).isEmpty());
    editor.DeleteSharedStatus();
    EXPECT_FALSE(editor.fileThere());
}

// A sender gone wild must cost neither the disk nor the last word.
TEST_F(SharedTable, AFloodIsWrittenOnceASecondAndTheLastListStands) {
    begin();
    int changed = 0;
    QByteArray before;
    for (int packet = 0; packet < 3000; ++packet) {
        hear("ZS01",
             headerOf("Outside") + ValueMark + entriesOf({QStringLiteral("Lunch %1:|:3").arg(packet)}));
        EXPECT_EQ(me->sharedStatus.entry(0).Label, QStringLiteral("Lunch %1").arg(packet));
        world.clock.advance(packet % 3 == 0 ? 4 : 3);
        if (packet % 30 == 0) {
            const QByteArray now = me.fileBytes(kSharedFile);
            changed += now != before;
            before = now;
        }
    }
    EXPECT_LE(changed, 12);
    EXPECT_GE(changed, 9);
    world.clock.advance(1000);
    EXPECT_EQ(me.get(kSharedFile, "SharedStatus", "0"), "Lunch 2999:|:3");
    hear("ZS01", headerOf("Outside") + ValueMark + entriesOf({"One:|:1"}));
    hear("ZS01", headerOf("Outside") + ValueMark + entriesOf({"Two:|:2"}));
    hear("ZS02");
    world.run(3);
    EXPECT_TRUE(me.fileBytes(kSharedFile).isEmpty()) << "a list that waited came back";
    hear("ZS01", headerOf("Outside") + ValueMark + entriesOf({"One:|:1"}));
    hear("ZS01", headerOf("Outside") + ValueMark + entriesOf({"Two:|:2"}));
    me->ExitProc();
    EXPECT_EQ(me.get(kSharedFile, "SharedStatus", "0"), "Two:|:2");
}

// A crash between two replacements would leave the author of one list above the entries of another.
TEST_F(SharedTable, AListIsWrittenWithOneReplacement) {
    begin();
    int replaced = 0;
    me->ini.written = [&replaced](const QString&, bool stored) { replaced += stored ? 1 : 0; };
    hear("ZS01", headerOf("Outside") + ValueMark + entriesOf({"One:|:1", "Two:|:2"}));
    EXPECT_EQ(replaced, 1);
    EXPECT_EQ(me.get(kSharedFile, "SharedStatus", "1"), "Two:|:2");
    world.run(2);
    EXPECT_EQ(me->sharedStatus.SaveStatus(rowsOf({"Three"})), -1);
    EXPECT_EQ(replaced, 2);
    EXPECT_EQ(me.get(kSharedFile, "SharedStatus", "1"), "");
    EXPECT_EQ(me.get(kSharedFile, "Author", "user"), me->own.location);
}

TEST_F(SharedTable, NothingFromOutsideReachesOtherKeysOrGrowsBeyondItsLimit) {
    begin();
    me.set(kSharedFile, "Other", "key", "kept");
    const QString longText(3000, u'w');
    for (const QString& text : {QString(), QString("no marks at all"), ValueMark}) {
        hear("ZS01", text);
    }
    EXPECT_EQ(me.get(kSharedFile, "Other", "key"), "kept");
    hear("ZS01", headerOf("a\r\n[User]\r\nSID=x" + longText) + ValueMark +
                     entriesOf({longText + ":|:" + longText, "Line\nbreak=[x]:|:1", "Plain"}));
    EXPECT_LE(me.get(kSharedFile, "SharedStatus", "0").size(), 32);
    EXPECT_EQ(me.get(kSharedFile, "SharedStatus", "1"), "Line break=[x]:|:1");
    EXPECT_EQ(me.get(kSharedFile, "SharedStatus", "2"), "Plain");
    EXPECT_LE(me.get(kSharedFile, "Author", "user").size(), kMaxRowText);
    EXPECT_EQ(me.get(kSharedFile, "User", "SID"), "");
    EXPECT_LT(me.fileBytes(kSharedFile).size(), 1500);
}
