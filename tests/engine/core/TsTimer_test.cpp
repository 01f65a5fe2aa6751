// Long intervals and waiting.
#include "engine/core/mod_Wait.h"
#include "engine/core/tsTimerCTL.h"
#include "support/VirtualClock.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace tessel;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {
class LongTimer : public testing::Test {
protected:
    void runMinutes(int minutes) { clock.advance(minutes * 60000LL); }

    VirtualClock clock;
    std::vector<std::int64_t> ticks;
    std::function<void()> onTick = [] {};
    tsTimerCTL timer{clock, "test", [this] {
                         ticks.push_back(clock.monotonicMs() / 1000);
                         onTick();
                     }};
};
} // namespace

TEST_F(LongTimer, CountsHoursMinutesAndMillisecondsAgainAndAgain) {
    timer.HourInterval = 1;
    timer.MinuteInterval = 30;
    timer.Interval = 5000;
    runMinutes(200);
    EXPECT_THAT(ticks, IsEmpty()) << "not before it is enabled";
    timer.setEnabled(true);
    runMinutes(200);
    const std::int64_t round = 90 * 60 + 5;
    EXPECT_THAT(ticks, ElementsAre(12000 + round, 12000 + 2 * round));
    timer.setEnabled(false);
    runMinutes(200);
    EXPECT_EQ(ticks.size(), 2U);
}

TEST(Waiting, JoinsARunningWaitOfTheSameLength) {
    VirtualClock clock;
    Wait wait(clock);
    std::vector<std::int64_t> ends;
    Timer same(clock, "same", 1200, Timer::Kind::OneShot, [&] {
        wait.WaitSeconds(2);
        ends.push_back(clock.monotonicMs());
    });
    Timer other(clock, "other", 100, Timer::Kind::OneShot, [&] {
        wait.WaitSeconds(1);
        ends.push_back(clock.monotonicMs());
    });
    same.setEnabled(true);
    other.setEnabled(true);
    wait.WaitSeconds(2);
    EXPECT_EQ(clock.monotonicMs(), 2000) << "and others work meanwhile";
    EXPECT_THAT(ends, ElementsAre(1100, 2000));
    wait.WaitSeconds(2);
    EXPECT_EQ(clock.monotonicMs(), 4000) << "the next one is a wait of its own";
    for (const int nothing : {0, -3}) {
        wait.WaitSeconds(nothing);
    }
    EXPECT_EQ(clock.monotonicMs(), 4000);
}
