#include "platform/EventLoopClock.h"
#include "waiting.h"

#include <gtest/gtest.h>

using namespace tessel;

TEST(EventLoopClock, TimersTickInTheOrderOfTheirDeadlinesAndStopWhenTold) {
    EventLoopClock clock;
    QString ticks;
    Timer late(clock, "late", 60, Timer::Kind::OneShot, [&] { ticks += u'l'; });
    Timer soon(clock, "soon", 20, Timer::Kind::OneShot, [&] { ticks += u's'; });
    Timer never(clock, "never", 0, Timer::Kind::Repeating, [&] { ticks += u'n'; });
    Timer stopped(clock, "stopped", 40, Timer::Kind::OneShot, [&] { ticks += u'x'; });
    int beats = 0;
    Timer beat(clock, "beat", 5, Timer::Kind::Repeating, [&] {
        if (++beats == 3) {
            beat.setEnabled(false);
        }
    });
    for (Timer* const timer : {&late, &soon, &never, &stopped, &beat}) {
        timer->setEnabled(true);
    }
    stopped.setEnabled(false);
    ASSERT_TRUE(waitUntil([&] { return ticks.contains(u'l'); }));
    ASSERT_TRUE(waitUntil([&] { return beats == 3; }));
    letPass();
    EXPECT_EQ(ticks, QStringLiteral("sl"));
    EXPECT_EQ(beats, 3);
    EXPECT_FALSE(late.enabled());
}

// The goodbye of a station waits inside a tick; the others must not stand still for so long.
TEST(EventLoopClock, OtherTimersTickWhileATickWaits) {
    EventLoopClock clock;
    bool waited = false;
    bool tickedMeanwhile = false;
    Timer other(clock, "other", 40, Timer::Kind::OneShot, [&] { tickedMeanwhile = !waited; });
    Timer waiting(clock, "waiting", 10, Timer::Kind::OneShot, [&] {
        const std::int64_t before = clock.monotonicMs();
        clock.wait(300);
        EXPECT_GE(clock.monotonicMs() - before, 299);
        waited = true;
    });
    other.setEnabled(true);
    waiting.setEnabled(true);
    ASSERT_TRUE(waitUntil([&] { return waited && !other.enabled(); }));
    EXPECT_TRUE(tickedMeanwhile);
}
