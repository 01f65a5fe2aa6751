// A timer for intervals of minutes and hours.
#pragma once

#include "engine/ports/cClock.h"

#include <functional>

namespace tessel {

// Counts `Interval` milliseconds once, then the hours and minutes, a minute at a time; then it ticks
// and begins anew until it is disabled. Setting an interval does not disturb a count under way.
class tsTimerCTL {
public:
    tsTimerCTL(Clock& clock, const char* name, std::function<void()> tick);

    int TimerMode = 0; // carried, without effect
    int Interval = 0;  // milliseconds
    int MinuteInterval = 0;
    int HourInterval = 0;

    // Enabling starts the count from its beginning, running or not.
    void setEnabled(bool enabled);

private:
    void begin();
    void step();

    Timer m_timer1;
    std::function<void()> m_tick;
    bool m_enabled = false;
    bool m_intervalRun = false;
    int m_minutesLeft = 0;
};

} // namespace tessel
