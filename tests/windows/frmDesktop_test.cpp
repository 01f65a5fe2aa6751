#include "windows/frmDesktop.h"

#include "support/gui_forms.h"
#include "windows/mainwindow/frmMain.h"
#include "windows/network/frmAdapters.h"
#include "windows/network/frmEndpoints.h"
#include "windows/operations/frmNetworkInfo.h"

#include <QClipboard>
#include <QPlainTextEdit>

#include <gtest/gtest.h>

using namespace tessel;

namespace {

// A station with the desktop that the program gives it.
struct RealDesktop : testing::Test {
    RealDesktop() {
        desktop.setStation(station);
        station.start();
        QApplication::processEvents();
    }
    template <typename Form> static int visible() {
        int count = 0;
        for (QWidget* const window : QApplication::topLevelWidgets()) {
            count += qobject_cast<Form*>(window) != nullptr && window->isVisible() ? 1 : 0;
        }
        return count;
    }

    World world{1}; // for its folders alone
    VirtualClock clock;
    FakeNetwork network{clock};
    FakeLink link{network};
    MemoryRegistry registry;
    FormDesktop desktop{registry};
    Station station{world[0].facts, clock, link, desktop, world[0].sounds, world[0].keys, 1};
};

} // namespace

// Asking twice for a window must bring up the one that is there, with what was typed into it.
TEST_F(RealDesktop, ShowsEachWindowOnce) {
    EXPECT_EQ(visible<frmMain>(), 1);
    for (int time = 0; time < 2; ++time) {
        for (const WindowId id : {WindowId::Endpoints, WindowId::Adapters, WindowId::NetworkInfo}) {
            desktop.showWindow(id);
        }
    }
    EXPECT_EQ(visible<frmEndpoints>(), 1);
    EXPECT_EQ(visible<frmAdapters>(), 1);
    EXPECT_EQ(visible<frmNetworkInfo>(), 1);

    desktop.mainWindow()->showMinimized();
    desktop.bringUp();
    EXPECT_FALSE(desktop.mainWindow()->isMinimized());
    EXPECT_TRUE(desktop.mainWindow()->isVisible());
}

// The end of the program closes everything, saves the place and leaves no window that keeps it alive.
TEST_F(RealDesktop, EndsWithEveryWindowClosed) {
    desktop.showWindow(WindowId::Endpoints);
    desktop.showWindow(WindowId::Adapters);
    desktop.showWindow(WindowId::NetworkInfo);
    desktop.mainWindow()->move(30, 20);
    station.tmrExit.setEnabled(true);
    clock.advance(3000);
    EXPECT_EQ(registry.places[QStringLiteral("frmMain")], QPoint(30, 20));
    EXPECT_EQ(visible<QWidget>(), 0);
}

// What is pasted into a mail to whoever helps must be all of it.
TEST_F(RealDesktop, InformationIsCopiedWhole) {
    desktop.showWindow(WindowId::NetworkInfo);
    for (QWidget* const window : QApplication::topLevelWidgets()) {
        if (auto* const form = qobject_cast<frmNetworkInfo*>(window)) {
            EXPECT_EQ(form->windowTitle(), "Tessel Status Information");
            trigger(*form, "mnuCopy");
            QTest::keyClick(form, Qt::Key_Escape);
        }
    }
    EXPECT_EQ(QApplication::clipboard()->text(), station.diagInfo());
    EXPECT_TRUE(QApplication::clipboard()->text().startsWith("Location: Room 1\n"));
}
