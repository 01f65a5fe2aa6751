// A clock that jumps from deadline to deadline.
#pragma once

#include "engine/ports/cClock.h"

#include <QDateTime>

#include <functional>

namespace tessel {

class VirtualClock : public Clock {
public:
    // Starts on a Monday at 9 in the morning.
    VirtualClock() { setLocal(QDateTime(QDate(2026, 3, 2), QTime(9, 0, 0))); }

    std::int64_t monotonicMs() const override { return m_nowMs; }
    std::int64_t localSeconds() const override { return (m_wallMs + m_nowMs) / 1000; }
    void wait(int ms) override { advance(ms); }

    // Runs everything that falls due in the next `ms`, each thing at its own time.
    void advance(std::int64_t ms) {
        advanceUntil(m_nowMs + ms, [] { return false; });
    }

    // Like `advance`, but stops as soon as `done` holds; false when it never did.
    bool advanceUntil(std::int64_t end, const std::function<bool()>& done) {
        for (;;) {
            if (beforeStep) {
                beforeStep();
            }
            if (done()) {
                return true;
            }
            const std::int64_t next = earliest();
            if (next < 0 || next > end) {
                break;
            }
            m_nowMs = std::max(m_nowMs, next);
            runDue();
            if (atStep) {
                atStep();
            }
        }
        m_nowMs = std::max(m_nowMs, end);
        if (beforeStep) {
            beforeStep();
        }
        return done();
    }

    // Moves the time of day alone, as a user or a sleep of the machine does.
    void setLocal(const QDateTime& local) {
        m_wallMs = QDateTime(local.date(), local.time(), Qt::UTC).toMSecsSinceEpoch() - m_nowMs;
    }
    void skipWall(std::int64_t seconds) { m_wallMs += seconds * 1000; }

    // What else has deadlines: a network in flight. `nextOther` gives its next one, -1 for none.
    std::function<std::int64_t()> nextOther;
    std::function<void()> atStep;
    std::function<void()> beforeStep;

protected:
    void wakeAt(std::int64_t) override {}

private:
    std::int64_t earliest() const {
        const std::int64_t timer = nextDeadline();
        const std::int64_t other = nextOther ? nextOther() : -1;
        if (timer < 0 || other < 0) {
            return std::max(timer, other);
        }
        return std::min(timer, other);
    }

    std::int64_t m_nowMs = 0;
    std::int64_t m_wallMs = 0;
};

} // namespace tessel
