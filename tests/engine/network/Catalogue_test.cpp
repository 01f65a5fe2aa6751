// Which station a packet concerns. A wrong answer here rings a bell in the wrong room.
#include "engine/network/mod_Encode.h"
#include "support/LoneStation.h"

#include <gtest/gtest.h>

using namespace tessel;

namespace {

enum class To { Everyone, OwnToo, BodySID, SID, Tag, ListTag };

struct Expected {
    const char* code;
    To to;
};

// Written down a second time on purpose, apart from the program's own table.
constexpr Expected kExpected[] = {
    {"XRKA", To::Everyone}, {"XAN", To::OwnToo},    {"XANR", To::Everyone}, {"XD", To::OwnToo},
    {"XAS", To::OwnToo},    {"XALNU", To::OwnToo},  {"XALU", To::OwnToo},   {"XALS", To::BodySID},
    {"XALSN", To::SID},     {"XALN", To::SID},      {"XAST", To::OwnToo},   {"XASTR", To::SID},
    {"XAD0", To::Everyone}, {"XAD1", To::SID},      {"XAD1T", To::Tag},     {"XAS0", To::Everyone},
    {"XAS1", To::BodySID},  {"XAS2", To::SID},      {"XAP", To::SID},       {"XAPT", To::Tag},
    {"XAUM", To::SID},      {"XAUMT", To::Tag},     {"XATM", To::Everyone}, {"XATE", To::Everyone},
    {"XATG", To::ListTag},  {"ZA00", To::OwnToo},   {"ZA01", To::OwnToo},   {"ZA05", To::SID},
    {"ZA06", To::SID},      {"ZS01", To::Everyone}, {"ZS02", To::Everyone}, {"ZAAS", To::SID},
    {"ZAGS", To::SID}};

class Catalogue : public LoneStation {
protected:
    // Whether a packet of this code passes to its handler.
    bool passes(const CatalogueRow& row, const QString& body, const QString& from = kOther) {
        bool acted = false;
        me->protocol.attach(row.code, [&acted](const cPacket&) { acted = true; });
        hear(QString::fromLatin1(row.name.data(), static_cast<qsizetype>(row.name.size())), body, from);
        return acted;
    }
};

} // namespace

TEST_F(Catalogue, EachCodeReachesThoseItIsMeantFor) {
    begin();
    me->own.TAG = 41;
    ASSERT_EQ(std::size(kExpected), kCodeCount);
    for (std::size_t i = 0; i < kCodeCount; ++i) {
        const CatalogueRow& row = kCatalogue[i];
        const To to = kExpected[i].to;
        SCOPED_TRACE(kExpected[i].code);
        EXPECT_EQ(row.name, kExpected[i].code);
        const QString SIDBody = to == To::BodySID ? kMe : kMe + ValueMark + "x";
        const QString tagBody = to == To::ListTag ? "41" + ListMark + "x" : "41" + ValueMark + "x";
        const bool anybody = to == To::Everyone || to == To::OwnToo;
        EXPECT_EQ(passes(row, {}), anybody);
        EXPECT_EQ(passes(row, SIDBody), anybody || to == To::SID || to == To::BodySID);
        EXPECT_EQ(passes(row, tagBody), anybody || to == To::Tag || to == To::ListTag);
        EXPECT_EQ(passes(row, kOther + ValueMark + "x"), anybody);
        EXPECT_EQ(passes(row, kMe.toLower() + ValueMark + "x"), anybody) << "a SID matches exactly";
        EXPECT_EQ(passes(row, kMe + " "), anybody);
        EXPECT_EQ(passes(row, "40" + ValueMark + "x"), anybody);
        EXPECT_EQ(passes(row, "4" + ListMark + "1"), anybody);
        for (const QString& own : {SIDBody, tagBody}) {
            EXPECT_EQ(passes(row, own, kMe), to == To::OwnToo) << "the station's own packet";
        }
        if (to == To::Tag || to == To::ListTag) {
            const QString tail = tagBody.mid(2);
            EXPECT_TRUE(passes(row, "41.0" + tail)) << "tags compare as numbers";
            EXPECT_TRUE(passes(row, " 41 " + tail));
            EXPECT_FALSE(passes(row, "41x" + tail));
            EXPECT_FALSE(passes(row, "nan" + tail));
            EXPECT_FALSE(passes(row, QString(40000, u'0') + "41" + tail));
            me->own.TAG = 0;
            EXPECT_FALSE(passes(row, tail)) << "no tag is not tag 0";
            me->own.TAG = 41;
        }
    }
}

TEST_F(Catalogue, AStationWithoutASIDIsNobodysTarget) {
    begin();
    me->own.SID.clear();
    me->own.note = "mine";
    hear("XALN", body({{}, "not for me"}));
    hear("XALS");
    hear("XATM", body({"0", "Nobody:" + ListMark, "ID", "text"}));
    EXPECT_EQ(me->own.note, "mine");
    EXPECT_FALSE(me->own.occupied);
}

// Two stations that differ in scrambling still see each other: only bodies are lost.
TEST(CatalogueOfTwo, PresencePassesBetweenScramblersAndOthers) {
    World world(2);
    world[0].set(kUserFile, "Advanced", "ENCODE", "0");
    world.settle();
    EXPECT_EQ(world.locations(0), 2);
    EXPECT_EQ(world.locations(1), 2);
    world[0]->status.SetCustomStatus("In a meeting");
    world[0]->presence.SetLocationNote("back soon");
    world.run(1);
    const ReportRecord& row = *world[1]->endpoints.records().find(world[0]->own.SID);
    EXPECT_EQ(item(row, EndpointItem::Status).text, "In a meeting");
    EXPECT_EQ(item(row, EndpointItem::Note).text, "back soon");
    EXPECT_NE(item(row, EndpointItem::Version).text, kVersion);
    world[0]->protocol.send(Code::XALN, world[1]->own.SID + ValueMark + "never arrives");
    world.run(1);
    EXPECT_EQ(world[1]->own.note, "");
}
