#include "windows/mainwindow/frmMain.h"

#include "controls/bars/PaneBar.h"
#include "controls/edit/PromptEdit.h"
#include "controls/look/ScreenPlacement.h"
#include "support/gui_forms.h"

#include <QScreen>

#include <gtest/gtest.h>

using namespace tessel;

namespace {

enum Section { kColor, kName, kStatus };

// A World whose first station has its main window on the screen.
class MainWindow : public testing::Test {
protected:
    void open() {
        world[0].desktop.windows.onShowMain = [this] {
            form = std::make_unique<frmMain>(*world[0].station, registry);
            form->show();
        };
        world.startAll();
        QApplication::processEvents();
    }
    PromptEdit& search() { return *form->findChild<PromptEdit*>(); }

    World world{3};
    MemoryRegistry registry;
    std::unique_ptr<frmMain> form;
};

} // namespace

// Whoever looks for a room must find it in the list, and no other; and see when there is none.
TEST_F(MainWindow, ListsWhatIsHeardAndFindsIt) {
    open();
    EXPECT_EQ(form->windowTitle(), "Tessel Status");
    EXPECT_EQ(search().prompt(), "Search");
    EXPECT_TRUE(shownTexts(*form->homeList(), kName).isEmpty());
    world.run(10);
    EXPECT_EQ(shownTexts(*form->homeList(), kName), QStringList({"Room 1", "Room 2", "Room 3"}));
    EXPECT_EQ(form->findChild<PaneBar*>()->footer().trimmed(), "Online");

    search().setFocus();
    QTest::keyClicks(&search(), "oom 3");
    EXPECT_EQ(shownTexts(*form->homeList(), kName), QStringList({"Room 3"}));
    QTest::keyClick(&search(), Qt::Key_Escape);
    EXPECT_EQ(shownTexts(*form->homeList(), kName).size(), 3);
}

// A window left on a screen that is gone would be out of reach.
TEST_F(MainWindow, ComesBackWhereItWasOrOntoAScreen) {
    const QRect screen = QGuiApplication::primaryScreen()->availableGeometry();
    const QPoint there = screen.topLeft() + QPoint(40, 30);
    registry.places[QStringLiteral("frmMain")] = there;
    registry.sizes[QStringLiteral("frmMain")] = QSize(500, 400);
    open();
    EXPECT_EQ(form->pos(), there);
    EXPECT_EQ(form->size(), QSize(500, 400));

    form->move(screen.topLeft() + QPoint(60, 50));
    form->resize(480, 420);
    form->savePlace();
    EXPECT_EQ(registry.places[QStringLiteral("frmMain")], screen.topLeft() + QPoint(60, 50));
    EXPECT_EQ(registry.sizes[QStringLiteral("frmMain")], QSize(480, 420));

    registry.places[QStringLiteral("frmMain")] = QPoint(screen.right() + 5000, -5000);
    registry.sizes[QStringLiteral("frmMain")] = QSize(20000, 1);
    form = std::make_unique<frmMain>(*world[0].station, registry);
    EXPECT_TRUE(screen.contains(form->pos()));
    EXPECT_LE(form->width(), screen.width());
    EXPECT_GE(form->height(), 100);
}
