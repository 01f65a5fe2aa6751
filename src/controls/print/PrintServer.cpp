#include "controls/print/PrintServer.h"

#include <QLibrary>
#include <QLocalSocket>
#include <QTcpSocket>
#include <QTimer>

#include <optional>
#include <utility>

namespace tessel {

namespace {

constexpr int kPatienceMs = 1500;
constexpr char kQuestion[] = "OPTIONS * HTTP/1.1\r\nHost: localhost\r\nConnection: close\r\n\r\n";
// Not there for sure, so that nothing waits for it.
constexpr char kNoServer[] = "/nonexistent/cups.sock";

// The printing library, which Qt loads only when it looks for printers.
class Cups {
public:
    Cups()
        : m_library(QStringLiteral("cups"), 2),
          m_setServer(reinterpret_cast<SetServer>(m_library.resolve("cupsSetServer"))),
          m_server(reinterpret_cast<Server>(m_library.resolve("cupsServer"))),
          m_port(reinterpret_cast<Port>(m_library.resolve("ippPort"))) {}

    // Nothing for a system that cannot print.
    std::optional<PrintServerAddress> address() const {
        if (m_setServer == nullptr || m_server == nullptr || m_port == nullptr) {
            return std::nullopt;
        }
        m_setServer(nullptr); // what the settings say
        const QString host = QString::fromLocal8Bit(m_server());
        return PrintServerAddress{host, static_cast<quint16>(m_port())};
    }
    void forgetServer() const { m_setServer(kNoServer); }

private:
    using SetServer = void (*)(const char*);
    using Server = const char* (*)();
    using Port = int (*)();

    QLibrary m_library;
    SetServer m_setServer;
    Server m_server;
    Port m_port;
};

const Cups& cups() {
    static const Cups library;
    return library;
}

// One question to one server. Goes by itself.
class Question : public QObject {
public:
    Question(const PrintServerAddress& address, int patienceMs, QObject* context,
             const std::function<void(bool)>& done)
        : QObject(context), m_done(done) {
        m_patience.setSingleShot(true);
        connect(&m_patience, &QTimer::timeout, this, [this] { end(false); });
        m_patience.start(patienceMs);
        if (address.host.startsWith(u'/')) {
            auto* const socket = new QLocalSocket(this);
            watch(*socket, &QLocalSocket::errorOccurred);
            socket->connectToServer(address.host);
        } else {
            auto* const socket = new QTcpSocket(this);
            watch(*socket, &QTcpSocket::errorOccurred);
            socket->connectToHost(address.host, address.port);
        }
    }

private:
    template <typename Socket, typename Error> void watch(Socket& socket, Error error) {
        connect(&socket, &Socket::connected, &socket, [&socket] { socket.write(kQuestion); });
        connect(&socket, &Socket::readyRead, this, [this] { end(true); });
        // Refused or hung up: whoever looks for a printer learns that as quickly.
        connect(&socket, error, this, [this] { end(true); });
        connect(&socket, &Socket::disconnected, this, [this] { end(true); });
    }
    void end(bool quick) {
        if (const auto done = std::exchange(m_done, nullptr)) {
            m_patience.stop();
            deleteLater();
            done(quick);
        }
    }

    QTimer m_patience;
    std::function<void(bool)> m_done;
};

} // namespace

void askPrintServer(const PrintServerAddress& address, int patienceMs, QObject* context,
                    const std::function<void(bool)>& done) {
    new Question(address, patienceMs, context, done);
}

void askPrintServer(QObject* context, const std::function<void(bool)>& done) {
    const std::optional<PrintServerAddress> address = cups().address();
    if (!address) {
        done(true);
        return;
    }
    askPrintServer(*address, kPatienceMs, context, [done](bool quick) {
        if (!quick) {
            cups().forgetServer();
        }
        done(quick);
    });
}

} // namespace tessel
