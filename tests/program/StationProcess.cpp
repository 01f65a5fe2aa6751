#include "StationProcess.h"

#include "engine/core/cInifile.h"

#include <QDir>
#include <QFile>

#include <csignal>
#include <sys/prctl.h>
#include <sys/stat.h>

namespace tessel {

namespace {

constexpr int kRunMs = 20000;
constexpr auto kFolders = {"data", "config", "cache", "run"};

// Runs in the child before the program, which ends with this test.
void beforeProgram() {
    ::prctl(PR_SET_PDEATHSIG, SIGKILL);
}

void write(const QString& path, const QByteArray& bytes) {
    QFile file(path);
    if (!bytes.isNull() && file.open(QIODevice::WriteOnly)) {
        file.write(bytes);
    }
}

} // namespace

StationProcess::StationProcess(const QByteArray& user, const QByteArray& net) {
    for (const char* const name : kFolders) {
        const QString path = m_home.filePath(QLatin1String(name));
        QDir().mkpath(path);
        // Others must not be able to enter the folder of the local channel.
        ::chmod(path.toLocal8Bit().constData(), 0700);
    }
    if (!user.isNull() || !net.isNull()) {
        QDir().mkpath(folder());
        write(folder() + QLatin1String("user.cfg"), user);
        write(folder() + QLatin1String("net.cfg"), net);
    }
}

StationProcess::~StationProcess() {
    if (m_process.state() != QProcess::NotRunning) {
        m_process.kill();
        m_process.waitForFinished(kRunMs);
    }
}

QByteArray StationProcess::userFile(const QByteArray& location, const QByteArray& SID, int tag,
                                    const QByteArray& settings) {
    return "[User]\r\nSID=" + SID + "\r\nLOCATION=" + location + "\r\nTAG=" + QByteArray::number(tag) +
           "\r\nFirstRun=0\r\n[Advanced]\r\nENCODE=0\r\n[Settings]\r\nUPD=0\r\n" + settings;
}

QProcessEnvironment StationProcess::environment(bool withDisplay) const {
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("HOME"), m_home.path());
    environment.insert(QStringLiteral("XDG_DATA_HOME"), m_home.filePath(QStringLiteral("data")));
    environment.insert(QStringLiteral("XDG_CONFIG_HOME"), m_home.filePath(QStringLiteral("config")));
    environment.insert(QStringLiteral("XDG_CACHE_HOME"), m_home.filePath(QStringLiteral("cache")));
    environment.insert(QStringLiteral("XDG_RUNTIME_DIR"), m_home.filePath(QStringLiteral("run")));
    // The common folder must not be one of the machine's.
    environment.insert(QStringLiteral("XDG_DATA_DIRS"), m_home.filePath(QStringLiteral("common")));
    if (!withDisplay) {
        for (const char* const name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"}) {
            environment.remove(QLatin1String(name));
        }
    }
    return environment;
}

void StationProcess::start(const QStringList& arguments) {
    m_process.setProcessEnvironment(environment(true));
    m_process.setChildProcessModifier(beforeProgram);
    m_process.setProcessChannelMode(QProcess::ForwardedChannels);
    m_process.start(QStringLiteral(TESSEL_PROGRAM), arguments);
    m_process.waitForStarted(kRunMs);
}

StationProcess::Ended StationProcess::runBeside(const QString& program, const QStringList& arguments,
                                                bool withDisplay) {
    QProcess process;
    process.setProcessEnvironment(environment(withDisplay));
    process.setChildProcessModifier(beforeProgram);
    process.start(program, arguments);
    if (!process.waitForFinished(kRunMs) || process.exitStatus() != QProcess::NormalExit) {
        process.kill();
        process.waitForFinished(kRunMs);
        return {};
    }
    return {process.exitCode(), process.readAllStandardOutput()};
}

void StationProcess::signal(int number) {
    if (pid() > 0) {
        ::kill(static_cast<pid_t>(pid()), number);
    }
}

int StationProcess::waitEnd(double seconds) {
    if (m_process.state() != QProcess::NotRunning &&
        !m_process.waitForFinished(static_cast<int>(seconds * 1000))) {
        return -1;
    }
    return m_process.exitStatus() == QProcess::NormalExit ? m_process.exitCode() : -1;
}

QString StationProcess::folder() const {
    return m_home.filePath(QStringLiteral("data/Tessel Status/"));
}

QString StationProcess::read(const QString& section, const QString& key) const {
    cInifile ini;
    ini.Path = folder() + QLatin1String("user.cfg");
    ini.Section = section;
    ini.Key = key;
    return ini.Value();
}

QByteArray StationProcess::bytes(const QString& file) const {
    QFile read(folder() + file);
    return read.open(QIODevice::ReadOnly) ? read.readAll() : QByteArray();
}

} // namespace tessel
