#include "windows/FormDesktop.h"

#include "engine/core/mod_FileTools.h"
#include "engine/ports/cWindowRegistry.h"
#include "engine/station.h"

#include <QCoreApplication>
#include <QDesktopServices>
#include <QProcess>
#include <QUrl>

namespace tessel {

bool DesktopSession::openPath(const QString& path) {
    return QDesktopServices::openUrl(QUrl::fromLocalFile(path));
}

void DesktopSession::startProgram(const QString& path, const QStringList& arguments) {
    if (FileExists(path)) {
        QProcess::startDetached(path, arguments);
    }
}

void DesktopSession::SetAutoStart(bool on) {
    m_registry.SetAutoStart(QCoreApplication::applicationFilePath(), on);
}

bool DesktopSession::autoStart() const {
    return m_registry.autoStart();
}

void FormDesktop::setStation(Station& station) {
    windows.setStation(station);
    popups.setEngine(station.popups);
}

} // namespace tessel
