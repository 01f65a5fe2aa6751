// The clock of one station: all its timers stand on one of the clock outside, and stop at once.
#pragma once

#include "engine/ports/cClock.h"

namespace tessel {

class StationClock : public Clock {
public:
    explicit StationClock(Clock& outside);

    std::int64_t monotonicMs() const override { return m_outside.monotonicMs(); }
    std::int64_t localSeconds() const override { return m_outside.localSeconds(); }
    void wait(int ms) override;

protected:
    void wakeAt(std::int64_t deadline) override;

private:
    Clock& m_outside;
    Timer m_wake;
};

} // namespace tessel
