// The print server of the system, asked without waiting for it.
//
// Whatever looks for a printer waits for the server, for a minute and more if it hangs, and all windows
// with it: an alert would not ring. So the server is asked first.
#pragma once

#include <QString>

#include <functional>

class QObject;

namespace tessel {

struct PrintServerAddress {
    QString host; // a path is that of a local socket
    quint16 port = 0;
};

// Tells `done` once whether looking for a printer is quick: the server answers, or nothing is there to wait
// for. False after `patienceMs` without an answer. `done` may be called before this returns, and is not
// called when `context` goes before.
void askPrintServer(const PrintServerAddress& address, int patienceMs, QObject* context,
                    const std::function<void(bool quick)>& done);

// The same for the server that the system's settings name. As long as it has not answered, whatever looks
// for a printer finds no server at all, which is quick too.
void askPrintServer(QObject* context, const std::function<void(bool quick)>& done);

} // namespace tessel
