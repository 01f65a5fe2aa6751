// The signals by which the system asks a process to end.
#pragma once

#include <QObject>
#include <QSocketNotifier>

#include <memory>

namespace tessel {

// Turns SIGTERM, SIGINT and SIGHUP into a Qt signal. One object a process.
class EndSignals : public QObject {
    Q_OBJECT
public:
    EndSignals();
    ~EndSignals() override;

signals:
    void requested();

private:
    std::unique_ptr<QSocketNotifier> m_notifier;
    int m_descriptor = -1;
};

} // namespace tessel
