#include "platform/Facts.h"

#include "engine/core/mod_Limits.h"
#include "platform/cls_terminalservices.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
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
    const cls_terminalservices session;
    facts.IsRemoteSession = session.IsRemoteSession();
    facts.ClientLoginName = session.ClientLoginName(facts.userName);
    return facts;
}

} // namespace tessel
