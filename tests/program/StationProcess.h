// A real station: the program as a process, with folders of its own.
#pragma once

#include "Peer.h"

#include <QByteArray>
#include <QProcess>
#include <QString>
#include <QTemporaryDir>

namespace tessel {

class StationProcess {
public:
    // `user`, `net`: what the files hold at the start; no file for a null one.
    StationProcess(const QByteArray& user, const QByteArray& net = {});
    ~StationProcess();

    // Ready-made lines of user.cfg: past its first run, in clear, without a check for updates.
    static QByteArray userFile(const QByteArray& location, const QByteArray& SID, int tag,
                               const QByteArray& settings = {});

    void start(const QStringList& arguments = {});
    // Runs the program or its client once more in the same folders, to its end. `exitCode` is -1 when
    // it did not end in time.
    struct Ended {
        int exitCode = -1;
        QByteArray output;
    };
    Ended runBeside(const QString& program, const QStringList& arguments, bool withDisplay = true);

    void signal(int number);
    // The exit code; -1 when it does not end in time or by a crash.
    int waitEnd(double seconds);
    bool isRunning() const { return m_process.state() == QProcess::Running; }
    qint64 pid() const { return m_process.processId(); }

    QString folder() const;
    QString read(const QString& section, const QString& key) const;
    QByteArray bytes(const QString& file) const;

private:
    QProcessEnvironment environment(bool withDisplay) const;

    QTemporaryDir m_home;
    QProcess m_process;
};

} // namespace tessel
