// Waiting for an event of the real system: the event loop runs until it has come, and no longer than
// a time that says that something is broken.
#pragma once

#include <QDeadlineTimer>
#include <QEventLoop>
#include <QTimer>

#include <functional>

namespace tessel {

inline constexpr int kTooLongMs = 10000;
// For what must not come: long enough for whatever was already on its way.
inline constexpr int kNothingMs = 150;

inline bool waitUntil(const std::function<bool()>& done, int limitMs = kTooLongMs) {
    const QDeadlineTimer end(limitMs);
    while (!done() && !end.hasExpired()) {
        QEventLoop loop;
        QTimer::singleShot(2, &loop, &QEventLoop::quit);
        loop.exec();
    }
    return done();
}

inline void letPass(int ms = kNothingMs) {
    waitUntil([] { return false; }, ms);
}

} // namespace tessel
