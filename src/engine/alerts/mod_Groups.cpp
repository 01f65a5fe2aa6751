#include "engine/alerts/mod_Groups.h"

#include "engine/core/cInifile.h"
#include "engine/core/mod_Definitions.h"
#include "engine/core/mod_Folders.h"
#include "engine/core/mod_Limits.h"

namespace tessel {

namespace {
const QString kNameKey = QStringLiteral("Name");
const QString kMembersKey = QStringLiteral("Members");
} // namespace

void Groups::aim(int slot) {
    m_ini.Path = m_folders.dataFile(kGroupsFile);
    m_ini.Section = QString::number(slot + 1);
    m_ini.Default.clear();
}

void Groups::ClearMessageGroups() {
    m_groups.fill({});
}

void Groups::LoadMessageGroups() {
    ClearMessageGroups();
    for (int slot = 0; slot < kGroupCount; ++slot) {
        aim(slot);
        m_ini.Key = kMembersKey;
        const QString members = m_ini.Value();
        if (members.isEmpty()) {
            continue;
        }
        m_ini.Key = kNameKey;
        const QString name = m_ini.Value().left(kMaxRowText);
        m_groups[static_cast<std::size_t>(slot)] = {true, name, members.trimmed()};
    }
    emit changed();
}

QString Groups::caption(int slot) const {
    return at(slot).used ? at(slot).name : kCreateGroup;
}

QString Groups::tip(int slot) const {
    return at(slot).used ? QStringLiteral("Right-click mouse to edit")
                         : QStringLiteral("Click to create group");
}

bool Groups::SaveGroup(int slot, const QString& name, const QString& members) {
    if (members.size() > kMaxIniValue) {
        return false;
    }
    aim(slot);
    const bool stored =
        m_ini.setValues({{kNameKey, name.isEmpty() ? defaultName(slot) : name}, {kMembersKey, members}});
    LoadMessageGroups();
    return stored;
}

bool Groups::DeleteGroup(int slot) {
    aim(slot);
    const bool deleted = m_ini.DeleteSection();
    LoadMessageGroups();
    return deleted;
}

} // namespace tessel
