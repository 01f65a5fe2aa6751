#include "engine/mainwindow/mod_Commands.h"

#include "engine/alerts/mod_Groups.h"
#include "engine/alerts/mod_Snippets.h"
#include "engine/core/cOwnState.h"
#include "engine/core/mod_Settings.h"
#include "engine/network/mod_Network_MC.h"
#include "engine/presence/mod_LocationViews.h"

namespace tessel {

void Commands::Execute(int number, const ReportRecord* row, const QString& text) {
    const CommandRow* const command = findCommand(number);
    if (command == nullptr) {
        return;
    }
    // A menu may have been opened while the station was on line, so whoever sends is told.
    if ((command->sends && !m_targets.network.CanSend()) || !enabled(number, row)) {
        return;
    }
    if (command->window) {
        m_targets.windows.show({*command->window});
    }
    if (command->act != nullptr) {
        command->act(m_targets, {command->command, row, text});
    }
}

bool Commands::enabled(int number, const ReportRecord* row) const {
    const CommandRow* const command = findCommand(number);
    return command != nullptr && (!command->sends || m_targets.own.canSend()) &&
           (command->enabled == nullptr || command->enabled(m_targets, {command->command, row}));
}

bool Commands::checked(int number) const {
    const CommandRow* const command = findCommand(number);
    return command != nullptr && command->checked != nullptr &&
           command->checked(m_targets, {command->command});
}

bool Commands::offered(const CommandRow& row) const {
    return row.offered == nullptr || row.offered(m_targets);
}

QString Commands::caption(int number, const ReportRecord* row) const {
    const CommandRow* const command = findCommand(number);
    return command == nullptr               ? QString()
           : command->captionNow != nullptr ? command->captionNow(m_targets, {command->command, row})
                                            : QString::fromLatin1(command->caption);
}

QString Commands::tip(int number) const {
    const CommandRow* const command = findCommand(number);
    if (command == nullptr) {
        return {};
    }
    const QString now =
        command->tipNow != nullptr ? command->tipNow(m_targets, {command->command}) : QString();
    return now.isEmpty() ? QString::fromLatin1(command->tip) : now;
}

int Commands::picture(int number, const ReportRecord* row) const {
    const CommandRow* const command = findCommand(number);
    return command == nullptr || command->pictureNow == nullptr
               ? number
               : command->pictureNow(m_targets, {command->command, row});
}

bool Commands::isOwn(const ReportRecord& row) const {
    return GetSID(row) == m_targets.own.SID;
}

const QString& Commands::quickAlertPrefix() const {
    return m_targets.settings.QuickMenu_AlertGroupCommand();
}

const QStringList& Commands::snippets() const {
    return m_targets.snippets.list();
}

std::vector<int> Commands::groups() const {
    std::vector<int> numbers;
    int free = -1;
    for (int slot = 0; slot < Groups::kGroupCount; ++slot) {
        const int number = static_cast<int>(Command::FirstGroup) + slot;
        if (m_targets.groups.at(slot).used) {
            numbers.push_back(number);
        } else if (free < 0) {
            free = number;
        }
    }
    if (free >= 0) {
        numbers.push_back(free);
    }
    return numbers;
}

QString Commands::quickMenuHeading(const ReportRecord& row) const {
    const QString name = GetLocationName(row);
    return isLocationDND(row) ? name + QLatin1String(" -  (Do Not Disturb)") : name;
}

} // namespace tessel
