// Files that somebody edited, or whose rights somebody took away: the station runs on defaults, what
// stood in them stays on the disk, and the log has one line.
#include "engine/core/mod_FileTools.h"
#include "support/LoneStation.h"

#include <QDir>
#include <QFile>

#include <unistd.h>

using namespace tessel;

namespace {

class DamagedFiles : public LoneStation {
protected:
    QString path(const QString& name) { return me.facts.appData + "Tessel Status/" + name; }
    void put(const QString& name, const QByteArray& bytes) { ASSERT_TRUE(replaceFile(path(name), bytes)); }
};

} // namespace

TEST_F(DamagedFiles, AreKeptBesideWhatTheStationWritesAnew) {
    const QByteArray wide("[\0s\0t\0a\0t\0u\0s\0]\0\r\0\n\0", 20); // as some editors save
    put("status.dat", wide);
    put("groups.dat", wide);
    put("net.cfg", "a line of nobody's\n");
    QStringList taken{"recents.dat", "inbox.dat.journal"};
    for (const QString& name : taken) {
        ASSERT_TRUE(QDir().mkpath(path(name) + "/inside"));
    }
    if (::geteuid() != 0) { // who may read everything
        put("snippet.dat", "1\r\n\"Please call\"\r\n");
        ASSERT_TRUE(QFile::setPermissions(path("snippet.dat"), QFile::WriteOwner));
        taken += "snippet.dat";
    }
    begin();
    EXPECT_EQ(me.fileBytes("status.dat.damaged"), wide);
    EXPECT_EQ(me.fileBytes("groups.dat.damaged"), wide);
    EXPECT_TRUE(me.fileBytes("net.cfg").startsWith("a line of nobody's\n"));
    for (const QString& name : taken) {
        EXPECT_TRUE(QFile::exists(path(name) + ".damaged")) << name.toStdString();
    }
    EXPECT_EQ(loggedWith("FDM ,Could not be read, kept as status.dat.damaged, groups.dat.damaged"), 1);
    EXPECT_EQ(loggedWith("FDM"), 1);

    EXPECT_TRUE(me->groups.SaveGroup(0, "Desk", "Room 1:1"));
    EXPECT_TRUE(me->snippets.AddSnippit("Another"));
    hear("XAD0", "Please come");
    world.run(35);
    EXPECT_EQ(loggedWith("Not saved"), 0);
    EXPECT_TRUE(me.fileBytes("recents.dat").contains("Please come"));
}

TEST_F(DamagedFiles, ValuesThatMeanNothingAreOneLineInTheLog) {
    user("Settings", "SNPT", "soon");
    user("Settings", "ANPTM", "999999999999999999999999");
    user("User", "TAG", "\xC3\xA9\xE2\x82\xAC");
    user("Recents", "DB_B", "no colour");
    user("Messages", "SAVE_CNT", "many");
    put("inbox.dat",
        "1\r\n\"0.\x80.0.\x80.1AA1AA1AA1AA.\x80.Room.\x80.9.\x80.Kept.\x80.9:00:00 AM.\x80.1/1/2026\"\r\n");
    begin();
    EXPECT_EQ(loggedWith("Not understood in user.cfg: User/TAG, Settings/SNPT, Settings/ANPTM, "
                         "Messages/SAVE_CNT, Recents/DB_B"),
              1);
    EXPECT_EQ(me->inbox.rptMessages.count(), 1);
    EXPECT_TRUE(me->inbox.Saveinbox());
    EXPECT_TRUE(me.fileBytes("inbox.dat").contains("Kept")) << "none of many is none";
    EXPECT_EQ(me.get(kUserFile, "Settings", "SNPT"), "soon") << "what is not changed stays as it was";
}
