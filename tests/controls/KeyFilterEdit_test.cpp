#include "controls/edit/KeyFilterEdit.h"

#include <QApplication>
#include <QClipboard>
#include <QDialog>
#include <QSignalSpy>
#include <QTest>

#include <gtest/gtest.h>

using namespace tessel;

// A pager number would reach the pager with the blanks and brackets it was copied with.
TEST(KeyFilterEdit, DropsWhatIsNotAllowedHoweverItComes) {
    KeyFilterEdit edit;
    edit.setAllowedCharacters(QStringLiteral("0123456789ab"));
    QTest::keyClicks(&edit, QStringLiteral("1x2-A"));
    EXPECT_EQ(edit.text(), "12A");

    QApplication::clipboard()->setText(QStringLiteral("(55) b\n\t<6>"));
    edit.home(false);
    edit.paste();
    EXPECT_EQ(edit.text(), "55b612A");
    EXPECT_EQ(edit.cursorPosition(), 4);

    edit.setText(QStringLiteral("zz9"));
    EXPECT_EQ(edit.text(), "9");
    edit.setAllowedCharacters({});
    QTest::keyClicks(&edit, QStringLiteral("%z"));
    EXPECT_EQ(edit.text(), "9%z");
}

// A pasted number would lose its last digits to the brackets before it, or push out what stood there.
TEST(KeyFilterEdit, CountsOnlyAllowedCharactersAgainstTheMaximum) {
    KeyFilterEdit edit;
    edit.setAllowedCharacters(QStringLiteral("0123456789"));
    edit.setMaximumLength(5);
    QApplication::clipboard()->setText(QStringLiteral("----1234"));
    edit.paste();
    EXPECT_EQ(edit.text(), "1234");

    QApplication::clipboard()->setText(QStringLiteral("777"));
    edit.setCursorPosition(2);
    edit.paste();
    EXPECT_EQ(edit.text(), "12734");
    QTest::keyClicks(&edit, QStringLiteral("9"));
    EXPECT_EQ(edit.text(), "12734");
}

// Enter in a filter box would also press the dialog's default button, or Escape stop working in it.
TEST(KeyFilterEdit, TellsEnterAndEscapeOnceAndLeavesThemToTheDialogOtherwise) {
    QDialog dialog;
    auto* edit = new KeyFilterEdit(&dialog);
    dialog.show();
    QSignalSpy enter(edit, &KeyFilterEdit::enterPressed);
    QTest::keyClick(edit, Qt::Key_Return);
    QTest::keyClick(edit, Qt::Key_Enter, Qt::KeypadModifier);
    EXPECT_EQ(enter.count(), 2);
    {
        QSignalSpy escape(edit, &KeyFilterEdit::escapePressed);
        QTest::keyClick(edit, Qt::Key_Escape);
        EXPECT_EQ(escape.count(), 1);
        EXPECT_TRUE(dialog.isVisible());
    }
    QTest::keyClick(edit, Qt::Key_Escape);
    EXPECT_FALSE(dialog.isVisible());
}
