// The system's clock, with timers on Qt's event loop.
#pragma once

#include "engine/ports/cClock.h"

#include <QElapsedTimer>
#include <QTimer>

#include <ctime>

namespace tessel {

class EventLoopClock : public Clock {
public:
    EventLoopClock();

    std::int64_t monotonicMs() const override { return m_elapsed.elapsed(); }
    std::int64_t localSeconds() const override;
    void wait(int ms) override;

protected:
    void wakeAt(std::int64_t deadline) override;

private:
    QElapsedTimer m_elapsed;
    QTimer m_wake;
    mutable std::time_t m_offsetMinute = -1;
    mutable std::int64_t m_offset = 0;
};

} // namespace tessel
