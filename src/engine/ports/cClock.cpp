#include "engine/ports/cClock.h"

#include "engine/core/mod_TimeText.h"

namespace tessel {

namespace {
constexpr std::int64_t kSecondsOfDay = 86400;
constexpr std::int64_t kJulianDayOf1970 = 2440588;

std::int64_t dayOf(std::int64_t localSeconds) {
    const std::int64_t day = localSeconds / kSecondsOfDay;
    return localSeconds % kSecondsOfDay < 0 ? day - 1 : day;
}
} // namespace

QDate Clock::date() const {
    return QDate::fromJulianDay(dayOf(localSeconds()) + kJulianDayOf1970);
}

int Clock::secondOfDay() const {
    const std::int64_t now = localSeconds();
    return static_cast<int>(now - dayOf(now) * kSecondsOfDay);
}

const QString& Clock::timeText() const {
    // Every packet asks, and a second holds thousands of packets.
    const std::int64_t now = localSeconds();
    if (now != m_textSecond) {
        m_textSecond = now;
        m_text = tessel::timeText(secondOfDay());
    }
    return m_text;
}

QString Clock::dateText() const {
    return tessel::dateText(date());
}

void Clock::stopTimers() {
    while (!m_armed.empty()) {
        m_armed.begin()->second->setEnabled(false);
    }
}

std::int64_t Clock::nextDeadline() const {
    return m_armed.empty() ? -1 : m_armed.begin()->first.first;
}

void Clock::runDue() {
    // What a tick arms anew, however soon, waits for the next round: a tick cannot hold the loop.
    const std::int64_t now = monotonicMs();
    const std::uint64_t before = m_armCount;
    while (!m_armed.empty()) {
        const auto first = m_armed.begin();
        if (first->first.first > now || first->first.second > before) {
            break;
        }
        first->second->fire();
    }
    wakeAt(nextDeadline());
}

Clock::Entry Clock::arm(Timer* timer, std::int64_t deadline) {
    const Entry entry{deadline, ++m_armCount};
    m_armed.emplace(entry, timer);
    if (m_armed.begin()->first == entry) {
        wakeAt(deadline);
    }
    return entry;
}

void Clock::disarm(const Entry& entry) {
    m_armed.erase(entry);
}

Timer::Timer(Clock& clock, const char* name, int intervalMs, Kind kind, std::function<void()> tick)
    : m_clock(clock), m_name(name), m_interval(intervalMs), m_kind(kind), m_tick(std::move(tick)) {}

Timer::~Timer() {
    disarm();
}

void Timer::setInterval(int ms) {
    m_interval = ms;
    if (m_enabled) {
        restart();
    }
}

void Timer::setEnabled(bool enabled) {
    if (enabled == m_enabled) {
        return;
    }
    m_enabled = enabled;
    if (enabled) {
        arm();
    } else {
        disarm();
    }
}

void Timer::restart() {
    disarm();
    m_enabled = true;
    arm();
}

void Timer::arm() {
    if (m_interval > 0) {
        m_entry = m_clock.arm(this, m_clock.monotonicMs() + m_interval);
        m_armed = true;
    }
}

void Timer::disarm() {
    if (m_armed) {
        m_clock.disarm(m_entry);
        m_armed = false;
    }
}

void Timer::fire() {
    disarm();
    if (m_kind == Kind::OneShot) {
        m_enabled = false;
    } else {
        arm();
    }
    m_tick();
}

} // namespace tessel
