#include "engine/core/tsTimerCTL.h"

#include <algorithm>

namespace tessel {

namespace {
constexpr int kMinuteMs = 60000;
constexpr int kMinutesPerHour = 60;
constexpr int kMostMinutes = 10 * 365 * 24 * kMinutesPerHour;
} // namespace

tsTimerCTL::tsTimerCTL(Clock& clock, const char* name, std::function<void()> tick)
    : m_timer1(clock, name, 0, Timer::Kind::OneShot, [this] { step(); }), m_tick(std::move(tick)) {}

void tsTimerCTL::setEnabled(bool enabled) {
    m_enabled = enabled;
    m_timer1.setEnabled(false);
    if (enabled) {
        begin();
    }
}

void tsTimerCTL::begin() {
    const std::int64_t minutes =
        static_cast<std::int64_t>(std::max(0, HourInterval)) * kMinutesPerHour + std::max(0, MinuteInterval);
    m_minutesLeft = static_cast<int>(std::min<std::int64_t>(minutes, kMostMinutes));
    m_intervalRun = false;
    // Without any interval there is nothing to count, and nothing ever ticks.
    if (m_minutesLeft > 0 || Interval > 0) {
        step();
    }
}

void tsTimerCTL::step() {
    m_timer1.setEnabled(false);
    if (!m_intervalRun && Interval > 0) {
        m_intervalRun = true;
        m_timer1.setInterval(Interval);
        m_timer1.setEnabled(true);
        return;
    }
    if (m_minutesLeft > 0) {
        --m_minutesLeft;
        m_timer1.setInterval(kMinuteMs);
        m_timer1.setEnabled(true);
        return;
    }
    // The tick may disable the timer: the next round stands before it does.
    begin();
    m_tick();
}

} // namespace tessel
