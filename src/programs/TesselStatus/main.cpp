// One station on one desktop.
#include "controls/edit/HeldKeyFilter.h"
#include "controls/look/OfficeLook.h"
#include "engine/core/cInifile.h"
#include "engine/operations/mod_LocationReport.h"
#include "engine/station.h"
#include "platform/DesktopEffects.h"
#include "platform/EventLoopClock.h"
#include "platform/Facts.h"
#include "platform/LocalChannel.h"
#include "platform/MulticastLink.h"
#include "platform/Registry.h"
#include "platform/SessionHotKeys.h"
#include "platform/Signals.h"
#include "platform/SoundPlayer.h"
#include "platform/StartTrace.h"
#include "windows/FormDesktop.h"

#include <QApplication>
#include <QSessionManager>

#include <cstring>

namespace {

using namespace tessel;

// Sets up the data folders and shows nothing, so that an installer needs no screen for it.
int setUpFolders(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    const SystemFacts facts = systemFacts();
    LocalChannel channel(facts);
    if (!channel.claim()) {
        channel.ask(LocalChannel::kBringUp);
        return 0;
    }
    cInifile ini;
    Admin admin;
    Folders folders(facts);
    Station::SetupFolders(folders, admin, ini);
    return 0;
}

QString answer(const QString& request, Station& station) {
    if (request.startsWith(LocalChannel::kCommand)) {
        const bool accepted = station.remoteCommands.execute(request.sliced(LocalChannel::kCommand.size()));
        return accepted ? QStringLiteral("accepted") : QString();
    }
    if (request == LocalChannel::kBringUp) {
        station.windows.bringUp();
    } else if (request == LocalChannel::kLocations) {
        return locationReport(station.endpoints, station.protocol);
    } else if (request == LocalChannel::kReport) {
        return station.diagnostics.HelpReport();
    }
    return {};
}

} // namespace

int main(int argc, char** argv) {
    if (argc == 2 && std::strcmp(argv[1], "/L") == 0) {
        return setUpFolders(argc, argv);
    }
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("TesselStatus"));
    QApplication::setDesktopFileName(QStringLiteral("TesselStatus"));
    // A minimised window is no reason to end; `ExitProc` ends the program.
    QApplication::setQuitOnLastWindowClosed(false);

    const SystemFacts facts = systemFacts();
    LocalChannel channel(facts);
    if (!channel.claim()) {
        channel.ask(LocalChannel::kBringUp);
        return 0;
    }
    const StartTrace trace;
    SetStyle();
    const HeldKeyFilter heldKeys;

    EventLoopClock clock;
    MulticastLink link;
    Registry registry;
    SoundPlayer sounds;
    SessionHotKeys keys;
    FormDesktop desktop(registry);
    DesktopEffects effects;
    desktop.popups.setEffects({DesktopEffects::composites, [&effects] { return effects.animates(); }});
    Station station(facts, desktop.ports(clock, link, sounds, keys));
    desktop.setStation(station);

    const EndSignals endSignals;
    QObject::connect(&endSignals, &EndSignals::requested, &station,
                     [&station] { station.closing(CloseReason::TaskManager); });
    QObject::connect(
        &application, &QGuiApplication::commitDataRequest, &station,
        [&station] { station.closing(CloseReason::SessionEnd); }, Qt::DirectConnection);
    channel.serve([&](const QString& request) { return answer(request, station); });
    station.start();
    return QApplication::exec();
}
