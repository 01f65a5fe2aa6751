#include "controls/bars/CommandMenu.h"

#include "controls/bars/CommandBars.h"

#include <QAction>
#include <QApplication>
#include <QLineEdit>
#include <QSignalSpy>
#include <QTest>

#include <gtest/gtest.h>

using namespace tessel;

namespace {

enum Id { kSend = 402, kRing = 404, kCall = 405, kMark = 411, kGone = 499 };

struct Menu {
    Menu() {
        menu.setEntries(
            {MenuEntry::heading("Room 3 & <b>Lab</b>"), MenuEntry::textBox(kSend, {"Message", 20}),
             MenuEntry::command(kSend), MenuEntry::separator(), MenuEntry::command(kGone),
             MenuEntry::command(kRing), MenuEntry::command(kMark),
             MenuEntry::subMenu("Snippets & more", {MenuEntry::command(kCall, "Call & wait", "Call"),
                                                    MenuEntry::command(900, "Of no set")})});
        window.show();
        window.activateWindow();
        menu.popup(window.mapToGlobal(QPoint()));
        QApplication::processEvents();
    }
    // Keys go to what has the keyboard in the menu.
    void key(Qt::Key key) {
        QWidget* const at = menu.focusWidget() != nullptr ? menu.focusWidget() : &menu;
        QTest::keyClick(at, key);
        QApplication::processEvents();
    }
    QAction* entry(const QString& caption) const {
        for (QAction* action : menu.findChildren<QAction*>()) {
            if (spokenCaption(action->text()) == caption) {
                return action;
            }
        }
        return nullptr;
    }
    QString last() const {
        return told.isEmpty()
                   ? QString()
                   : QStringLiteral("%1 %2").arg(told.last()[0].toInt()).arg(told.last()[1].toString());
    }

    QWidget window;
    CommandSet commands{
        {{kSend, "&Message"}, {kRing, "Doorbell"}, {kCall, "Phone"}, {kMark, "Marked", {}, -1, true}}};
    CommandMenu menu{commands, &window};
    QSignalSpy told{&menu, qOverload<int, const QString&>(&CommandMenu::triggered)};
};

} // namespace

// Names and snippets come from outside.
TEST(CommandMenu, TextsOfOthersShowAsTheyAre) {
    const Menu m;
    const QAction* const heading = m.menu.actions().first();
    EXPECT_EQ(heading->text(), "Room 3 && <b>Lab</b>");
    EXPECT_FALSE(heading->isEnabled());
    ASSERT_NE(m.entry("Snippets & more"), nullptr);
    EXPECT_EQ(m.entry("Call & wait")->text(), "Call && wait");
    EXPECT_EQ(m.entry("Message")->text(), "&Message") << "our own captions keep their mnemonics";
    EXPECT_EQ(m.menu.actions().size(), 7) << "a command that nobody knows has no entry";

    Menu longer;
    longer.menu.setEntries(
        {MenuEntry::heading(QString(100000, 'm') + "\t\n"), MenuEntry::command(9, QString(90, '&'))});
    EXPECT_LT(longer.menu.sizeHint().width(), 1600);
}

TEST(CommandMenu, TypedTextGoesWithWhateverIsChosen) {
    {
        Menu m;
        EXPECT_EQ(QApplication::activePopupWidget(), &m.menu);
        ASSERT_EQ(m.menu.focusWidget(), m.menu.textBox(kSend)) << "one may type at once";
        QTest::keyClicks(m.menu.focusWidget(), "come, please, room 3 is free");
        m.key(Qt::Key_Return);
        EXPECT_EQ(m.last(), "402 come, please, room 3");
        EXPECT_FALSE(m.menu.isVisible());
        EXPECT_EQ(m.told.count(), 1);
    }
    {
        Menu m;
        QTest::keyClicks(m.menu.focusWidget(), "hi");
        m.key(Qt::Key_Down);
        m.key(Qt::Key_Down);
        EXPECT_EQ(m.menu.activeAction(), m.entry("Doorbell"));
        m.key(Qt::Key_Return);
        EXPECT_EQ(m.last(), "404 hi");
    }
    {
        Menu m;
        QTest::keyClicks(m.menu.focusWidget(), "hi");
        m.entry("Call & wait")->trigger();
        EXPECT_EQ(m.last(), "405 Call");
        m.entry("Of no set")->trigger();
        EXPECT_EQ(m.last(), "900 hi");
    }
}

// The key that opened the menu, still held, must not choose; a prefix takes no room from the text.
TEST(CommandMenu, AnEmptyLineChoosesNothingAndAPrefixDoesNotCount) {
    Menu m;
    QTest::keyClicks(m.menu.focusWidget(), "  ");
    m.key(Qt::Key_Return);
    EXPECT_EQ(m.told.count(), 0);
    EXPECT_TRUE(m.menu.isVisible());
    m.entry("Doorbell")->trigger();
    EXPECT_EQ(m.last().trimmed(), "404") << "an entry sends no text as well";

    m.menu.setEntries({MenuEntry::textBox(kSend, {"Message", 5, "g:"})});
    QLineEdit& box = *m.menu.textBox(kSend);
    QTest::keyClicks(&box, "1234567");
    EXPECT_EQ(box.text(), "12345");
    box.clear();
    QTest::keyClicks(&box, "G:1234567");
    EXPECT_EQ(box.text(), "G:12345");
    QTest::keyClick(&box, Qt::Key_Home);
    QTest::keyClick(&box, Qt::Key_Delete);
    EXPECT_EQ(box.text(), ":1234");
}

TEST(CommandMenu, FollowsTheSetAndLeavesItsChecksAlone) {
    Menu m;
    m.commands.setEnabled(kSend, false);
    m.key(Qt::Key_Return);
    EXPECT_EQ(m.told.count(), 0) << "a grey command is not chosen by Enter in the box";
    EXPECT_FALSE(m.entry("Message")->isEnabled());
    m.commands.setChecked(kMark, true);
    EXPECT_TRUE(m.entry("Marked")->isChecked());
    QSignalSpy set(&m.commands, &CommandSet::triggered);
    m.entry("Marked")->trigger();
    EXPECT_EQ(m.last(), "411 ");
    EXPECT_TRUE(m.entry("Marked")->isChecked());
    EXPECT_EQ(set.count(), 0) << "a press told twice is done twice";
    m.commands.setVisible(kRing, false);
    EXPECT_FALSE(m.entry("Doorbell")->isVisible());
}

TEST(CommandMenu, EachLineGoesWithTheEntriesBelowIt) {
    Menu m;
    const auto fill = [&m] {
        m.menu.hide();
        m.menu.setEntries(
            {MenuEntry::textBox(
                 kSend,
                 {"Message", 20, "g:", [](const QString& text) { return QString(text).replace("<b", "< b"); },
                  [](const QString& text) { return text.contains("|") ? "cut & gone" : QString(); }}),
             MenuEntry::command(kSend),
             MenuEntry::subMenu("Snippets ",
                                {MenuEntry::phrase("Thank & you"), MenuEntry::phrase(QString(90, 'x'))}),
             MenuEntry::textBox(kRing, {"Alert", 5}), MenuEntry::command(kRing)});
        m.menu.popup(QPoint());
        QApplication::processEvents();
    };
    fill();
    QTest::keyClicks(m.menu.textBox(kSend), "hello");
    QTest::keyClicks(m.menu.textBox(kRing), "ring");
    m.entry("Doorbell")->trigger();
    EXPECT_EQ(m.last(), "404 ring");
    m.entry("Message")->trigger();
    EXPECT_EQ(m.last(), "402 hello");
    m.key(Qt::Key_Tab);
    m.key(Qt::Key_Down);
    m.key(Qt::Key_Down);
    ASSERT_EQ(m.menu.focusWidget(), m.menu.textBox(kRing));
    m.key(Qt::Key_Return);
    EXPECT_EQ(m.last(), "404 ring");
    EXPECT_FALSE(m.menu.isVisible());

    // A phrase is put behind what stands in its line; by key and by mouse the menu stays open.
    fill();
    auto* const sub = m.menu.findChild<QMenu*>(QString(), Qt::FindDirectChildrenOnly);
    ASSERT_NE(sub, nullptr);
    QTest::keyClicks(m.menu.textBox(kSend), "Yes.");
    sub->popup(QPoint(300, 0));
    sub->setActiveAction(sub->actions()[0]);
    QTest::keyClick(sub, Qt::Key_Return);
    EXPECT_EQ(m.menu.textBox(kSend)->text(), "Yes. Thank & you");
    sub->popup(QPoint(300, 0));
    QTest::mouseClick(sub, Qt::LeftButton, {}, sub->actionGeometry(sub->actions()[1]).center());
    EXPECT_EQ(m.menu.textBox(kSend)->text(), "Yes. Thank & you xxx") << "the line keeps its length";
    EXPECT_FALSE(sub->isVisible());
    EXPECT_TRUE(m.menu.isVisible());
    EXPECT_EQ(m.menu.focusWidget(), m.menu.textBox(kSend));
    EXPECT_EQ(m.told.count(), 3);

    EXPECT_EQ(m.entry("cut & gone"), nullptr);
    m.menu.textBox(kSend)->setText("a|<b");
    EXPECT_EQ(m.menu.textBox(kSend)->text(), "a|< b");
    ASSERT_NE(m.entry("cut & gone"), nullptr);
    EXPECT_TRUE(m.entry("cut & gone")->isVisible());
    m.menu.textBox(kSend)->setText("a");
    EXPECT_EQ(m.entry("cut & gone"), nullptr);
}
