#include "engine/core/mod_Wait.h"

#include "engine/ports/cClock.h"

namespace tessel {

void Wait::WaitSeconds(int seconds) {
    if (seconds <= 0) {
        return;
    }
    constexpr int kMsPerSecond = 1000;
    const std::int64_t now = m_clock.monotonicMs();
    if (const auto running = m_ends.find(seconds); running != m_ends.end()) {
        if (running->second > now) {
            m_clock.wait(static_cast<int>(running->second - now));
        }
        return;
    }
    m_ends.emplace(seconds, now + static_cast<std::int64_t>(seconds) * kMsPerSecond);
    m_clock.wait(seconds * kMsPerSecond);
    m_ends.erase(seconds);
}

} // namespace tessel
