// The function keys inside the main window.
#include "support/gui_forms.h"
#include "windows/FormDesktop.h"
#include "windows/mainwindow/frmMain.h"
#include "windows/options/frmOptions.h"

#include <QLineEdit>
#include <QTabWidget>

#include <gtest/gtest.h>

using namespace tessel;

// Who types a name to look for must not lose the keys of the quick statuses, and who presses one that
// says nothing yet is asked what it shall say.
TEST(ShortKeys, SetTheQuickStatusesFromListAndSearchBox) {
    World world(1);
    world[0].set(kStatusFile, "status", "N4", "Lunch");
    world[0].set(kStatusFile, "status", "M4", "At lunch");
    VirtualClock clock;
    FakeNetwork network{clock};
    FakeLink link{network};
    MemoryRegistry registry;
    FormDesktop desktop{registry};
    Station station{world[0].facts, desktop.ports(clock, link, world[0].sounds, world[0].keys), 1};
    desktop.setStation(station);
    station.start();
    QApplication::processEvents();
    clock.advance(10'000);
    frmMain& main = *desktop.windows.mainWindow();
    main.activateWindow();
    QApplication::processEvents();

    auto* const search = main.findChild<QLineEdit*>(QStringLiteral("txtSearch"));
    QTest::keyClick(search, Qt::Key_F5);
    EXPECT_EQ(station.own.status, "At lunch");
    clock.advance(3000);
    QTest::keyClick(main.findChild<ReportControl*>(), Qt::Key_F5);
    EXPECT_NE(station.own.status, "") << "set anew, past the limit on repeated changes";
    QTest::keyClick(search, Qt::Key_F1, Qt::ShiftModifier);
    EXPECT_EQ(desktop.windows.window(WindowId::Options), nullptr);

    QTest::keyClick(search, Qt::Key_Z, Qt::ControlModifier);
    QTest::keyClick(search, Qt::Key_E, Qt::ControlModifier);
    ASSERT_NE(desktop.windows.window(WindowId::Endpoints), nullptr);

    QTest::keyClick(search, Qt::Key_F8);
    auto* const options = static_cast<frmOptions*>(desktop.windows.window(WindowId::Options));
    ASSERT_NE(options, nullptr);
    EXPECT_TRUE(options->isVisible());
    EXPECT_EQ(options->findChild<QTabWidget*>(QStringLiteral("tbOptions"))->currentIndex(), 1);
    QApplication::processEvents();
    EXPECT_EQ(options->focusWidget()->objectName(), "cmbStatus7");
}

// A window comes back to its own screen once that is there again, though it stood elsewhere meanwhile.
TEST(Places, AWindowReturnsToAScreenThatWasMissing) {
    World world(1);
    VirtualClock clock;
    FakeNetwork network{clock};
    FakeLink link{network};
    MemoryRegistry registry;
    registry.places[QStringLiteral("frmOptions")] = QPoint(5000, 200);
    FormDesktop desktop{registry};
    Station station{world[0].facts, desktop.ports(clock, link, world[0].sounds, world[0].keys), 1};
    desktop.setStation(station);
    station.start();
    desktop.windows.show({WindowId::Options});
    QWidget* const options = desktop.windows.window(WindowId::Options);
    EXPECT_LT(options->pos().x(), 1000);
    options->close();
    EXPECT_EQ(registry.places[QStringLiteral("frmOptions")], QPoint(5000, 200));
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    desktop.windows.show({WindowId::Options});
    desktop.windows.window(WindowId::Options)->move(30, 40);
    desktop.windows.window(WindowId::Options)->close();
    EXPECT_EQ(registry.places[QStringLiteral("frmOptions")], QPoint(30, 40)) << "the user moved it";
}
