#include "windows/network/frmEndpoints.h"

#include "controls/edit/PromptEdit.h"
#include "support/gui_forms.h"

#include <QLabel>
#include <QMenuBar>
#include <QPushButton>
#include <QSet>

#include <gtest/gtest.h>

using namespace tessel;

namespace {

class ActiveConnections : public testing::Test {
protected:
    ActiveConnections() {
        world.settle();
        form = std::make_unique<frmEndpoints>(*world[0].station);
        form->show();
        QApplication::processEvents();
    }
    QStringList names() { return shownTexts(*form->grid(), 0); }
    PromptEdit& filter() { return *form->findChild<PromptEdit*>(QStringLiteral("txtFilter")); }
    QString SIDInFile() { return world[0].get(kUserFile, QStringLiteral("User"), QStringLiteral("SID")); }
    QMessageBox* askSID() {
        trigger(*form, "mnuSID");
        return openBox();
    }

    World world{3};
    std::unique_ptr<frmEndpoints> form;
};

} // namespace

// Each entry is what somebody at the telephone asks a user to press.
TEST_F(ActiveConnections, MenusAct) {
    EXPECT_EQ(form->windowTitle(), "Active Connections");
    trigger(*form, "mnuRefresh");
    EXPECT_EQ(form->windowTitle(), "Active Connections (3)");
    QTest::keyClicks(&filter(), "host2");
    EXPECT_EQ(names(), QStringList({"Room 2"}));
    filter().clearSearch();
    EXPECT_EQ(names().size(), 3);

    const auto codesSent = [this] {
        QStringList codes;
        for (const QByteArray& packet : world.network.sent) {
            codes += QString::fromLatin1(packet.split('\x80').value(4)).chopped(1);
        }
        world.network.sent.clear();
        return codes;
    };
    codesSent();
    trigger(*form, "mnuAnnounce");
    EXPECT_EQ(codesSent(), QStringList({"XAN"}));
    EXPECT_EQ(names().size(), 3);
    world[0]->own.online = false;
    trigger(*form, "mnuAnnounce");
    EXPECT_TRUE(codesSent().isEmpty());
    EXPECT_EQ(world[0]->footer.text().trimmed(), "Not sent: offline");
    world[0]->own.online = true;

    trigger(*form, "mnuRebuildUsers");
    EXPECT_TRUE(names().isEmpty());
    world.run(4);
    EXPECT_EQ(names().size(), 3);

    world.clock.skipWall(10 * 60);
    world[0]->endpoints.Refresh_Endpoint({}, {}, {}, {}, world[0]->own.SID, {}, {});
    trigger(*form, "mnuLFD_Connections");
    EXPECT_EQ(names(), QStringList({"Room 1"}));

    codesSent();
    trigger(*form, "mnuReset");
    world.run(6);
    const QStringList codes = codesSent();
    EXPECT_TRUE(codes.contains("XD") && codes.contains("XAN"));

    world[0].desktop.calls.clear();
    trigger(*form, "mnuNetworkSettings");
    trigger(*form, "mnuInformation");
    trigger(*form, "mnuShowDataFiles");
    world[0]->log.LogEvent(QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("c"));
    trigger(*form, "mnuLog");
    const QStringList expected = {
        QStringLiteral("showWindow %1").arg(static_cast<int>(WindowId::Adapters)),
        QStringLiteral("showWindow %1").arg(static_cast<int>(WindowId::NetworkInfo)),
        QStringLiteral("openPath "), QStringLiteral("openPath error.txt")};
    EXPECT_EQ(world[0].desktop.calls, expected);

    trigger(*form, "mnuExit");
    EXPECT_FALSE(form->isVisible());
}

// What a row holds is read out over the telephone; a foreign packet must not forge a line of it.
TEST_F(ActiveConnections, DoubleClickTellsTheRow) {
    RawPacket packet;
    packet.code = QStringLiteral("XAN");
    packet.location = QStringLiteral("<h1>Big</h1>\nHost: forged ") + QString(200, u'W');
    packet.note = QStringLiteral("Back soon");
    packet.tagWord = QStringLiteral("7:0");
    world.network.inject(packet.bytes());
    world.run(1);
    form->grid()->syncNow();
    ASSERT_TRUE(form->grid()->selectKey(static_cast<int>(EndpointItem::SID), packet.SID));
    const QModelIndex row = form->grid()->currentIndex();
    QTest::mouseDClick(form->grid()->viewport(), Qt::LeftButton, {}, form->grid()->visualRect(row).center());

    QMessageBox* const box = openBox();
    ASSERT_NE(box, nullptr);
    EXPECT_EQ(box->windowTitle(), "Tessel Status");
    EXPECT_EQ(box->textFormat(), Qt::PlainText);
    const QStringList lines = box->text().split(u'\n');
    ASSERT_EQ(lines.size(), 11);
    EXPECT_TRUE(lines[0].startsWith("Active: <h1>Big</h1> Host: forged WWW"));
    EXPECT_LT(lines[0].size(), 120);
    EXPECT_EQ(lines[1], "Host: outside");
    EXPECT_EQ(lines[3], "Flags: 7:0");
    EXPECT_EQ(lines[4], "SessionID: " + packet.SID);
    EXPECT_EQ(lines[6], "KA: ");
    EXPECT_EQ(lines[9], "Tag: 7");
    EXPECT_EQ(lines[10], "Location Note: Back soon");
    QTest::keyClick(box, Qt::Key_Escape);
    EXPECT_EQ(openBox(), nullptr);
}

// A copied identity is the fault that offices have most: whoever looks must see it, and what helps.
TEST_F(ActiveConnections, TellsOfACopiedIdentityAndOffersAnother) {
    auto* const notice = form->findChild<QWidget*>(QStringLiteral("IdentityNotice"));
    ASSERT_NE(notice, nullptr);
    EXPECT_FALSE(notice->isVisible());
    world.network.inject(RawPacket{.SID = world[0]->own.SID, .host = "cl<b>one", .code = "XRKA"}.bytes(),
                         0xC0A80105);
    world.run(1);
    EXPECT_TRUE(notice->isVisible());
    EXPECT_EQ(notice->findChild<QLabel*>()->text(),
              "Another computer uses this location's identity: cl<b>one 192.168.1.5");
    EXPECT_EQ(world[0]->footer.text().trimmed(), "Another computer uses this location's identity");
    world.run(120);
    EXPECT_EQ(world[0]->footer.text().trimmed(), "Another computer uses this location's identity")
        << "as long as it is so";

    const QString before = SIDInFile();
    notice->findChild<QPushButton*>(QStringLiteral("cmdResetSID"))->click();
    ASSERT_NE(openBox(), nullptr);
    QTest::mouseClick(openBox()->button(QMessageBox::Yes), Qt::LeftButton);
    EXPECT_NE(SIDInFile(), before);
    ASSERT_NE(openBox(), nullptr);
    EXPECT_EQ(openBox()->text(), "You will need to restart Tessel Status to complete this action.");
}

// A new SID makes this location a stranger to all favorites: nobody may get one by pressing Enter.
TEST_F(ActiveConnections, TheSIDQuestionIsNoUnlessYesIsChosen) {
    const QString before = SIDInFile();
    ASSERT_FALSE(before.isEmpty());
    for (const auto key : {Qt::Key_Return, Qt::Key_Escape}) {
        QMessageBox* const box = askSID();
        ASSERT_NE(box, nullptr);
        EXPECT_EQ(box->windowTitle(), "Delete SessionID");
        EXPECT_EQ(box->icon(), QMessageBox::Warning);
        EXPECT_TRUE(box->text().startsWith("Please confirm SID Deletion.\n\nNote the Following: \n"));
        EXPECT_TRUE(box->text().endsWith("client has a duplicate SID.\n\n\nThis action cannot be undone."));
        QTest::keyClick(box, key);
        EXPECT_EQ(openBox(), nullptr);
        EXPECT_EQ(SIDInFile(), before);
    }
    EXPECT_TRUE(world[0]->own.online);

    QMessageBox* const box = askSID();
    ASSERT_NE(box, nullptr);
    QTest::mouseClick(box->button(QMessageBox::Yes), Qt::LeftButton);
    EXPECT_NE(SIDInFile(), before);
    EXPECT_EQ(SIDInFile().size(), 12);
    EXPECT_FALSE(world[0]->own.online);
    ASSERT_NE(openBox(), nullptr);
    EXPECT_EQ(openBox()->text(), "You will need to restart Tessel Status to complete this action.");
    world.run(6);
    EXPECT_TRUE(world[0]->own.online);
}
