#include "platform/StartTrace.h"

#include <QCoreApplication>
#include <QEvent>
#include <QTimer>

#include <cstdio>
#include <ctime>

namespace tessel {

StartTrace::StartTrace() : m_startedNs(qgetenv("TESSEL_TRACE_START").toLongLong()) {
    if (m_startedNs > 0) {
        QCoreApplication::instance()->installEventFilter(this);
    }
}

bool StartTrace::eventFilter(QObject*, QEvent* event) {
    if (event->type() == QEvent::Paint) {
        QCoreApplication::instance()->removeEventFilter(this);
        // The first paint event opens the painting of the whole window; the rest comes with it.
        QTimer::singleShot(0, this, [this] {
            timespec now{};
            ::clock_gettime(CLOCK_MONOTONIC, &now);
            const qint64 nowNs = static_cast<qint64>(now.tv_sec) * 1000000000 + now.tv_nsec;
            std::fprintf(stderr, "first paint %.2f\n", static_cast<double>(nowNs - m_startedNs) / 1e6);
        });
    }
    return false;
}

} // namespace tessel
