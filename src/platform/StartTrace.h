// Tells how long the start took, for whoever measures it.
#pragma once

#include <QObject>

namespace tessel {

// While the environment variable TESSEL_TRACE_START holds the nanoseconds of the monotonic clock at
// which the process was started, prints one line "first paint <ms>" to standard error once the
// application has painted its first window. Otherwise it does nothing.
class StartTrace : public QObject {
public:
    // Watches every object of the application until the first paint.
    StartTrace();

    bool eventFilter(QObject* object, QEvent* event) override;

private:
    qint64 m_startedNs = 0;
};

} // namespace tessel
