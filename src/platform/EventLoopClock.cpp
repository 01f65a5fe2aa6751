#include "platform/EventLoopClock.h"

#include <QEventLoop>

#include <algorithm>

namespace tessel {

EventLoopClock::EventLoopClock() {
    m_elapsed.start();
    m_wake.setSingleShot(true);
    m_wake.setTimerType(Qt::PreciseTimer);
    QObject::connect(&m_wake, &QTimer::timeout, &m_wake, [this] { runDue(); });
}

std::int64_t EventLoopClock::localSeconds() const {
    // The offset of the time zone changes on full minutes only, and looking it up is dear.
    const std::time_t now = std::time(nullptr);
    if (now / 60 != m_offsetMinute) {
        m_offsetMinute = now / 60;
        std::tm local{};
        localtime_r(&now, &local);
        m_offset = local.tm_gmtoff;
    }
    return static_cast<std::int64_t>(now) + m_offset;
}

void EventLoopClock::wait(int ms) {
    // The one who waits may be a tick, with the others still unannounced until it returns.
    wakeAt(nextDeadline());
    QEventLoop loop;
    QTimer end;
    end.setSingleShot(true);
    end.setTimerType(Qt::PreciseTimer); // a coarse one may end early
    QObject::connect(&end, &QTimer::timeout, &loop, &QEventLoop::quit);
    end.start(std::max(0, ms));
    loop.exec();
}

void EventLoopClock::wakeAt(std::int64_t deadline) {
    if (deadline < 0) {
        m_wake.stop();
        return;
    }
    constexpr std::int64_t kLongestSleep = 24 * 3600 * 1000;
    m_wake.start(static_cast<int>(std::clamp<std::int64_t>(deadline - monotonicMs(), 0, kLongestSleep)));
}

} // namespace tessel
