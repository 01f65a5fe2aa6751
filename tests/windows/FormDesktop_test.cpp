#include "windows/FormDesktop.h"

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
    Station station{world[0].facts, desktop.ports(clock, link, world[0].sounds, world[0].keys), 1};
};

} // namespace

// Asking twice for a window must bring up the one that is there, with what was typed into it.
TEST_F(RealDesktop, ShowsEachWindowOnce) {
    EXPECT_EQ(visible<frmMain>(), 1);
    for (int time = 0; time < 2; ++time) {
        for (const WindowId id : {WindowId::Endpoints, WindowId::Adapters, WindowId::NetworkInfo}) {
            desktop.windows.show({id});
        }
    }
    EXPECT_EQ(visible<frmEndpoints>(), 1);
    EXPECT_EQ(visible<frmAdapters>(), 1);
    EXPECT_EQ(visible<frmNetworkInfo>(), 1);

    for (const Qt::WindowState state : {Qt::WindowMinimized, Qt::WindowMaximized}) {
        desktop.windows.mainWindow()->setWindowState(state);
        desktop.windows.bringUp();
        EXPECT_EQ(desktop.windows.mainWindow()->windowState(), Qt::WindowNoState);
        EXPECT_TRUE(desktop.windows.mainWindow()->isVisible());
    }
}

// A dialog that lies under a main window on top, or takes the focus when another is switched, is lost.
TEST_F(RealDesktop, EveryWindowFollowsTheMainOneOnTop) {
    for (const WindowId id : {WindowId::Endpoints, WindowId::Adapters, WindowId::SetStatus}) {
        desktop.windows.show({id});
    }
    const auto onTop = [this](WindowId id) {
        return desktop.windows.window(id)->windowFlags().testFlag(Qt::WindowStaysOnTopHint);
    };
    for (const bool wanted : {true, false}) {
        station.shell.toggleOnTop();
        for (const WindowId id : {WindowId::Main, WindowId::Endpoints, WindowId::Adapters}) {
            EXPECT_EQ(onTop(id), wanted);
            EXPECT_TRUE(desktop.windows.window(id)->isVisible());
        }
        desktop.windows.window(WindowId::SetStatus)->close();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        desktop.windows.show({WindowId::SetStatus});
        EXPECT_EQ(onTop(WindowId::SetStatus), wanted) << "also one that is made later";
    }
}

// Asked for by another program, the doorbell is the one thing to do; what was typed into it stays.
TEST_F(RealDesktop, AModalDialogHoldsTheMainWindow) {
    desktop.windows.show({WindowId::GlobalDoorBell});
    QWidget* const dialog = desktop.windows.window(WindowId::GlobalDoorBell);
    EXPECT_FALSE(dialog->isModal());
    station.own.online = true;
    station.remoteCommands.execute(QStringLiteral("/dbw"));
    EXPECT_EQ(desktop.windows.window(WindowId::GlobalDoorBell), dialog);
    EXPECT_TRUE(dialog->isVisible());
    EXPECT_EQ(dialog->windowModality(), Qt::WindowModal);
    EXPECT_EQ(dialog->parentWidget(), desktop.windows.mainWindow());
}

// The end of the program closes everything, saves the place and leaves no window that keeps it alive.
TEST_F(RealDesktop, EndsWithEveryWindowClosed) {
    desktop.windows.show({WindowId::Endpoints});
    desktop.windows.show({WindowId::Adapters});
    desktop.windows.show({WindowId::NetworkInfo});
    desktop.windows.mainWindow()->move(30, 20);
    station.tmrExit.setEnabled(true);
    clock.advance(3000);
    EXPECT_EQ(registry.places[QStringLiteral("frmMain")], QPoint(30, 20));
    EXPECT_EQ(visible<QWidget>(), 0);
}

// What is pasted into a mail to whoever helps must be all of it.
TEST_F(RealDesktop, InformationIsCopiedWhole) {
    desktop.windows.show({WindowId::NetworkInfo});
    for (QWidget* const window : QApplication::topLevelWidgets()) {
        if (auto* const form = qobject_cast<frmNetworkInfo*>(window)) {
            EXPECT_EQ(form->windowTitle(), "Tessel Status Information");
            trigger(*form, "mnuCopy");
            QTest::keyClick(form, Qt::Key_Escape);
        }
    }
    EXPECT_EQ(QApplication::clipboard()->text(), station.diagnostics.GetDiagInfo());
    EXPECT_TRUE(QApplication::clipboard()->text().startsWith("Location: Room 1\n"));
}
