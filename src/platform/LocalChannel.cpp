#include "platform/LocalChannel.h"

#include "engine/ports/cSystemFacts.h"

#include <QCryptographicHash>
#include <QElapsedTimer>
#include <QFile>
#include <QPointer>

#include <sys/stat.h>
#include <unistd.h>

namespace tessel {

namespace {

// A request is one line; anything longer is no request.
constexpr qint64 kLongestRequest = 16384;
constexpr qint64 kLongestAnswer = 16 << 20;
constexpr int kMaxPending = 16;
// Open at once. A client is served as soon as its line is there, so the oldest is the one that means
// nothing by it.
constexpr std::size_t kMaxClients = 32;
constexpr int kListenAgainMs = 1000;
constexpr int kClientMs = 5000;
// The system's limit for the path of a local socket is 108 bytes.
constexpr qsizetype kLongestPath = 100;

bool isOwnPrivateFolder(const QByteArray& path) {
    struct stat facts {};
    return ::lstat(path.constData(), &facts) == 0 && S_ISDIR(facts.st_mode) && facts.st_uid == ::getuid() &&
           (facts.st_mode & 077) == 0;
}

// A folder that nobody else can enter; empty when there is none.
QByteArray channelFolder(qsizetype nameLength) {
    const QByteArray runtime = qgetenv("XDG_RUNTIME_DIR");
    if (!runtime.isEmpty() && isOwnPrivateFolder(runtime) && runtime.size() + nameLength < kLongestPath) {
        return runtime;
    }
    const QByteArray fallback = "/tmp/tessel-status-" + QByteArray::number(::getuid());
    ::mkdir(fallback.constData(), 0700);
    return isOwnPrivateFolder(fallback) ? fallback : QByteArray();
}

QString channelPath(const SystemFacts& facts) {
    QString identity = facts.appData;
    if (facts.IsRemoteSession) {
        identity += facts.ClientLoginName;
    }
    const QByteArray name =
        "/tessel-" +
        QCryptographicHash::hash(identity.toUtf8(), QCryptographicHash::Sha256).toHex().first(16);
    const QByteArray folder = channelFolder(name.size());
    return folder.isEmpty() ? QString() : QFile::decodeName(folder + name);
}

} // namespace

LocalChannel::LocalChannel(const SystemFacts& facts) : m_path(channelPath(facts)) {}

bool LocalChannel::claim() {
    if (m_path.isEmpty()) {
        return true;
    }
    m_lock = std::make_unique<QLockFile>(m_path + QLatin1String(".lock"));
    m_lock->setStaleLockTime(0); // only a dead owner makes it stale, not a long run
    // A disk that takes no lock must not keep the first station from starting, nor let a second one in.
    if (!m_lock->tryLock(0) && (m_lock->error() == QLockFile::LockFailedError || somebodyListens())) {
        return false;
    }
    m_server = std::make_unique<QLocalServer>();
    m_server->setSocketOptions(QLocalServer::UserAccessOption);
    m_server->setMaxPendingConnections(kMaxPending);
    connect(m_server.get(), &QLocalServer::newConnection, this, &LocalChannel::accept);
    listen();
    // The server closes itself without a word when it cannot accept, as when the process has no
    // descriptor left.
    connect(&m_listenAgain, &QTimer::timeout, this, [this] {
        if (!m_server->isListening()) {
            listen();
        }
    });
    m_listenAgain.start(kListenAgainMs);
    return true;
}

void LocalChannel::listen() {
    // What a crashed station left is in the way of a new one.
    QLocalServer::removeServer(m_path);
    m_server->listen(m_path);
}

bool LocalChannel::somebodyListens() const {
    constexpr int kPatienceMs = 500;
    QLocalSocket socket;
    socket.connectToServer(m_path);
    return socket.waitForConnected(kPatienceMs);
}

void LocalChannel::serve(Answer answer) {
    m_answer = std::move(answer);
    accept();
}

void LocalChannel::accept() {
    while (m_answer && m_server && m_server->hasPendingConnections()) {
        makeRoom();
        QLocalSocket* const socket = m_server->nextPendingConnection();
        m_clients.push_back(socket);
        connect(socket, &QObject::destroyed, this, [this, socket] { std::erase(m_clients, socket); });
        connect(socket, &QLocalSocket::readyRead, this, [this, socket] { readRequest(socket); });
        connect(socket, &QLocalSocket::disconnected, socket, &QObject::deleteLater);
        if (socket->state() == QLocalSocket::UnconnectedState) {
            socket->deleteLater(); // gone already, and tells nobody
        }
        QTimer::singleShot(kClientMs, socket, &QLocalSocket::abort);
        socket->setReadBufferSize(kLongestRequest + 1);
        readRequest(socket);
    }
}

void LocalChannel::makeRoom() {
    while (m_clients.size() >= kMaxClients) {
        QLocalSocket* const oldest = m_clients.front();
        m_clients.erase(m_clients.begin());
        oldest->abort(); // deletes itself
    }
}

void LocalChannel::readRequest(QLocalSocket* socket) {
    if (!socket->canReadLine()) {
        if (socket->bytesAvailable() > kLongestRequest) {
            socket->abort();
        }
        return;
    }
    // Blanks belong to the request: commands are compared exactly, and a text keeps its own.
    QByteArray line = socket->readLine(kLongestRequest + 1);
    line.chop(1); // canReadLine saw the line feed
    disconnect(socket, &QLocalSocket::readyRead, this, nullptr);
    const QString request = QString::fromUtf8(line);
    // The answer may run the event loop, and the client may be gone by then.
    const QPointer<QLocalSocket> alive(socket);
    const QString answer = m_answer(request);
    if (alive) {
        alive->write(answer.toUtf8());
        alive->flush();
        alive->disconnectFromServer();
    }
}

std::optional<QString> LocalChannel::ask(const QString& request, int timeoutMs) const {
    QElapsedTimer elapsed;
    elapsed.start();
    const auto left = [&] { return std::max(1, timeoutMs - static_cast<int>(elapsed.elapsed())); };
    QLocalSocket socket;
    // A station that is just starting may hold the lock and not listen yet.
    constexpr int kTryAgainMs = 50;
    while (!m_path.isEmpty() && socket.state() != QLocalSocket::ConnectedState) {
        socket.connectToServer(m_path);
        if (!socket.waitForConnected(left())) {
            if (m_lock == nullptr || elapsed.elapsed() + kTryAgainMs > timeoutMs) {
                return std::nullopt;
            }
            ::usleep(kTryAgainMs * 1000);
        }
    }
    if (m_path.isEmpty() || socket.write(request.toUtf8() + '\n') < 0) {
        return std::nullopt;
    }
    QByteArray answer;
    while (elapsed.elapsed() < timeoutMs && answer.size() < kLongestAnswer) {
        const bool more = socket.waitForReadyRead(left());
        answer += socket.readAll();
        if (!more) {
            break;
        }
    }
    return socket.state() == QLocalSocket::ConnectedState ? std::nullopt
                                                          : std::optional(QString::fromUtf8(answer));
}

} // namespace tessel
