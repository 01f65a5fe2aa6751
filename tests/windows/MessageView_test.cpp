// The Inbox of the main window as a user drives it.
#include "windows/mainwindow/MessageView.h"

#include "controls/bars/CommandBars.h"
#include "controls/bars/CommandMenu.h"
#include "controls/edit/PromptEdit.h"
#include "controls/list/CardControl.h"
#include "support/gui_forms.h"
#include "windows/dialogs/frmPreview.h"
#include "windows/mainwindow/ViewStack.h"
#include "windows/mainwindow/frmMain.h"

#include <QClipboard>
#include <QLabel>
#include <QPushButton>
#include <QScrollBar>

#include <gtest/gtest.h>

using namespace tessel;

namespace {

class InboxTab : public testing::Test {
protected:
    InboxTab() {
        world.settle();
        form = std::make_unique<frmMain>(me(), registry);
        form->show();
        form->activateWindow();
        settle();
        me().shell.SetTabView(353);
        settle();
    }
    static void settle() {
        for (int turn = 0; turn < 3; ++turn) {
            QApplication::processEvents();
        }
    }
    void message(const QString& id, const QString& text) {
        me().inbox.Add_Message({"0", false, id, "Room 2", world[1]->own.SID, text, "9:00:00 AM", "3/2/2026"});
        list().syncNow();
    }
    Station& me() { return *world[0].station; }
    CardControl& list() { return *form->findChild<CardControl*>("rptMessages"); }
    QStringList shownIDs() {
        list().syncNow();
        QStringList ids;
        for (const ReportRecordPtr& record : me().inbox.rptMessages.rows()) {
            if (list().selectRecord(record)) {
                ids += item(*record, InboxItem::ID).text;
            }
        }
        return ids;
    }
    void key(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QTest::keyClick(&list(), static_cast<Qt::Key>(key), modifiers);
        settle();
    }
    bool enabled(int command) { return form->commands()->find(command)->isEnabled(); }
    frmPreview* preview() { return form->findChild<frmPreview*>(); }

    World world{2};
    MemoryRegistry registry;
    std::unique_ptr<frmMain> form;
};

} // namespace

TEST_F(InboxTab, OpensDeletesAndCopiesByKeys) {
    EXPECT_EQ(form->commands()->find(353)->text(), "Inbox ");
    EXPECT_FALSE(enabled(480));
    message("1", "first");
    message("2", QString(150, 'x') + " a word far behind" + QStringLiteral(":|:(8:59:00 AM) Me : asked"));
    QTest::qWait(150);
    EXPECT_EQ(form->commands()->find(353)->text(), "Inbox (2)");

    ASSERT_TRUE(list().hasFocus());
    key(Qt::Key_Down);
    EXPECT_TRUE(enabled(480));
    key(Qt::Key_C, Qt::ControlModifier);
    EXPECT_TRUE(QApplication::clipboard()->text().contains("far behind")) << "the whole text";
    key(Qt::Key_Return);
    EXPECT_EQ(world[0].desktop.windows.requests.back().window, WindowId::Reply);
    EXPECT_EQ(me().reply.message().MessageID, "2");

    me().shell.SetTabView(350);
    settle();
    form->commands()->find(482)->trigger();
    EXPECT_EQ(me().inbox.rptMessages.count(), 2) << "nobody saw what it would have deleted";
    me().shell.SetTabView(353);
    settle();
    world.network.sent.clear();
    me().commands.Execute(404, form->stack()->currentRow());
    EXPECT_TRUE(world.network.sent.empty()) << "a message is no location";

    key(Qt::Key_Delete);
    EXPECT_EQ(shownIDs(), QStringList({"1"}));
    key(Qt::Key_Delete);
    key(Qt::Key_Delete);
    EXPECT_EQ(me().inbox.rptMessages.count(), 0);
}

TEST_F(InboxTab, SearchesWholeTexts) {
    message("1", "short");
    message("2", QString(5000, 'x') + " needle");
    auto& search = *form->findChild<PromptEdit*>();
    search.setFocus();
    QTest::keyClicks(&search, "needle");
    EXPECT_EQ(shownIDs(), QStringList({"2"}));
    message("3", "another needle");
    EXPECT_EQ(shownIDs(), QStringList({"3", "2"}));
    QTest::keyClicks(&search, " room");
    EXPECT_EQ(shownIDs(), QStringList({"3", "2"})) << "the sender counts";
    me().inbox.Saveinbox();
    me().inbox.Loadinbox();
    EXPECT_EQ(me().inbox.rptMessages.count(), 3) << "what a search hides is saved";
    EXPECT_EQ(shownIDs(), QStringList({"3", "2"}));
}

TEST_F(InboxTab, StaysWhereOneReadsUnlessTheTopIsWanted) {
    for (int i = 0; i < 40; ++i) {
        message(QString::number(i), "text");
    }
    QScrollBar& bar = *list().verticalScrollBar();
    bar.setValue(bar.maximum() / 2);
    const int read = bar.maximum() - bar.value();
    message("new", "text");
    EXPECT_EQ(bar.maximum() - bar.value(), read);
    QAction* const top = form->commands()->find(483);
    EXPECT_FALSE(top->isChecked());
    top->trigger();
    EXPECT_TRUE(top->isChecked());
    message("newer", "text");
    EXPECT_EQ(bar.value(), 0);
}

TEST_F(InboxTab, AsksBeforeAllIsGone) {
    form->commands()->find(484)->trigger();
    EXPECT_EQ(openBox(), nullptr);
    message("1", "first");
    const auto answer = [this](QMessageBox::StandardButton button) {
        QTest::qWait(150);
        form->commands()->find(484)->trigger();
        ASSERT_NE(openBox(), nullptr);
        EXPECT_EQ(openBox()->windowTitle(), "Delete all Messages");
        QTest::mouseClick(openBox()->button(button), Qt::LeftButton);
        settle();
    };
    answer(QMessageBox::No);
    EXPECT_EQ(me().inbox.rptMessages.count(), 1);
    answer(QMessageBox::Yes);
    EXPECT_EQ(me().inbox.rptMessages.count(), 0);
}

TEST_F(InboxTab, ItsMenuIsForTheMessageThatItWasOpenedOn) {
    message("1", "<b>first</b>");
    message("2", "second");
    list().selectRecord(me().inbox.rptMessages.rows()[1]);
    key(Qt::Key_F10, Qt::ShiftModifier);
    auto* const menu = qobject_cast<CommandMenu*>(QApplication::activePopupWidget());
    ASSERT_NE(menu, nullptr);
    QStringList captions;
    for (const QAction* const action : menu->actions()) {
        captions += action->text();
    }
    EXPECT_EQ(captions, QStringList({"Open Message", "Print Message", "Delete Message"}));
    message("3", "third");
    QTest::keyClick(menu, Qt::Key_Down);
    QTest::keyClick(menu, Qt::Key_Down);
    QTest::keyClick(menu, Qt::Key_Return);
    // The print server of this machine is asked first.
    ASSERT_TRUE(QTest::qWaitFor([this] { return preview() != nullptr; }));
    EXPECT_TRUE(preview()->isVisible());
    me().inbox.Print_Message(); // a doubled click
    QTest::qWait(50);
    EXPECT_EQ(form->findChildren<frmPreview*>().size(), 1);
    EXPECT_EQ(preview()->findChild<QLabel*>("lblPages")->text(), "Page 1 of 1");
    EXPECT_EQ(item(*me().inbox.focused(), InboxItem::ID).text, "1");
    QTest::keyClick(preview(), Qt::Key_Escape);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(preview(), nullptr);
}
