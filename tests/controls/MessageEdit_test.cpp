#include "controls/edit/MessageEdit.h"

#include <QApplication>
#include <QClipboard>
#include <QInputMethodEvent>
#include <QSignalSpy>
#include <QTest>

#include <gtest/gtest.h>

using namespace tessel;

TEST(MessageEdit, TypesWhatIsAllowedAndPastesAnything) {
    MessageEdit edit;
    edit.setAllowedCharacters(QStringLiteral("abc \r"));
    QTest::keyClicks(&edit, QStringLiteral("aB\"x<"));
    QInputMethodEvent composed;
    composed.setCommitString(QStringLiteral("<c>"));
    QApplication::sendEvent(&edit, &composed);
    EXPECT_EQ(edit.toPlainText(), "aBc");
    QApplication::clipboard()->setText(QStringLiteral("\"<x>"));
    edit.paste();
    QTest::keyClick(&edit, Qt::Key_Return);
    QTest::keyClicks(&edit, QStringLiteral("b"));
    EXPECT_EQ(edit.message(), "aBc\"<x>\r\nb");
    QTest::keyClick(&edit, Qt::Key_Backspace);
    EXPECT_EQ(edit.message(), "aBc\"<x>\r\n");
}

TEST(MessageEdit, EnterSendsAsItIsSet) {
    MessageEdit edit;
    const QSignalSpy sent(&edit, &MessageEdit::sendPressed);
    QTest::keyClick(&edit, Qt::Key_Return);
    EXPECT_EQ(sent.count(), 0);
    QTest::keyClick(&edit, Qt::Key_Enter, Qt::ControlModifier);
    EXPECT_EQ(sent.count(), 1);
    edit.setSendOnEnter(true);
    QTest::keyClick(&edit, Qt::Key_Return);
    EXPECT_EQ(sent.count(), 2);
    QTest::keyClick(&edit, Qt::Key_Return, Qt::ShiftModifier);
    EXPECT_EQ(sent.count(), 2);
    EXPECT_EQ(edit.message(), "\r\n\r\n");
}

// Whoever writes into the middle of a full text must not lose its end.
TEST(MessageEdit, ShowsWhatWillBeSentAndCutsWhatIsPutIn) {
    MessageEdit edit;
    edit.setMaximumLength(10);
    edit.setMend([](const QString& text) { return QString(text).replace("||", "| |"); });
    edit.setPlainText(QStringLiteral("12345678"));
    QTest::keyClick(&edit, Qt::Key_Home);
    QApplication::clipboard()->setText(QStringLiteral("||\nmore"));
    edit.paste();
    EXPECT_EQ(edit.message().size(), 10);
    EXPECT_TRUE(edit.message().endsWith("12345678"));
    EXPECT_EQ(edit.message().left(2), "| ");
    EXPECT_EQ(edit.textCursor().position(), 2);
    EXPECT_EQ(edit.room(), 0);
    edit.setPlainText(QStringLiteral("1234\n5678901234"));
    EXPECT_EQ(edit.message(), "1234\r\n5678");
}
