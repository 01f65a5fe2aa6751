// Tells when the machine's network interfaces, their IPv4 addresses or its routes have changed.
#pragma once

#include <QByteArray>
#include <QObject>
#include <QSocketNotifier>

#include <memory>

namespace tessel {

class InterfaceWatch : public QObject {
    Q_OBJECT
public:
    // Watches from now on. Where the system does not tell, nothing is ever emitted.
    InterfaceWatch();
    ~InterfaceWatch() override;

signals:
    // Something is not as it was. May come many times for one change: whoever acts waits until it settles.
    void changed();

private:
    void drain();

    int m_socket = -1;
    std::unique_ptr<QSocketNotifier> m_notifier;
    QByteArray m_last; // interfaces and addresses as last seen
};

} // namespace tessel
