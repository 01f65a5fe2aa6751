#include "controls/bars/Ribbon.h"

#include "controls/bars/CommandBars.h"
#include "controls/bars/QuickBar.h"

#include <QAccessible>
#include <QAction>
#include <QApplication>
#include <QLineEdit>
#include <QMenu>
#include <QSignalSpy>
#include <QTest>
#include <QVBoxLayout>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>

using namespace tessel;
using testing::ElementsAre;
using testing::UnorderedElementsAre;

namespace {

enum Id {
    kQuit = 1,
    kOptions,
    kStatus = 10,
    kQuiet,
    kNote,
    kRing,
    kWrite,
    kSnippets,
    kFresh,
    kOnTop,
    kHome = 50,
    kLists,
    kInbox
};

std::vector<CommandItem> items() {
    return {{kQuit, "ShutDown"},
            {kOptions, "Opt&ions"},
            {kStatus, "Set your &Status", {}, 1},
            {kQuiet, "DND", "Do Not Disturb", 2, true},
            {kNote, "Set Location &Note", {}, 3},
            {kRing, "Ring Doorbell", {}, 4},
            {kWrite, "New Message", {}, 5, false, true},
            {kSnippets, "Manage Snippets", {}, 6},
            {kFresh, "&Refresh", {}, 7},
            {kOnTop, "Always OnTop", {}, 8, true},
            {kHome, "Home "},
            {kLists, "Favorites "},
            {kInbox, "Inbox "}};
}

RibbonPlan plan() {
    return {"&File",
            {kOptions, kMenuSeparator, kQuit},
            {kHome, kLists, kInbox},
            {{kAllTabs,
              {{"My status", {{kStatus, true}, {kQuiet}, {kNote}}},
               {"Alerts", {{kRing, true}, {kWrite, true}, {kSnippets}}}}},
             {kHome, {{"Station", {{kFresh}, {kOnTop}}}}}}};
}

struct Window {
    explicit Window(int width = 1000) {
        auto* const layout = new QVBoxLayout(&window);
        layout->setContentsMargins(0, 0, 0, 0);
        layout->addWidget(&before);
        layout->addWidget(&ribbon);
        layout->addWidget(&after);
        window.resize(width, 300);
        window.show();
        window.activateWindow();
        before.setFocus();
        QApplication::processEvents();
        QObject::connect(&commands, &CommandSet::triggered, &window, [this](int id) { told.push_back(id); });
    }

    void widen(int width) {
        window.resize(width, 300);
        QApplication::processEvents();
    }
    void key(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
        QTest::keyClick(QApplication::focusWidget(), key, modifiers);
        QApplication::processEvents();
    }
    int focused() const {
        const auto* const at = qobject_cast<CommandButton*>(QApplication::focusWidget());
        return at != nullptr ? at->id() : -1;
    }
    std::vector<CommandButton*> shown() const {
        std::vector<CommandButton*> all;
        for (CommandButton* button : ribbon.findChildren<CommandButton*>()) {
            if (button->isVisible()) {
                all.push_back(button);
            }
        }
        return all;
    }
    QRect place(const CommandButton* button) const {
        return {button->mapTo(&ribbon, QPoint()), button->size()};
    }
    // The captions in the menus that lead to what has no room, as they read.
    QStringList inMenus() const {
        QStringList captions;
        for (CommandButton* const button : shown()) {
            if (!button->accessibleName().startsWith("More")) {
                continue;
            }
            button->click();
            auto* const menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
            if (menu == nullptr) {
                ADD_FAILURE() << "no menu";
                continue;
            }
            for (const QAction* action : menu->actions()) {
                if (action->isVisible() && !action->isSeparator() && !action->font().bold()) {
                    captions.append(spokenCaption(action->text()));
                }
            }
            menu->close();
        }
        return captions;
    }

    CommandSet commands{items()};
    std::vector<int> told;
    QWidget window;
    QLineEdit before;
    Ribbon ribbon{commands, plan()};
    QLineEdit after;
};

class Font {
public:
    explicit Font(int points) : m_before(QApplication::font()) {
        QFont font = m_before;
        font.setPointSize(points);
        QApplication::setFont(font);
    }
    ~Font() { QApplication::setFont(m_before); }

private:
    QFont m_before;
};

} // namespace

// --- room ----------------------------------------------------------------------------------------

// A command that neither shows nor stands in a menu is lost in a small window.
TEST(Ribbon, EveryCommandIsReachableAtAnyWidth) {
    for (const int points : {8, 10, 20}) {
        const Font font(points);
        Window w;
        for (const bool minimised : {false, true}) {
            w.ribbon.setMinimised(minimised);
            w.ribbon.setCurrentTab(minimised ? kInbox : kHome);
            for (int width = 280; width <= 1600; width += 23) {
                w.widen(width);
                SCOPED_TRACE(testing::Message() << points << " points, " << width << " wide, " << minimised);
                ASSERT_EQ(w.ribbon.width(), width) << "it keeps the window wide";
                QStringList names = w.inMenus();
                const auto shown = w.shown();
                for (const CommandButton* button : shown) {
                    const QRect box = w.place(button);
                    EXPECT_TRUE(w.ribbon.rect().contains(box)) << button->accessibleName().toStdString();
                    EXPECT_GE(box.width(), button->sizeHint().width() * (button->isCurrent() ? 2 : 3) / 3);
                    for (const CommandButton* other : shown) {
                        EXPECT_TRUE(other == button || !box.intersects(w.place(other)))
                            << button->accessibleName().toStdString() << " lies on "
                            << other->accessibleName().toStdString();
                    }
                    if (button->id() != 0) {
                        names.append(button->accessibleName());
                    }
                }
                names.sort();
                QStringList all;
                for (const CommandItem& item : items()) {
                    const bool otherPage = minimised && (item.id == kFresh || item.id == kOnTop);
                    if (item.id >= kStatus && !otherPage) {
                        all.append(spokenCaption(item.caption));
                    }
                }
                all.sort();
                ASSERT_EQ(names.join('|').toStdString(), all.join('|').toStdString());
            }
        }
    }
}

TEST(Ribbon, GroupsGiveWayFromTheLast) {
    const std::vector<GroupWidths> groups{{100, 80, 40, 0}, {60, 90, 30, 0}, {200, 120, 40, 0}};
    using enum GroupForm;
    EXPECT_THAT(fitGroups(groups, 360, 20), ElementsAre(Full, Full, Full));
    EXPECT_THAT(fitGroups(groups, 359, 20), ElementsAre(Full, Full, Small));
    EXPECT_THAT(fitGroups(groups, 260, 20), ElementsAre(Small, Full, Small)) << "a wider form helps nobody";
    EXPECT_THAT(fitGroups(groups, 110, 20), ElementsAre(Icons, Icons, Icons));
    EXPECT_THAT(fitGroups(groups, 109, 20), ElementsAre(Icons, Icons, Hidden));
    EXPECT_THAT(fitGroups(groups, 20, 20), ElementsAre(Hidden, Hidden, Hidden));
}

// Rights and modes hide commands; holes would tell of it.
TEST(Ribbon, HiddenCommandsLeaveNoGapsAndNoEmptyGroups) {
    Window w;
    const QRect alerts = w.place(w.ribbon.button(kRing));
    const QRect quiet = w.place(w.ribbon.button(kQuiet));
    w.commands.setVisible(kQuiet, false);
    QApplication::processEvents();
    EXPECT_EQ(w.place(w.ribbon.button(kNote)).topLeft(), quiet.topLeft());
    EXPECT_FALSE(w.ribbon.button(kQuiet)->isVisible());

    w.commands.setVisible(kStatus, false);
    w.commands.setVisible(kNote, false);
    w.commands.setVisible(kLists, false);
    QApplication::processEvents();
    EXPECT_EQ(w.place(w.ribbon.button(kRing)).top(), alerts.top());
    EXPECT_LT(w.place(w.ribbon.button(kRing)).left(), 10);
    EXPECT_EQ(w.place(w.ribbon.button(kInbox)).left(), w.place(w.ribbon.button(kHome)).right() + 1);

    w.widen(280);
    EXPECT_FALSE(w.inMenus().contains("DND"));
    w.widen(1000);
    w.commands.setVisible(kQuiet, true);
    QApplication::processEvents();
    EXPECT_TRUE(w.ribbon.button(kQuiet)->isVisible());
    EXPECT_GT(w.place(w.ribbon.button(kRing)).left(), w.place(w.ribbon.button(kQuiet)).right());
}

// --- keyboard ------------------------------------------------------------------------------------

TEST(Ribbon, IsOneStopOfTheTabKeyAndEscapeLeadsBack) {
    Window w;
    w.key(Qt::Key_Tab);
    EXPECT_EQ(w.focused(), kHome);
    w.key(Qt::Key_Down);
    const int inside = w.focused();
    EXPECT_NE(inside, kHome);
    w.key(Qt::Key_Tab);
    EXPECT_TRUE(w.after.hasFocus());
    w.key(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_EQ(w.focused(), inside) << "it comes back to where it was";
    w.key(Qt::Key_Escape);
    EXPECT_TRUE(w.after.hasFocus());

    // Buttons of another page are made later than the field behind the ribbon.
    w.ribbon.setCurrentTab(kInbox);
    w.ribbon.setCurrentTab(kHome);
    w.ribbon.takeFocus();
    w.key(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_TRUE(w.before.hasFocus());
}

TEST(Ribbon, ArrowsReachEveryButtonAndEnterAndSpacePress) {
    for (const int width : {280, 460, 1000}) {
        Window w(width);
        w.commands.setEnabled(kSnippets, false);
        w.ribbon.takeFocus();
        std::set<QWidget*> seen{QApplication::focusWidget()};
        std::vector<QWidget*> open{QApplication::focusWidget()};
        while (!open.empty()) {
            QWidget* const from = open.back();
            open.pop_back();
            for (const auto key : {Qt::Key_Left, Qt::Key_Right, Qt::Key_Up, Qt::Key_Down}) {
                from->setFocus();
                w.key(key);
                if (seen.insert(QApplication::focusWidget()).second) {
                    open.push_back(QApplication::focusWidget());
                }
            }
        }
        for (CommandButton* button : w.shown()) {
            EXPECT_EQ(seen.count(button) == 1, button->isEnabled())
                << width << ": " << button->accessibleName().toStdString();
        }
        EXPECT_THAT(w.told, ElementsAre()) << "looking is not pressing";
    }
    Window w;
    w.ribbon.button(kRing)->setFocus();
    w.key(Qt::Key_Return);
    w.key(Qt::Key_Space);
    EXPECT_THAT(w.told, ElementsAre(kRing, kRing));
}

// What is hidden or turned grey under the keyboard must not throw it out of the ribbon, or lose it.
TEST(Ribbon, TheKeyboardStaysWhenItsButtonGoes) {
    Window w;
    w.ribbon.button(kRing)->setFocus();
    w.widen(280);
    w.widen(1000);
    EXPECT_TRUE(w.ribbon.isAncestorOf(QApplication::focusWidget()));
    w.ribbon.button(kRing)->setFocus();
    w.commands.setVisible(kRing, false);
    QApplication::processEvents();
    EXPECT_TRUE(w.ribbon.isAncestorOf(QApplication::focusWidget()));
    w.ribbon.button(kFresh)->setFocus();
    w.commands.setEnabled(kFresh, false);
    EXPECT_TRUE(w.ribbon.isAncestorOf(QApplication::focusWidget()));
    w.ribbon.button(kOnTop)->setFocus();
    w.ribbon.setCurrentTab(kInbox);
    EXPECT_EQ(w.focused(), kInbox);
    w.key(Qt::Key_Escape);
    EXPECT_TRUE(w.before.hasFocus());
}

TEST(Ribbon, MnemonicsPressWhatHasNoRoomToo) {
    Window w;
    w.key(Qt::Key_N, Qt::AltModifier);
    w.widen(280);
    w.ribbon.setMinimised(true);
    w.key(Qt::Key_R, Qt::AltModifier);
    EXPECT_THAT(w.told, ElementsAre(kNote, kFresh));
    EXPECT_TRUE(w.before.hasFocus()) << "typing goes on where it was";

    w.told.clear();
    w.commands.setCaption(kNote, "Note a&bout me");
    w.commands.setEnabled(kFresh, false);
    w.commands.setVisible(kStatus, false);
    QApplication::processEvents();
    for (const auto key : {Qt::Key_N, Qt::Key_R, Qt::Key_S, Qt::Key_B}) {
        w.key(key, Qt::AltModifier);
    }
    EXPECT_THAT(w.told, ElementsAre(kNote));
}

// Two commands with the same letter: neither may be pressed by chance.
TEST(Ribbon, SharedMnemonicsLeadToEachInTurn) {
    Window w;
    w.commands.setCaption(kRing, "&Note by bell");
    QApplication::processEvents();
    w.key(Qt::Key_N, Qt::AltModifier);
    const int first = w.focused();
    w.key(Qt::Key_N, Qt::AltModifier);
    EXPECT_THAT((std::vector{first, w.focused()}), UnorderedElementsAre(kNote, kRing));
    EXPECT_THAT(w.told, ElementsAre());
}

TEST(Ribbon, TheSystemMenuOpensByKeyAndTellsItsCommands) {
    Window w;
    w.key(Qt::Key_F, Qt::AltModifier);
    auto* const menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    ASSERT_NE(menu, nullptr);
    ASSERT_NE(menu->activeAction(), nullptr);
    EXPECT_EQ(menu->activeAction()->text(), "Opt&ions");
    QTest::keyClick(menu, Qt::Key_Down);
    QTest::keyClick(menu, Qt::Key_Return);
    EXPECT_THAT(w.told, ElementsAre(kQuit));
}

// --- tabs ----------------------------------------------------------------------------------------

TEST(Ribbon, KeysGoThroughTheTabsAndPastHiddenOnes) {
    Window w(280);
    w.commands.setVisible(kLists, false);
    QApplication::processEvents();
    w.key(Qt::Key_PageDown, Qt::ControlModifier);
    EXPECT_EQ(w.ribbon.currentTab(), kInbox);
    EXPECT_TRUE(w.ribbon.button(kInbox)->isVisible()) << "the current tab always has room";
    w.key(Qt::Key_PageDown, Qt::ControlModifier);
    w.key(Qt::Key_PageUp, Qt::ControlModifier);
    EXPECT_THAT(w.told, ElementsAre(kInbox, kHome, kInbox));
    EXPECT_EQ(w.ribbon.button(kFresh)->isVisible(), false) << "of the other page";

    w.told.clear();
    w.ribbon.setCurrentTab(kHome);
    EXPECT_THAT(w.told, ElementsAre()) << "an owner that says so need not be told";
    w.ribbon.setTabKeys(Qt::CTRL | Qt::Key_1, Qt::CTRL | Qt::Key_2);
    w.key(Qt::Key_PageDown, Qt::ControlModifier);
    w.key(Qt::Key_2, Qt::ControlModifier);
    EXPECT_THAT(w.told, ElementsAre(kInbox));
}

TEST(Ribbon, IsMinimisedByTheCurrentTabOrByKey) {
    Window w;
    QSignalSpy told(&w.ribbon, &Ribbon::minimisedChanged);
    const int height = w.ribbon.height();
    const auto doubleClick = [&](int id) {
        // As the mouse does it: the second press comes as a double click.
        QTest::mouseClick(w.ribbon.button(id), Qt::LeftButton);
        QTest::mouseDClick(w.ribbon.button(id), Qt::LeftButton);
        QApplication::processEvents();
    };
    doubleClick(kHome);
    EXPECT_TRUE(w.ribbon.isMinimised());
    EXPECT_LT(w.ribbon.height(), height / 2);
    EXPECT_FALSE(w.ribbon.button(kRing)->isVisible());
    w.key(Qt::Key_F1, Qt::ControlModifier);
    EXPECT_FALSE(w.ribbon.isMinimised());
    EXPECT_EQ(w.ribbon.height(), height);
    EXPECT_EQ(told.count(), 2);
    w.ribbon.setMinimised(false);
    EXPECT_EQ(told.count(), 2);
    doubleClick(kLists);
    EXPECT_FALSE(w.ribbon.isMinimised()) << "many click twice where once is enough";
    EXPECT_EQ(w.ribbon.currentTab(), kLists);
}

// --- what shows ----------------------------------------------------------------------------------

TEST(Ribbon, ACommandIsSetOnceForAllBarsAndAPressDoesNotToggleIt) {
    Window w;
    QuickBar quick(w.commands, {kQuiet, kRing});
    quick.resize(300, 30);
    quick.show();
    QTest::mouseClick(w.ribbon.button(kQuiet), Qt::LeftButton);
    EXPECT_THAT(w.told, ElementsAre(kQuiet));
    EXPECT_FALSE(w.ribbon.button(kQuiet)->isChecked()) << "its owner may have refused";

    const QImage before = quick.button(kQuiet)->grab().toImage();
    w.commands.setChecked(kQuiet, true);
    w.commands.setCaption(kRing, plainCaption("R&D\n<b>bell</b>"));
    w.commands.setEnabled(kRing, false);
    for (CommandBar* bar : {static_cast<CommandBar*>(&w.ribbon), static_cast<CommandBar*>(&quick)}) {
        EXPECT_TRUE(bar->button(kQuiet)->isChecked());
        EXPECT_FALSE(bar->button(kRing)->isEnabled());
        EXPECT_EQ(bar->button(kRing)->accessibleName(), "R&D <b>bell</b>");
    }
    // Somebody who sees no colours sees a shape.
    const auto gray = [](const QImage& image) { return image.convertToFormat(QImage::Format_Grayscale8); };
    const QImage after = gray(quick.button(kQuiet)->grab().toImage());
    int different = 0;
    for (int x = 0; x < after.width(); ++x) {
        const int foot = after.height() - 3;
        different += std::abs(qGray(after.pixel(x, foot)) - qGray(before.pixel(x, foot))) > 60;
    }
    EXPECT_GT(different, after.width() / 2);

    w.widen(280);
    w.ribbon.setMinimised(true);
    EXPECT_TRUE(w.inMenus().contains("R&D <b>bell</b>"));
    w.key(Qt::Key_D, Qt::AltModifier);
    EXPECT_EQ(w.told.size(), 1U) << "a text from outside is no mnemonic";
}

TEST(Ribbon, TellsAScreenReaderWhatItIs) {
    Window w;
    w.commands.setChecked(kOnTop, true);
    const auto access = [](QObject* object) { return QAccessible::queryAccessibleInterface(object); };
    const auto* const tab = access(w.ribbon.button(kLists));
    EXPECT_EQ(tab->role(), QAccessible::PageTab);
    EXPECT_EQ(tab->text(QAccessible::Name), "Favorites");
    EXPECT_FALSE(tab->state().selected);
    EXPECT_EQ(tab->parent()->role(), QAccessible::PageTabList);
    EXPECT_TRUE(access(w.ribbon.button(kHome))->state().selected);
    EXPECT_EQ(access(&w.ribbon)->role(), QAccessible::ToolBar);

    auto* const check = access(w.ribbon.button(kOnTop));
    EXPECT_EQ(check->role(), QAccessible::Button);
    EXPECT_TRUE(check->state().checked && check->state().checkable && check->state().focusable);
    EXPECT_EQ(check->parent()->text(QAccessible::Name), "Station");
    EXPECT_EQ(access(w.ribbon.button(kWrite))->role(), QAccessible::ButtonMenu);
    EXPECT_EQ(access(w.ribbon.button(kQuiet))->text(QAccessible::Description), "Do Not Disturb");
    check->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_THAT(w.told, ElementsAre(kOnTop));
    EXPECT_TRUE(check->state().checked);
}

// The first picture of the window would wait for all icons to be drawn.
TEST(Ribbon, AsksForNoIconBeforeItHasBeenPainted) {
    CommandSet commands(items());
    int asked = 0;
    commands.setIconProvider([&asked](int) {
        ++asked;
        QPixmap picture(16, 16);
        picture.fill(Qt::red);
        return QIcon(picture);
    });
    Ribbon ribbon(commands, plan());
    ribbon.resize(900, 130);
    ribbon.ensurePolished();
    QApplication::processEvents();
    EXPECT_EQ(asked, 0);
    ribbon.grab();
    EXPECT_EQ(asked, 0);
    QApplication::processEvents();
    EXPECT_EQ(asked, 8);
    EXPECT_FALSE(commands.find(kRing)->icon().isNull());
}
