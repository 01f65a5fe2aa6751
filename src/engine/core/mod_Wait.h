// Waiting without stopping: timers tick and datagrams are handled meanwhile.
#pragma once

#include <cstdint>
#include <map>

namespace tessel {

class Clock;

class Wait {
public:
    explicit Wait(Clock& clock) : m_clock(clock) {}

    // A wait for as many seconds that is under way already is joined: both end with the first.
    void WaitSeconds(int seconds);

private:
    Clock& m_clock;
    std::map<int, std::int64_t> m_ends; // seconds asked for: when the running wait ends
};

} // namespace tessel
