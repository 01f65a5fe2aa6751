#include "engine/core/cStationClock.h"

#include <algorithm>
#include <limits>

namespace tessel {

StationClock::StationClock(Clock& outside)
    : m_outside(outside), m_wake(outside, "wake", 0, Timer::Kind::OneShot, [this] { runDue(); }) {}

void StationClock::wait(int ms) {
    // The one who waits may be a tick, with the others still unannounced until it returns.
    wakeAt(nextDeadline());
    m_outside.wait(ms);
}

void StationClock::wakeAt(std::int64_t deadline) {
    m_wake.setEnabled(false);
    if (deadline >= 0) {
        constexpr std::int64_t kLongest = std::numeric_limits<int>::max();
        m_wake.setInterval(static_cast<int>(std::clamp<std::int64_t>(deadline - monotonicMs(), 1, kLongest)));
        m_wake.setEnabled(true);
    }
}

} // namespace tessel
