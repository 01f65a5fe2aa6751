#include "platform/Facts.h"

#include "engine/core/mod_Limits.h"
#include "platform/cls_terminalservices.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLocale>
#include <QStandardPaths>
#include <QSysInfo>

#include <fcntl.h>
#include <gnu/libc-version.h>
#include <link.h>
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

// File names of all libraries that this process has loaded; they end in their versions.
QStringList loadedLibraries() {
    QStringList names;
    ::dl_iterate_phdr(
        [](dl_phdr_info* info, std::size_t, void* data) {
            const QString path = QFileInfo(QFile::decodeName(info->dlpi_name)).canonicalFilePath();
            if (path.contains(QLatin1String(".so"))) {
                static_cast<QStringList*>(data)->append(path.section(u'/', -1));
            }
            return 0;
        },
        &names);
    names.sort();
    return names;
}

QStringList versions() {
    const QString screen = QCoreApplication::instance()->property("platformName").toString();
    return QStringList{QStringLiteral("Qt: %1, built with %2").arg(qVersion(), QLatin1String(QT_VERSION_STR)),
                       QStringLiteral("C library: ") + QLatin1String(::gnu_get_libc_version()),
                       QStringLiteral("Kernel: %1 %2").arg(QSysInfo::kernelType(), QSysInfo::kernelVersion()),
                       QStringLiteral("Processor: ") + QSysInfo::currentCpuArchitecture(),
                       QStringLiteral("Desktop: ") + qEnvironmentVariable("XDG_CURRENT_DESKTOP"),
                       QStringLiteral("Session: ") + qEnvironmentVariable("XDG_SESSION_TYPE"),
                       QStringLiteral("Screen: ") + screen,
                       QStringLiteral("Language: ") + QLocale::system().name(),
                       QStringLiteral("Libraries:")} +
           loadedLibraries();
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
    facts.versions = versions;
    facts.syncFile = syncFile;
    const cls_terminalservices session;
    facts.IsRemoteSession = session.IsRemoteSession();
    facts.ClientLoginName = session.ClientLoginName(facts.userName);
    return facts;
}

} // namespace tessel
