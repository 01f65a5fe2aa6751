// The text of packets on the wire: what other versions and other makers' tools rely on, and what
// anybody on the network may send.
#include "engine/core/mod_Limits.h"
#include "engine/network/mod_Encode.h"
#include "support/LoneStation.h"

#include <gtest/gtest.h>

#include <random>

using namespace tessel;

namespace {

const QByteArray kMark = "R\x80";
const QByteArray kEnd = "<\x80P>";
const QByteArray kValue = ".\x80.";
const QString kEuroMark = QStringLiteral("R\u20AC");

QByteArray joined(const QList<QByteArray>& parts, const QByteArray& mark) {
    return parts.join(mark);
}

class Packets : public LoneStation {
protected:
    QByteArray lastSent() const { return world.network.sent.back(); }
};

} // namespace

TEST(CodePage, EveryCodeComesBackAndWhatHasNoneIsOneQuestionMark) {
    QByteArray all;
    for (int code = 0; code < 256; ++code) {
        all += static_cast<char>(code);
    }
    EXPECT_EQ(toBytes(toText(all)), all);
    EXPECT_EQ(toBytes(u"\u20AC\u2122\u00FC"), "\x80\x99\xFC");
    EXPECT_EQ(toBytes(u"a\u0416\u4E2D?b"), "a???b");
    EXPECT_EQ(toBytes(u"x\U0001F600y\U0001F600"), "x?y?");
    const QChar halves[] = {QChar(0xDE00), QChar(u'a'), QChar(0xD83D)};
    EXPECT_EQ(toBytes(QStringView(halves, 3)), "?a?");
}

TEST(Scrambler, TwiceIsNothingAndOnlyThePositionCounts) {
    std::mt19937 random(7);
    for (const int size : {0, 1, 2, 255, 8048, 65535, 70000}) {
        QByteArray body(size, Qt::Uninitialized);
        for (char& byte : body) {
            byte = static_cast<char>(random());
        }
        const QByteArray scrambled = EncodeBody(body);
        EXPECT_EQ(scrambled.size(), size);
        EXPECT_EQ(EncodeBody(scrambled), body) << size;
        EXPECT_EQ(EncodeBody(body.left(100)), scrambled.left(100));
    }
    const QByteArray mask = EncodeBody(QByteArray(4096, '\0'));
    EXPECT_EQ(EncodeBody("a")[0], static_cast<char>('a' ^ mask[0]));
    EXPECT_LT(mask.count('\0'), 60) << "a mask of zeroes hides nothing";
    // What stations of this version send to each other: another mask would cut an office in two.
    EXPECT_EQ(mask.left(8).toHex(), "0c5709965c89002e");
}

TEST_F(Packets, ByteForByte) {
    begin();
    const QByteArray empty = joined({"", "", "0", "", "0", "", "", "0", ""}, kValue);
    EXPECT_EQ(
        world.network.sent.front(),
        joined({"TSL2", "111AA111AAA1", "host1", "Room 1", "XAN", empty, "", "1:0", kVersion, kEnd}, kMark));

    me->own.TAG = 41;
    me->own.note = QStringLiteral("back at 5 \u20AC");
    me->own.status = "At lunch";
    me->own.statusTime = "9:00:05 AM";
    me->own.statusTone = "Bell";
    me->own.occupied = true;
    me->own.occupiedTime = "8:59:00 AM";
    me->own.patientName = QStringLiteral("M\u00FCller \u4E2D");
    me->own.staffTag = 39;
    me->own.staffTagTime = "8:00:00 AM";
    me->own.doNotDisturb = true;
    me->protocol.SendPacket(u"XAD1", u"999XX999XXX9", u"  third ");
    const QByteArray full = joined(
        {"At lunch", "9:00:05 AM", "-1", "M\xFCller ?", "39", "8:00:00 AM", "8:59:00 AM", "-1", "Bell"},
        kValue);
    EXPECT_EQ(lastSent(), joined({"TSL2", "111AA111AAA1", "host1", "Room 1", "XAD1", full, "back at 5 \x80",
                                  "41:third", "999XX999XXX9", kEnd},
                                 kMark));
}

TEST_F(Packets, SeveralInOneDatagram) {
    begin();
    const double before = me->protocol.bytesReceived();
    QByteArray datagram;
    for (const char* const SID : {"A", "B", "C"}) {
        datagram += RawPacket{.SID = SID, .code = "XAN"}.bytes();
    }
    datagram.replace(kEnd, "<\x80p>");
    me->protocol.receive(datagram);
    EXPECT_EQ(world.locations(0), 4);
    EXPECT_EQ(me->protocol.bytesReceived() - before, datagram.size());
    // A bad one among them costs only itself, and the last one may come without its end.
    const QByteArray mixed = "junk" + kEnd + RawPacket{.SID = "D", .code = "XAN"}.bytes() + kEnd + kEnd +
                             RawPacket{.SID = "E", .code = "XAN"}.bytes().chopped(4);
    me->protocol.receive(mixed);
    EXPECT_EQ(world.locations(0), 6);
    me->protocol.receive("no mark at all");
    EXPECT_EQ(me->protocol.bytesReceived() - before, datagram.size() + mixed.size() + 14);
}

TEST_F(Packets, MarksInsideTheBodySurviveAndInTheHeaderShift) {
    begin();
    QStringList texts;
    QObject::connect(&me->messages, &Messages::arrived, [&](const ReceivedMessage& m) { texts += m.text; });
    hear("XATE", body({"0", ":", "ID1", "pay 5 " + kEuroMark + " or r\u20AC now " + kEuroMark}));
    EXPECT_EQ(texts, QStringList("pay 5 " + kEuroMark + " or r\u20AC now " + kEuroMark));

    // There is no escaping: the host swallows the rest, so the code is no code.
    hear({.SID = "B", .host = "pr\u20ACx", .code = "XAN"});
    EXPECT_EQ(row("B"), nullptr);
    // Behind the code only what follows is out of place.
    hear({.SID = "C", .code = "XAN", .note = "a" + kEuroMark + "b", .tagWord = "3:"});
    EXPECT_EQ(cell(EndpointItem::Note, "C"), "a");
    EXPECT_EQ(cell(EndpointItem::Flags, "C"), "b");
    hear({.SID = "D", .code = "XAN", .note = QStringLiteral("a<\u20ACp>b")});
    EXPECT_EQ(cell(EndpointItem::Note, "D"), "a");
    EXPECT_EQ(world.locations(0), 3);
}

// Whatever arrives: the station takes the next good packet as if nothing had been.
TEST_F(Packets, CutDamagedAndHostileDatagramsDoNoHarm) {
    begin();
    const auto fine = [this] {
        static int number = 0;
        const QString SID = QStringLiteral("ok%1").arg(++number);
        hear("XAN", {}, SID);
        const bool heard = row(SID) != nullptr;
        hear("XD", {}, SID);
        return heard && row(SID) == nullptr;
    };
    QString stuffed = QString(60, u'\u20AC') + kEuroMark + ValueMark + ListMark + "<\u20ACP";
    for (const CatalogueRow& code : kCatalogue) {
        if (code.code == Code::ZA00 || code.code == Code::ZA01) {
            continue;
        }
        const QString name = QString::fromLatin1(code.name.data(), static_cast<qsizetype>(code.name.size()));
        const QByteArray packet = RawPacket{.SID = "cut",
                                            .code = name,
                                            .presence = presence("Out", "9:00:00 AM", true, "Ann", 31),
                                            .note = "note",
                                            .body = kMe + ValueMark + "1" + ListMark + "x" + ListMark + "y"}
                                      .bytes();
        for (qsizetype length = 0; length <= packet.size(); ++length) {
            me->protocol.receive(packet.left(length));
        }
        for (const QString& text :
             {stuffed, QString(65000, u'x'), QString(20000, u'\u20AC'), QString(QChar(0)),
              ValueMark.repeated(7000), ListMark.repeated(7000), QString("-99999999999")}) {
            hear({.SID = text, .code = name, .body = kMe + ValueMark + text});
            hear({.host = text, .location = text, .code = name, .presence = text, .body = text});
            hear({.code = name,
                  .presence = presence(text, text, true, text, 3, text),
                  .note = text,
                  .tagWord = text,
                  .body = kMe + ValueMark + text + ListMark + text});
        }
        ASSERT_TRUE(fine()) << code.name;
    }
    EXPECT_TRUE(fine());
    EXPECT_TRUE(me->own.online);
    for (const auto& record : me->endpoints.records().rows()) {
        EXPECT_LE(item(*record, EndpointItem::Active).text.size(), kMaxRowText);
        EXPECT_LE(item(*record, EndpointItem::Note).text.size(), kMaxRowText);
        EXPECT_LE(item(*record, EndpointItem::Presence).text.size(), kMaxPresenceText);
    }
}

// Somebody else may ask for a note or a status: the own packets must stay short enough to send.
TEST_F(Packets, WhatOthersAskForCannotSilenceTheStation) {
    begin();
    hear("XALN", body({kMe, QString(9000, u'n')}));
    hear("XAS2", body({kMe, QString(9000, u's'), {}}));
    hear("XALSN", body({kMe, QString(9000, u'p')}));
    for (const QByteArray& packet : world.network.sent) {
        EXPECT_LT(packet.size(), 2000);
    }
    user("User", "LOCATION", QString(8000, u'l'));
    user("Note", "ACTIVE", QString(8000, u'n'));
    me->start();
    world.run(10);
    EXPECT_LT(lastSent().size(), 2000);
}
