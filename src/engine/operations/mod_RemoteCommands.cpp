#include "engine/operations/mod_RemoteCommands.h"

#include "engine/alerts/mod_AlertEngine.h"
#include "engine/core/cOwnState.h"
#include "engine/core/mod_Definitions.h"
#include "engine/network/mod_Endpoints.h"
#include "engine/network/mod_Network_MC.h"
#include "engine/ports/cSession.h"
#include "engine/ports/cWindows.h"
#include "engine/presence/mod_LocalStatus.h"
#include "engine/presence/mod_OwnPresence.h"

#include <array>
#include <string_view>

namespace tessel {

namespace {

using Targets = RemoteCommands::Targets;
constexpr int kNoArgument = 0;

struct Verb {
    const char* name;
    int argumentLength; // the argument is cut to it; `kNoArgument`: it has none
    bool needsOnline;
    bool accepted; // reports back
    void (*act)(Targets&, const QString& argument);
    const char* help;
};

// -1 for a text that is no whole number.
int number(const QString& text) {
    bool ok = false;
    const int value = text.trimmed().toShort(&ok);
    return ok ? value : -1;
}

void setStatus(Targets& targets, const QString& slot) {
    if (const int index = number(slot); index >= 0) {
        targets.status.SetStatus(index);
    }
}

void setStaff(Targets& targets, const QString& text) {
    const int value = number(text);
    if (value >= 0 && value <= kStaffTagCount) {
        targets.presence.announceStaffTag(
            static_cast<std::int16_t>(value == 0 ? 0 : value + kFirstStaffTag - 1));
    }
}

constexpr std::array kVerbs{
    Verb{"/min", kNoArgument, false, true, [](Targets& t, const QString&) { t.windows.minimiseMain(); },
         "minimise the window"},
    Verb{"/max", kNoArgument, false, true, [](Targets& t, const QString&) { t.windows.restoreMain(); },
         "window to its normal size"},
    Verb{"/shutdown", kNoArgument, false, false, [](Targets& t, const QString&) { t.endSoon(); },
         "end the program"},
    Verb{"/dnd", kNoArgument, false, false, [](Targets& t, const QString&) { t.status.SetDND(); },
         "do not disturb on or off"},
    Verb{"/show", kNoArgument, false, false, [](Targets& t, const QString&) { t.windows.bringUp(); },
         "show the window in front"},
    Verb{"/wakeup", kNoArgument, false, false, [](Targets& t, const QString&) { t.windows.restoreMain(); },
         "show the window"},
    Verb{"/resetscreen", kNoArgument, false, false,
         [](Targets& t, const QString&) { t.windows.ResetScreenPosition(); },
         "window back to its first place"},
    Verb{"/refresh", kNoArgument, false, false,
         [](Targets& t, const QString&) { t.endpoints.RefreshAllEndpoints(); },
         "look for all locations anew"},
    Verb{"/remove", kNoArgument, false, false,
         [](Targets& t, const QString&) { t.session.SetAutoStart(false); },
         "do not start with the session any more"},
    Verb{"/end", kNoArgument, false, false, [](Targets& t, const QString&) { t.endNow(); },
         "end the program at once"},
    Verb{"/s1", kNoArgument, false, false, [](Targets& t, const QString&) { t.status.SetStatus(0); },
         "first quick status"},
    Verb{"/s2", kNoArgument, false, false, [](Targets& t, const QString&) { t.status.SetStatus(1); },
         "second quick status"},
    Verb{"/s3", kNoArgument, false, false, [](Targets& t, const QString&) { t.status.SetStatus(2); },
         "third quick status"},
    Verb{"/s", 2, false, false, setStatus, "quick status of that number, 0 to 8"},
    Verb{"/off", kNoArgument, false, false, [](Targets& t, const QString&) { t.status.TurnOffStatus(); },
         "turn the status off"},
    Verb{"/db", AlertEngine::kLongestDoorBell, true, false,
         [](Targets& t, const QString& text) { t.alerts.sendDoorBellToAll(text); },
         "doorbell to everyone, with this text"},
    Verb{"/dbw", kNoArgument, true, false,
         [](Targets& t, const QString&) {
             t.windows.bringUp();
             t.windows.show({.window = WindowId::GlobalDoorBell, .modal = true});
         },
         "open the doorbell window"},
    Verb{"/busy", kNoArgument, true, false,
         [](Targets& t, const QString&) { t.presence.SetOccupiedStatus(false); }, "occupied on or off"},
    Verb{"/status", LocalStatus::kLongestStatus, false, false,
         [](Targets& t, const QString& text) { t.status.SetCustomStatus(text); }, "set this status"},
    Verb{"/ss", 2, false, false,
         [](Targets& t, const QString& index) { t.status.SetStatusIDX(number(index)); },
         "set the shared status of that number"},
    Verb{"/note", OwnPresence::kLongestNote, false, false,
         [](Targets& t, const QString& text) { t.presence.SetLocationNote(text); }, "set this location note"},
    Verb{"/staff", OwnPresence::kLongestNote, false, false, setStaff, "set staff tag 1 to 10, 0 for none"},
    Verb{"/nostaff", kNoArgument, false, false,
         [](Targets& t, const QString&) { t.presence.announceStaffTag(0); }, "clear the staff tag"},
    Verb{"/announce", kNoArgument, true, false, [](Targets& t, const QString&) { t.network.Announce(); },
         "announce this location"},
};

constexpr bool hasDoubles() {
    for (std::size_t i = 0; i < kVerbs.size(); ++i) {
        for (std::size_t j = i + 1; j < kVerbs.size(); ++j) {
            if (std::string_view(kVerbs[i].name) == kVerbs[j].name) {
                return true;
            }
        }
    }
    return false;
}
static_assert(!hasDoubles());

} // namespace

bool RemoteCommands::execute(const QString& command) {
    if (m_targets.own.exiting) {
        return false;
    }
    const QString name = command.section(u':', 0, 0);
    const QString argument = command.section(u':', 1, 1);
    for (const Verb& verb : kVerbs) {
        if (name != QLatin1String(verb.name)) {
            continue;
        }
        if (!verb.needsOnline || m_targets.network.CanSend()) {
            verb.act(m_targets, argument.left(verb.argumentLength));
        }
        return verb.accepted;
    }
    return false;
}

QStringList RemoteCommands::help() {
    QStringList lines;
    for (const Verb& verb : kVerbs) {
        const QString form = QLatin1String(verb.name) +
                             (verb.argumentLength == kNoArgument ? QLatin1String() : QLatin1String(":..."));
        lines += form.leftJustified(16) + QLatin1String(verb.help);
    }
    return lines;
}

} // namespace tessel
