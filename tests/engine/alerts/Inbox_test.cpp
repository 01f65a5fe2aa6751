// The inbox: what came is there, newest first, and still there after whatever ends the program.
#include "support/LoneStation.h"

#include "engine/core/mod_CodePage.h"
#include "engine/core/mod_FileTools.h"

#include <gtest/gtest.h>

#include <QFile>

using namespace tessel;

namespace {

class InboxFile : public LoneStation {
protected:
    // A message to this location.
    void message(const QString& id, const QString& text, const QString& kind = "0") {
        hear({.location = "Front",
              .code = "XATM",
              .body = body({kind, "Room 1:" + kMe + ListMark, id, text})});
    }
    QString text(int row, InboxItem index = InboxItem::Body) {
        return row < inbox().rptMessages.count() ? item(*inbox().rptMessages.at(row), index).text
                                                 : "(no row)";
    }
    QStringList bodies() {
        QStringList all;
        for (const ReportRecordPtr& row : inbox().rptMessages.rows()) {
            all += item(*row, InboxItem::Body).text;
        }
        return all;
    }
    Inbox& inbox() { return me->inbox; }
    void focus(const QString& id) {
        inbox().setFocused(inbox().rptMessages.rows()[static_cast<std::size_t>(inbox().Message_FindID(id))]);
    }
    QString path() { return me->folders.dataFile("inbox.dat"); }
    // What a start makes of the files as they are.
    QStringList reloaded() {
        inbox().Loadinbox();
        return bodies();
    }
    static QByteArray record(const QByteArray& id, const QByteArray& body) {
        return "\"0.\x80.0.\x80." + id + ".\x80.Ann.\x80.333.\x80." + body +
               ".\x80.9:00:00 AM.\x80.3/1/2026\"\r\n";
    }
};

} // namespace

TEST_F(InboxFile, HasTheFormOfTheFileByteForByte) {
    begin();
    message("A1", "first");
    world.run(1);
    message("A2", "two\r\nlines, \"quoted\" and .|.:|:(9:00:00 AM) Me : what was asked\r\n", "1");
    hear("XATE", body({"0", ":", "A3", "to all"}));
    EXPECT_FALSE(FileExists(path()));
    EXPECT_EQ(inbox().caption(), "Inbox (3)");
    world.run(11);
    EXPECT_EQ(
        me.fileBytes("inbox.dat"),
        "3\r\n"
        "\"0.\x80.-1.\x80.A3.\x80.Outside.\x80.999XX999XXX9.\x80.to all.\x80.9:00:07 AM.\x80.3/2/2026\"\r\n"
        "\"1.\x80.0.\x80.A2.\x80.Front.\x80.999XX999XXX9.\x80.two\r\nlines, .|.quoted.|. and .|.:|:(9:00:00 "
        "AM) "
        "Me : what was asked\r\n.\x80.9:00:07 AM.\x80.3/2/2026\"\r\n"
        "\"0.\x80.0.\x80.A1.\x80.Front.\x80.999XX999XXX9.\x80.first.\x80.9:00:06 AM.\x80.3/2/2026\"\r\n");
    reloaded();
    EXPECT_EQ(text(1), "two\r\nlines, \"quoted\" and \":|:(9:00:00 AM) Me : what was asked\r\n");
    EXPECT_EQ(text(1, InboxItem::Preview), "two\r\nlines, \"quoted\" and \"");
    EXPECT_EQ(text(1, InboxItem::Display) + text(1, InboxItem::Name), "Reply from Front");
    EXPECT_EQ(text(0, InboxItem::Display), "Everyone from ");
    QString printed;
    QObject::connect(&inbox(), &Inbox::printRequested, [&printed](const QString& text) { printed = text; });
    focus("A2");
    inbox().Print_Message();
    EXPECT_EQ(printed, "Message From: Front\r\n\r\ntwo\r\nlines, \"quoted\" and \"\r\n(9:00:00 AM) Me : "
                       "what was asked\r\n\r\n9:00:07 AM on Monday, 2 March 2026\r\n")
        << "the long date is the desktop's";
}

TEST_F(InboxFile, KeepsTheNewestAndTheRunningListWhole) {
    user("Messages", "SAVE_CNT", "3");
    begin();
    for (int i = 0; i < 5; ++i) {
        message(QString::number(i), "m" + QString::number(i));
    }
    EXPECT_EQ(inbox().rptMessages.count(), 5);
    world.run(11);
    EXPECT_EQ(inbox().rptMessages.count(), 5);
    EXPECT_EQ(reloaded(), QStringList({"m4", "m3", "m2"}));
    me->settings.Messages_SAVE_CNT.set(0);
    inbox().Saveinbox();
    EXPECT_EQ(me.fileBytes("inbox.dat"), "0\r\n");
    EXPECT_EQ(reloaded(), QStringList());
    EXPECT_EQ(inbox().caption(), "Inbox ");
}

TEST_F(InboxFile, AKillLosesNothingAndBringsNothingBack) {
    begin();
    message("1", "one");
    message("2", "two");
    message("2x", "two");
    world.run(11);
    message("3", "three");
    focus("2");
    inbox().Delete_Message();
    inbox().Delete_Message(); // it is gone: another one must not follow it
    message("4", "four \"4\"\r\n");
    inbox().Delete_Message_ID("1");
    inbox().Delete_Message_ID("no such");
    const QStringList before = bodies();
    EXPECT_EQ(before, QStringList({"four \"4\"\r\n", "three", "two"}));
    EXPECT_EQ(reloaded(), before);
    EXPECT_EQ(text(2, InboxItem::ID), "2x");
    world.run(11);
    EXPECT_EQ(reloaded(), before);

    QFile::remove(path());
    QDir().mkdir(path()); // a file that cannot be written
    message("5", "five");
    inbox().Remove_All_Inbox_Messages();
    message("6", "six");
    world.run(30);
    EXPECT_EQ(bodies(), QStringList({"six"}));
    QDir().rmdir(path());
    EXPECT_EQ(reloaded(), QStringList({"six"})) << "a message that is gone for good came back";
    world.run(30);
    EXPECT_EQ(me.fileBytes("inbox.dat").left(3), "1\r\n");
}

TEST_F(InboxFile, AnEndOfTheProgramSavesWhatIsUnsaved) {
    begin();
    message("1", "one");
    me->ExitProc();
    EXPECT_TRUE(me.fileBytes("inbox.dat").startsWith("1\r\n"));
}

TEST_F(InboxFile, TakesWhatADamagedFileHas) {
    begin();
    replaceFile(path(), "900\r\n" + record("1", "whole") +
                            "\"1.\x80.0.\x80.2.\x80.Bob\"\r\n\"\"\r\n\"junk\"\r\n\"cut off");
    EXPECT_EQ(reloaded(), QStringList({"whole", "", ""}));
    EXPECT_EQ(text(1, InboxItem::Name), "Bob");
    EXPECT_EQ(me.fileBytes("inbox.dat.damaged"), "\"cut off");
    EXPECT_EQ(loggedWith("A record has no end"), 1);
    inbox().setFocused(inbox().rptMessages.rows()[2]);
    inbox().GetMessageFromList();
    inbox().Print_Message();
    replaceFile(path(), QByteArray(100000, '\0') + QByteArray(7, '"'));
    reloaded();
    EXPECT_TRUE(FileExists(path() + ".damaged2")) << "the first copy must stay";
    replaceFile(path(), "1\r\n" + record("7", "counted") + record("8", "beyond the count"));
    EXPECT_EQ(reloaded(), QStringList({"counted"}));
}

TEST_F(InboxFile, OpensWhatIsThereAndGuardsItsMemory) {
    begin();
    std::vector<ReceivedMessage> opened;
    QObject::connect(&inbox(), &Inbox::opened,
                     [&opened](const ReceivedMessage& message) { opened.push_back(message); });
    message("1", "one");
    me->popups.clicked(PopupId::ctrlPopupMessage, PopupItem::Text);
    ASSERT_EQ(opened.size(), 1U) << "a click on the popup opens its message";
    EXPECT_EQ(opened[0].text, "one");
    EXPECT_EQ(opened[0].SID, kOther);
    message("2", "two");
    inbox().Delete_Message_ID("2");
    me->popups.clicked(PopupId::ctrlPopupMessage, PopupItem::Text);
    inbox().GetMessageFromList();
    EXPECT_EQ(opened.size(), 1U);

    const QString longText(Inbox::kMostCharacters / 8, 'x');
    for (int i = 0; i < 20; ++i) {
        inbox().Add_Message(
            {"0", false, QString::number(i), "Ann", "333", longText, "9:00:00 AM", "3/3/2026"}, true);
    }
    EXPECT_LE(inbox().rptMessages.count(), 8);
    EXPECT_EQ(text(0, InboxItem::ID), "19");
}
