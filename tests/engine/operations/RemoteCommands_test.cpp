// Commands of other programs of this computer.
#include "support/LoneStation.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>

using namespace tessel;
using testing::IsEmpty;

namespace {

class RemoteTest : public LoneStation {
protected:
    void SetUp() override {
        for (int index = 0; index < 9; ++index) {
            me.set(kStatusFile, "status", QStringLiteral("M%1").arg(index),
                   QStringLiteral("Quick %1").arg(index));
        }
        me.set(kSharedFile, "SharedStatus", "12", "Shared 12:|:3");
        begin();
        outcome("/unknown");
    }
    // What came of a command: what was asked of the desktop, what was sent, whether it reported back.
    QString outcome(const QString& command) {
        const bool accepted = me->remoteCommands.execute(command);
        QStringList all = std::exchange(me.desktop.calls, {});
        all += sentCodes();
        if (accepted) {
            all += "accepted";
        }
        return all.join(u' ');
    }
    QString lastBody() { return cPacket::parse(world.network.sent.back(), false)->bodyText(); }
    QString state() {
        return QStringList{me->own.status, me->own.note, QString::number(me->own.staffTag),
                           QString::number(me->own.occupied), QString::number(me->own.doNotDisturb)}
            .join(u'|');
    }
};

} // namespace

TEST_F(RemoteTest, WhatTheyLeaveBehind) {
    const auto after = [this](const QString& command) {
        world.run(3);
        me->remoteCommands.execute(command);
        return state();
    };
    EXPECT_EQ(after("/s1"), "Quick 0||0|0|0");
    EXPECT_EQ(after("/s2"), "Quick 1||0|0|0");
    EXPECT_EQ(after("/s3"), "Quick 2||0|0|0");
    EXPECT_EQ(after("/s:8"), "Quick 8||0|0|0");
    EXPECT_EQ(after("/s:07"), "Quick 7||0|0|0");
    EXPECT_EQ(after("/s:123"), "Quick 7||0|0|0") << "12 is no button";
    EXPECT_EQ(after("/ss:123"), "Shared 12||0|0|0") << "the first two characters";
    EXPECT_EQ(after("/off"), "||0|0|0");
    EXPECT_EQ(after("/status:" + QString(30, u'w')), QString(25, u'w') + "||0|0|0");
    EXPECT_EQ(after("/status:At 3:30"), "At 3||0|0|0") << "an argument cannot hold a colon";
    EXPECT_EQ(after("/note: a :b"), "At 3|a|0|0|0");
    EXPECT_EQ(me.get(kUserFile, "Note", "ACTIVE"), "a");
    EXPECT_EQ(after("/note:" + QString(70, u'n')), "At 3|" + QString(65, u'n') + "|0|0|0");
    EXPECT_EQ(after("/note"), "At 3||0|0|0");
    EXPECT_EQ(after("/staff:1"), "At 3||30|0|0");
    EXPECT_EQ(after("/staff:10"), "At 3||39|0|0");
    for (const char* const senseless : {"11", "-1", "many", "", "65541", "4294967297"}) {
        EXPECT_EQ(after(QStringLiteral("/staff:") + senseless), "At 3||39|0|0") << senseless;
    }
    EXPECT_EQ(me->own.staffTagTime, "") << "commands set no time of the tag";
    EXPECT_EQ(after("/staff:0"), "At 3||0|0|0");
    after("/staff:5");
    EXPECT_EQ(after("/nostaff"), "At 3||0|0|0");
    EXPECT_EQ(after("/busy"), "At 3||0|1|0");
    EXPECT_EQ(me->own.patientName, "");
    me->own.online = false;
    EXPECT_EQ(after("/busy"), "At 3||0|1|0") << "nobody would hear of it";
    me->own.online = true;
    EXPECT_EQ(after("/busy"), "At 3||0|0|0");
    EXPECT_EQ(after("/dnd"), "At 3||0|0|1");
    EXPECT_EQ(after("/dnd"), "At 3||0|0|0");
    after("/db:" + QString(30, u'd'));
    EXPECT_EQ(lastBody(), QString(25, u'd'));
}

TEST_F(RemoteTest, EndsSoonOrAtOnceAndListensNoMore) {
    EXPECT_EQ(outcome("/shutdown"), "");
    world.clock.advance(299);
    EXPECT_FALSE(me->own.exiting);
    world.clock.advance(1);
    EXPECT_TRUE(me->own.exiting);
    const QString before = state();
    me.desktop.calls.clear();
    EXPECT_EQ(sentCodes(), QStringList("XD"));
    for (const char* const command : {"/min", "/s1", "/note:x", "/end", "/dnd", "/show"}) {
        EXPECT_EQ(outcome(command), "") << command;
    }
    EXPECT_EQ(state(), before);
}
