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
        world[0].desktop.onShowMain = [this] {
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
    EXPECT_EQ(search().text(), "Search");
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

// A note or name with markup in it would otherwise load pictures or pass for a part of the program.
TEST_F(MainWindow, ShowsHostileTextAsItStands) {
    open();
    world.run(10);
    RawPacket packet;
    packet.code = QStringLiteral("XAN");
    packet.location = QStringLiteral("<b>bold</b><img src=x>");
    packet.note = QStringLiteral("<a href='x'>click</a>");
    world.network.inject(packet.bytes());
    world.run(1);
    EXPECT_TRUE(shownTexts(*form->homeList(), kName).contains("<b>bold</b><img src=x>"));

    world[0]->footer.SetFooter(QStringLiteral("<b>state</b>"), QStringLiteral("<img src=x>"), false);
    EXPECT_EQ(form->findChild<PaneBar*>()->footer().trimmed(), "<b>state</b>");
}

// A click on the cross must not take the location off the others' screens, unless the user said so.
TEST_F(MainWindow, ClosingMinimisesOrEndsByEOC) {
    open();
    world.run(10);
    EXPECT_FALSE(form->close());
    EXPECT_TRUE(form->isMinimized());
    EXPECT_FALSE(world[0]->own.exiting);
    EXPECT_EQ(world.locations(1), 3);

    world[0]->settings.Settings_EOC.set(true);
    EXPECT_TRUE(form->close());
    EXPECT_TRUE(world[0]->own.exiting);
    EXPECT_TRUE(world[0].desktop.calls.contains("unloadMain"));
    EXPECT_EQ(world.locations(1), 2);
}

// Once the program ends, the window must not refuse.
TEST_F(MainWindow, ClosesWhenTheProgramEnds) {
    open();
    world[0]->own.exiting = true;
    EXPECT_TRUE(form->close());
    EXPECT_FALSE(form->isMinimized());
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
