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
    EXPECT_EQ(box.edit.placeholderText(), "Search");
    EXPECT_EQ(told.count(), 0);

    box.edit.setFocus();
    QTest::keyClicks(&box.edit, "ab");
    EXPECT_EQ(told.count(), 2);
    EXPECT_EQ(told.last().first().toString(), "ab");
    box.other.setFocus();
    EXPECT_EQ(box.edit.text(), "ab");
    box.edit.clearSearch();
    EXPECT_EQ(told.last().first().toString(), "");
    EXPECT_EQ(box.edit.placeholderText(), "Search");
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
