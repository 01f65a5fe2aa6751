#include "engine/mainwindow/mod_Commands.h"

#include "engine/alerts/mod_AlertEngine.h"
#include "engine/core/cOwnState.h"
#include "engine/core/mod_Settings.h"
#include "engine/mainwindow/mod_Shell.h"
#include "engine/network/mod_Network_MC.h"
#include "engine/ports/cWindows.h"
#include "engine/presence/mod_LocalStatus.h"
#include "engine/presence/mod_LocationViews.h"
#include "engine/presence/mod_OwnPresence.h"

#include <algorithm>
#include <array>

namespace tessel {

namespace {

constexpr char kDoorBellTip[] = "Send Doorbell alert to all locations or groups";
constexpr bool kExists = true;
constexpr bool kLater = false;
constexpr bool kCheck = true;
constexpr bool kPlain = false;

constexpr std::array kCommands{
    CommandRow{100, "ShutDown", "End the program", kPlain, kExists},
    CommandRow{101, "Opt&ions", "", kPlain, kLater},
    CommandRow{102, "Set your Status", "Show all locations what you are doing", kPlain, kExists},
    CommandRow{103, "About", "", kPlain, kLater},
    CommandRow{104, "Notifications", "What happened at this location", kPlain, kExists},
    CommandRow{105, "New Message", "", kPlain, kLater},
    CommandRow{106, "Ring Doorbell", kDoorBellTip, kPlain, kExists},
    CommandRow{107, "Refresh", "Look for locations that are not listed yet", kPlain, kExists},
    CommandRow{108, "Occupied Locations", "", kPlain, kLater},
    CommandRow{109, "Manage Snippets", "", kPlain, kLater},
    CommandRow{110, "Always OnTop", "Keep the window above all others", kCheck, kExists},
    CommandRow{111, "Usage", "", kPlain, kLater},
    CommandRow{112, "Send Doorbell", kDoorBellTip, kPlain, kExists},
    CommandRow{200, "My Status", "Set your status", kPlain, kExists},
    CommandRow{201, "", "First quick status", kCheck, kExists},
    CommandRow{202, "", "Second quick status", kCheck, kExists},
    CommandRow{203, "", "Third quick status", kCheck, kExists},
    CommandRow{205, "Occupied", "This location is in use, or not any more", kCheck, kExists},
    CommandRow{300, "DND", "Do Not Disturb", kCheck, kExists},
    CommandRow{301, "Location Notes", "Show or hide the notes of locations", kCheck, kExists},
    CommandRow{302, "Set Location Note", "", kPlain, kLater},
    CommandRow{304, "New Message", "", kPlain, kLater},
    CommandRow{350, "Home ", " All Locations ", kCheck, kExists},
    CommandRow{351, "Status ", " View only locations with Status ", kCheck, kExists},
    CommandRow{352, "Favorites ", " My Favorites ", kCheck, kExists},
    CommandRow{353, "Inbox ", " New Messages ", kCheck, kLater},
    CommandRow{402, "Message", "", kPlain, kLater},
    CommandRow{404, "DoorBell", "Ring the doorbell of this location", kPlain, kExists},
    CommandRow{405, "Phone Call", "Tell this location of a phone call", kPlain, kExists},
    CommandRow{406, "Urgent", "Call this location urgently", kPlain, kExists},
    CommandRow{407, "Clear Status", "Turn this location's status off", kPlain, kExists},
    CommandRow{408, "Not Occupied", "", kPlain, kLater},
    CommandRow{409, "Location Note", "", kPlain, kLater},
    CommandRow{410, "Clear Status Tag", "Take the staff tag of this location away", kPlain, kExists},
    CommandRow{412, "Close", "", kPlain, kExists},
    CommandRow{416, "Add to Favorites", "", kPlain, kLater},
    CommandRow{417, "Favorite Options", "", kPlain, kLater},
    CommandRow{418, "Set Status", "", kPlain, kLater},
    CommandRow{419, "Snippets ", "", kPlain, kLater},
    CommandRow{432, "Clear Status", "Turn your status off", kPlain, kExists},
    CommandRow{433, "Occupied", "This location is in use, or not any more", kCheck, kExists},
    CommandRow{434, "Location Note", "", kPlain, kLater},
    CommandRow{435, "Clear Status Tag", "Take your staff tag away", kPlain, kExists},
    CommandRow{436, "Add to Favorites", "", kPlain, kLater},
    CommandRow{437, "Remove from Favorites", "", kPlain, kLater},
    CommandRow{438, "Set Status", "Show all locations what you are doing", kPlain, kExists},
    CommandRow{450, "Send a Message to ", "", kPlain, kLater},
    CommandRow{451, "Everyone", "", kPlain, kLater},
    CommandRow{452, "Favorites", "", kPlain, kLater},
    CommandRow{453, "Select Recipients", "", kPlain, kLater},
    CommandRow{460, "", "", kPlain, kLater},
    CommandRow{461, "", "", kPlain, kLater},
    CommandRow{462, "", "", kPlain, kLater},
    CommandRow{463, "", "", kPlain, kLater},
    CommandRow{464, "", "", kPlain, kLater},
    CommandRow{465, "", "", kPlain, kLater},
    CommandRow{466, "", "", kPlain, kLater},
    CommandRow{467, "", "", kPlain, kLater},
    CommandRow{468, "", "", kPlain, kLater},
    CommandRow{469, "", "", kPlain, kLater},
    CommandRow{470, "My Groups", "", kPlain, kLater},
    CommandRow{706, "Show\\Hide Location Notes", "Show or hide the notes of locations", kCheck, kExists},
    CommandRow{760, "Home Sort Options", "", kPlain, kExists},
    CommandRow{761, "Sort by Color", "", kCheck, kExists},
    CommandRow{762, "Sort by Name", "", kCheck, kExists},
    CommandRow{765, "Status Sort Options", "", kPlain, kExists},
    CommandRow{766, "Sort by Time && Color", "", kCheck, kExists},
    CommandRow{767, "Sort by Time && Name", "", kCheck, kExists},
    CommandRow{768, "Sort by Name && Time", "", kCheck, kExists},
    CommandRow{770, "Favorites Sort Options", "", kPlain, kExists},
    CommandRow{771, "Sort by Color", "", kCheck, kExists},
    CommandRow{772, "Sort by Name", "", kCheck, kExists},
    CommandRow{800, "Increase Font Size", "", kPlain, kExists},
    CommandRow{801, "Decrease Font Size", "", kPlain, kExists},
    CommandRow{810, "Sort Options", "Choose the order of the lists", kPlain, kExists},
};

constexpr bool rising() {
    for (std::size_t i = 1; i < kCommands.size(); ++i) {
        if (kCommands[i - 1].id >= kCommands[i].id) {
            return false;
        }
    }
    return true;
}
static_assert(rising());

constexpr int kFirstQuick = 201;
constexpr int kLastQuick = 203;
constexpr int kFirstRowCommand = 402;
constexpr int kLastRowCommand = 419;
constexpr int kFirstOwnCommand = 432;
constexpr int kLastOwnCommand = 438;
constexpr int kFirstSort = 761;
constexpr int kLastSort = 772;

bool between(int id, int first, int last) {
    return id >= first && id <= last;
}

// Names come from outside, and a menu takes what stands behind a tabulator for a shortcut.
QString shown(const QString& name) {
    return name.simplified().replace(u'&', QLatin1String("&&"));
}

} // namespace

const CommandRow* firstCommand() {
    return kCommands.data();
}

const CommandRow* endOfCommands() {
    return kCommands.data() + kCommands.size();
}

const CommandRow* findCommand(int id) {
    const auto* const found =
        std::lower_bound(firstCommand(), endOfCommands(), id,
                         [](const CommandRow& row, int wanted) { return row.id < wanted; });
    return found != endOfCommands() && found->id == id ? found : nullptr;
}

void Commands::Execute(int id, const ReportRecord* row, const QString& text) {
    const CommandRow* const command = findCommand(id);
    if (command == nullptr || !command->exists) {
        return;
    }
    // A menu may have been opened while the station was on line.
    if ((sends(id) && !m_targets.network.CanSend()) || !enabled(id, row)) {
        return;
    }
    if (between(id, kFirstRowCommand, kLastRowCommand)) {
        if (row != nullptr) {
            onRow(id, *row, text);
        }
    } else if (between(id, kFirstOwnCommand, kLastOwnCommand)) {
        onOwn(id);
    } else if (between(id, kFirstSort, kLastSort)) {
        sort(id);
    } else {
        general(id);
    }
}

void Commands::general(int id) {
    Targets& t = m_targets;
    switch (id) {
    case 100:
        t.end();
        break;
    case 102:
    case 200:
        t.windows.show({WindowId::SetStatus});
        break;
    case 104:
        t.windows.show({WindowId::Notifications});
        break;
    case 106:
    case 112:
        t.windows.show({WindowId::GlobalDoorBell});
        break;
    case 107:
        t.network.Announce();
        break;
    case 110:
        t.shell.toggleOnTop();
        break;
    case 201:
    case 202:
    case 203:
        t.status.SetStatus(id - kFirstQuick);
        break;
    case 205:
        t.presence.SetOccupiedStatusRemote(false, {});
        break;
    case 300:
        t.status.SetDND();
        break;
    case 301:
    case 706:
        t.shell.SetPreviewMode();
        break;
    case 350:
    case 351:
    case 352:
    case 353:
        t.shell.SetTabView(id);
        break;
    case 800:
        t.shell.IncreaseReportFont();
        break;
    case 801:
        t.shell.DecreaseReportFont();
        break;
    default:
        break;
    }
}

void Commands::onRow(int id, const ReportRecord& row, const QString& text) {
    Targets& t = m_targets;
    switch (id) {
    case 404:
    case 405:
    case 406:
        t.alerts.SendQuickAlert(static_cast<QuickAlert>(id), {GetSID(row), GetLocationTag(row)},
                                text.trimmed());
        break;
    case 407:
        if (isOwn(row)) {
            t.status.TurnOffStatus();
        } else {
            t.status.clearStatusOf(GetSID(row));
        }
        break;
    case 410:
        t.presence.ClearStaffTag(GetSID(row));
        break;
    default:
        break;
    }
}

void Commands::onOwn(int id) {
    Targets& t = m_targets;
    switch (id) {
    case 432:
        t.status.TurnOffStatus();
        break;
    case 433:
        t.presence.SetOccupiedStatusRemote(false, {});
        break;
    case 435:
        t.presence.ClearStaffTag(t.own.SID);
        break;
    case 438:
        t.windows.show({WindowId::SetStatus});
        break;
    default:
        break;
    }
}

void Commands::sort(int id) {
    constexpr int kHome = 761;
    constexpr int kStatus = 766;
    constexpr int kFavorites = 771;
    if (id >= kFavorites) {
        m_targets.shell.SetSort_FavoriteView(id - kFavorites);
    } else if (id >= kStatus) {
        m_targets.shell.SetSort_StatusView(id - kStatus);
    } else {
        m_targets.shell.SetSort_EndpointView(id - kHome);
    }
}

bool Commands::sends(int id) {
    constexpr std::array kSending{106, 107, 112, 201, 202, 203, 205, 404, 405, 406, 433};
    static_assert(std::is_sorted(kSending.begin(), kSending.end()));
    return std::binary_search(kSending.begin(), kSending.end(), id);
}

bool Commands::enabled(int id, const ReportRecord* row) const {
    const Targets& t = m_targets;
    if (sends(id) && !t.own.canSend()) {
        return false;
    }
    switch (id) {
    case 404:
        return row != nullptr && t.settings.QuickMenu_AlertDoorBell();
    case 405:
        return row != nullptr && t.settings.QuickMenu_AlertPhone();
    case 406:
        return row != nullptr && t.settings.QuickMenu_AlertUrgent();
    case 407:
        return row != nullptr && GetStatusActive(*row);
    case 410:
        return row != nullptr && GetStatusTag(*row) != 0;
    case 432:
        return !t.own.status.isEmpty();
    case 435:
        return t.own.staffTag != 0;
    case 760:
    case 765:
    case 770:
        return false; // headings
    case 800:
        return t.shell.reportFont() < Shell::kLargestFont;
    case 801:
        return t.shell.reportFont() > Shell::kSmallestFont;
    default:
        return true;
    }
}

bool Commands::checked(int id) const {
    const Targets& t = m_targets;
    switch (id) {
    case 110:
        return t.settings.Settings_ONTOP();
    case 205:
    case 433:
        return t.own.occupied;
    case 300:
        return t.own.doNotDisturb;
    case 301:
    case 706:
        return t.shell.previewMode();
    case 761:
    case 762:
        return t.settings.Settings_SORTEV() == id - 761;
    case 766:
    case 767:
    case 768:
        return t.settings.Settings_SORTSV() == id - 766;
    case 771:
    case 772:
        return t.settings.Settings_SORTFV() == id - 771;
    default:
        return between(id, kFirstQuick, kLastQuick) ? t.status.latched(id - kFirstQuick)
                                                    : id == static_cast<int>(t.shell.view());
    }
}

QString Commands::caption(int id) const {
    if (between(id, kFirstQuick, kLastQuick)) {
        const QuickStatus& quick = m_targets.status.quick(id - kFirstQuick);
        const QString name = quick.Name.isEmpty() ? quick.Message : quick.Name;
        return name.isEmpty() ? QStringLiteral("Quick %1").arg(id - kFirstQuick + 1) : shown(name);
    }
    if (id == 205 || id == 433) {
        if (!m_targets.own.occupied) {
            return QStringLiteral("Seat Patient");
        }
        const QString& patient = m_targets.own.patientName;
        return patient.isEmpty() ? QStringLiteral("Remove Patient")
                                 : QLatin1String("Remove Patient (") + shown(patient) + u')';
    }
    if (const QString tab = m_targets.shell.tabCaption(id); !tab.isEmpty()) {
        return tab;
    }
    const CommandRow* const row = findCommand(id);
    return row == nullptr ? QString() : QString::fromLatin1(row->caption);
}

QString Commands::tip(int id) const {
    if (between(id, kFirstQuick, kLastQuick)) {
        const QString& message = m_targets.status.quick(id - kFirstQuick).Message;
        if (!message.isEmpty()) {
            return message;
        }
    }
    if (id == 800 || id == 801) {
        return id == 800 ? m_targets.shell.increaseTip() : m_targets.shell.decreaseTip();
    }
    const CommandRow* const row = findCommand(id);
    return row == nullptr ? QString() : QString::fromLatin1(row->tip);
}

bool Commands::isOwn(const ReportRecord& row) const {
    return GetSID(row) == m_targets.own.SID;
}

const QString& Commands::quickAlertPrefix() const {
    return m_targets.settings.QuickMenu_AlertGroupCommand();
}

QString Commands::quickMenuHeading(const ReportRecord& row) const {
    const QString name = GetLocationName(row);
    return isLocationDND(row) ? name + QLatin1String(" -  (Do Not Disturb)") : name;
}

} // namespace tessel
