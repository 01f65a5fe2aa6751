#include "platform/Facts.h"

#include "engine/core/mod_Limits.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QHash>
#include <QStandardPaths>
#include <QSysInfo>

#include <fcntl.h>
#include <pwd.h>
#include <unistd.h>

namespace tessel {

namespace {

QString asFolder(const QString& path) {
    return path.isEmpty() || path.endsWith(u'/') ? path : path + u'/';
}

QString location(QStandardPaths::StandardLocation where) {
    return asFolder(QStandardPaths::writableLocation(where));
}

QString commonFolder() {
    const QStringList all = QStandardPaths::standardLocations(QStandardPaths::GenericDataLocation);
    return all.size() > 1 ? asFolder(all.at(1)) : QString();
}

QString userName() {
    const passwd* const entry = ::getpwuid(::getuid());
    const QString name =
        entry != nullptr ? QString::fromLocal8Bit(entry->pw_name) : qEnvironmentVariable("USER");
    return name.left(kMaxUserName);
}

// What the login manager wrote of this session; empty where there is none.
QHash<QString, QString> sessionRecord() {
    QHash<QString, QString> record;
    const QString id = qEnvironmentVariable("XDG_SESSION_ID");
    if (id.isEmpty() || id.contains(u'/')) {
        return record;
    }
    constexpr qint64 kLongestRecord = 16384;
    QFile file(QLatin1String("/run/systemd/sessions/") + id);
    if (file.open(QIODevice::ReadOnly)) {
        const QList<QByteArray> lines = file.read(kLongestRecord).split('\n');
        for (const QByteArray& line : lines) {
            const qsizetype equals = line.indexOf('=');
            if (equals > 0) {
                record.insert(QString::fromUtf8(line.first(equals)),
                              QString::fromUtf8(line.sliced(equals + 1)));
            }
        }
    }
    return record;
}

void askSession(SystemFacts& facts) {
    const QHash<QString, QString> record = sessionRecord();
    const QString type = record.value(QStringLiteral("TYPE"));
    const bool remoteDesktop =
        record.value(QStringLiteral("REMOTE")) == u"1" && (type == u"x11" || type == u"wayland");
    facts.remoteSession = qEnvironmentVariableIsSet("XRDP_SESSION") || remoteDesktop ||
                          record.value(QStringLiteral("SERVICE")).startsWith(QLatin1String("xrdp"));
    facts.clientLoginName = record.value(QStringLiteral("USER"), facts.userName);
}

void syncFile(const QString& path) {
    const int file = ::open(QFile::encodeName(path).constData(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    if (file >= 0) {
        ::fdatasync(file);
        ::close(file);
    }
}

} // namespace

SystemFacts systemFacts() {
    SystemFacts facts;
    facts.programFolder = asFolder(QCoreApplication::applicationDirPath());
    facts.appData = location(QStandardPaths::GenericDataLocation);
    facts.commonAppData = commonFolder();
    facts.documents = location(QStandardPaths::DocumentsLocation);
    facts.desktop = location(QStandardPaths::DesktopLocation);
    facts.system = QStringLiteral("/usr/");
    facts.hostName = QSysInfo::machineHostName();
    facts.userName = userName();
    facts.osName = QSysInfo::prettyProductName();
    facts.syncFile = syncFile;
    askSession(facts);
    return facts;
}

} // namespace tessel
