#include "windows/WindowTable.h"

#include "engine/station.h"
#include "windows/alerts/frmGlobalDoorBell.h"
#include "windows/alerts/frmNotifications.h"
#include "windows/dialogs/frmWelcome.h"
#include "windows/mainwindow/frmMain.h"
#include "windows/network/frmAdapters.h"
#include "windows/network/frmEndpoints.h"
#include "windows/operations/frmNetworkInfo.h"
#include "windows/presence/frmSetStatus.h"

#include <QMessageBox>

#include <array>

namespace tessel {

namespace {

// Until there is a page for them, the texts of the quick statuses are edited in their file.
QWidget* tellOfStatusFile(const WindowParts& p) {
    auto* const box = new QMessageBox(QMessageBox::Information, kProductName,
                                      QObject::tr("This quick status has no text yet.\n"
                                                  "The texts stand in %1 and are read at the start.")
                                          .arg(p.station.folders.dataFile(kStatusFile)),
                                      QMessageBox::Ok, p.owner);
    box->setTextFormat(Qt::PlainText);
    return box;
}

// In the order of `WindowId`.
constexpr std::array kWindows{
    WindowRow{WindowId::Welcome, "frmWelcome", Life::Face,
              [](const WindowParts& p) -> QWidget* { return new frmWelcome(p.station); }},
    WindowRow{WindowId::Main, "frmMain", Life::Face,
              [](const WindowParts& p) -> QWidget* { return new frmMain(p.station, p.registry); }},
    WindowRow{WindowId::Endpoints, "frmEndpoints", Life::Kept,
              [](const WindowParts& p) -> QWidget* { return new frmEndpoints(p.station); }},
    WindowRow{WindowId::Adapters, "frmAdapters", Life::Dialog,
              [](const WindowParts& p) -> QWidget* {
                  return new frmAdapters(p.station.own, p.station.network, p.station.tmrExit, p.owner);
              }},
    WindowRow{
        WindowId::NetworkInfo, "frmNetworkInfo", Life::Dialog,
        [](const WindowParts& p) -> QWidget* { return new frmNetworkInfo(p.station.diagInfo(), p.owner); }},
    WindowRow{WindowId::SetStatus, "frmSetStatus", Life::Dialog,
              [](const WindowParts& p) -> QWidget* { return new frmSetStatus(p.station, p.owner); }},
    WindowRow{WindowId::Options, "frmOptions", Life::Modal, tellOfStatusFile},
    WindowRow{WindowId::Notifications, "frmNotifications", Life::Kept,
              [](const WindowParts& p) -> QWidget* {
                  return new frmNotifications(p.station.settings, p.station.history);
              }},
    WindowRow{WindowId::GlobalDoorBell, "frmGlobalDoorBell", Life::Dialog,
              [](const WindowParts& p) -> QWidget* {
                  return new frmGlobalDoorBell(p.station.own, p.station.folders, p.station.network,
                                               p.station.alerts, p.owner);
              }},
};

constexpr bool inOrder() {
    for (std::size_t i = 0; i < kWindows.size(); ++i) {
        if (static_cast<std::size_t>(kWindows[i].window) != i) {
            return false;
        }
    }
    return true;
}
static_assert(inOrder());

} // namespace

const WindowRow& windowRow(WindowId window) {
    return kWindows[static_cast<std::size_t>(window)];
}

} // namespace tessel
