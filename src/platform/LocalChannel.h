// The channel by which another process of the same user hands a running station one short text and
// gets one back, and by which the first station of a data folder keeps a second one from starting.
#pragma once

#include <QLocalServer>
#include <QLocalSocket>
#include <QLockFile>
#include <QObject>
#include <QString>
#include <QTimer>

#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace tessel {

struct SystemFacts;

class LocalChannel : public QObject {
    Q_OBJECT
public:
    // Gives the answer to one request.
    using Answer = std::function<QString(const QString& request)>;

    explicit LocalChannel(const SystemFacts& facts);

    // Becomes the one station of this data folder. False when another one is.
    bool claim();
    // Answers requests from now on.
    void serve(Answer answer);

    // Hands `request` to the running station. Its answer, or nothing when no station answers within
    // `timeoutMs`.
    std::optional<QString> ask(const QString& request, int timeoutMs = 5000) const;

    // A request that hands in a command: this and the command.
    static inline const QString kCommand = QStringLiteral("command ");
    // Requests that the program itself makes.
    static inline const QString kBringUp = QStringLiteral("bring up");
    static inline const QString kLocations = QStringLiteral("locations");
    static inline const QString kReport = QStringLiteral("report");

private:
    bool somebodyListens() const;
    void listen();
    void accept();
    void makeRoom();
    void readRequest(QLocalSocket* socket);

    QString m_path;
    std::unique_ptr<QLockFile> m_lock;
    std::vector<QLocalSocket*> m_clients; // the oldest first; they go with the server
    std::unique_ptr<QLocalServer> m_server;
    QTimer m_listenAgain;
    Answer m_answer;
};

} // namespace tessel
