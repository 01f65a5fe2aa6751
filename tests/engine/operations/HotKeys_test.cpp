// The system-wide keys of the quick statuses.
#include "support/LoneStation.h"

#include <gtest/gtest.h>

using namespace tessel;

namespace {

using Key = RecordingHotKeys::Key;

class HotKeysOf : public LoneStation {
protected:
    HotKeysOf() {
        for (int slot = 0; slot < LocalStatus::kQuickCount; ++slot) {
            status(u'N', slot, QStringLiteral("Name %1").arg(slot));
            status(u'M', slot, QStringLiteral("Busy %1").arg(slot));
        }
    }
    void status(QChar key, int slot, const QString& value) {
        me.set(kStatusFile, QStringLiteral("status"), key + QString::number(slot), value);
    }
    // The code of a slot written from afar.
    void order(int slot, const QString& code) {
        hear("ZA05", body({kMe, QStringList{QString::number(slot), "Name", "Text", code}.join(ListMark)}));
    }
    std::map<int, Key> held() const { return me.keys.held; }
};

} // namespace

TEST_F(HotKeysOf, CodesAreKeysAndAPressTogglesTheStatus) {
    status(u'H', 0, "1");
    status(u'H', 1, "2");
    status(u'H', 2, "4");
    begin();
    EXPECT_EQ(held(), (std::map<int, Key>{{0, {2, 112}}, {1, {4, 113}}, {2, {2, 51}}}));
    sentCodes();
    emit me.keys.pressed(1);
    EXPECT_EQ(me->own.status, "Busy 1");
    EXPECT_EQ(sentCodes(), QStringList{"XAS"});
    emit me.keys.pressed(1);
    EXPECT_EQ(me->own.status, "");
    emit me.keys.pressed(7);
    EXPECT_EQ(sentCodes(), QStringList{"XAS"});
    EXPECT_EQ(QuickHotKeys::LoadQuickHotKeys(1),
              (QStringList{"Disabled", "CRTL+F2", "SHFT+F2", "ALT+F2", "CRTL+2"}));
}

// The administrator's console changes keys while people work.
TEST_F(HotKeysOf, OrdersFromAfarChangeKeysAtOnce) {
    status(u'H', 0, "1");
    begin();
    order(1, "5");
    EXPECT_EQ(held().at(1), Key(1, 50)) << "Alt+2 has no row in the box and holds all the same";
    order(5, "1");
    EXPECT_EQ(held().size(), 2U) << "the other slots have no key";
    order(0, "3");
    EXPECT_EQ(held().at(0), Key(1, 112));
    order(0, "9");
    EXPECT_EQ(held().at(0), Key(1, 112)) << "an unknown code leaves what was held";
    hear("ZA06", body({kMe, "1"}));
    EXPECT_FALSE(held().contains(1));
    EXPECT_EQ(loggedWith("HotKey"), 0);
}

TEST_F(HotKeysOf, AKeyThatAnotherProgramHasIsToldInTheLogAndInTheOptions) {
    status(u'H', 1, "1");
    me.keys.taken.insert({2, 113});
    begin();
    EXPECT_EQ(loggedWith("HotKey ,HK1 ,Cannot Register HotKey for Quick Key 2"), 1);
    EXPECT_EQ(me->hotKeys.state(1), QuickHotKeys::State::Taken);
    EXPECT_EQ(me->hotKeys.notice(1), "Taken by another program");
    me.keys.taken.clear();
    order(1, "1");
    EXPECT_EQ(me->hotKeys.state(1), QuickHotKeys::State::Held);
    EXPECT_EQ(me->hotKeys.notice(1), "");
    me.keys.desktopsKey = "Super+2";
    EXPECT_TRUE(me->hotKeys.notice(1).contains("Super+2"));
}

TEST_F(HotKeysOf, RestrictedTheyAreLeftAlone) {
    status(u'H', 0, "1");
    admin("HotKeys", "r");
    begin();
    order(1, "1");
    EXPECT_TRUE(held().empty());
    EXPECT_EQ(loggedWith("HotKey"), 0);
    EXPECT_EQ(me->hotKeys.state(0), QuickHotKeys::State::Off);
}

TEST_F(HotKeysOf, TheChordOpensTheTableOfLocationsForFourSeconds) {
    begin();
    const auto opened = [&] { return me.desktop.calls.filter("show").size(); };
    const auto before = opened();
    me->shortKeys.Process_Keys(5);
    me->shortKeys.Process_Keys(26);
    world.clock.advance(4001);
    me->shortKeys.Process_Keys(5);
    EXPECT_EQ(opened(), before);
    me->shortKeys.Process_Keys(26);
    world.clock.advance(3000);
    me->shortKeys.Process_Keys('x');
    me->shortKeys.Process_Keys(5);
    EXPECT_EQ(opened(), before + 1);
    me->shortKeys.Process_Keys(5);
    EXPECT_EQ(opened(), before + 1);
    me->shortKeys.Process_ShortKeys(112 + 8);
    EXPECT_EQ(me->own.status, "Busy 8");
    me->shortKeys.Process_ShortKeys(112 + 9);
    EXPECT_EQ(me->own.status, "Busy 8");
}
