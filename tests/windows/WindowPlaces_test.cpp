#include "windows/WindowPlaces.h"

#include "support/gui_forms.h"

#include <QFile>
#include <QProcess>
#include <QScreen>
#include <QTemporaryDir>
#include <QWidget>

#include <gtest/gtest.h>

using namespace tessel;

// A window that somebody put beside the main one must be there again tomorrow, and never out of reach.
TEST(Places, AWindowComesBackWhereItWasClosed) {
    const QPoint corner = QGuiApplication::primaryScreen()->availableGeometry().topLeft();
    MemoryRegistry registry;
    {
        QWidget window;
        window.setObjectName(QStringLiteral("frmSome"));
        keepPlace(window, registry);
        window.resize(320, 240);
        window.move(corner + QPoint(70, 60));
        window.show();
        window.close();
    }
    QWidget again;
    again.setObjectName(QStringLiteral("frmSome"));
    keepPlace(again, registry);
    EXPECT_EQ(again.pos(), corner + QPoint(70, 60));
    EXPECT_EQ(again.size(), QSize(320, 240));

    registry.places[QStringLiteral("frmSome")] = QPoint(90000, 90000);
    QWidget lost;
    lost.setObjectName(QStringLiteral("frmSome"));
    keepPlace(lost, registry);
    EXPECT_TRUE(QGuiApplication::primaryScreen()->availableGeometry().contains(lost.geometry()));

    // The screen may be smaller than the one of yesterday, and the frame takes its share.
    registry.sizes[QStringLiteral("frmSome")] = QSize(9000, 9000);
    QWidget large;
    large.setObjectName(QStringLiteral("frmSome"));
    keepPlace(large, registry);
    large.show();
    ASSERT_TRUE(QTest::qWaitFor([&large] {
        return QGuiApplication::primaryScreen()->availableGeometry().contains(large.frameGeometry());
    }));
}

namespace {

// The same test once more, with two screens beside each other.
void runWithTwoScreens(const char* filter) {
    const QTemporaryDir folder;
    QFile screens(folder.filePath(QStringLiteral("screens.json")));
    ASSERT_TRUE(screens.open(QIODevice::WriteOnly));
    screens.write(R"({"screens": [
        {"name": "left", "x": 0, "y": 0, "width": 1280, "height": 800,
         "logicalDpi": 96, "logicalBaseDpi": 96, "dpr": 1},
        {"name": "right", "x": 1280, "y": 0, "width": 1024, "height": 768,
         "logicalDpi": 96, "logicalBaseDpi": 96, "dpr": 1}]})");
    screens.close();
    QProcess child;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("QT_QPA_PLATFORM"),
                       QLatin1String("offscreen:configfile=") + screens.fileName());
    child.setProcessEnvironment(environment);
    child.setProcessChannelMode(QProcess::MergedChannels);
    child.start(QCoreApplication::applicationFilePath(),
                {QLatin1String("--gtest_filter=") + QLatin1String(filter)});
    ASSERT_TRUE(child.waitForFinished(60000));
    EXPECT_EQ(child.exitCode(), 0) << child.readAll().constData();
}

} // namespace

TEST(Places, AWindowReturnsToItsScreen) {
    const QList<QScreen*> screens = QGuiApplication::screens();
    if (screens.size() < 2) {
        runWithTwoScreens("Places.AWindowReturnsToItsScreen");
        return;
    }
    const QPoint beside = screens[1]->availableGeometry().topLeft() + QPoint(70, 60);
    MemoryRegistry registry;
    registry.places[QStringLiteral("frmSome")] = beside;
    registry.sizes[QStringLiteral("frmSome")] = QSize(320, 240);
    for (const bool all : {false, true}) {
        QWidget window;
        window.setObjectName(QStringLiteral("frmSome"));
        keepPlace(window, registry, all);
        window.show();
        // The frame takes its share a moment later.
        EXPECT_TRUE(QTest::qWaitFor([&] {
            return screens[all ? 1 : 0]->availableGeometry().contains(window.frameGeometry());
        })) << all;
        EXPECT_EQ(window.screen(), screens[all ? 1 : 0]);
        window.close();
        EXPECT_EQ(registry.places[QStringLiteral("frmSome")], beside)
            << "where it was put goes on to count, though it may not stand there now";
    }
    // Larger than what is left of that screen, it stays on it.
    registry.places[QStringLiteral("frmSome")] = beside + QPoint(900, 700);
    QWidget corner;
    corner.setObjectName(QStringLiteral("frmSome"));
    keepPlace(corner, registry);
    EXPECT_TRUE(screens[1]->availableGeometry().contains(corner.geometry()));
}
