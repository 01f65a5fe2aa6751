// Messages between real windows: an office of three writes, answers, and finds everything again.
#include "controls/edit/MessageEdit.h"
#include "engine/core/mod_CodePage.h"
#include "engine/network/mod_Encode.h"
#include "support/gui_forms.h"
#include "windows/FormWindows.h"
#include "windows/alerts/frmGlobalDoorBell.h"
#include "windows/alerts/frmGroups.h"

#include <QAbstractItemView>
#include <QClipboard>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTabWidget>

#include <gtest/gtest.h>

using namespace tessel;

namespace {

constexpr int kSettleMs = 1200; // a little longer than compose waits before it looks who is online

class MessageOffice : public testing::Test {
protected:
    MessageOffice() {
        world.settle();
        for (std::size_t i = 0; i < world.size(); ++i) {
            sit(i);
        }
    }
    // Gives a station windows; it asks its recorder for them, and shown() brings up what it asked for.
    void sit(std::size_t i) {
        desks[i] = std::make_unique<Desk>();
        desks[i]->windows.setStation(*world[i].station);
    }
    void restart(std::size_t i) {
        world[i]->tmrExit.setEnabled(true);
        world.run(5);
        desks[i].reset();
        WorldStation& own = world[i];
        own.station.reset();
        own.station = std::make_unique<Station>(
            own.facts, own.desktop.ports(world.clock, own.link, own.sounds, own.keys), 70 + i);
        world.start(i);
        world.run(10);
        sit(i);
    }
    static void settle() {
        for (int turn = 0; turn < 3; ++turn) {
            QApplication::processEvents();
        }
    }
    QWidget& show(std::size_t i, const WindowRequest& request) {
        desks[i]->windows.show(request);
        settle();
        return *desks[i]->windows.window(request.window);
    }
    QWidget& shown(std::size_t i) { return show(i, world[i].desktop.windows.requests.back()); }
    // The newest message of an inbox, as a click on its popup opens it.
    QWidget& opened(std::size_t i) {
        world[i]->inbox.GetMessageFromPopup(item(*world[i]->inbox.rptMessages.at(0), InboxItem::ID).text);
        return shown(i);
    }
    QWidget& compose(int mode, const QString& SID = {}) {
        return show(0, {.window = WindowId::GroupMessage, .SID = SID, .page = mode});
    }
    template <typename Part> static Part& part(const QWidget& window, const char* name) {
        auto* const found = window.findChild<Part*>(QLatin1String(name));
        EXPECT_NE(found, nullptr) << name;
        return *found;
    }
    static MessageEdit& textOf(const QWidget& window) { return part<MessageEdit>(window, "txtMessage"); }
    void press(const QWidget& window, const char* button) {
        QTest::mouseClick(&part<QPushButton>(window, button), Qt::LeftButton);
        settle();
        world.run(1);
    }
    void key(QWidget& widget, Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
        QTest::keyClick(&widget, key, modifiers);
        settle();
        world.run(1);
    }
    // Texts of the messages in an inbox, the newest first, with the kind of each.
    QStringList inbox(std::size_t i) {
        QStringList all;
        for (const ReportRecordPtr& row : world[i]->inbox.rptMessages.rows()) {
            all += item(*row, InboxItem::Type).text + u' ' + item(*row, InboxItem::Preview).text.trimmed();
        }
        return all;
    }
    template <typename Form> static Form* child(const QWidget& window) {
        settle();
        return window.findChild<Form*>();
    }

    struct Desk {
        MemoryRegistry registry;
        FormWindows windows{registry};
    };
    World world{3};
    std::array<std::unique_ptr<Desk>, 3> desks;
};

} // namespace

TEST_F(MessageOffice, WritesAcknowledgesRepliesAndLooksBack) {
    world[0]->commands.Execute(105);
    QWidget& letter = shown(0);
    EXPECT_TRUE(textOf(letter).hasFocus() || !letter.isActiveWindow());
    auto& search = part<QLineEdit>(letter, "txtSearch");
    for (const char* const name : {"room 2", "3"}) {
        QTest::keyClicks(&search, name);
        key(search, Qt::Key_Return);
    }
    EXPECT_EQ(part<QPushButton>(letter, "cmdClearList").text(), " Clear (2)");
    EXPECT_EQ(part<QLabel>(letter, "lblTo").text(), "To: Room 2, Room 3");
    QTest::keyClicks(&textOf(letter), "Lunch at <one> \"today\"?");
    key(textOf(letter), Qt::Key_Return);
    EXPECT_TRUE(inbox(1).isEmpty()) << "Enter is a new line";
    key(textOf(letter), Qt::Key_Return, Qt::ControlModifier);
    EXPECT_EQ(inbox(1), QStringList("0 Lunch at one today?"));
    EXPECT_EQ(inbox(2), inbox(1));
    EXPECT_EQ(desks[0]->windows.window(WindowId::GroupMessage), nullptr);

    restart(1);
    EXPECT_EQ(inbox(1), QStringList("0 Lunch at one today?"));
    QWidget& read = opened(1);
    EXPECT_EQ(part<QPlainTextEdit>(read, "txtOriginal").toPlainText().trimmed(), "Lunch at one today?");
    EXPECT_TRUE(part<QLabel>(read, "lblHeading").text().startsWith("From: Room 1 @ "));
    key(textOf(read), Qt::Key_F2);
    EXPECT_TRUE(inbox(1).isEmpty());

    QWidget& answer = opened(2);
    QTest::keyClicks(&textOf(answer), "x");
    press(answer, "cmdReply");
    EXPECT_EQ(textOf(answer).toPlainText(), "") << "too short: the box is emptied";
    QTest::keyClicks(&textOf(answer), "Gladly");
    key(textOf(answer), Qt::Key_Return, Qt::ControlModifier);
    EXPECT_EQ(inbox(0), QStringList({"1 Gladly", "1 Acknowledged - Lunch at one today?"}));

    const ReportRecords& log = world[0]->history.rptNotifications;
    world[0]->history.Open_Recent(item(*log.at(log.count() - 1), CardItem::Record).text);
    QWidget& sent = shown(0);
    EXPECT_EQ(part<QLineEdit>(sent, "txtTo").text(), "Room 2, Room 3");
    EXPECT_EQ(part<QListWidget>(sent, "lstUsers").count(), 2);
}

// The group is made, written to and changed without leaving the window.
// The network goes for some seconds, or a popup is clicked, in the middle of an answer.
TEST_F(MessageOffice, AnAnswerOutlivesTheNetworkAndOtherMessages) {
    for (const char* const text : {"first question", "second question"}) {
        QWidget& letter = compose(0);
        textOf(letter).setPlainText(text);
        press(letter, "cmdSend");
    }
    QWidget& read = opened(1); // the second one
    QTest::keyClicks(&textOf(read), "half an ans");
    world[1]->network.RestartNetwork();
    settle();
    EXPECT_FALSE(part<QPushButton>(read, "cmdReply").isEnabled());
    EXPECT_EQ(read.focusWidget(), &textOf(read)) << "or the next blank would press a button";
    QTest::keyClicks(&textOf(read), "wer");
    world.run(20);
    EXPECT_TRUE(part<QPushButton>(read, "cmdReply").isEnabled());

    const auto open = [&](int row) -> QWidget& {
        world[1]->inbox.GetMessageFromPopup(item(*world[1]->inbox.rptMessages.at(row), InboxItem::ID).text);
        return shown(1);
    };
    EXPECT_EQ(textOf(open(1)).toPlainText(), "");
    key(open(1), Qt::Key_Escape);
    EXPECT_EQ(textOf(open(0)).toPlainText(), "half an answer");
    press(open(0), "cmdReply");
    EXPECT_EQ(inbox(0), QStringList("1 half an answer"));
}

// A message that is opened while a window holds the main one.
TEST_F(MessageOffice, AMessageStaysWhenTheWindowBeforeItGoes) {
    QWidget& letter = compose(0);
    textOf(letter).setPlainText("a question");
    press(letter, "cmdSend");
    QWidget& actions = show(1, {.window = WindowId::Actions, .SID = world[0]->own.SID});
    actions.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&actions));
    QWidget& read = opened(1);
    ASSERT_EQ(read.parentWidget(), &actions);
    QTest::keyClicks(&textOf(read), "half");
    actions.close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    settle();
    EXPECT_EQ(desks[1]->windows.window(WindowId::Actions), nullptr);
    ASSERT_EQ(desks[1]->windows.window(WindowId::Reply), &read);
    EXPECT_TRUE(read.isVisible());
    EXPECT_EQ(textOf(read).toPlainText(), "half");
}

// Of the history a message to everyone is answered to everyone; a key for what is not offered must not.
TEST_F(MessageOffice, NothingIsAcknowledgedFromTheHistory) {
    QWidget& letter = compose(0);
    textOf(letter).setPlainText("to all");
    press(letter, "cmdSend");
    world[1]->history.Open_Recent(item(*world[1]->history.rptNotifications.at(0), CardItem::Record).text);
    QWidget& read = shown(1);
    EXPECT_TRUE(part<QPushButton>(read, "cmdReply").isEnabled());
    key(textOf(read), Qt::Key_F2);
    EXPECT_TRUE(read.isVisible());
    EXPECT_EQ(inbox(0) + inbox(2), QStringList("0 to all"));

    // The options may change under a window that is open.
    textOf(read).setPlainText("by Enter");
    world[1]->settings.Settings_MSOE.set(true);
    QEvent back(QEvent::ActivationChange);
    QApplication::sendEvent(textOf(read).parentWidget(), &back);
    key(textOf(read), Qt::Key_Return);
    EXPECT_EQ(inbox(0), QStringList("0 by Enter"));
}

TEST_F(MessageOffice, AGroupWithOneMemberOff) {
    QWidget& letter = compose(0);
    EXPECT_EQ(part<QLabel>(letter, "lblTo").text(), "To: Everyone");
    press(letter, "cmdGroup1");
    auto* editor = child<frmGroups>(letter);
    ASSERT_NE(editor, nullptr);
    EXPECT_EQ(editor->windowTitle(), "Location Group 1");
    auto& all = part<QListWidget>(*editor, "lstAll");
    EXPECT_EQ(all.count(), 2);
    key(*editor, Qt::Key_Escape);
    EXPECT_FALSE(part<QPushButton>(letter, "cmdGroup1").isChecked());
    EXPECT_TRUE(part<QPushButton>(letter, "cmdGroup0").isChecked()) << "no group was made: as before";

    press(letter, "cmdGroup1");
    editor = child<frmGroups>(letter);
    QTest::keyClicks(&part<QLineEdit>(*editor, "txtGroupName"), "Fr\"ont :desk");
    auto& list = part<QListWidget>(*editor, "lstAll");
    list.setCurrentRow(0);
    key(list, Qt::Key_Return);
    EXPECT_TRUE(editor->isVisible()) << "Enter on a location adds it and does not save";
    press(*editor, "cmdRightAll");
    press(*editor, "cmdSave");
    EXPECT_EQ(world[0].get("groups.dat", "1", "Name"), "Front desk");
    EXPECT_EQ(part<QPushButton>(letter, "cmdGroup1").text(), "Front desk");
    EXPECT_TRUE(part<QPushButton>(letter, "cmdGroup1").isChecked());
    EXPECT_EQ(part<QLabel>(letter, "lblTo").text(), "To: Front desk: Room 2, Room 3");
    EXPECT_FALSE(part<QPushButton>(letter, "cmdAlert").isVisible());

    world[2]->tmrExit.setEnabled(true);
    world.run(5);
    QTest::qWait(kSettleMs);
    EXPECT_TRUE(part<QPushButton>(letter, "cmdAlert").isVisible()) << "while the window is open";
    press(letter, "cmdAlert");
    auto* const warning = letter.findChild<QDialog*>("frmOffline");
    ASSERT_NE(warning, nullptr);
    EXPECT_EQ(part<QLabel>(*warning, "lblOffline").text(),
              "The following users in group Front desk are offline and unable to receive your message.");
    EXPECT_EQ(part<QListWidget>(*warning, "lstoffline").item(0)->text(), "Room 3");
    press(*warning, "cmdEdit");
    editor = child<frmGroups>(letter);
    ASSERT_NE(editor, nullptr);
    EXPECT_EQ(part<QListWidget>(*editor, "lstSelected").count(), 2) << "who is off stays a member";
    key(*editor, Qt::Key_Escape);
    QTest::keyClicks(&textOf(letter), "to the group");
    press(letter, "cmdSend");
    EXPECT_EQ(inbox(1), QStringList("0 to the group"));
}

TEST_F(MessageOffice, ModesPagesAndWhatIsNotSent) {
    QWidget& letter = compose(5, world[2]->own.SID);
    EXPECT_EQ(part<QLabel>(letter, "lblTo").text(), "To: Room 3");
    auto& tabs = part<QTabWidget>(letter, "TabControl");
    EXPECT_EQ(tabs.currentIndex(), 0);
    compose(2);
    EXPECT_EQ(tabs.currentIndex(), 1);
    EXPECT_EQ(world[0]->settings.MSGNAV_1(), 103) << "only the user's own choice is kept";
    tabs.setCurrentIndex(0);
    EXPECT_EQ(world[0]->settings.MSGNAV_1(), 101);

    // Chosen and out of sight stays chosen; what is out of sight is not chosen along.
    auto& search = part<QLineEdit>(letter, "txtSearch");
    auto& users = part<QListWidget>(letter, "lstUsers");
    QTest::keyClicks(&search, "2");
    key(users, Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(part<QLabel>(letter, "lblTo").text(), "To: Room 2, Room 3");
    press(letter, "cmdClearList");
    EXPECT_EQ(part<QLabel>(letter, "lblTo").text(), "To: nobody yet");
    key(users, Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(part<QLabel>(letter, "lblTo").text(), "To: Room 2");
    press(letter, "cmdClearList");

    QTest::keyClicks(&textOf(letter), "to nobody");
    press(letter, "cmdClear");
    EXPECT_EQ(textOf(letter).toPlainText(), "");
    textOf(letter).undo();
    press(letter, "cmdSend");
    EXPECT_TRUE(letter.isVisible());
    EXPECT_EQ(textOf(letter).toPlainText(), "to nobody");
    world[0]->network.RestartNetwork();
    EXPECT_FALSE(part<QPushButton>(letter, "cmdSend").isEnabled());
    EXPECT_EQ(part<QLabel>(letter, "lblRemark").text(), "Offline: nothing can be sent now");
    world.run(20);
    compose(0);
    press(letter, "cmdSend");
    EXPECT_EQ(inbox(1) + inbox(2), QStringList({"0 to nobody", "0 to nobody"})) << "everyone, that is";
}

// A name and a text are what they are, whoever made them.
TEST_F(MessageOffice, HostileTextIsPlain) {
    const QString name = "<b>&Bob</b>\n" + QString(200, 'W');
    RawPacket hello;
    hello.location = name;
    hello.code = "XAN";
    hello.tagWord = "3:0";
    world.network.inject(hello.bytes());
    world.run(5);
    RawPacket message = hello;
    message.code = "XATE";
    const QString text = "<img src='/etc/passwd'>&amp;\nsecond";
    message.body = toText(EncodeBody(toBytes(QStringList{"0", ":", "id", text}.join(ValueMark))));
    world.network.inject(message.bytes());
    world.run(1);
    QWidget& letter = compose(1);
    auto& users = part<QListWidget>(letter, "lstUsers");
    EXPECT_TRUE(users.item(0)->text().startsWith("<b>&Bob</b>") ||
                users.item(users.count() - 1)->text().startsWith("<b>&Bob</b>") ||
                users.item(1)->text().startsWith("<b>&Bob</b>"));
    ASSERT_EQ(inbox(0).size(), 1);
    QWidget& read = opened(0);
    EXPECT_EQ(part<QPlainTextEdit>(read, "txtOriginal").toPlainText().trimmed(), text);
    EXPECT_LT(read.width(), 900) << "a long name does not stretch the window";
}

TEST_F(MessageOffice, DoorbellsRingByTheirKeys) {
    world[0]->groups.SaveGroup(1, "Lab", JoinRecipients({{"Room 3", world[2]->own.SID}}));
    QWidget& bell = show(0, {WindowId::GlobalDoorBell});
    EXPECT_EQ(part<QPushButton>(bell, "cmdGroup2").toolTip(), "(F2) Right-click mouse to edit");
    EXPECT_EQ(part<QPushButton>(bell, "cmdGroup1").toolTip(), "(F1) Click to create group");
    key(bell, Qt::Key_F1);
    auto* const editor = child<frmGroups>(bell);
    ASSERT_NE(editor, nullptr) << "F1 makes the first group and rings nobody";
    key(*editor, Qt::Key_Escape);
    EXPECT_TRUE(bell.isVisible());
    EXPECT_FALSE(world[1].desktop.popups[1]);
    QTest::keyClicks(&part<QLineEdit>(bell, "fltText"), "g:tea");
    key(bell, Qt::Key_F2);
    EXPECT_FALSE(world[1].desktop.popups[1]);
    ASSERT_TRUE(world[2].desktop.popups[1]);
    EXPECT_EQ(world[2].desktop.popups[1]->text, "tea");
    EXPECT_EQ(desks[0]->windows.window(WindowId::GlobalDoorBell), nullptr);
}

TEST_F(MessageOffice, SnippetsAreKeptAndUsed) {
    QWidget& letter = compose(0);
    QWidget& editor = show(0, {WindowId::Snippit});
    auto& list = part<QListWidget>(editor, "lstSnippit");
    const int before = list.count();
    auto& box = part<QLineEdit>(editor, "cmbSnippet");
    for (const char* const text : {"one <b>", "two", "  "}) {
        QTest::keyClicks(&box, text);
        key(box, Qt::Key_Return);
    }
    EXPECT_EQ(list.count(), before + 2);
    EXPECT_EQ(list.item(0)->text() + list.item(1)->text(), "twoone b");
    press(editor, "cmdDown");
    EXPECT_EQ(list.item(0)->text(), "one b");
    press(editor, "cmdDelete");
    EXPECT_EQ(world[0]->snippets.list().front(), "one b");
    key(editor, Qt::Key_Escape);

    auto& snippets = part<QComboBox>(letter, "cmbSnippit");
    EXPECT_EQ(snippets.itemText(0) + snippets.itemText(1), "Select a Snippetone b");
    textOf(letter).setPlainText("Please:");
    snippets.setFocus();
    QWheelEvent turn({5, 5}, snippets.mapToGlobal(QPointF(5, 5)), {}, {0, -120}, {}, {}, Qt::NoScrollPhase,
                     false);
    QApplication::sendEvent(&snippets, &turn);
    QTest::keyClicks(&snippets, "o");
    EXPECT_EQ(textOf(letter).toPlainText(), "Please:") << "by a turn of the wheel, or a letter";
    QTest::keyClick(snippets.view(), Qt::Key_Down);
    QTest::keyClick(snippets.view(), Qt::Key_Return);
    EXPECT_EQ(textOf(letter).toPlainText(), "Please: one b");
}
