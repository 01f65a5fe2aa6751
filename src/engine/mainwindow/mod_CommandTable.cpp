#include "engine/mainwindow/mod_CommandTable.h"

#include "engine/alerts/mod_AlertEngine.h"
#include "engine/alerts/mod_Groups.h"
#include "engine/alerts/mod_Inbox.h"
#include "engine/core/cOwnState.h"
#include "engine/core/cRestrictions.h"
#include "engine/core/mod_Settings.h"
#include "engine/mainwindow/mod_Shell.h"
#include "engine/network/mod_Network_MC.h"
#include "engine/operations/mod_Updates.h"
#include "engine/ports/cClock.h"
#include "engine/presence/mod_Favorites.h"
#include "engine/presence/mod_LocalStatus.h"
#include "engine/presence/mod_LocationActions.h"
#include "engine/presence/mod_LocationViews.h"
#include "engine/presence/mod_OwnPresence.h"

#include <algorithm>
#include <array>

namespace tessel {

namespace {

using T = CommandRow::Targets;
using C = CommandRow::Call;

constexpr char kDoorBellTip[] = "Send Doorbell alert to all locations or groups";
constexpr char kStatusTip[] = "Show all locations what you are doing";
constexpr char kRoomTip[] = "This location is in use, or not any more";
constexpr char kNotesTip[] = "Show or hide the notes of locations";

// Names come from outside, and a menu takes what stands behind a tabulator for a shortcut.
QString shown(const QString& name) {
    return name.simplified().replace(u'&', QLatin1String("&&"));
}

// How far a command stands behind the first of its kind.
int behind(C call, Command first) {
    return static_cast<int>(call.command) - static_cast<int>(first);
}

// The quick statuses, by the command of each.
int quickIndex(C call) {
    return behind(call, Command::Quick1);
}
void setQuick(T t, C call) {
    t.status.SetStatus(quickIndex(call));
}
bool quickLatched(T t, C call) {
    return t.status.latched(quickIndex(call));
}
QString quickCaption(T t, C call) {
    const QuickStatus& quick = t.status.quick(quickIndex(call));
    const QString& name = quick.Name.isEmpty() ? quick.Message : quick.Name;
    return name.isEmpty() ? QStringLiteral("Quick %1").arg(quickIndex(call) + 1) : shown(name);
}
QString quickTip(T t, C call) {
    return t.status.quick(quickIndex(call)).Message;
}

// Who sits at this location.
void toggleRoom(T t, C) {
    t.presence.SetOccupiedStatus(true);
}
bool roomOccupied(T t, C) {
    return t.own.occupied;
}
QString roomCaption(T t, C) {
    return shown(RoomCaption(t.own.occupied, t.own.patientName));
}
int roomPicture(T t, C) {
    return RoomPicture(t.own.occupied);
}

// The same of a row. A virtual location's is as it stands in the table.
bool isPlace(C call) {
    return call.row != nullptr && !IsVirtualLocation(*call.row);
}
QString rowRoomCaption(T, C call) {
    return isPlace(call) ? shown(RoomCaption(isOccupied(*call.row), GetOccupiedName(*call.row)))
                         : QStringLiteral("Not Occupied");
}
int rowRoomPicture(T, C call) {
    return isPlace(call) ? RoomPicture(isOccupied(*call.row)) : static_cast<int>(call.command);
}

// What another location is asked for needs the network; the own row does not.
bool rowCanBeAsked(T t, C call) {
    return call.row != nullptr && (GetSID(*call.row) == t.own.SID || t.own.canSend());
}
bool hasRow(T, C call) {
    return call.row != nullptr;
}
void showActiveNote(T t, C) {
    t.windows.show({.window = WindowId::ActiveNote, .modal = true});
}

void toggleStaffTag(T t, C call) {
    const int tag = static_cast<int>(call.command);
    t.presence.Set_StaffTag(static_cast<std::int16_t>(t.own.staffTag == tag ? 0 : tag));
}
bool staffTagsUsed(T t) {
    return t.settings.Settings_SST();
}
bool isStaffTag(T t, C call) {
    return t.own.staffTag == static_cast<int>(call.command);
}

void setView(T t, C call) {
    t.shell.SetTabView(static_cast<int>(call.command));
}
bool isView(T t, C call) {
    return static_cast<int>(t.shell.view()) == static_cast<int>(call.command);
}

void setPreview(T t, C) {
    t.shell.SetPreviewMode();
}
bool previewOn(T t, C) {
    return t.shell.previewMode();
}

QString SetTabCaption(T t, C call) {
    return t.shell.tabCaption(static_cast<int>(call.command));
}

// A row's alerts.
void quickAlert(T t, C call) {
    t.alerts.SendQuickAlert(static_cast<QuickAlert>(call.command),
                            {GetSID(*call.row), GetColorTag(*call.row), GetLocationName(*call.row)},
                            call.text.trimmed());
}

// Messages. Of a row: what is too short to be sent at once is gone on with in the window.
void compose(T t, int mode, const QString& SID = {}, const QString& text = {}) {
    t.windows.show({.window = WindowId::GroupMessage, .SID = SID, .page = mode, .text = text});
}
void composeFor(T t, const ReportRecord& row, const QString& text) {
    constexpr int kRowMode = 5;
    compose(t, kRowMode, GetSID(row), text);
}
void quickMessage(T t, C call) {
    constexpr int kShortestQuickMessage = 3;
    const QString text = call.text.trimmed();
    if (text.size() < kShortestQuickMessage) {
        composeFor(t, *call.row, text);
    } else {
        quickAlert(t, call);
    }
}
void rowSnippets(T t, C call) {
    if (call.text == kAddSnippet) {
        t.windows.show({WindowId::Snippit});
    } else if (call.row != nullptr) {
        composeFor(t, *call.row, {});
    }
}

// The groups, by the command of each.
int groupSlot(C call) {
    return behind(call, Command::FirstGroup);
}
void composeToGroup(T t, C call) {
    compose(t, static_cast<int>(call.command));
}
QString groupCaption(T t, C call) {
    return shown(t.groups.caption(groupSlot(call)));
}
QString groupTip(T t, C call) {
    return t.groups.at(groupSlot(call)).used ? QString() : t.groups.tip(groupSlot(call));
}
constexpr CommandRow groupRow(int slot) {
    return {.command = Command{static_cast<int>(Command::FirstGroup) + slot},
            .caption = "",
            .tip = "Write to this group",
            .touches = Touches::Groups,
            .sends = true,
            .act = composeToGroup,
            .captionNow = groupCaption,
            .tipNow = groupTip};
}

void clearRowStatus(T t, C call) {
    const QString SID = GetSID(*call.row);
    if (SID == t.own.SID) {
        t.status.TurnOffStatus();
    } else {
        t.status.clearStatusOf(SID);
    }
}

// A message that nobody sees is not deleted by a key.
bool hasMessage(T t, C) {
    return t.shell.view() == View::Inbox && t.inbox.focused() != nullptr;
}
bool hasMessages(T t, C) {
    return t.inbox.rptMessages.count() > 0;
}

bool heading(T, C) {
    return false;
}

void setHomeSort(T t, C call) {
    t.shell.SetSort_EndpointView(behind(call, Command::HomeByColor));
}
bool isHomeSort(T t, C call) {
    return t.settings.Settings_SORTEV() == behind(call, Command::HomeByColor);
}
void setStatusSort(T t, C call) {
    t.shell.SetSort_StatusView(behind(call, Command::StatusByTimeColor));
}
bool isStatusSort(T t, C call) {
    return t.settings.Settings_SORTSV() == behind(call, Command::StatusByTimeColor);
}
void setFavoritesSort(T t, C call) {
    t.shell.SetSort_FavoriteView(behind(call, Command::FavoritesByColor));
}
bool isFavoritesSort(T t, C call) {
    return t.settings.Settings_SORTFV() == behind(call, Command::FavoritesByColor);
}

constexpr std::array kCommands{
    CommandRow{.command = Command{30},
               .caption = "",
               .tip = "Status tag 1",
               .touches = Touches::Room | Touches::Offers,
               .oncePerDoubleClick = true,
               .act = toggleStaffTag,
               .offered = staffTagsUsed,
               .checked = isStaffTag},
    CommandRow{.command = Command{31},
               .caption = "",
               .tip = "Status tag 2",
               .touches = Touches::Room | Touches::Offers,
               .oncePerDoubleClick = true,
               .act = toggleStaffTag,
               .offered = staffTagsUsed,
               .checked = isStaffTag},
    CommandRow{.command = Command{32},
               .caption = "",
               .tip = "Status tag 3",
               .touches = Touches::Room | Touches::Offers,
               .oncePerDoubleClick = true,
               .act = toggleStaffTag,
               .offered = staffTagsUsed,
               .checked = isStaffTag},
    CommandRow{.command = Command{33},
               .caption = "",
               .tip = "Status tag 4",
               .touches = Touches::Room | Touches::Offers,
               .oncePerDoubleClick = true,
               .act = toggleStaffTag,
               .offered = staffTagsUsed,
               .checked = isStaffTag},
    CommandRow{.command = Command{34},
               .caption = "",
               .tip = "Status tag 5",
               .touches = Touches::Room | Touches::Offers,
               .oncePerDoubleClick = true,
               .act = toggleStaffTag,
               .offered = staffTagsUsed,
               .checked = isStaffTag},
    CommandRow{.command = Command{35},
               .caption = "",
               .tip = "Status tag 6",
               .touches = Touches::Room | Touches::Offers,
               .oncePerDoubleClick = true,
               .act = toggleStaffTag,
               .offered = staffTagsUsed,
               .checked = isStaffTag},
    CommandRow{.command = Command{36},
               .caption = "",
               .tip = "Status tag 7",
               .touches = Touches::Room | Touches::Offers,
               .oncePerDoubleClick = true,
               .act = toggleStaffTag,
               .offered = staffTagsUsed,
               .checked = isStaffTag},
    CommandRow{.command = Command{37},
               .caption = "",
               .tip = "Status tag 8",
               .touches = Touches::Room | Touches::Offers,
               .oncePerDoubleClick = true,
               .act = toggleStaffTag,
               .offered = staffTagsUsed,
               .checked = isStaffTag},
    CommandRow{.command = Command{38},
               .caption = "",
               .tip = "Status tag 9",
               .touches = Touches::Room | Touches::Offers,
               .oncePerDoubleClick = true,
               .act = toggleStaffTag,
               .offered = staffTagsUsed,
               .checked = isStaffTag},
    CommandRow{.command = Command{39},
               .caption = "",
               .tip = "Status tag 10",
               .touches = Touches::Room | Touches::Offers,
               .oncePerDoubleClick = true,
               .act = toggleStaffTag,
               .offered = staffTagsUsed,
               .checked = isStaffTag},
    CommandRow{.command = Command::ShutDown,
               .caption = "ShutDown",
               .tip = "End the program",
               .keys = "Ctrl+Q",
               .act = [](T t, C) { t.tmrExit.setEnabled(true); }},
    CommandRow{.command = Command::Options,
               .caption = "Opt&ions",
               .tip = "Name, sounds, popups, quick statuses and all else",
               .keys = "Ctrl+,",
               .window = WindowId::Options},
    CommandRow{.command = Command::SetStatus,
               .caption = "Set your Status",
               .tip = kStatusTip,
               .keys = "Ctrl+M",
               .window = WindowId::SetStatus},
    CommandRow{.command = Command::About,
               .caption = "About",
               .tip = "Version and files of this program",
               .window = WindowId::About},
    CommandRow{.command = Command::Notifications,
               .caption = "Notifications",
               .tip = "What happened at this location",
               .keys = "Ctrl+Shift+N",
               .window = WindowId::Notifications},
    CommandRow{.command = Command::NewMessage,
               .caption = "New Message",
               .tip = "Write to locations, favorites, a group or everyone",
               .keys = "Ctrl+N",
               .sends = true,
               .act = [](T t, C) { compose(t, 1); }},
    CommandRow{.command = Command::RingDoorbell,
               .caption = "Ring Doorbell",
               .tip = kDoorBellTip,
               .keys = "Ctrl+D",
               .sends = true,
               .window = WindowId::GlobalDoorBell},
    CommandRow{.command = Command::Refresh,
               .caption = "Refresh",
               .tip = "Look for locations that are not listed yet",
               .keys = "Ctrl+R",
               .sends = true,
               .act = [](T t, C) { t.network.Announce(); }},
    CommandRow{.command = Command::OccupiedLocations,
               .caption = "Occupied Locations",
               .tip = "The board of rooms that are in use",
               .keys = "Ctrl+B",
               .window = WindowId::RoomStatus},
    CommandRow{.command = Command::ManageSnippets,
               .caption = "Manage Snippets",
               .tip = "Short texts for quick entry",
               .keys = "Ctrl+Shift+S",
               .window = WindowId::Snippit},
    CommandRow{.command = Command::OnTop,
               .caption = "Always OnTop",
               .tip = "Keep the window above all others",
               .touches = Touches::OnTop,
               .act = [](T t, C) { t.shell.toggleOnTop(); },
               .checked = [](T t, C) { return t.settings.Settings_ONTOP(); }},
    CommandRow{.command = Command::Usage,
               .caption = "Usage",
               .tip = "How this location was used, day by day",
               .keys = "Ctrl+U",
               .window = WindowId::MicroMetrics},
    CommandRow{.command = Command::SendDoorbell,
               .caption = "Send Doorbell",
               .tip = kDoorBellTip,
               .touches = Touches::Offers,
               .sends = true,
               .window = WindowId::GlobalDoorBell,
               .offered = [](T t) { return t.settings.Settings_DBNAV(); }},
    CommandRow{.command = Command::Connections,
               .caption = "Active &Connections",
               .tip = "All locations as the network tells of them",
               .keys = "Ctrl+Shift+A",
               .window = WindowId::Endpoints},
    CommandRow{.command = Command::Adapters,
               .caption = "Network &Adapter",
               .tip = "Choose the network adapter",
               .window = WindowId::Adapters,
               .enabled = [](T t, C) { return !Restrictions::restricted(t.admin.NetworkSettings); },
               .tipNow =
                   [](T t, C) {
                       return Restrictions::restricted(t.admin.NetworkSettings) ? kLockedByAdmin : QString();
                   }},
    CommandRow{.command = Command::CheckForUpdates,
               .caption = "Check for &Updates",
               .tip = "Look for a newer version now",
               .act = [](T t, C) { t.updates.start(UpdateRun::CheckNow); },
               .offered = [](T t) { return t.updates.allowed(); }},
    CommandRow{.command = Command::UpdateOptions,
               .caption = "Update O&ptions",
               .tip = "Choose how updates are made",
               .act = [](T t, C) { t.updates.start(UpdateRun::Configure); },
               .offered = [](T t) { return t.updates.allowed(); }},
    CommandRow{.command = Command::MyStatus,
               .caption = "My Status",
               .tip = "Set your status",
               .window = WindowId::SetStatus},
    CommandRow{.command = Command::Quick1,
               .caption = "",
               .tip = "First quick status",
               .touches = Touches::OwnStatus | Touches::QuickNames,
               .sends = true,
               .oncePerDoubleClick = true,
               .act = setQuick,
               .checked = quickLatched,
               .captionNow = quickCaption,
               .tipNow = quickTip},
    CommandRow{.command = Command::Quick2,
               .caption = "",
               .tip = "Second quick status",
               .touches = Touches::OwnStatus | Touches::QuickNames,
               .sends = true,
               .oncePerDoubleClick = true,
               .act = setQuick,
               .checked = quickLatched,
               .captionNow = quickCaption,
               .tipNow = quickTip},
    CommandRow{.command = Command::Quick3,
               .caption = "",
               .tip = "Third quick status",
               .touches = Touches::OwnStatus | Touches::QuickNames,
               .sends = true,
               .oncePerDoubleClick = true,
               .act = setQuick,
               .checked = quickLatched,
               .captionNow = quickCaption,
               .tipNow = quickTip},
    CommandRow{.command = Command::Occupied,
               .caption = "Occupied",
               .tip = kRoomTip,
               .touches = Touches::Room,
               .sends = true,
               .oncePerDoubleClick = true,
               .act = toggleRoom,
               .checked = roomOccupied,
               .captionNow = roomCaption,
               .pictureNow = roomPicture},
    CommandRow{.command = Command::DND,
               .caption = "DND",
               .tip = "Do Not Disturb",
               .touches = Touches::DND,
               .oncePerDoubleClick = true,
               .act = [](T t, C) { t.status.SetDND(); },
               .checked = [](T t, C) { return t.own.doNotDisturb; }},
    CommandRow{.command = Command::Preview,
               .caption = "Location Notes",
               .tip = kNotesTip,
               .touches = Touches::Preview,
               .act = setPreview,
               .checked = previewOn},
    CommandRow{.command = Command::LocationNote,
               .caption = "Set Location Note",
               .tip = "Write what all locations read below this one",
               .act = showActiveNote},
    CommandRow{.command = Command::MessageMenu,
               .caption = "New Message",
               .tip = "Choose whom to write to: everyone, favorites, a group",
               .sends = true},
    CommandRow{.command = Command::Home,
               .caption = kViews[0].caption,
               .tip = kViews[0].tip,
               .touches = Touches::View | Touches::Counts,
               .act = setView,
               .checked = isView,
               .captionNow = SetTabCaption},
    CommandRow{.command = Command::StatusView,
               .caption = kViews[1].caption,
               .tip = kViews[1].tip,
               .touches = Touches::View | Touches::Counts,
               .act = setView,
               .checked = isView,
               .captionNow = SetTabCaption},
    CommandRow{.command = Command::Favorites,
               .caption = kViews[2].caption,
               .tip = kViews[2].tip,
               .touches = Touches::View | Touches::Counts,
               .act = setView,
               .checked = isView,
               .captionNow = SetTabCaption},
    CommandRow{.command = Command::Inbox,
               .caption = kViews[3].caption,
               .tip = kViews[3].tip,
               .touches = Touches::View | Touches::Counts,
               .act = setView,
               .checked = isView,
               .captionNow = SetTabCaption},
    CommandRow{.command = Command::RowMessage,
               .caption = "Message",
               .tip = "Send this location the message",
               .touches = Touches::Row,
               .sends = true,
               .act = quickMessage,
               .enabled = hasRow},
    CommandRow{.command = Command::RowDoorBell,
               .caption = "DoorBell",
               .tip = "Ring the doorbell of this location",
               .touches = Touches::Row,
               .sends = true,
               .act = quickAlert,
               .enabled = [](T t, C c) { return c.row != nullptr && t.settings.QuickMenu_AlertDoorBell(); }},
    CommandRow{.command = Command::RowPhoneCall,
               .caption = "Phone Call",
               .tip = "Tell this location of a phone call",
               .touches = Touches::Row,
               .sends = true,
               .act = quickAlert,
               .enabled = [](T t, C c) { return c.row != nullptr && t.settings.QuickMenu_AlertPhone(); }},
    CommandRow{.command = Command::RowUrgent,
               .caption = "Urgent",
               .tip = "Call this location urgently",
               .touches = Touches::Row,
               .sends = true,
               .act = quickAlert,
               .enabled = [](T t, C c) { return c.row != nullptr && t.settings.QuickMenu_AlertUrgent(); }},
    CommandRow{.command = Command::RowClearStatus,
               .caption = "Clear Status",
               .tip = "Turn this location's status off",
               .touches = Touches::Row,
               .sends = true,
               .act = clearRowStatus,
               .enabled = [](T, C c) { return c.row != nullptr && GetStatusActive(*c.row); }},
    CommandRow{.command = Command::RowNotOccupied,
               .caption = "Not Occupied",
               .tip = "Seat a patient there, or remove the one who is",
               .touches = Touches::Row | Touches::Online,
               .act = [](T t, C c) { t.actions.SetOccupiedRemote(*c.row); },
               .enabled = rowCanBeAsked,
               .captionNow = rowRoomCaption,
               .pictureNow = rowRoomPicture},
    CommandRow{.command = Command::RowNote,
               .caption = "Location Note",
               .tip = "Write or remove the note of this location",
               .touches = Touches::Row | Touches::Online,
               .act = [](T t, C c) { t.actions.SetLocationNoteRemote(*c.row); },
               .enabled = rowCanBeAsked},
    CommandRow{.command = Command::RowClearTag,
               .caption = "Clear Status Tag",
               .tip = "Take the staff tag of this location away",
               .touches = Touches::Row,
               .sends = true,
               .act = [](T t, C c) { t.actions.ClearStaffTag(*c.row); },
               .enabled = [](T, C c) { return c.row != nullptr && GetStatusTag(*c.row) != 0; }},
    CommandRow{.command = Command::Close, .caption = "Close"},
    CommandRow{.command = Command::RowAddFavorite,
               .caption = "Add to Favorites",
               .tip = "Pin this location to your favorites",
               .touches = Touches::Row,
               .act = [](T t, C c) { t.actions.AddtoFavoriteList(*c.row); },
               .enabled = hasRow},
    CommandRow{.command = Command::RowFavoriteOptions,
               .caption = "Favorite Options",
               .tip = "Tone and popup of this favorite",
               .touches = Touches::Row,
               .act = [](T t, C c) { t.actions.LaunchActionsWindow(*c.row, ActionsPage::Favorite); },
               .enabled = hasRow},
    CommandRow{.command = Command::RowSetStatus,
               .caption = "Set Status",
               .tip = "Set a status at this location",
               .touches = Touches::Row | Touches::Online,
               .act = [](T t, C c) { t.actions.LaunchActionsWindow(*c.row, ActionsPage::Status); },
               .enabled = rowCanBeAsked},
    CommandRow{.command = Command::RowSnippets,
               .caption = "Compose",
               .tip = "Write this location a longer message",
               .act = rowSnippets,
               .pictureNow = [](T, C) { return static_cast<int>(Command::NewMessage); }},
    CommandRow{.command = Command::OwnClearStatus,
               .caption = "Clear Status",
               .tip = "Turn your status off",
               .touches = Touches::OwnStatus,
               .act = [](T t, C) { t.status.TurnOffStatus(); },
               .enabled = [](T t, C) { return !t.own.status.isEmpty(); }},
    CommandRow{.command = Command::OwnOccupied,
               .caption = "Occupied",
               .tip = kRoomTip,
               .touches = Touches::Room,
               .sends = true,
               .act = toggleRoom,
               .checked = roomOccupied,
               .captionNow = roomCaption,
               .pictureNow = roomPicture},
    CommandRow{.command = Command::OwnNote,
               .caption = "Location Note",
               .tip = "Write or remove your note",
               .act = showActiveNote},
    CommandRow{.command = Command::OwnClearTag,
               .caption = "Clear Status Tag",
               .tip = "Take your staff tag away",
               .touches = Touches::Room,
               .act = [](T t, C) { t.presence.ClearStaffTag(t.own.SID); },
               .enabled = [](T t, C) { return t.own.staffTag != 0; }},
    CommandRow{.command = Command::OwnAddFavorite,
               .caption = "Add to Favorites",
               .tip = "Pin your own location to your favorites",
               .act = [](T t, C) { t.actions.Add_LocalFavorite(); }},
    CommandRow{.command = Command::OwnRemoveFavorite,
               .caption = "Remove from Favorites",
               .tip = "Take your own location out of your favorites",
               .touches = Touches::FavoriteSlots,
               .act = [](T t, C) { t.actions.Remove_LocalFavorite(); },
               .enabled = [](T t, C) { return t.favorites.IsFavoriteSID(t.own.SID); }},
    CommandRow{.command = Command::OwnSetStatus,
               .caption = "Set Status",
               .tip = kStatusTip,
               .window = WindowId::SetStatus},
    CommandRow{.command = Command::SendTo, .caption = "Send a Message to ", .enabled = heading},
    CommandRow{.command = Command::ToEveryone,
               .caption = "Everyone",
               .tip = "Write to all locations",
               .sends = true,
               .act = [](T t, C) { compose(t, 0); }},
    CommandRow{.command = Command::ToFavorites,
               .caption = "Favorites",
               .tip = "Write to some of your favorites",
               .sends = true,
               .act = [](T t, C) { compose(t, 2); }},
    CommandRow{.command = Command::ToRecipients,
               .caption = "Select Recipients",
               .tip = "Write to locations of your choice",
               .sends = true,
               .act = [](T t, C) { compose(t, 1); }},
    groupRow(0),
    groupRow(1),
    groupRow(2),
    groupRow(3),
    groupRow(4),
    groupRow(5),
    groupRow(6),
    groupRow(7),
    groupRow(8),
    groupRow(9),
    CommandRow{.command = Command::MyGroups, .caption = "My Groups", .enabled = heading},
    CommandRow{.command = Command::OpenMessage,
               .caption = "Open Message",
               .tip = "Read the whole message, and answer it",
               .touches = Touches::Messages | Touches::View,
               .act = [](T t, C) { t.inbox.GetMessageFromList(); },
               .enabled = hasMessage},
    CommandRow{.command = Command::PrintMessage,
               .caption = "Print Message",
               .tip = "See the message as it is printed, and print it",
               .keys = "Ctrl+P",
               .touches = Touches::Messages | Touches::View,
               .act = [](T t, C) { t.inbox.Print_Message(); },
               .enabled = hasMessage},
    CommandRow{.command = Command::DeleteMessage,
               .caption = "Delete Message",
               .tip = "Take the message out of the inbox",
               .touches = Touches::Messages | Touches::View,
               .act = [](T t, C) { t.inbox.Delete_Message(); },
               .enabled = hasMessage},
    CommandRow{.command = Command::MessagesToTop,
               .caption = "Scroll to top when receiving a message",
               .tip = "Otherwise the inbox stays where you read",
               .touches = Touches::Messages | Touches::View,
               .act = [](T t, C) { t.inbox.SetEnsureVisible_Message(); },
               .checked = [](T t, C) { return t.settings.Messages_EV(); }},
    CommandRow{.command = Command::ClearMessages,
               .caption = "Clear all messages",
               .tip = "Delete all messages",
               .touches = Touches::Messages,
               .act = [](T t, C) { t.inbox.askToRemoveAll(); },
               .enabled = hasMessages},
    CommandRow{.command = Command::FavoritesList,
               .caption = "Favorites List",
               .tip = "All your favorites, also those that are off line",
               .touches = Touches::View,
               .window = WindowId::FavEditor,
               .offered = [](T t) { return t.shell.view() == View::Favorites; }},
    CommandRow{.command = Command::Notes,
               .caption = "Show\\Hide Location Notes",
               .tip = kNotesTip,
               .touches = Touches::Preview,
               .act = setPreview,
               .checked = previewOn},
    CommandRow{.command = Command::HomeSort, .caption = "Home Sort Options", .enabled = heading},
    CommandRow{.command = Command::HomeByColor,
               .caption = "Sort by Color",
               .touches = Touches::Sort,
               .act = setHomeSort,
               .checked = isHomeSort},
    CommandRow{.command = Command::HomeByName,
               .caption = "Sort by Name",
               .touches = Touches::Sort,
               .act = setHomeSort,
               .checked = isHomeSort},
    CommandRow{.command = Command::StatusSort, .caption = "Status Sort Options", .enabled = heading},
    CommandRow{.command = Command::StatusByTimeColor,
               .caption = "Sort by Time && Color",
               .touches = Touches::Sort,
               .act = setStatusSort,
               .checked = isStatusSort},
    CommandRow{.command = Command::StatusByTimeName,
               .caption = "Sort by Time && Name",
               .touches = Touches::Sort,
               .act = setStatusSort,
               .checked = isStatusSort},
    CommandRow{.command = Command::StatusByNameTime,
               .caption = "Sort by Name && Time",
               .touches = Touches::Sort,
               .act = setStatusSort,
               .checked = isStatusSort},
    CommandRow{.command = Command::FavoritesSort, .caption = "Favorites Sort Options", .enabled = heading},
    CommandRow{.command = Command::FavoritesByColor,
               .caption = "Sort by Color",
               .touches = Touches::Sort,
               .act = setFavoritesSort,
               .checked = isFavoritesSort},
    CommandRow{.command = Command::FavoritesByName,
               .caption = "Sort by Name",
               .touches = Touches::Sort,
               .act = setFavoritesSort,
               .checked = isFavoritesSort},
    CommandRow{.command = Command::LargerFont,
               .caption = "Increase Font Size",
               .touches = Touches::Font,
               .act = [](T t, C) { t.shell.IncreaseReportFont(); },
               .enabled = [](T t, C) { return t.shell.reportFont() < Shell::kLargestFont; },
               .tipNow = [](T t, C) { return t.shell.increaseTip(); }},
    CommandRow{.command = Command::SmallerFont,
               .caption = "Decrease Font Size",
               .touches = Touches::Font,
               .act = [](T t, C) { t.shell.DecreaseReportFont(); },
               .enabled = [](T t, C) { return t.shell.reportFont() > Shell::kSmallestFont; },
               .tipNow = [](T t, C) { return t.shell.decreaseTip(); }},
    CommandRow{.command = Command::SortOptions,
               .caption = "Sort Options",
               .tip = "Choose the order of the lists"},
};

constexpr bool rising() {
    for (std::size_t i = 1; i < kCommands.size(); ++i) {
        if (kCommands[i - 1].number() >= kCommands[i].number()) {
            return false;
        }
    }
    return true;
}
static_assert(rising());

} // namespace

std::span<const CommandRow> commandTable() {
    return kCommands;
}

const CommandRow* findCommand(int number) {
    const auto found = std::ranges::lower_bound(kCommands, number, {}, &CommandRow::number);
    return found != kCommands.end() && found->number() == number ? &*found : nullptr;
}

} // namespace tessel
