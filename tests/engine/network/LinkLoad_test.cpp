// More than can be handled: what a user would miss of it.
#include "support/LoneStation.h"

#include <gmock/gmock.h>

using namespace tessel;

namespace {

class Load : public LoneStation {
protected:
    QByteArray packet(const QString& code, const QString& SID, const QString& text = {}) {
        RawPacket made;
        made.SID = SID;
        made.code = code;
        made.body = text;
        return made.bytes();
    }
    // Those that stay when about so many of equal size must go. Who invents locations does so on one
    // machine.
    std::vector<QByteArray> left(const std::vector<QByteArray>& waiting, int go) {
        std::vector<WaitingDatagram> weighed;
        for (const QByteArray& datagram : waiting) {
            const quint32 source = datagram.contains("invented") ? 1 : 2;
            weighed.push_back({me->protocol.weigh(datagram), source, datagram.size()});
        }
        const std::vector<bool> goes = LinkLoad::sift(weighed, go * waiting.front().size());
        std::vector<QByteArray> stay;
        for (std::size_t i = 0; i < waiting.size(); ++i) {
            if (!goes[i]) {
                stay.push_back(waiting[i]);
            }
        }
        return stay;
    }
    const QString kStranger = QStringLiteral("000AA000AAA0");
};

} // namespace

TEST_F(Load, WhatMattersLeastGoesFirst) {
    begin();
    hear("XAN");
    const std::vector<QByteArray> rising = {
        "no packet at all, of the length of one, so that it weighs about as much as others do, yes",
        packet("XAD1", kOther, body({"222BB222BBB2", "for somebody else"})),
        packet("XRKA", kStranger),
        packet("XANR", kOther),
        packet("XAS", kStranger),
        packet("XAS", kOther),
        packet("XAD1", kStranger, body({kMe, "come"})),
        packet("XAUM", kStranger, body({kMe, "come"})),
        packet("XATE", kOther, body({"0", ":", "id", "text"})),
        packet("XAUM", kOther, body({kMe, "come"}))};
    for (std::size_t i = 2; i < rising.size(); ++i) {
        EXPECT_GT(me->protocol.weigh(rising[i]).importance, me->protocol.weigh(rising[i - 1]).importance)
            << i;
    }
    EXPECT_EQ(me->protocol.weigh(rising[1]).importance, 0U);
    EXPECT_EQ(me->protocol.weigh(rising[2] + rising[9]).importance, me->protocol.weigh(rising[9]).importance);

    std::vector<QByteArray> all;
    for (int i = 0; i < 50; ++i) {
        all.insert(all.end(), rising.rbegin(), rising.rend());
    }
    const std::vector<QByteArray> stay = left(all, 350);
    EXPECT_EQ(std::count(stay.begin(), stay.end(), rising[9]), 50);
    EXPECT_EQ(std::count(stay.begin(), stay.end(), rising[2]), 0);
}

TEST_F(Load, WhoFloodsLosesHisOwn) {
    begin();
    hear("XAN");
    hear("XAN", {}, kStranger);
    std::vector<QByteArray> waiting;
    for (int i = 0; i < 1000; ++i) {
        waiting.push_back(
            packet("XAD1", kOther, body({kMe, "flood " + QString::number(i).rightJustified(4)})));
        if (i % 100 == 50) {
            waiting.push_back(packet("XAD1", kStranger, body({kMe, "please"})));
        }
    }
    const std::vector<QByteArray> stay = left(waiting, 900);
    EXPECT_EQ(std::count(stay.begin(), stay.end(), waiting[51]), 10);
    EXPECT_NEAR(static_cast<double>(stay.size()), 110, 5);
    EXPECT_EQ(stay.back(), waiting.back()) << "the newest stay";
    EXPECT_TRUE(left(waiting, 2000).empty());
}

TEST_F(Load, WhoInventsLocationsTakesFromHimself) {
    begin();
    std::vector<QByteArray> waiting;
    for (int i = 0; i < 500; ++i) {
        const QString SID = QStringLiteral("%1CC333CCC3").arg(i, 3, 10, QChar(u'0'));
        waiting.push_back(packet("XAUM", SID, body({kMe, "invented"})));
        if (i % 50 == 0) {
            waiting.push_back(packet("XAUM", kStranger, body({kMe, "please"})));
        }
    }
    const std::vector<QByteArray> stay = left(waiting, 400);
    EXPECT_EQ(std::count(stay.begin(), stay.end(), waiting[1]), 10);
    EXPECT_NEAR(static_cast<double>(stay.size()), 110, 5);
}

TEST_F(Load, WhatIsGivenUpIsCountedAndToldOnceAMinute) {
    begin();
    const double before = me->protocol.bytesReceived();
    for (int i = 0; i < 10; ++i) {
        emit me.link.letGo(5, 1000);
        emit me.link.lost(3);
    }
    EXPECT_EQ(me->protocol.bytesReceived(), before + 10'000);
    EXPECT_EQ(errorLines().size(), 2);
    EXPECT_EQ(loggedWith("MSocket ,NLD ,Datagrams that the system gave up before they were read: 3"), 1);
    world.run(61);
    emit me.link.letGo(5, 1000);
    EXPECT_EQ(loggedWith("handled: 50"), 1);
}
