#include "platform/EventLoopClock.h"
#include "waiting.h"

#include <gtest/gtest.h>

using namespace tessel;

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
