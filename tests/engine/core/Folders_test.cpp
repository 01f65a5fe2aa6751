// Where a station's files lie, and which ones a user of a shared server gets.
#include "engine/core/mod_FileTools.h"
#include "support/LoneStation.h"

#include <gtest/gtest.h>

using namespace tessel;

namespace {
class FoldersOfAStation : public testing::Test {
protected:
    QString data() const { return home.filePath("data/Tessel Status/"); }
    void put(const QString& path, const QByteArray& bytes) { ASSERT_TRUE(replaceFile(path, bytes)); }
    QByteArray bytes(const QString& path) {
        QByteArray all;
        readWholeFile(path, 1 << 20, all);
        return all;
    }
    // A start of its own each time, as one process after the other.
    QString start() {
        facts.programFolder = home.filePath("program/");
        facts.appData = home.filePath("data/");
        facts.commonAppData = home.filePath("common/");
        facts.documents = home.filePath("documents/");
        facts.userName = "anna";
        facts.hostName = "pc7";
        station = std::make_unique<Station>(facts, desktop.ports(clock, link, sounds, keys), ++seed);
        station->start();
        return station->folders.data();
    }

    QTemporaryDir home;
    std::uint64_t seed = 0;
    SystemFacts facts;
    VirtualClock clock;
    FakeNetwork network{clock};
    FakeLink link{network};
    RecordingDesktop desktop;
    RecordingSounds sounds;
    RecordingHotKeys keys;
    std::unique_ptr<Station> station;
};
} // namespace

TEST_F(FoldersOfAStation, FirstStartCopiesAndLaterOnesLeaveTheUsersFilesAlone) {
    put(home.filePath("program/status.dat"), "[status]\n0=first\n");
    put(home.filePath("program/snippet.dat"), "0");
    EXPECT_EQ(start(), data());
    EXPECT_TRUE(FolderExists(home.filePath("common/Tessel Status")));
    EXPECT_TRUE(FolderExists(home.filePath("documents/Tessel Status")));
    EXPECT_EQ(bytes(data() + "status.dat"), "[status]\n0=first\n");

    put(data() + "status.dat", "mine");
    QFile::remove(data() + "snippet.dat");
    start();
    EXPECT_EQ(bytes(data() + "status.dat"), "mine");
    EXPECT_EQ(bytes(data() + "snippet.dat"), "0");

    QFile::remove(data() + "status.dat");
    QFile::remove(home.filePath("program/status.dat"));
    start();
    EXPECT_FALSE(FileExists(data() + "status.dat"));
    EXPECT_FALSE(station->own.SID.isEmpty()) << "in neither place: it starts all the same";
}

TEST_F(FoldersOfAStation, EachClientOfASharedServerHasItsOwnUnlessForbidden) {
    facts.IsRemoteSession = true;
    facts.ClientLoginName = "carla";
    EXPECT_EQ(start(), data() + "carla/");
    const QString carla = station->own.SID;
    facts.ClientLoginName = "dora";
    start();
    EXPECT_NE(station->own.SID, carla);

    put(data() + "tsa.dat", "[Admin]\nWTS=a\n");
    EXPECT_EQ(start(), data() + "dora/");
    for (const char* const letter : {"R", "r", "X"}) {
        put(data() + "tsa.dat", QByteArray("[Admin]\nWTS=") + letter + "\n");
        EXPECT_EQ(start(), data()) << letter;
    }
    facts.IsRemoteSession = false;
    put(data() + "tsa.dat", "[Admin]\nWTS=A\n");
    EXPECT_EQ(start(), data()) << "at the desk itself nothing changes";
}

TEST_F(FoldersOfAStation, AClientsNameIsNoWayOutOfTheFolder) {
    facts.IsRemoteSession = true;
    for (const char* const name : {"../../etc", "..", ".", "a/b", "c:\\d", "x\n"}) {
        facts.ClientLoginName = name;
        const QString folder = QDir::cleanPath(start());
        EXPECT_EQ(QFileInfo(folder).path() + "/", data()) << name;
        EXPECT_TRUE(FolderExists(folder)) << name;
    }
}

TEST_F(FoldersOfAStation, TheAdministratorsFileBesideTheProgramGoesFirst) {
    put(data() + "tsa.dat", "[Admin]\nUpdates=R\nKA=0\n");
    start();
    EXPECT_EQ(station->admin.GetAdminFlags(), "AAFalseARAAAAAAA");
    put(home.filePath("program/tsa.dat"), "[admin]\nusername=r\nKA=-1\nENC=X\n");
    start();
    EXPECT_EQ(station->admin.GetAdminFlags(), "AATrueAAARAAAAX") << "the other one counts for nothing";
    station->profile.LoadLocationName();
    EXPECT_EQ(station->own.location, "pc7") << "the name of the computer, whatever user.cfg says";
}

TEST_F(FoldersOfAStation, WithoutAnyFolderTheStationStillRuns) {
    put(home.filePath("data"), "a file where the folder should be");
    start();
    EXPECT_TRUE(station->own.SID.isEmpty());
    EXPECT_EQ(station->settings.Settings_SNPT(), 45);
    EXPECT_EQ(desktop.calls, QStringList("showWelcome"));
}
