#include "windows/WindowTable.h"

#include "engine/station.h"
#include "windows/alerts/frmGlobalDoorBell.h"
#include "windows/alerts/frmGroupMessage.h"
#include "windows/alerts/frmNotifications.h"
#include "windows/alerts/frmRecentOptions.h"
#include "windows/alerts/frmReply.h"
#include "windows/alerts/frmSentMessage.h"
#include "windows/alerts/frmSnippit.h"
#include "windows/dialogs/frmAbout.h"
#include "windows/dialogs/frmWelcome.h"
#include "windows/mainwindow/frmMain.h"
#include "windows/network/frmAdapters.h"
#include "windows/network/frmEndpoints.h"
#include "windows/operations/frmMessageTest.h"
#include "windows/operations/frmMicroMetrics.h"
#include "windows/operations/frmNetworkInfo.h"
#include "windows/options/frmOptions.h"
#include "windows/presence/frmActions.h"
#include "windows/presence/frmActiveNote.h"
#include "windows/presence/frmFavEditor.h"
#include "windows/presence/frmLocationNote.h"
#include "windows/presence/frmOccupiedRemote.h"
#include "windows/presence/frmPatientName.h"
#include "windows/presence/frmRemoveFavorite.h"
#include "windows/presence/frmRoomStatus.h"
#include "windows/presence/frmSetStatus.h"
#include "windows/presence/frmStatusButtonEditor.h"

#include <QMessageBox>

#include <array>

namespace tessel {

namespace {

QWidget* tellOfFavorite(const WindowParts& p) {
    return new QMessageBox(QMessageBox::Information, QStringLiteral("Add to Favorites"),
                           QStringLiteral("This location has already been added to your Favorites"),
                           QMessageBox::Ok, p.owner);
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
    WindowRow{WindowId::NetworkInfo, "frmNetworkInfo", Life::Dialog,
              [](const WindowParts& p) -> QWidget* {
                  return new frmNetworkInfo(p.station.diagnostics, p.station.folders, p.owner);
              }},
    WindowRow{WindowId::SetStatus, "frmSetStatus", Life::Dialog,
              [](const WindowParts& p) -> QWidget* { return new frmSetStatus(p.station, p.owner); }},
    WindowRow{WindowId::Options, "frmOptions", Life::Dialog,
              [](const WindowParts& p) -> QWidget* { return new frmOptions(p.station, p.owner); }},
    WindowRow{WindowId::Notifications, "frmNotifications", Life::Kept,
              [](const WindowParts& p) -> QWidget* {
                  return new frmNotifications(p.station.settings, p.station.history);
              }},
    WindowRow{WindowId::GlobalDoorBell, "frmGlobalDoorBell", Life::Dialog,
              [](const WindowParts& p) -> QWidget* { return new frmGlobalDoorBell(p.station, p.owner); }},
    WindowRow{WindowId::RecentOptions, "frmRecentOptions", Life::Dialog,
              [](const WindowParts& p) -> QWidget* {
                  return new frmRecentOptions(p.station.settings, p.station.history, p.owner);
              }},
    WindowRow{WindowId::StatusButtonEditor, "frmStatusButtonEditor", Life::Dialog,
              [](const WindowParts& p) -> QWidget* {
                  return new frmStatusButtonEditor(p.station.own, p.station.admin, p.station.network,
                                                   p.station.tones, p.station.sharedStatus, p.owner);
              }},
    WindowRow{WindowId::About, "frmAbout", Life::Dialog,
              [](const WindowParts& p) -> QWidget* {
                  return new frmAbout(p.station.folders, p.station.session, p.owner);
              }},
    WindowRow{WindowId::PatientName, "frmPatientName", Life::Modal,
              [](const WindowParts& p) -> QWidget* {
                  return new frmPatientName(p.station.own, p.station.presence, p.owner);
              }},
    WindowRow{WindowId::OccupiedRemote, "frmOccupiedRemote", Life::Modal,
              [](const WindowParts& p) -> QWidget* {
                  return new frmOccupiedRemote(p.station.actions, p.station.own, p.station.network, p.owner);
              }},
    WindowRow{WindowId::ActiveNote, "frmActiveNote", Life::Modal,
              [](const WindowParts& p) -> QWidget* {
                  return new frmActiveNote(p.station.own, p.station.presence, p.station.shell, p.owner);
              }},
    WindowRow{WindowId::LocationNote, "frmLocationNote", Life::Modal,
              [](const WindowParts& p) -> QWidget* {
                  return new frmLocationNote(p.station.actions, p.station.own, p.station.network, p.owner);
              }},
    WindowRow{WindowId::Actions, "frmActions", Life::Modal,
              [](const WindowParts& p) -> QWidget* {
                  return new frmActions(p.station.actions, {p.station.own, p.station.network},
                                        p.station.favorites, p.station.sharedStatus, p.station.tones,
                                        p.station.settings, p.owner);
              }},
    WindowRow{WindowId::FavEditor, "frmFavEditor", Life::Dialog,
              [](const WindowParts& p) -> QWidget* {
                  return new frmFavEditor(p.station.favorites, p.station.tones, p.owner);
              }},
    WindowRow{WindowId::AlreadyFavorite, "frmAlreadyFavorite", Life::Modal, tellOfFavorite},
    WindowRow{
        WindowId::RemoveFavorite, "frmRemoveFavorite", Life::Modal,
        [](const WindowParts& p) -> QWidget* { return new frmRemoveFavorite(p.station.actions, p.owner); }},
    WindowRow{WindowId::RoomStatus, "frmRoomStatus", Life::Kept,
              [](const WindowParts& p) -> QWidget* {
                  return new frmRoomStatus(p.station.rooms, p.station.actions, p.station.views,
                                           p.station.settings);
              }},
    WindowRow{WindowId::GroupMessage, "frmGroupMessage", Life::Dialog,
              [](const WindowParts& p) -> QWidget* { return new frmGroupMessage(p.station, p.owner); }},
    WindowRow{WindowId::Reply, "frmReply", Life::Dialog,
              [](const WindowParts& p) -> QWidget* { return new frmReply(p.station, p.owner); }},
    WindowRow{
        WindowId::SentMessage, "frmSentMessage", Life::Dialog,
        [](const WindowParts& p) -> QWidget* { return new frmSentMessage(p.station.history, p.owner); }},
    WindowRow{WindowId::Snippit, "frmSnippit", Life::Modal,
              [](const WindowParts& p) -> QWidget* { return new frmSnippit(p.station.snippets, p.owner); }},
    WindowRow{WindowId::MicroMetrics, "frmMicroMetrics", Life::Dialog,
              [](const WindowParts& p) -> QWidget* { return new frmMicroMetrics(p.station, p.owner); }},
    WindowRow{WindowId::MessageTest, "frmMessageTest", Life::Dialog,
              [](const WindowParts& p) -> QWidget* {
                  return new frmMessageTest(p.station.messageTest, p.station.session, p.owner);
              }},
};
static_assert(kWindows.size() == kWindowCount);

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
