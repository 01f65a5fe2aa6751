// Messages: each once, to those it names, and to nobody else.
#include "support/LoneStation.h"

#include <gtest/gtest.h>

using namespace tessel;

namespace {
class MessageRoad : public LoneStation {
protected:
    void SetUp() override {
        user("Settings", "TestMode", "1");
        begin();
        QObject::connect(&me->messages, &Messages::arrived,
                         [this](const ReceivedMessage& message) { arrived.push_back(message); });
    }
    QStringList texts() {
        QStringList all;
        for (const ReceivedMessage& message : arrived) {
            all += message.text;
        }
        arrived.clear();
        return all;
    }
    void toListed(const QString& recipients, const QString& id, const QString& text = "text") {
        hear("XATM", body({"0", recipients, id, text}));
    }

    std::vector<ReceivedMessage> arrived;
};
} // namespace

TEST_F(MessageRoad, ReachesThoseWhoAreListed) {
    toListed("Room 1:" + kMe + ListMark, "1", "one");
    toListed("Ann:333" + ListMark + "Room 1:" + kMe + ListMark + "Bob:444" + ListMark, "2", "among others");
    toListed("Room 1:" + kMe, "3", "no closing mark");
    toListed(":" + kMe, "4", "no name");
    toListed("Room:1:" + kMe + ListMark, "6", "a colon in the name");
    EXPECT_EQ(texts(),
              QStringList({"one", "among others", "no closing mark", "no name", "a colon in the name"}));
    toListed("Ann:333" + ListMark, "5");
    toListed(kMe + ListMark, "7");
    toListed("Room 1:" + kMe + "0" + ListMark, "8");
    toListed("Room 1:" + kMe.toLower() + ListMark, "9");
    toListed({}, "10");
    EXPECT_EQ(texts(), QStringList());

    hear({.location = "Front",
          .code = "XATM",
          .body = body({"1", "x:" + kMe, "11", QStringLiteral("M\u00FCller, 5 \u20AC\r\nnow")})});
    ASSERT_EQ(arrived.size(), 1U);
    EXPECT_EQ(arrived[0].kind, "1");
    EXPECT_FALSE(arrived[0].everyone);
    EXPECT_EQ(arrived[0].location, "Front");
    EXPECT_EQ(arrived[0].SID, kOther);
    EXPECT_EQ(arrived[0].MessageID, "11");
    EXPECT_EQ(arrived[0].text, QStringLiteral("M\u00FCller, 5 \u20AC\r\nnow"));
    EXPECT_EQ(arrived[0].time + arrived[0].date, "9:00:06 AM3/2/2026");
}

TEST_F(MessageRoad, ADoubleIsDroppedOnlyRightBehindTheFirst) {
    const QString mine = "x:" + kMe;
    toListed(mine, "A");
    toListed(mine, "A");
    EXPECT_EQ(texts().size(), 1);
    EXPECT_EQ(loggedWith("Duplicate MessageID"), 1);
    toListed("x:333", "B");
    toListed(mine, "A");
    EXPECT_EQ(texts().size(), 1) << "a message for somebody else counts, too";
    hear("XATE", body({"0", ":", "A", "to all"}));
    EXPECT_EQ(texts().size(), 1) << "each way of being addressed remembers its own";
    hear("XATE", body({"0", ":", "A", "to all"}));
    hear("XATG", "1" + ListMark + body({"0", "1", "A", "to the tag"}));
    EXPECT_EQ(texts(), QStringList());
    EXPECT_EQ(loggedWith("Duplicate MessageID Everyone"), 2);
}

TEST_F(MessageRoad, EveryoneAndTags) {
    hear("XATE", body({"0", ":", "1", "to all"}));
    hear("XATG", "1" + ListMark + body({"0", "1", "2", "to the tag"}));
    hear("XATG", "2" + ListMark + body({"0", "2", "3", "to another tag"}));
    hear("XATG", "1.0" + ListMark + body({"0", "1", "4", "cut" + ListMark + "here"}));
    ASSERT_EQ(arrived.size(), 3U);
    EXPECT_TRUE(arrived[1].everyone);
    EXPECT_EQ(texts(), QStringList({"to all", "to the tag", "cut"}));
    hear({.SID = kMe, .code = "XATE", .body = body({"0", ":", "5", "my own"})});
    EXPECT_EQ(texts(), QStringList());
}
