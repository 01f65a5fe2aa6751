#include "controls/edit/PromptEdit.h"

#include <QApplication>
#include <QSignalSpy>
#include <QTest>
#include <QVBoxLayout>

#include <gtest/gtest.h>

using namespace tessel;

namespace {

struct SearchBox {
    SearchBox() {
        auto* const layout = new QVBoxLayout(&window);
        layout->addWidget(&other);
        layout->addWidget(&edit);
        window.show();
        window.activateWindow();
        other.setFocus();
        QApplication::processEvents();
    }
    QWidget window;
    QLineEdit other;
    PromptEdit edit{QStringLiteral("Search")};
};

} // namespace

// A list that filters for its own prompt is empty, and nobody knows why.
TEST(PromptEdit, ThePromptIsNeverASearch) {
    SearchBox box;
    QSignalSpy told(&box.edit, &PromptEdit::searchChanged);
    EXPECT_EQ(box.edit.searchText(), "");
    box.edit.setFocus();
    EXPECT_EQ(box.edit.text(), "");
    QTest::keyClick(&box.edit, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(box.edit.text(), "");
    box.other.setFocus();
    EXPECT_EQ(box.edit.text(), "Search");
    EXPECT_EQ(told.count(), 0);

    box.edit.setFocus();
    QTest::keyClicks(&box.edit, "ab");
    EXPECT_EQ(told.count(), 2);
    EXPECT_EQ(told.last().first().toString(), "ab");
    box.other.setFocus();
    EXPECT_EQ(box.edit.text(), "ab");
    box.edit.clearSearch();
    EXPECT_EQ(told.last().first().toString(), "");
    EXPECT_EQ(box.edit.text(), "Search");
}

// By keyboard alone: Escape ends the search and only then the window's turn comes; Enter and the
// arrow lead to what was found.
TEST(PromptEdit, KeysLeadOutOfTheBox) {
    SearchBox box;
    QSignalSpy leave(&box.edit, &PromptEdit::leaveForList);
    box.edit.setFocus();
    QTest::keyClicks(&box.edit, "lab");
    QTest::keyClick(&box.edit, Qt::Key_Down);
    QTest::keyClick(&box.edit, Qt::Key_Return);
    EXPECT_EQ(leave.count(), 2);
    QTest::keyClick(&box.edit, Qt::Key_Escape);
    EXPECT_EQ(box.edit.searchText(), "");
    EXPECT_TRUE(box.edit.hasFocus());
    EXPECT_EQ(box.edit.text(), "");
}

// The prompt is grey and typed text is not, also after the desktop changed between light and dark.
TEST(PromptEdit, FollowsThePalette) {
    SearchBox box;
    QPalette dark;
    dark.setColor(QPalette::Base, Qt::black);
    dark.setColor(QPalette::Text, Qt::white);
    dark.setColor(QPalette::PlaceholderText, Qt::gray);
    box.window.setPalette(dark);
    EXPECT_EQ(box.edit.palette().color(QPalette::Base), QColor(Qt::black));
    box.edit.setFocus();
    QTest::keyClicks(&box.edit, "x");
    EXPECT_EQ(box.edit.palette().color(QPalette::Text), QColor(Qt::white));
    box.edit.clearSearch();
    EXPECT_EQ(box.edit.palette().color(QPalette::Text), QColor(Qt::gray));
}
