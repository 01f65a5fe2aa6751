#include "engine/presence/mod_SharedStatus.h"

#include "engine/core/mod_Definitions.h"
#include "engine/core/mod_FileTools.h"
#include "engine/core/mod_Folders.h"
#include "engine/core/mod_INIData.h"

namespace tessel {

void SharedStatus::LoadSharedStatus() {
    m_fileThere = FileExists(m_folders.dataFile(kSharedFile));
    for (int index = 0; m_fileThere && index < kUsed; ++index) {
        const QString value =
            m_data.ReadSettingRaw(kSharedFile, QStringLiteral("SharedStatus"), QString::number(index));
        SharedStatusEntry& entry = m_table[static_cast<std::size_t>(index)];
        entry.Active = !value.isEmpty();
        if (entry.Active) {
            entry.Label = value.section(ListMark, 0, 0);
            entry.Tone = value.section(ListMark, 1, 1);
        }
    }
    emit loaded();
}

const SharedStatusEntry& SharedStatus::entry(int index) const {
    static const SharedStatusEntry none;
    return index >= 0 && index < kCount ? m_table[static_cast<std::size_t>(index)] : none;
}

std::vector<SharedStatusChoice> SharedStatus::FillSharedStatusList() const {
    std::vector<SharedStatusChoice> choices;
    for (int index = 0; m_fileThere && index < kUsed; ++index) {
        if (entry(index).Active) {
            choices.push_back({entry(index).Label, index});
        }
    }
    return choices;
}

} // namespace tessel
