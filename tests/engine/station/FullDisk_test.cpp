// A full disk: what a user loses, and how soon the user hears of it.
#include "support/LoneStation.h"
#include "support/full_disk.h"

#include <optional>

using namespace tessel;

namespace {

class FullDiskStation : public LoneStation {
protected:
    QString footer() { return me->footer.text().trimmed(); }
    void fill() { full.emplace(); }
    void free() { full.reset(); }

    std::optional<FullDisk> full;
};

} // namespace

TEST_F(FullDiskStation, NothingIsEmptiedAndAllComesIntoTheFilesLater) {
    begin();
    hear("XAD1", body({kMe, "come"}));
    me->history.SaveRecents();
    const QByteArray user = me.fileBytes(kUserFile);
    const QByteArray recents = me.fileBytes("recents.dat");
    ASSERT_TRUE(recents.startsWith("1\r\n"));
    fill();
    EXPECT_FALSE(me->settings.Settings_EOC.set(true));
    EXPECT_EQ(footer(), "Not saved: user.cfg");
    me->network.SaveNetwork(2);
    hear("XAD1", body({kMe, "again"}));
    world.run(60);
    EXPECT_EQ(me.fileBytes(kUserFile), user);
    EXPECT_EQ(me.fileBytes("recents.dat"), recents);
    EXPECT_FALSE(me.fileBytes(kNetFile).contains("net=2"));
    EXPECT_TRUE(me->own.online) << "the restart goes on with the group that was chosen";
    EXPECT_EQ(me->network.networkGroupRow(), 2);
    EXPECT_EQ(footer(), "Not saved: user.cfg, net.cfg, recents.dat") << "behind the restart's own words, too";
    EXPECT_EQ(loggedWith("Not saved"), 0);
    free();
    world.run(31);
    EXPECT_EQ(me.get(kUserFile, "Settings", "EOC"), "1");
    EXPECT_EQ(me.get(kNetFile, "Config", "net"), "2");
    EXPECT_TRUE(me.fileBytes("recents.dat").startsWith("2\r\n"));
    EXPECT_EQ(footer(), "Saved");
    EXPECT_EQ(loggedWith("FNS ,Not saved: user.cfg, net.cfg, recents.dat"), 1) << "once there is room";
    world.run(21);
    EXPECT_EQ(footer(), "Room 1");
    world.run(600);
    EXPECT_FALSE(me->saver.tmrSaver.enabled());
    EXPECT_EQ(errorLines().size(), 1);
}

TEST_F(FullDiskStation, TheLastTryIsAtTheEnd) {
    begin();
    fill();
    me->data.WriteSetting(kNetFile, "Config", "ka", "50000");
    free();
    me->ExitProc();
    EXPECT_EQ(me.get(kNetFile, "Config", "ka"), "50000");
    EXPECT_EQ(me.get(kUserFile, "Program", "SHTDWN"),
              me->own.startTime.isEmpty() ? "" : world.clock.timeText());
    EXPECT_FALSE(me->saver.tmrSaver.enabled());
}

TEST_F(FullDiskStation, WithoutAnIdentityThatCouldBeStoredTheStationHasNone) {
    user("User", "SID", {});
    fill();
    world.start(0);
    EXPECT_EQ(me->own.SID, "");
    EXPECT_FALSE(footer().contains("Not saved")) << "the network has the first word";
    world.run(6);
    EXPECT_EQ(footer(), "Online");
    world.run(30);
    EXPECT_EQ(footer(), "Not saved: user.cfg");
    free();
    world.run(31);
    EXPECT_EQ(me.get(kUserFile, "User", "LOCATION"), "Room 1") << "what stood in the file";
    EXPECT_EQ(me.get(kUserFile, "User", "SID").size(), 12) << "for the next start";
    EXPECT_EQ(me->own.SID, "");
}
