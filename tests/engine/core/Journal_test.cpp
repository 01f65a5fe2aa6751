// The journal of a list file: what a kill, a power cut or a full disk would cost the user.
#include "engine/core/cJournal.h"
#include "engine/core/mod_FileTools.h"
#include "engine/core/mod_Folders.h"
#include "support/VirtualClock.h"

#include <QFile>
#include <QTemporaryDir>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace tessel;
using testing::ElementsAre;
using testing::IsEmpty;
using Change = cJournal::Change;

namespace {

const QString kList = QStringLiteral("list.dat");

Change added(const QString& text) {
    return {Change::Kind::Added, text};
}
Change removed(const QString& text) {
    return {Change::Kind::Removed, text};
}

class Journal : public testing::Test {
protected:
    Journal() {
        facts.appData = home.path() + u'/';
        facts.syncFile = [this](const QString&) {
            ++syncs;
            atSync = journal();
        };
        folders.SetupFolders([](const QString&) { return false; });
    }

    QByteArray bytes(const QString& name) const {
        QByteArray all;
        readWholeFile(folders.dataFile(name), 1 << 26, all);
        return all;
    }
    QByteArray journal() const { return bytes(kList + ".journal"); }
    void putJournal(const QByteArray& all) const {
        ASSERT_TRUE(replaceFile(folders.dataFile(kList + ".journal"), all));
    }
    // What the next run finds when this one is killed now.
    std::vector<Change> found() { return cJournal(clock, folders, kList).replay(bytes(kList)); }

    QTemporaryDir home;
    VirtualClock clock;
    SystemFacts facts;
    Folders folders{facts};
    int syncs = 0;
    QByteArray atSync;
};

} // namespace

TEST_F(Journal, AKilledRunLosesNothing) {
    {
        cJournal first(clock, folders, kList);
        EXPECT_THAT(first.replay({}), IsEmpty());
        EXPECT_TRUE(first.add("one\r\n\"two\" \u20AC"));
        EXPECT_TRUE(first.add("1 + 3 0\nabc"));
        EXPECT_TRUE(first.remove("id"));
    }
    EXPECT_EQ(QFile::permissions(folders.dataFile(kList + ".journal")) &
                  (QFile::ReadGroup | QFile::ReadOther),
              QFile::Permissions())
        << "patient names stand in it";
    const std::vector<Change> before{added("one\r\n\"two\" \u20AC"), added("1 + 3 0\nabc"), removed("id")};
    EXPECT_EQ(found(), before);
    EXPECT_EQ(found(), before) << "a second kill before the save";
    cJournal second(clock, folders, kList);
    EXPECT_TRUE(second.add("three")) << "also without a replay before";
    ASSERT_EQ(found().size(), 4U);
    EXPECT_TRUE(second.save("the list"));
    EXPECT_EQ(bytes(kList), "the list");
    EXPECT_THAT(found(), IsEmpty());
    EXPECT_LT(journal().size(), 20) << "a save empties it";
    EXPECT_TRUE(second.removeAll());
    EXPECT_THAT(found(), ElementsAre(Change{Change::Kind::AllRemoved, {}}));
}

TEST_F(Journal, AKillInsideASaveCountsNothingTwice) {
    cJournal first(clock, folders, kList);
    ASSERT_TRUE(first.save("old list"));
    EXPECT_EQ(journal(), "") << "no journal of a list that keeps nothing";
    first.add("one");
    first.add("two");
    ASSERT_TRUE(first.save("new list"));
    const QByteArray emptied = journal();
    putJournal(atSync); // as it stood before the list file was replaced
    EXPECT_THAT(found(), IsEmpty()) << "the new list has them";
    ASSERT_TRUE(replaceFile(folders.dataFile(kList), "old list"));
    EXPECT_THAT(found(), ElementsAre(added("one"), added("two"))) << "the old list has not";
    cJournal second(clock, folders, kList);
    second.add("three");
    EXPECT_EQ(found().size(), 3U);
    putJournal(emptied);
    EXPECT_THAT(found(), IsEmpty());
}

TEST_F(Journal, DamageCostsTheDamagedEntryAlone) {
    cJournal whole(clock, folders, kList);
    for (int i = 0; i < 5; ++i) {
        whole.add(QString(i * 3, u'x') + "\n" + QString::number(i));
    }
    const QByteArray all = journal();
    const std::vector<Change> changes = found();
    ASSERT_EQ(changes.size(), 5U);
    for (qsizetype size = 0; size < all.size(); ++size) {
        putJournal(all.first(size));
        const std::vector<Change> left = found();
        ASSERT_LT(left.size(), 5U);
        ASSERT_TRUE(std::equal(left.begin(), left.end(), changes.begin())) << size;
        cJournal next(clock, folders, kList);
        ASSERT_TRUE(next.add("later"));
        std::vector<Change> expected = left;
        expected.push_back(added("later"));
        ASSERT_EQ(found(), expected) << "cut at " << size;
    }
    for (qsizetype at = 0; at < all.size(); ++at) {
        QByteArray hurt = all;
        hurt[at] = static_cast<char>(hurt[at] ^ 0x15);
        putJournal(hurt);
        ASSERT_GE(found().size(), 3U) << at << ": the one, and the next if the line between them went";
    }
    putJournal(QByteArray(5000, '\0') + "\n99999999999999999999 + 5 0\n1 + -4 0\n1 + 999999999999 0\n7\n" +
               all);
    EXPECT_EQ(found(), changes);
}

TEST_F(Journal, SyncedOnceASecondAndBounded) {
    cJournal journalOf(clock, folders, kList);
    for (int i = 0; i < 100; ++i) {
        journalOf.add("entry");
        clock.advance(30);
    }
    EXPECT_EQ(syncs, 2);
    clock.advance(5000);
    EXPECT_EQ(syncs, 3);
    const QString book(100'000, u'w');
    int written = 0;
    while (written < 1000 && journalOf.add(book)) {
        ++written;
    }
    EXPECT_TRUE(journalOf.wantsSave());
    EXPECT_GT(written, 100);
    EXPECT_LE(journal().size(), cJournal::kMaxBytes);
    EXPECT_EQ(found().size(), 100U + static_cast<std::size_t>(written));
    EXPECT_TRUE(journalOf.save("list"));
    EXPECT_FALSE(journalOf.wantsSave());
    EXPECT_TRUE(journalOf.add(book));
}
