// Messages on their way out: to those who were chosen, in a packet that arrives, with one entry in the
// history; and groups and snippets, from which they are made.
#include "support/LoneStation.h"

#include "engine/alerts/mod_SentView.h"
#include "engine/core/mod_CodePage.h"
#include "engine/core/mod_FileTools.h"

#include <gtest/gtest.h>

using namespace tessel;

namespace {

class Composing : public testing::Test {
protected:
    Composing() {
        world.settle();
        for (std::size_t i = 0; i < world.size(); ++i) {
            QObject::connect(&world[i]->messages, &Messages::arrived,
                             [this, i](const ReceivedMessage& message) {
                                 arrived[i] += message.kind + u'/' + message.text;
                             });
        }
    }
    Recipient recipient(std::size_t i) { return {world[i]->own.location, world[i]->own.SID}; }
    MessageDraft draft(const QList<Recipient>& to, const QString& text) {
        return {false, JoinRecipients(to), static_cast<int>(to.size()), text};
    }
    SendResult send(const MessageDraft& message) {
        const SendResult result = world[0]->compose.CreateMessage(message);
        world.run(1);
        return result;
    }
    // Values of the newest record of the sender's history.
    QStringList entry() {
        const ReportRecords& rows = world[0]->history.rptNotifications;
        return rows.count() == 0 ? QStringList() : item(*rows.at(0), CardItem::Record).text.split(ValueMark);
    }

    World world{3};
    std::array<QStringList, 3> arrived;
};

} // namespace

TEST_F(Composing, ReachesThoseWhoWereChosenAndNobodyElse) {
    EXPECT_EQ(send(draft({recipient(1)}, " to one ")), SendResult::Sent);
    EXPECT_EQ(entry().mid(0, 4).join(','), "1,0,3,0");
    EXPECT_EQ(entry().mid(5, 3), QStringList({"Room 2", world[1]->own.SID, " to one "}));
    EXPECT_EQ(send(draft({recipient(1), recipient(2)}, "to two")), SendResult::Sent);
    EXPECT_EQ(entry().mid(0, 4).join(','), "1,0,1,0");
    EXPECT_EQ(SplitRecipients(entry()[5]), QList<Recipient>({recipient(1), recipient(2)}));
    EXPECT_EQ(entry()[6], QString());
    EXPECT_EQ(send({true, {}, 0, "to all"}), SendResult::Sent);
    EXPECT_EQ(entry().mid(0, 4).join(','), "1,0,1,-1");
    EXPECT_EQ(arrived[1], QStringList({"0/ to one ", "0/to two", "0/to all"}));
    EXPECT_EQ(arrived[2], QStringList({"0/to two", "0/to all"}));
    EXPECT_TRUE(arrived[0].isEmpty());

    EXPECT_EQ(send({false, {}, 0, "to nobody"}), SendResult::NoRecipient);
    EXPECT_EQ(send({true, {}, 0, "  x "}), SendResult::TooShort);
    world[0]->own.online = false;
    EXPECT_EQ(send({true, {}, 0, "too early"}), SendResult::Offline);
    EXPECT_EQ(arrived[1].size(), 3);
    EXPECT_EQ(world[0]->history.rptNotifications.count(), 3);
}

TEST_F(Composing, TheQuickPathReachesALocationOrItsColour) {
    const AlertTarget target{world[1]->own.SID, world[1]->own.TAG, "Room 2"};
    world[2]->own.TAG = world[1]->own.TAG;
    world[0]->alerts.SendQuickAlert(QuickAlert::Message, target, "quick");
    world[0]->alerts.SendQuickAlert(QuickAlert::Message, target, "G:colour :|: cut");
    world.run(1);
    EXPECT_EQ(arrived[1], QStringList({"0/quick", "0/colour "}));
    EXPECT_EQ(arrived[2], QStringList({"0/colour "}));
    EXPECT_EQ(entry()[7], "colour :|: cut");
    const Footer& footer = world[0]->footer;
    world[0]->alerts.SendQuickAlert(QuickAlert::Message, {"999AA999AAA9", 41, "Lab"}, "has left");
    EXPECT_EQ(footer.text().trimmed(), "Lab is offline");
}

TEST_F(Composing, NoTextCutsItsPacket) {
    const QString text = QStringLiteral("a.\u20AC.\u20AC.b <\u20ACp> R\u20AC \":|:<b>");
    send({true, {}, 0, text});
    EXPECT_EQ(arrived[1],
              QStringList({QStringLiteral("0/a. \u20AC . \u20AC .b \u2039 \u20ACP> R\u20AC \":|:<b>")}));
    world[1]->own.location = QStringLiteral("Room: 2 :|: R\u20AC");
    send(draft({recipient(1)}, "to a bad name"));
    EXPECT_EQ(arrived[1].size(), 2);
}

TEST_F(Composing, MoreRecipientsThanAPacketHoldsGetSeveral) {
    QList<Recipient> many{recipient(1)};
    for (int i = 0; i < 600; ++i) {
        many += {QStringLiteral("Location with a long name %1").arg(i), QStringLiteral("000AA000A%1").arg(i)};
    }
    many += recipient(2);
    const std::size_t before = world.network.sent.size();
    EXPECT_EQ(send(draft(many, "to very many")), SendResult::Sent);
    EXPECT_EQ(arrived[1] + arrived[2], QStringList({"0/to very many", "0/to very many"}));
    EXPECT_EQ(world[0]->history.rptNotifications.count(), 1);
    for (std::size_t i = before; i < world.network.sent.size(); ++i) {
        EXPECT_LE(world.network.sent[i].size(), 8048);
    }
    EXPECT_EQ(send(draft({recipient(1)}, QString(8000, 'x'))), SendResult::TooLong);
    EXPECT_EQ(world[0]->history.rptNotifications.count(), 1) << "what was not sent is no entry";
}

TEST_F(Composing, TellsWhoIsOff) {
    const QString all = JoinRecipients({recipient(0), recipient(1), {"Gone", "1"}, {"Away", "2"}});
    EXPECT_EQ(world[0]->compose.VerifyOnlineList(all), QStringList({"Gone", "Away"}));
    EXPECT_TRUE(world[0]->compose.VerifyOnlineList({}).isEmpty());
}

TEST_F(Composing, AnAnswerQuotesAndTakesTheMessageOutOfTheInbox) {
    send(draft({recipient(1), recipient(2)}, "come :|: please"));
    Reply& reply = world[1]->reply;
    world[1]->inbox.setFocused(world[1]->inbox.rptMessages.rows().front());
    world[1]->inbox.GetMessageFromList();
    EXPECT_EQ(reply.original(), "come \r\n please\r\n");
    EXPECT_TRUE(reply.heading().startsWith("From: Room 1 @ 9:00:"));
    EXPECT_TRUE(reply.canReply() && reply.offersAcknowledge());
    EXPECT_EQ(reply.CreateMessage(" x "), SendResult::TooShort);
    EXPECT_EQ(world[1]->inbox.rptMessages.count(), 1);
    EXPECT_EQ(reply.CreateMessage(reply.acknowledgement()), SendResult::Sent);
    world.run(1);
    EXPECT_EQ(world[1]->inbox.rptMessages.count(), 0);
    EXPECT_EQ(world[2]->inbox.rptMessages.count(), 1);
    ASSERT_EQ(arrived[0].size(), 1);
    EXPECT_EQ(arrived[0][0], "1/Acknowledged - come \r\n please\r\n:|:(" + reply.message().time +
                                 ") Room 1 : come \r\n please\r\n");
    const ReportRecords& log = world[1]->history.rptNotifications;
    EXPECT_EQ(item(*log.at(0), CardItem::Record).text.split(ValueMark).mid(0, 4).join(','), "1,1,2,0");

    // From the history, a message to everyone is answered to everyone; one from afar not at all.
    world[1]->history.Open_Recent(item(*log.at(0), CardItem::Record).text);
    EXPECT_FALSE(reply.offersAcknowledge() || reply.ReplyToEveryone());
    reply.LoadMessage({"0", true, "id", "Gone", "000AA000AAA0", "text", "9:00:00 AM", "3/2/2026"}, true);
    EXPECT_TRUE(reply.canReply());
    EXPECT_EQ(reply.CreateMessage("answer to all"), SendResult::Sent);
    world.run(1);
    EXPECT_TRUE(arrived[2].back().startsWith("0/answer to all:|:"));
    reply.LoadMessage({"0", false, "id", "Gone", "000AA000AAA0", "text", "9:00:00 AM", "3/2/2026"}, false);
    EXPECT_FALSE(reply.canReply());

    reply.LoadMessage({"0", false, "id", "Room 1", world[0]->own.SID, QString(7500, 'q'), {}, {}}, false);
    EXPECT_EQ(reply.CreateMessage(QString(3000, 'a')), SendResult::Sent);
    world.run(1);
    EXPECT_TRUE(arrived[0].back().startsWith("1/aaa")) << "an answer to a long message must arrive";
}

TEST_F(Composing, ASentMessageShowsWhoGotIt) {
    const auto view = [this] {
        world[0]->history.Open_Recent(item(*world[0]->history.rptNotifications.at(0), CardItem::Record).text);
        return SentViewOf(world[0]->history.openedMessage());
    };
    send(draft({recipient(1), recipient(2)}, "to two"));
    EXPECT_EQ(view().to, "Room 2, Room 3");
    EXPECT_EQ(view().recipients, QList<Recipient>({recipient(1), recipient(2)}));
    EXPECT_TRUE(view().stamp.startsWith(" Sent @ 9:00:"));
    send(draft({recipient(2)}, "to one"));
    EXPECT_EQ(view().to + view().text, "Room 3to one");
    send({true, {}, 0, "to all"});
    EXPECT_EQ(view().to, "Everyone");
}

using GroupFile = LoneStation;

TEST_F(GroupFile, GroupsKeepTheirMembersAndFreeSlotsTheirNumber) {
    begin();
    const QString members = JoinRecipients({{"Ann", "1"}, {"Bob: desk", "2"}});
    EXPECT_EQ(me->groups.caption(2), "Create Group");
    EXPECT_TRUE(me->groups.SaveGroup(2, {}, members));
    EXPECT_EQ(me->groups.caption(2), "Group 3");
    EXPECT_EQ(me.get("groups.dat", "3", "Name"), "Group 3");
    EXPECT_EQ(me.get("groups.dat", "3", "Members"), "Ann:1:|:Bob  desk:2");
    EXPECT_FALSE(me->groups.SaveGroup(2, "Too many", QString(9000, 'x')));
    EXPECT_EQ(me->groups.at(2).members, members) << "a group that a key cannot hold would come back cut";

    me->groups.SaveGroup(9, "Empty", {});
    EXPECT_FALSE(me->groups.at(9).used);
    EXPECT_TRUE(me->groups.DeleteGroup(2));
    EXPECT_EQ(me->groups.caption(2), "Create Group");
    EXPECT_FALSE(me.fileBytes("groups.dat").contains("[3]"));
}

TEST_F(GroupFile, SnippetsStandInTheOrderOfTheList) {
    begin();
    Snippets& snippets = me->snippets;
    while (!snippets.list().isEmpty()) {
        snippets.remove(0);
    }
    EXPECT_FALSE(snippets.AddSnippit({}));
    snippets.AddSnippit("second \"quoted\"");
    snippets.AddSnippit("first");
    EXPECT_EQ(me.fileBytes("snippet.dat"), "2\r\n\"first\"\r\n\"second .|.quoted.|.\"\r\n");
    EXPECT_EQ(snippets.move(0, -1), 0);
    EXPECT_EQ(snippets.move(0, 1), 1);
    snippets.LoadSnippets();
    EXPECT_EQ(snippets.list(), QStringList({"second \"quoted\"", "first"}));

    replaceFile(me->folders.dataFile("snippet.dat"), "2\r\n\"one\"\r\n\"\"\r\n\"three\"\r\n\"cut");
    snippets.LoadSnippets();
    EXPECT_EQ(snippets.list().front(), "one");
}
