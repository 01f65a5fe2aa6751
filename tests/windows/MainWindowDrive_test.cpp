// The main window as a user drives it: keys and mouse on the real window, packets to the real stations.
#include "windows/mainwindow/frmMain.h"

#include "controls/bars/CommandBar.h"
#include "controls/bars/CommandBars.h"
#include "controls/bars/CommandMenu.h"
#include "controls/bars/MessageBar.h"
#include "controls/bars/PaneBar.h"
#include "controls/bars/Ribbon.h"
#include "controls/edit/PromptEdit.h"
#include "support/gui_forms.h"
#include "windows/mainwindow/ViewStack.h"
#include "windows/mainwindow/frmTray.h"

#include <QAccessible>
#include <QLineEdit>
#include <QPushButton>
#include <QTabBar>
#include <QToolButton>

#include <gtest/gtest.h>

using namespace tessel;

namespace {

enum Section { kColor, kName, kStatus };
constexpr int kSettleMs = 150; // a little longer than a row's menu waits

class MainWindowDrive : public testing::Test {
protected:
    MainWindowDrive() {
        for (std::size_t index = 0; index < world.size(); ++index) {
            world[index].set(kStatusFile, "status", "N0", "Away");
            world[index].set(kStatusFile, "status", "M0", "Away for a walk");
        }
        world[0].desktop.windows.onShowMain = [this] { build(); };
        world.startAll();
        world.run(10);
        settle();
    }
    void build() {
        form = std::make_unique<frmMain>(*world[0].station, registry);
        form->show();
        form->activateWindow();
        settle();
    }
    static void settle() {
        for (int turn = 0; turn < 3; ++turn) {
            QApplication::processEvents();
        }
    }

    PromptEdit& search() { return *form->findChild<PromptEdit*>(); }
    Ribbon& ribbon() { return *form->findChild<Ribbon*>(); }
    CommandBar& quickBar() { return *form->findChild<CommandBar*>(); }
    PaneBar& panes() { return *form->findChild<PaneBar*>(); }
    MessageBar& bar(const char* name) { return *form->findChild<MessageBar*>(QLatin1String(name)); }
    ReportControl& home() { return form->stack()->home(); }
    Station& me() { return *world[0].station; }

    static void click(QWidget& widget) {
        QTest::mouseClick(&widget, Qt::LeftButton);
        settle();
    }
    static void key(QWidget& widget, int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QTest::keyClick(&widget, static_cast<Qt::Key>(key), modifiers);
        settle();
    }
    void openTab(int id) {
        QTabBar& tabs = *ribbon().findChild<QTabBar*>();
        for (int at = 0; at < tabs.count(); ++at) {
            if (tabs.tabData(at).toInt() == id) {
                QTest::mouseClick(&tabs, Qt::LeftButton, {}, tabs.tabRect(at).center());
            }
        }
        settle();
    }
    // The centre of a row by the name it shows.
    QPoint rowAt(const QString& name) {
        const QStringList names = shownTexts(home(), kName);
        return home()
            .visualRect(home().model()->index(static_cast<int>(names.indexOf(name)), kName))
            .center();
    }
    static CommandMenu* openMenu() { return qobject_cast<CommandMenu*>(QApplication::activePopupWidget()); }
    // Opens the menu of a row as a user does, with the mouse.
    CommandMenu* menuOf(const QString& name) {
        const QPoint at = rowAt(name);
        QTest::mouseClick(home().viewport(), Qt::LeftButton, {}, at);
        QContextMenuEvent event(QContextMenuEvent::Mouse, at, home().viewport()->mapToGlobal(at));
        QApplication::sendEvent(home().viewport(), &event);
        QTest::qWait(kSettleMs);
        return openMenu();
    }
    static QStringList captions(const QMenu& menu) {
        QStringList all;
        for (const QAction* const action : menu.actions()) {
            if (action->isVisible() && !action->isSeparator()) {
                all += spokenCaption(action->text());
            }
        }
        return all;
    }
    static void choose(QMenu& menu, const QString& caption) {
        for (QAction* const action : menu.actions()) {
            if (spokenCaption(action->text()) == caption) {
                QTest::mouseClick(&menu, Qt::LeftButton, {}, menu.actionGeometry(action).center());
                settle();
                return;
            }
        }
        FAIL() << "no entry " << caption.toStdString();
    }

    World world{3};
    MemoryRegistry registry;
    std::unique_ptr<frmMain> form;
};

} // namespace

// The one thing that everybody does: ring at a room, with a word.
TEST_F(MainWindowDrive, RingsTheDoorbellOfTheChosenRow) {
    CommandMenu* const menu = menuOf("Room 3");
    ASSERT_NE(menu, nullptr);
    EXPECT_EQ(captions(*menu).first(), "Room 3");
    QLineEdit* const box = menu->textBox(404);
    ASSERT_NE(box, nullptr);
    QTest::keyClick(box, Qt::Key_Return);
    EXPECT_TRUE(menu->isVisible()) << "an empty line does not ring";
    QTest::keyClicks(box, "patient is here");
    QTest::keyClick(box, Qt::Key_Return);
    settle();
    EXPECT_EQ(openMenu(), nullptr);
    world.run(1);
    const auto& rung = world[2].desktop.popups[1];
    ASSERT_TRUE(rung);
    EXPECT_EQ(rung->text, "patient is here");
    EXPECT_FALSE(world[1].desktop.popups[1]) << "nobody else hears it";
}

// A message goes out from the row's menu, by Enter or as the long way through the window.
TEST_F(MainWindowDrive, WritesToTheChosenRowAndToAGroup) {
    CommandMenu* menu = menuOf("Room 3");
    ASSERT_NE(menu, nullptr);
    QLineEdit* const box = menu->textBox(402);
    EXPECT_EQ(menu->focusWidget(), box) << "one can type at once";
    box->setText(QStringLiteral("a.\u20AC.b :|: c"));
    EXPECT_EQ(box->text(), QStringLiteral("a. \u20AC .b :|: c"));
    EXPECT_FALSE(captions(*menu).contains("Only the text before :|: will arrive"));
    box->setText(QStringLiteral("g:to the color :|: cut"));
    EXPECT_TRUE(captions(*menu).contains("Only the text before :|: will arrive"));
    box->setText(QStringLiteral("your patient is here"));
    QTest::keyClick(box, Qt::Key_Return);
    settle();
    world.run(1);
    EXPECT_EQ(world[2]->inbox.rptMessages.count(), 1);
    EXPECT_EQ(world[1]->inbox.rptMessages.count(), 0);

    RecordingWindows& asked = world[0].desktop.windows;
    menu = menuOf("Room 3");
    choose(*menu, "Compose");
    EXPECT_EQ(asked.requests.back().window, WindowId::GroupMessage);
    EXPECT_EQ(asked.requests.back().page, 5);
    EXPECT_EQ(asked.requests.back().SID, world[2]->own.SID);
    menu = menuOf("Room 3");
    QTest::keyClicks(menu->textBox(402), "hm");
    choose(*menu, "Message");
    EXPECT_EQ(asked.requests.back().text, "hm") << "too short to go at once";
    me().commands.Execute(419, nullptr, kAddSnippet);
    EXPECT_EQ(asked.requests.back().window, WindowId::Snippit);

    me().groups.SaveGroup(3, "Lab & more", "Room 3:" + world[2]->own.SID);
    QToolButton* const button = ribbon().button(304);
    ASSERT_NE(button, nullptr);
    QMenu* const targets = button->menu() != nullptr ? button->menu() : button->defaultAction()->menu();
    targets->popup(QPoint());
    settle();
    EXPECT_EQ(captions(*targets),
              QStringList({"Send a Message to", "Everyone", "Favorites", "Select Recipients", "My Groups",
                           "Lab & more", "Create Group"}));
    choose(*targets, "Lab & more");
    EXPECT_EQ(asked.requests.back().page, 463);
    for (const auto& [command, mode] : {std::pair(451, 0), std::pair(452, 2), std::pair(453, 1)}) {
        me().commands.Execute(command);
        EXPECT_EQ(asked.requests.back().page, mode);
    }
}

// The list moves under an open menu: what is chosen is still for the row it was opened on.
TEST_F(MainWindowDrive, AnotherAlertByTheMouseGoesToTheRowOfTheMenu) {
    CommandMenu* const menu = menuOf("Room 3");
    ASSERT_NE(menu, nullptr);
    home().selectRecord(me().views.rptEndpoints.at(me().views.Active_FindSID(world[1]->own.SID)));
    QTest::keyClicks(menu->textBox(404), "line 2");
    choose(*menu, "Phone Call");
    world.run(1);
    ASSERT_TRUE(world[2].desktop.popups[1]);
    EXPECT_EQ(world[2].desktop.popups[1]->label, "Phone Call");
    EXPECT_EQ(world[2].desktop.popups[1]->text, "line 2");
    EXPECT_FALSE(world[1].desktop.popups[1]);
}

TEST_F(MainWindowDrive, StatusByQuickBarAndTurnedOffByItsBar) {
    MessageBar& own = bar("MyStatusBar");
    EXPECT_FALSE(own.isVisible());
    QToolButton* const quick = quickBar().button(201);
    ASSERT_NE(quick, nullptr);
    EXPECT_EQ(quick->accessibleName(), "Away");
    click(*quick);
    click(*quick); // in haste
    EXPECT_EQ(me().own.status, "Away for a walk");
    EXPECT_TRUE(quick->isChecked());
    EXPECT_TRUE(own.isVisible());
    EXPECT_EQ(own.content().text, "Away for a walk");
    world.run(1);
    EXPECT_TRUE(shownTexts(home(), kStatus).contains("Away for a walk"));
    const ReportRecord* const seen = world[1]->views.rptEndpoints.find(me().own.SID);
    ASSERT_NE(seen, nullptr);
    EXPECT_EQ(GetCurrentStatus(*seen), "Away for a walk");

    click(*own.findChild<QPushButton*>());
    EXPECT_EQ(me().own.status, "");
    EXPECT_FALSE(own.isVisible());
    EXPECT_FALSE(quick->isChecked());
    world.run(1);
    EXPECT_EQ(GetCurrentStatus(*seen), "");
}

TEST_F(MainWindowDrive, AlertBarShowsAndCloses) {
    MessageBar& alert = bar("AlertBar");
    EXPECT_FALSE(alert.isVisible());
    world[1]->alerts.sendToOne(QuickAlert::Urgent, me().own.SID, "<b>help</b>");
    world.run(1);
    settle();
    ASSERT_TRUE(alert.isVisible());
    EXPECT_EQ(alert.content().text, "<b>help</b>");
    EXPECT_EQ(alert.content().name, "Room 2");
    click(*alert.findChild<QPushButton*>());
    EXPECT_FALSE(alert.isVisible());
    EXPECT_FALSE(me().alertBar.AlertBarShown());
}

TEST_F(MainWindowDrive, ChangesViewsByKeyboardAndMouse) {
    home().setFocus();
    key(home(), Qt::Key_PageDown, Qt::ControlModifier);
    EXPECT_EQ(me().shell.view(), View::Status);
    EXPECT_TRUE(form->stack()->current().hasFocus()) << "the list can be used at once";
    EXPECT_EQ(search().prompt(), "Search Status");
    EXPECT_EQ(ribbon().currentTab(), 351);

    openTab(352);
    EXPECT_EQ(me().shell.view(), View::Favorites);
    EXPECT_EQ(search().prompt(), "Search Favorites");
    EXPECT_EQ(form->stack()->currentWidget(), &form->stack()->list(View::Favorites));
    openTab(353);
    EXPECT_EQ(search().prompt(), "Search Messages");
    EXPECT_TRUE(form->stack()->current().hasFocus());
}

// F5 sets a status, so it must not announce; the bell stands at the foot as soon as it is wanted.
TEST_F(MainWindowDrive, KeysPanesAndTabsAreAsTheUserSetThem) {
    world.network.sent.clear();
    key(home(), Qt::Key_F5);
    EXPECT_TRUE(world.network.sent.empty());
    key(home(), Qt::Key_R, Qt::ControlModifier);
    EXPECT_FALSE(world.network.sent.empty());

    const QAction* const bell = form->commands()->find(112);
    EXPECT_FALSE(bell->isVisible());
    me().shell.setDoorbellOffered(true);
    EXPECT_TRUE(bell->isVisible());
    QTest::qWait(kSettleMs);
    EXPECT_EQ(form->commands()->find(350)->text(), "Home (3)");
}

// A search that outlived its view would hide rows without a word.
TEST_F(MainWindowDrive, SearchEndsWithTheView) {
    QTest::keyClick(form.get(), Qt::Key_F, Qt::ControlModifier);
    settle();
    ASSERT_TRUE(search().hasFocus());
    EXPECT_EQ(search().text(), "");
    QTest::keyClicks(&search(), "oom 3");
    EXPECT_EQ(shownTexts(home(), kName), QStringList({"Room 3"}));
    openTab(351);
    openTab(350);
    EXPECT_EQ(shownTexts(home(), kName).size(), 3);
    EXPECT_EQ(search().prompt(), "Search");

    search().setFocus();
    QTest::keyClicks(&search(), "Search");
    EXPECT_EQ(shownTexts(home(), kName).size(), 3) << "the prompt itself is no search";
    QTest::keyClicks(&search(), "x");
    EXPECT_EQ(shownTexts(home(), kName).size(), 0);
    QTest::keyClick(&search(), Qt::Key_Escape);
    QTest::keyClicks(&search(), "2");
    key(search(), Qt::Key_Return);
    EXPECT_TRUE(home().hasFocus()) << "Enter goes on to what was found";
}

// What the user set up is there again the next morning.
TEST_F(MainWindowDrive, ComesBackAsItWas) {
    form->move(form->pos() + QPoint(30, 20));
    form->resize(520, 500);
    settle();
    const QPoint there = form->pos();
    openTab(352);
    click(*panes().button(800));
    form->commands()->find(762)->trigger();
    form->SaveFormPosition();
    form.reset();

    build();
    EXPECT_EQ(form->pos(), there);
    EXPECT_EQ(form->size(), QSize(520, 500));
    EXPECT_EQ(ribbon().currentTab(), 352);
    EXPECT_EQ(search().prompt(), "Search Favorites");
    EXPECT_EQ(home().fontSize(), 11);
    EXPECT_TRUE(form->commands()->find(762)->isChecked());
}

TEST_F(MainWindowDrive, WhatTakesTheFocusHasAName) {
    me().status.SetCustomStatus("Busy");
    world[1]->alerts.sendToOne(QuickAlert::DoorBell, me().own.SID, "come");
    world.run(1);
    settle();
    int named = 0;
    for (QWidget* const widget : form->findChildren<QWidget*>()) {
        if (!widget->isVisible() || (widget->focusPolicy() & Qt::TabFocus) == 0) {
            continue;
        }
        QAccessibleInterface* const face = QAccessible::queryAccessibleInterface(widget);
        ASSERT_NE(face, nullptr);
        const QString name = face->text(QAccessible::Name);
        EXPECT_FALSE(name.trimmed().isEmpty())
            << widget->metaObject()->className() << ' ' << widget->objectName().toStdString();
        ++named;
    }
    EXPECT_GT(named, 4);
}

// Two keys alike reach neither command.
TEST_F(MainWindowDrive, NoMnemonicTwice) {
    const auto mnemonic = [](const QString& text) { return QKeySequence::mnemonic(text).toString(); };
    QMap<QString, QString> onWindow;
    const auto take = [](QMap<QString, QString>& keys, const QString& key, const QString& text) {
        if (!key.isEmpty()) {
            EXPECT_FALSE(keys.contains(key))
                << key.toStdString() << ": " << keys.value(key).toStdString() << ", " << text.toStdString();
            keys[key] = text;
        }
    };
    for (const QToolButton* const button : form->findChildren<QToolButton*>()) {
        if (button->isVisible()) {
            take(onWindow, mnemonic(button->text()), button->text());
        }
    }
    EXPECT_TRUE(onWindow.contains("Alt+S")) << "the menu of the program";
    QMap<QString, QString> inMenu;
    for (const int id : {102, 110, 120, 121, 100}) {
        const QAction* const action = form->commands()->find(id);
        ASSERT_NE(action, nullptr);
        take(inMenu, mnemonic(action->text()), action->text());
    }
}

// Nobody hears of an alert whose bar is under other windows, or of anything while do not disturb is
// forgotten.
TEST_F(MainWindowDrive, WhatMustNotBeForgottenStaysInSight) {
    auto* const mark = form->findChild<QToolButton*>(QStringLiteral("DoNotDisturbMark"));
    ASSERT_NE(mark, nullptr);
    EXPECT_FALSE(mark->isVisible());
    me().status.SetDND();
    settle();
    EXPECT_TRUE(mark->isVisible());
    click(*mark);
    EXPECT_FALSE(me().own.doNotDisturb);
    EXPECT_FALSE(mark->isVisible());

    const Tray tray(me(), [](int) { return QIcon(); });
    EXPECT_EQ(tray.tip(), "Tessel Status");
    me().alertBar.CreateMessagebarAlert("DoorBell:", "Please <b>come", "Room <i>2", 0);
    EXPECT_EQ(tray.tip(), QString::fromUtf8("Tessel Status \u2013 DoorBell: Room \u2039i>2"));
    me().alertBar.TurnOff_AlertBar();
    EXPECT_EQ(tray.tip(), "Tessel Status");
}

// Who looks for a free room finds it by one click, and a low window still shows its list.
TEST_F(MainWindowDrive, NarrowsToTheFreeAndFoldsByHeight) {
    emit home().stateHeaderClicked(form->mapToGlobal(QPoint(20, 100)));
    auto* const menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    ASSERT_NE(menu, nullptr);
    choose(*menu, "Occupied");
    EXPECT_EQ(search().text(), "occupied");
    EXPECT_EQ(home().shownCount(), 0);
    form->activateWindow();
    home().setFocus();
    settle();
    key(home(), Qt::Key_Escape);
    EXPECT_EQ(home().shownCount(), 3);

    form->resize(480, 720);
    settle();
    const int full = ribbon().height();
    form->resize(480, 680);
    settle();
    EXPECT_LT(ribbon().height(), full);
    EXPECT_FALSE(ribbon().isMinimised());
    form->resize(300, 320);
    settle();
    EXPECT_TRUE(ribbon().isMinimised());
    me().alertBar.CreateMessagebarAlert("Urgent:", "Help", "Room 2", 2);
    settle();
    EXPECT_GE(home().viewport()->height(), 3 * home().visualRect(home().model()->index(0, 1)).height());
    key(home(), Qt::Key_Escape);
    EXPECT_FALSE(me().alertBar.AlertBarShown());
    form->resize(480, 720);
    settle();
    EXPECT_EQ(ribbon().height(), full);
}
