// A text that holds a mark must not cut or shift what it travels in: a location that was given one would
// be garbled to all others from then on, also after a restart.
#include "engine/core/mod_CodePage.h"
#include "engine/network/mod_FitText.h"
#include "support/World.h"

#include <gtest/gtest.h>

#include <functional>

using namespace tessel;

namespace {

const QStringList kMarks{"R\u20AC",
                         "r\u20AC",
                         "<\u20ACP>",
                         "<\u20ACp>",
                         ".\u20AC.",
                         ".A\u20AC",
                         ".a\u20AC",
                         ":|:",
                         "<R\u20ACP>",
                         "..\u20AC\u20AC.",
                         ".R\u20AC.",
                         "RR\u20AC\u20AC",
                         "<\u20AC<\u20ACP>P>",
                         ".<\u20ACP>\u20AC.",
                         ".\u20AC"};

bool holdsMark(const QString& text) {
    const QByteArray bytes = toBytes(text);
    return findMark(bytes, kFieldMark, 0) >= 0 || findMark(bytes, kPacketEnd, 0) >= 0 ||
           findMark(bytes, kValueMark, 0) >= 0 || findMark(bytes, kAuthorMark, 0) >= 0;
}

} // namespace

TEST(FitText, MarksGoAndNothingElse) {
    EXPECT_EQ(FitText(u"aR\u20ACb r\u20AC <\u20ACp> .\u20AC. .a\u20AC"), "a b" + QString(8, u' '));
    const QString plain = QStringLiteral("5 \u20AC, <50\u20AC> R:|:S .A. \u20AC.");
    EXPECT_EQ(FitText(plain), plain);
    for (const QString& mark : kMarks) {
        // What is left when a mark goes must not make another with what stands around it.
        for (const QString& text : {mark, "a" + mark + "b", "R" + mark + "\u20AC", "." + mark + "\u20AC.",
                                    "<\u20AC" + mark + "P>", mark + mark, "x" + mark.chopped(1)}) {
            const QString fit = FitText(text);
            EXPECT_FALSE(holdsMark(fit)) << text.toStdString();
            // Nor with the marks that a packet puts around it.
            EXPECT_EQ(QString("0" + ValueMark + fit.trimmed() + ValueMark + "2").split(ValueMark),
                      QStringList({"0", fit.trimmed(), "2"}))
                << text.toStdString();
            EXPECT_EQ(FitText(fit), fit);
            EXPECT_LE(fit.size(), text.size());
        }
    }
}

TEST(FitText, ItemsOfLists) {
    const QString SID = QStringLiteral("111AA111AAA1");
    EXPECT_EQ(ListItem(u"Room 3: X-ray", SID), "Room 3  X-ray:" + SID);
    for (const QString& mark : kMarks) {
        const QString item = ListItem(mark + "Room" + mark, SID);
        const QStringList two = QString(item + ListMark + item).split(ListMark);
        ASSERT_EQ(two.size(), 2) << mark.toStdString();
        EXPECT_EQ(two[1].count(u':'), 1);
        EXPECT_TRUE(ListItemIs(two[1], SID));
        EXPECT_EQ(ListItemSID(two[0]).toString(), SID);
        const QStringList favorite = FavoriteValue(mark + ":", SID, u"0").split(ListMark);
        ASSERT_EQ(favorite.size(), 3) << mark.toStdString();
        EXPECT_EQ(favorite[1] + favorite[2], SID + "0");
        EXPECT_FALSE(holdsMark(item + favorite[0]));
    }
    // As older stations build them.
    EXPECT_TRUE(ListItemIs(QString("Room 3: X-ray:" + SID), SID));
    EXPECT_TRUE(ListItemIs(u"Room:A:B", u"A:B"));
    EXPECT_FALSE(ListItemIs(SID, SID));
    EXPECT_FALSE(ListItemIs(u"Room:", u""));
    EXPECT_EQ(ListItemName(u"Room 3: X-ray:1").toString(), "Room 3: X-ray");
}

TEST(FitText, AnOwnDoorbellArrivesWholeWhateverTheLocationWasGiven) {
    World world(2);
    WorldStation& me = world[0];
    world.settle();
    const auto receive = [&](const char* code, const QString& value) {
        me->protocol.receive(
            RawPacket{.code = code, .body = me->own.SID + ValueMark + value + ValueMark}.bytes());
    };
    const auto restart = [&] {
        me->start();
        me->loadMain();
        me->network.Network_Start();
    };
    struct Road {
        const char* name;
        std::function<void(const QString&)> set;
    };
    const std::vector<Road> roads{
        {"note from afar", [&](const QString& text) { receive("XALN", text); }},
        {"note by hand", [&](const QString& text) { me->presence.SetLocationNote(text); }},
        {"note by command", [&](const QString& text) { me->remoteCommands.execute("/note:" + text); }},
        {"note of the file",
         [&](const QString& text) {
             me.set(kUserFile, "Note", "ACTIVE", text);
             restart();
         }},
        {"status from afar", [&](const QString& text) { receive("XAS2", text); }},
        {"status by hand", [&](const QString& text) { me->status.choose(text, -1); }},
        {"status by command", [&](const QString& text) { me->remoteCommands.execute("/status:" + text); }},
        {"quick status",
         [&](const QString& text) {
             world.run(3);
             me->status.TurnOffStatus();
             me.set(kStatusFile, "status", "M4", text);
             me->status.LoadStatusSettings();
             me->status.SetStatus(4);
         }},
        {"shared status",
         [&](const QString& text) {
             me.set(kSharedFile, "SharedStatus", "3", text + ListMark + text);
             me->sharedStatus.LoadSharedStatus();
             me->status.SetStatusIDX(3);
         }},
        {"patient from afar", [&](const QString& text) { receive("XALSN", text); }},
        {"patient by hand", [&](const QString& text) { me->presence.SetOccupiedStatusRemote(true, text); }},
        {"staff tag of a packet under the own SID",
         [&](const QString& text) {
             const QString block =
                 QStringList{{}, {}, "0", {}, "31", text.chopped(2), {}, "0", {}}.join(ValueMark);
             me->protocol.receive(RawPacket{.SID = me->own.SID, .code = "XAST", .presence = block}.bytes());
         }},
        {"name of the file",
         [&](const QString& text) {
             me.set(kUserFile, "User", "LOCATION", text);
             restart();
         }},
        {"name in the welcome",
         [&](const QString& text) {
             me->profile.SaveWelcome({text, 1, false});
             me->profile.LoadLocationName();
         }},
        {"host",
         [&](const QString& text) {
             me.facts.hostName = text;
             me.station->loadMain();
         }},
    };
    for (const Road& road : roads) {
        for (const QString& mark : kMarks) {
            SCOPED_TRACE(std::string(road.name) + " " + mark.toStdString());
            if (me->own.occupied) {
                me->presence.SetOccupiedStatusRemote(false, {});
            }
            road.set("ab" + mark + "cd");
            world[1]->alertBar.TurnOff_AlertBar();
            me->alerts.sendToOne(QuickAlert::DoorBell, world[1]->own.SID, "come" + mark + "now");
            int pieces = 0;
            splitDatagram(world.network.sent.back(), [&](QByteArrayView) { ++pieces; });
            EXPECT_EQ(pieces, 2) << "one packet, and nothing behind its end";
            const auto packet = cPacket::parse(world.network.sent.back(), true);
            ASSERT_TRUE(packet.has_value());
            EXPECT_EQ(packet->bytes(Field::Code), QByteArrayView("XAD1"));
            EXPECT_EQ(packet->text(Field::Host), me->own.host);
            EXPECT_EQ(packet->text(Field::Location), me->own.location);
            EXPECT_EQ(packet->text(Field::Presence).count(ValueMark), 8);
            EXPECT_EQ(packet->text(Field::Note), me->own.note);
            EXPECT_EQ(packet->text(Field::TagWord), QString::number(me->own.TAG) + ":");
            world.run(1);
            ASSERT_TRUE(world[1]->alertBar.AlertBarShown());
            EXPECT_EQ(world[1]->alertBar.content().text, FitText(QString("come" + mark + "now")));
        }
    }
}
