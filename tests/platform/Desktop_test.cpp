#include "platform/Facts.h"
#include "platform/Registry.h"
#include "platform/Signals.h"
#include "support/full_disk.h"
#include "waiting.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QPoint>
#include <QSettings>
#include <QSize>
#include <QStandardPaths>

#include <csignal>
#include <sys/wait.h>
#include <unistd.h>

using namespace tessel;

namespace {

QString autostartFile() {
    return qEnvironmentVariable("XDG_CONFIG_HOME") + QStringLiteral("/autostart/TesselStatus.desktop");
}

QByteArray contents(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace

TEST(Registry, PlacesAndSizesComeBackAndNonsenseIsNone) {
    Registry registry;
    EXPECT_EQ(registry.GetFormPos(QStringLiteral("frmNew")), std::nullopt);
    registry.SaveFormPos(QStringLiteral("frmMain"), {-1200, 35});
    registry.SaveFormSize(QStringLiteral("frmMain"), {640, 480});
    EXPECT_EQ(Registry().GetFormPos(QStringLiteral("frmMain")), QPoint(-1200, 35));
    EXPECT_EQ(Registry().GetFormSize(QStringLiteral("frmMain")), QSize(640, 480));

    const QDir config(qEnvironmentVariable("XDG_CONFIG_HOME") + QStringLiteral("/TesselStatus"));
    const QStringList files = config.entryList(QDir::Files);
    ASSERT_EQ(files.size(), 1) << "the settings are not below the user's own folder";
    {
        const FullDisk full;
        registry.SaveFormPos(QStringLiteral("frmMain"), {1, 1});
        EXPECT_EQ(Registry().GetFormSize(QStringLiteral("frmMain")), QSize(640, 480)) << "emptied";
    }
    QSettings desktop(QSettings::NativeFormat, QSettings::UserScope, QStringLiteral("TesselStatus"),
                      QStringLiteral("TesselStatus"));
    EXPECT_EQ(desktop.value(QStringLiteral("frmMain/Position")).toPoint(), QPoint(-1200, 35));
    QFile file(config.filePath(files.first()));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
    file.write("[frmMain]\nPosition=somewhere\nSize=@Size(x y)\n");
    file.close();
    EXPECT_EQ(Registry().GetFormPos(QStringLiteral("frmMain")), std::nullopt);
}

// The session starts what stands there as a command line: a path is one word of it, whatever it holds.
TEST(Registry, TheAutostartEntryQuotesThePathAndGoesAway) {
    Registry().SetAutoStart(QStringLiteral("/opt/a b/50% \"$HOME\" `x` c\\d"), true);
    const QByteArray entry = contents(autostartFile());
    EXPECT_TRUE(entry.startsWith("[Desktop Entry]\n"));
    EXPECT_TRUE(entry.contains("\nExec=\"/opt/a b/50%% \\\\\"\\\\$HOME\\\\\" \\\\`x\\\\` c\\\\\\\\d\"\n"))
        << entry.constData();
    Registry().SetAutoStart(QStringLiteral("/usr/bin/other"), true);
    EXPECT_TRUE(contents(autostartFile()).contains("\nExec=\"/usr/bin/other\"\n"));
    Registry().SetAutoStart(QString(), false);
    EXPECT_FALSE(QFile::exists(autostartFile()));
    Registry().SetAutoStart(QString(), false);
}

TEST(Facts, FoldersEndInASlashAndTheSessionIsAskedWhetherItIsRemote) {
    const SystemFacts here = systemFacts();
    EXPECT_EQ(here.appData, qEnvironmentVariable("XDG_DATA_HOME") + u'/');
    for (const QString& folder : {here.programFolder, here.commonAppData, here.documents, here.desktop}) {
        EXPECT_TRUE(folder.endsWith(u'/')) << qPrintable(folder);
    }
    EXPECT_FALSE(here.hostName.isEmpty());
    EXPECT_FALSE(here.userName.isEmpty());
    EXPECT_LE(here.userName.size(), 25);
    EXPECT_FALSE(here.versions().filter(QStringLiteral("libQt6Core.so.")).isEmpty());

    qunsetenv("XRDP_SESSION");
    qputenv("XDG_SESSION_ID", "../../etc/passwd");
    EXPECT_FALSE(systemFacts().IsRemoteSession);
    qputenv("XRDP_SESSION", "1");
    EXPECT_TRUE(systemFacts().IsRemoteSession);
    EXPECT_EQ(systemFacts().ClientLoginName, here.userName);
    qunsetenv("XRDP_SESSION");
    qunsetenv("XDG_SESSION_ID");
}

namespace {

// A process that ends with 0 when it is asked to end, and with 1 when it is not. It is sent `number`
// once it is ready; the answer is what waitpid tells.
int endedBy(int number, void (*hangUpBefore)(int)) {
    int ready[2];
    if (::pipe(ready) != 0) {
        return -1;
    }
    const pid_t child = ::fork();
    if (child == 0) {
        ::signal(SIGHUP, hangUpBefore);
        EndSignals endSignals;
        QEventLoop loop;
        bool asked = false;
        QObject::connect(&endSignals, &EndSignals::requested, &loop, [&] {
            asked = true;
            loop.quit();
        });
        QTimer::singleShot(number == SIGHUP && hangUpBefore == SIG_IGN ? 300 : kTooLongMs, &loop,
                           &QEventLoop::quit);
        if (::write(ready[1], "r", 1) == 1) {
            loop.exec();
        }
        ::_exit(asked ? 0 : 1);
    }
    char byte = 0;
    const bool isReady = ::read(ready[0], &byte, 1) == 1;
    ::close(ready[0]);
    ::close(ready[1]);
    ::kill(child, isReady ? number : SIGKILL);
    int status = -1;
    ::waitpid(child, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : 1000 + WTERMSIG(status);
}

} // namespace

// A station that is killed without a goodbye stays in all tables for four minutes.
TEST(EndSignals, TheSystemsWishToEndReachesTheProgram) {
    EXPECT_EQ(endedBy(SIGTERM, SIG_DFL), 0);
    EXPECT_EQ(endedBy(SIGINT, SIG_DFL), 0);
    EXPECT_EQ(endedBy(SIGHUP, SIG_DFL), 0);
    EXPECT_EQ(endedBy(SIGHUP, SIG_IGN), 1) << "started to outlive its terminal";
}
