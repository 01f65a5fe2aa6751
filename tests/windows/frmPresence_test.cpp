// What one location can do for another, with real windows: an office of four, of which the first has a
// screen.
#include "controls/list/ReportControl.h"
#include "support/gui_forms.h"
#include "windows/FormWindows.h"
#include "windows/mainwindow/ViewStack.h"
#include "windows/mainwindow/frmMain.h"
#include "windows/presence/frmRoomStatus.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QScreen>
#include <QToolButton>

#include <gtest/gtest.h>

using namespace tessel;

namespace {

class PresenceWindows : public testing::Test {
protected:
    PresenceWindows() {
        world[0].addTones();
        world.settle();
        windows.setStation(me());
        // The station asks its recorder, as the others do; what it asked for is shown here.
        main = std::make_unique<frmMain>(me(), registry);
        main->show();
        settle();
    }
    ~PresenceWindows() override { windows.unloadForms(); }

    Station& me() { return *world[0].station; }
    Station& other() { return *world[1].station; }
    const ReportRecord& row(std::size_t station) {
        return *me().views.rptEndpoints.find(world[station]->own.SID);
    }
    static void settle() {
        for (int turn = 0; turn < 3; ++turn) {
            QApplication::processEvents();
        }
    }
    // Shows what the engines asked for last.
    QWidget& shown() {
        windows.show(world[0].desktop.windows.requests.back());
        settle();
        return *windows.window(world[0].desktop.windows.requests.back().window);
    }
    template <typename Part> static Part& part(const QWidget& window, const char* name) {
        auto* const found = window.findChild<Part*>(QLatin1String(name));
        EXPECT_NE(found, nullptr) << name;
        return *found;
    }
    void press(const QWidget& window, const char* button) {
        QTest::mouseClick(&part<QAbstractButton>(window, button), Qt::LeftButton);
        settle();
        world.run(1);
    }

    World world{4};
    MemoryRegistry registry;
    FormWindows windows{registry};
    std::unique_ptr<frmMain> main;
};

} // namespace

TEST_F(PresenceWindows, SeatsAndFreesAtHome) {
    me().commands.Execute(205, nullptr, {});
    QWidget& ask = shown();
    EXPECT_EQ(ask.windowTitle(), "This Location - Room 1");
    auto& name = part<QLineEdit>(ask, "fltName");
    EXPECT_EQ(name.placeholderText(), "Optional Name");
    EXPECT_TRUE(name.hasFocus() || !ask.isActiveWindow());
    QTest::keyClicks(&name, "Ann \" Longer Than Fifteen");
    EXPECT_EQ(name.text(), "Ann  Longer Tha");
    QTest::keyClick(&name, Qt::Key_Return);
    settle();
    world.run(1);
    EXPECT_EQ(me().own.patientName, "Ann  Longer Tha");
    EXPECT_TRUE(isOccupied(*other().views.rptEndpoints.find(me().own.SID)));
    me().commands.Execute(205, nullptr, {});
    EXPECT_FALSE(me().own.occupied);
    me().commands.Execute(205, nullptr, {});
    QTest::keyClick(&part<QLineEdit>(shown(), "fltName"), Qt::Key_Escape);
    settle();
    world.run(1);
    EXPECT_TRUE(me().own.occupied);
    EXPECT_TRUE(isOccupied(*other().views.rptEndpoints.find(me().own.SID))) << "told, without a name";
}

// The second click of two lands in the window behind, and the name would be typed into nowhere.
TEST_F(PresenceWindows, ADoubleClickLeavesTheKeyboardToTheDialog) {
    const int interval = QApplication::doubleClickInterval();
    QApplication::setDoubleClickInterval(20);
    main.reset();
    windows.show({WindowId::Main});
    me().commands.Execute(205, nullptr, {});
    QWidget& ask = shown();
    // The click that opens it, and the one behind, with nothing in between.
    windows.show(world[0].desktop.windows.requests.back());
    QApplication::setActiveWindow(windows.window(WindowId::Main));
    EXPECT_TRUE(QTest::qWaitFor([&ask] { return ask.isActiveWindow(); }, 2000));
    QApplication::setDoubleClickInterval(interval);
}

TEST_F(PresenceWindows, SeatsNotesAndFreesFromAfar) {
    me().actions.SetOccupiedRemote(row(1));
    QWidget& seat = shown();
    part<QLineEdit>(seat, "fltName").setText("Bob");
    press(seat, "cmdLocInUse");
    EXPECT_EQ(other().own.patientName, "Bob");
    me().actions.SetOccupiedRemote(row(1));
    QWidget& free = shown();
    EXPECT_TRUE(part<QCheckBox>(free, "chkOccupied").isChecked());
    EXPECT_EQ(part<QLineEdit>(free, "fltName").text(), "Bob");
    press(free, "cmdLocInUse");
    EXPECT_FALSE(other().own.occupied);

    me().actions.SetLocationNoteRemote(row(1));
    QWidget& note = shown();
    EXPECT_EQ(note.windowTitle(), "Location Note for Room 2");
    part<QLineEdit>(note, "fltNote").setText("abc ");
    press(note, "cmdSet");
    EXPECT_TRUE(note.isVisible()) << "too short: nothing happens";
    part<QLineEdit>(note, "fltNote").setText("wash it");
    press(note, "cmdSet");
    EXPECT_EQ(other().own.note, "wash it");
    EXPECT_EQ(row(1).preview, "wash it");
    me().actions.SetLocationNoteRemote(row(1));
    press(shown(), "cmdRemove");
    EXPECT_EQ(other().own.note, "");

    me().commands.Execute(302, nullptr, {});
    QWidget& mine = shown();
    EXPECT_FALSE(part<QPushButton>(mine, "cmdRemove").isEnabled());
    EXPECT_EQ(part<QPushButton>(mine, "cmdLocationNote").text(), "Show all Notes");
    press(mine, "cmdLocationNote");
    EXPECT_EQ(part<QPushButton>(mine, "cmdLocationNote").text(), "Hide all Notes");
    part<QLineEdit>(mine, "fltNote").setText("at lunch");
    press(mine, "cmdSet");
    EXPECT_EQ(other().views.rptEndpoints.find(me().own.SID)->preview, "at lunch");
}

// The network restarts while the window is open: nothing goes out, so nothing may look as if it had.
TEST_F(PresenceWindows, WhatAsksAnotherLocationWaitsForTheNetwork) {
    const auto restart = [this] { me().network.RestartNetwork(); };
    const auto back = [this] {
        world.run(20);
        settle();
    };
    me().actions.LaunchActionsWindow(row(1));
    QWidget& window = shown();
    auto& status = part<QComboBox>(window, "cmbStatus");
    EXPECT_TRUE(part<QLabel>(window, "lblOffline").isHidden());
    status.setEditText("Lunch");
    restart();
    EXPECT_FALSE(part<QLabel>(window, "lblOffline").isHidden());
    QTest::keyClick(status.lineEdit(), Qt::Key_Return);
    for (const char* const name : {"cmdStatus", "cmdClear", "cmdLocInUse"}) {
        press(window, name);
    }
    EXPECT_EQ(part<QGroupBox>(window, "grpStatus").title(), "Set Status for location Room 2");
    EXPECT_EQ(me().footer.text(), "  Not sent: offline");
    back();
    EXPECT_EQ(other().own.status, "");
    EXPECT_TRUE(part<QLabel>(window, "lblOffline").isHidden());
    press(window, "cmdStatus");
    EXPECT_EQ(other().own.status, "Lunch") << "what was typed is still there";
    window.close();
    settle();

    me().actions.SetOccupiedRemote(row(1));
    QWidget& seat = shown();
    part<QLineEdit>(seat, "fltName").setText("Bob");
    restart();
    QTest::keyClick(&part<QLineEdit>(seat, "fltName"), Qt::Key_Return);
    EXPECT_TRUE(seat.isVisible());
    back();
    press(seat, "cmdLocInUse");
    EXPECT_EQ(other().own.patientName, "Bob");

    me().actions.SetLocationNoteRemote(row(1));
    QWidget& note = shown();
    part<QLineEdit>(note, "fltNote").setText("wash it");
    restart();
    QTest::keyClick(&part<QLineEdit>(note, "fltNote"), Qt::Key_Return);
    press(note, "cmdRemove");
    EXPECT_TRUE(note.isVisible());
    back();
    press(note, "cmdSet");
    EXPECT_EQ(other().own.note, "wash it");
}

TEST_F(PresenceWindows, ActionsWindowAsksAndShowsWhatItAsked) {
    me().actions.LaunchActionsWindow(row(1));
    QWidget& window = shown();
    EXPECT_EQ(window.windowTitle(), "Location Actions");
    auto& group = part<QGroupBox>(window, "grpStatus");
    EXPECT_EQ(group.title(), "Set Status for location Room 2");
    auto& status = part<QComboBox>(window, "cmbStatus");
    status.setEditText("x");
    press(window, "cmdStatus");
    EXPECT_EQ(other().own.status, "");
    status.setEditText("Lunch");
    press(window, "cmdStatus");
    EXPECT_EQ(other().own.status, "Lunch");
    EXPECT_EQ(group.title(), "Clear Status for location Room 2");
    press(window, "cmdClear");
    EXPECT_EQ(other().own.status, "");
    EXPECT_TRUE(part<QPushButton>(window, "cmdStatus").isEnabled());

    part<QLineEdit>(window, "fltName").setText("Carl");
    press(window, "cmdLocInUse");
    EXPECT_EQ(other().own.patientName, "Carl");
    EXPECT_EQ(part<QPushButton>(window, "cmdLocInUse").text(), "Remove Patient (Carl)");
    press(window, "cmdLocInUse");
    EXPECT_FALSE(other().own.occupied);
    press(window, "StaffTag3");
    EXPECT_EQ(other().own.staffTag, 33);
    press(window, "StaffTag3");
    EXPECT_EQ(other().own.staffTag, 0) << "a second click clears it";
    for (const char* const name : {"cmdLocInUse", "StaffTag4"}) {
        auto& button = part<QAbstractButton>(window, name);
        QTest::mouseClick(&button, Qt::LeftButton);
        QTest::mouseDClick(&button, Qt::LeftButton); // the second press alone
        QTest::mouseRelease(&button, Qt::LeftButton);
    }
    settle();
    world.run(1);
    EXPECT_TRUE(other().own.occupied) << "a double click is one";
    EXPECT_EQ(other().own.staffTag, 34);
}

// What another program calls itself, or its patient, must not push the buttons off the screen.
TEST_F(PresenceWindows, EndlessNamesLeaveTheActionsOnTheScreen) {
    const QString endless(240, u'W');
    me().protocol.receive(
        RawPacket{.location = endless,
                  .code = "XAN",
                  .presence = QStringList{"Busy", {}, "-1", endless, "0", {}, {}, "0", {}}.join(ValueMark)}
            .bytes());
    me().actions.LaunchActionsWindow(*me().views.rptEndpoints.find(RawPacket{}.SID));
    const QWidget& window = shown();
    EXPECT_LT(window.width(), 1000);
    EXPECT_TRUE(part<QPushButton>(window, "cmdLocInUse").text().startsWith("Remove Patient (WWW"));
}

TEST_F(PresenceWindows, WithoutStaffTagsNoneAreOffered) {
    me().settings.Settings_SST.set(false);
    emit me().shell.offersChanged();
    settle();
    me().actions.LaunchActionsWindow(row(1));
    EXPECT_FALSE(part<QWidget>(shown(), "StaffTag0").isVisible());
}

TEST_F(PresenceWindows, FavoriteWithAToneOfItsOwn) {
    me().actions.LaunchActionsWindow(row(1), ActionsPage::Favorite);
    QWidget& window = shown();
    EXPECT_FALSE(part<QPushButton>(window, "cmdSave").isEnabled());
    press(window, "cmdAddFavorite");
    EXPECT_EQ(me().views.rptFavorites.count(), 1);
    auto& tone = part<QComboBox>(window, "cmbFavTone");
    EXPECT_EQ(tone.itemText(0), "Default");
    tone.addItems({"One", "Two"}); // this program folder has no list of names
    tone.setCurrentIndex(2);
    press(window, "cmdPlayQuick");
    EXPECT_EQ(world[0].sounds.played.last(), "2A.wav");
    part<QCheckBox>(window, "chkFavPopup").setChecked(false);
    press(window, "cmdSave");
    world[0].sounds.played.clear();
    other().status.SetCustomStatus("Out");
    world.run(1);
    EXPECT_EQ(world[0].sounds.played, QStringList("2A.wav"));
    EXPECT_FALSE(world[0].desktop.popups[0]);

    me().commands.Execute(static_cast<int>(Command::FavoritesList), nullptr, {});
    QWidget& editor = shown();
    EXPECT_EQ(editor.windowTitle(), "Favorites (1)");
    auto& list = part<QListWidget>(editor, "lstFavorite");
    QTest::keyClick(&list, Qt::Key_Return);
    settle();
    ASSERT_NE(openBox(), nullptr);
    EXPECT_TRUE(openBox()->text().contains("Location: Room 2"));
    openBox()->button(QMessageBox::No)->click();
    settle();
    QKeyEvent held(QEvent::KeyPress, Qt::Key_Delete, Qt::NoModifier, {}, true);
    QApplication::sendEvent(&list, &held);
    EXPECT_EQ(editor.windowTitle(), "Favorites (1)") << "a held key would empty the list";
    QTest::keyClick(&list, Qt::Key_Delete);
    EXPECT_EQ(editor.windowTitle(), "Favorites (0)");
    EXPECT_EQ(me().views.rptFavorites.count(), 0);
}

TEST_F(PresenceWindows, BoardFollowsOnAWall) {
    other().presence.SetOccupiedStatusRemote(true, "Bob");
    world[2]->presence.SetOccupiedStatusRemote(true, "Carl");
    world.run(1);
    me().commands.Execute(108, nullptr, {});
    auto& board = static_cast<frmRoomStatus&>(shown());
    auto& list = part<ReportControl>(board, "rptStatus");
    EXPECT_EQ(board.windowTitle(), "Occupied Locations");
    EXPECT_EQ(shownTexts(list, 1), QStringList({"Room 2", "Room 3"}));
    EXPECT_EQ(shownTexts(list, 2), QStringList({"Bob", "Carl"}));
    world[2]->presence.Set_StaffTag(33);
    world.run(120);
    QTest::keyClicks(&part<QLineEdit>(board, "txtSearch"), "carl");
    const QList<QStringList> rows = board.printed().parts.last().rows;
    EXPECT_EQ(rows, QList<QStringList>({{"Active", "Patient", "Staff", "Occupied for", "Location Note"},
                                        {"Room 3", "Carl", "Status tag 4", "2 min", ""}}))
        << "what is printed is what is shown";
    QTest::keyClick(&board, Qt::Key_F5);
    const QRect usual = board.geometry();
    QTest::keyClick(&board, Qt::Key_F11);
    settle();
    EXPECT_TRUE(board.isLarge());
    EXPECT_EQ(board.geometry(), board.screen()->geometry());
    EXPECT_EQ(shownTexts(list, 4), QStringList({"2 min", "2 min"}));
    other().presence.SetOccupiedStatusRemote(true, {});
    world.run(1);
    EXPECT_EQ(shownTexts(list, 1), QStringList("Room 3"));
    QTest::keyClick(&board, Qt::Key_Escape);
    settle();
    EXPECT_FALSE(board.isLarge());
    EXPECT_EQ(board.geometry(), usual);
    EXPECT_EQ(me().rooms.mode(), RoomStatus::Mode::Window);
    board.close();
    EXPECT_EQ(me().rooms.mode(), RoomStatus::Mode::Closed);
}
