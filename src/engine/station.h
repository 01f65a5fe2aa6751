// One running location: every engine, built in order, and the wires between them.
#pragma once

#include "engine/alerts/mod_AlertBar.h"
#include "engine/alerts/mod_AlertEngine.h"
#include "engine/alerts/mod_Compose.h"
#include "engine/alerts/mod_Groups.h"
#include "engine/alerts/mod_Inbox.h"
#include "engine/alerts/mod_MessageNotices.h"
#include "engine/alerts/mod_Messages.h"
#include "engine/alerts/mod_NotificationHistory.h"
#include "engine/alerts/mod_Popups.h"
#include "engine/alerts/mod_Reply.h"
#include "engine/alerts/mod_Snippets.h"
#include "engine/alerts/mod_StatusNotices.h"
#include "engine/alerts/mod_Tones.h"
#include "engine/core/cErrorLog.h"
#include "engine/core/cInifile.h"
#include "engine/core/cOwnState.h"
#include "engine/core/cSaver.h"
#include "engine/core/cStationClock.h"
#include "engine/core/mod_Folders.h"
#include "engine/core/mod_INIData.h"
#include "engine/core/mod_Identity.h"
#include "engine/core/mod_ProgramRecord.h"
#include "engine/core/mod_Settings.h"
#include "engine/mainwindow/mod_Commands.h"
#include "engine/mainwindow/mod_Footer.h"
#include "engine/mainwindow/mod_Shell.h"
#include "engine/network/mod_Endpoints.h"
#include "engine/network/mod_Hearing.h"
#include "engine/network/mod_LinkLoad.h"
#include "engine/network/mod_Network_MC.h"
#include "engine/network/mod_Network_Protocol.h"
#include "engine/operations/mod_Admin.h"
#include "engine/operations/mod_Diagnostics.h"
#include "engine/operations/mod_HotKeys.h"
#include "engine/operations/mod_LocationProfile.h"
#include "engine/operations/mod_MessageTest.h"
#include "engine/operations/mod_Metrics.h"
#include "engine/operations/mod_NetworkUsage.h"
#include "engine/operations/mod_RemoteCommands.h"
#include "engine/operations/mod_ShortKeys.h"
#include "engine/operations/mod_Shortcuts.h"
#include "engine/operations/mod_Updates.h"
#include "engine/ports/cClock.h"
#include "engine/ports/cHotKeys.h"
#include "engine/ports/cLink.h"
#include "engine/ports/cPorts.h"
#include "engine/ports/cSystemFacts.h"
#include "engine/presence/mod_Favorites.h"
#include "engine/presence/mod_LocalStatus.h"
#include "engine/presence/mod_LocationActions.h"
#include "engine/presence/mod_LocationViews.h"
#include "engine/presence/mod_OwnPresence.h"
#include "engine/presence/mod_RoomStatus.h"
#include "engine/presence/mod_RoomTimes.h"
#include "engine/presence/mod_SharedStatus.h"

#include <QObject>

namespace tessel {

enum class CloseReason { User, Code, SessionEnd, TaskManager };
enum class CloseAction { Close, Minimise };

class Station : public QObject {
    Q_OBJECT
public:
    // `seed`: for repeatable ids in tests; 0 for real ones.
    Station(const SystemFacts& facts, const Ports& ports, std::uint64_t seed = 0);

    // Everything from the folders to the first window.
    void start();
    // The folders alone, with the administrator's restrictions, which say which folder it is.
    static void SetupFolders(Folders& folders, Admin& admin, cInifile& ini);

    // The engines' share of loading the main window, in two steps: before its lists are shown, and
    // when it is done.
    void loadMain();
    void mainLoaded();

    // The only orderly way out. To end the program from anywhere, enable `tmrExit`.
    void ExitProc();
    // The main window is about to close: what becomes of it.
    CloseAction closing(CloseReason reason);

    Windows& windows;
    Session& session;
    OwnState own;

private:
    SystemFacts m_facts;
    StationClock m_clock;
    Link& m_link;
    PopupDisplay& m_popupDisplay;

public:
    cInifile ini;
    Folders folders;
    INIData data;
    cErrorLog log;
    cSaver saver{own, m_clock, log};
    Admin admin;
    Settings settings;
    ProgramRecord record;
    Identity identity;
    NetworkProtocol protocol;
    LinkLoad linkLoad{m_link, protocol, log, m_clock};
    NetworkMC network;
    NetworkUsage usage;
    Hearing hearing;
    Endpoints endpoints;
    Favorites favorites;
    LocationViews views;
    SharedStatus sharedStatus;
    LocalStatus status;
    OwnPresence presence;
    LocationActions actions;
    RoomTimes roomTimes;
    RoomStatus rooms;
    QuickHotKeys hotKeys;
    Shortcuts shortcuts;
    LocationProfile profile;
    ShortKeys shortKeys;
    Tones tones;
    Popups popups;
    StatusNotices notices;
    AlertBar alertBar;
    NotificationHistory history;
    Groups groups;
    Snippets snippets;
    AlertEngine alerts;
    Messages messages;
    Inbox inbox;
    MessageNotices messageNotices;
    Compose compose;
    Reply reply;
    Footer footer;
    Shell shell;
    Updates updates;
    Metrics metrics;
    Diagnostics diagnostics;
    MessageTest messageTest;
    Commands commands;
    RemoteCommands remoteCommands;

    Timer tmrExit;

private:
    void wire();
    void attachOrders();

    bool m_ended = false;
};

} // namespace tessel
