#include "engine/presence/mod_Favorites.h"

#include "engine/core/cErrorLog.h"
#include "engine/core/mod_Definitions.h"
#include "engine/core/mod_INIData.h"
#include "engine/network/mod_FitText.h"

#include <algorithm>

namespace tessel {

namespace {

const QString kSection = QStringLiteral("Favorites");
// Slots whose popups are switched off. The slot's own value has no room for it.
const QString kPopupSection = QStringLiteral("FavoritesPopup");
const QString kOff = QStringLiteral("0");

} // namespace

int Favorites::GetFreeFavoriteSlot() {
    const auto free = std::find_if(m_slots.begin(), m_slots.end(), [](const Favorite& f) { return !f.Used; });
    if (free == m_slots.end()) {
        m_log.LogEvent(QStringLiteral("Error"), QStringLiteral("Favorites are full"), kSection);
        emit full();
        return -1;
    }
    free->Used = true;
    return static_cast<int>(free - m_slots.begin());
}

void Favorites::ClearFavorites() {
    m_slots.fill({});
}

void Favorites::LoadFavorites() {
    ClearFavorites();
    for (int number = 0; number < kSlots; ++number) {
        const QString key = QString::number(number);
        const QString value = m_data.ReadSettingRaw(kUserFile, kSection, key);
        if (!value.isEmpty()) {
            m_slots[static_cast<std::size_t>(number)] = {
                true, value.section(ListMark, 0, 0), value.section(ListMark, 1, 1),
                value.section(ListMark, 2, 2), m_data.ReadSettingRaw(kUserFile, kPopupSection, key) != kOff};
        }
    }
    emit changed();
}

bool Favorites::write(int Slot, const Favorite& favorite) {
    const QString key = QString::number(Slot);
    const QString value = FavoriteValue(favorite.Location, favorite.SID, favorite.Tone);
    // A SID that the file cannot hold would be another location's at the next start.
    if (favorite.SID.isEmpty() || value.section(ListMark, 1, 1) != favorite.SID ||
        !m_data.WriteChanges(kUserFile,
                             {{kSection, key, value},
                              {kPopupSection, key, favorite.Popup ? std::nullopt : std::optional(kOff)}})) {
        return false;
    }
    Favorite& slot = m_slots[static_cast<std::size_t>(Slot)];
    slot = favorite;
    slot.Location = value.section(ListMark, 0, 0);
    slot.Used = true;
    return true;
}

FavoriteAdded Favorites::AddFavorite(const QString& Location, const QString& SID, const QString& Tone) {
    if (IsFavoriteSID(SID)) {
        return FavoriteAdded::AlreadyThere;
    }
    const int slot = GetFreeFavoriteSlot();
    if (slot < 0) {
        return FavoriteAdded::Failed;
    }
    if (!write(slot, {true, Location, SID, Tone, true})) {
        m_slots[static_cast<std::size_t>(slot)] = {};
        return FavoriteAdded::Failed;
    }
    emit added(SID, slot);
    emit changed();
    return FavoriteAdded::Added;
}

bool Favorites::UpdateFavorite(int Slot, const QString& Location, const QString& SID, const QString& Tone,
                               bool Popup) {
    if (Slot < 0 || Slot >= kSlots || !write(Slot, {true, Location, SID, Tone, Popup})) {
        return false;
    }
    emit changed();
    return true;
}

int Favorites::FindFavoriteSlot(const QString& SID) const {
    const auto found = std::find_if(m_slots.begin(), m_slots.end(),
                                    [&SID](const Favorite& f) { return f.Used && f.SID == SID; });
    return found == m_slots.end() || SID.isEmpty() ? -1 : static_cast<int>(found - m_slots.begin());
}

void Favorites::RemoveFavoriteSlot(int Slot, const QString& SID) {
    if (Slot < 0 || Slot >= kSlots || slot(Slot).SID != SID) {
        return;
    }
    emit removing(SID);
    const QString key = QString::number(Slot);
    m_data.WriteChanges(kUserFile, {{kSection, key, std::nullopt}, {kPopupSection, key, std::nullopt}});
    m_slots[static_cast<std::size_t>(Slot)] = {};
    // A file edited by hand may hold the location a second time.
    if (const int other = FindFavoriteSlot(SID); other >= 0) {
        emit added(SID, other);
    }
    emit changed();
}

std::vector<int> Favorites::usedSlots() const {
    std::vector<int> used;
    for (int number = 0; number < kSlots; ++number) {
        if (slot(number).Used) {
            used.push_back(number);
        }
    }
    return used;
}

QString Favorites::toneOf(int Slot) const {
    bool number = false;
    const int tone = slot(Slot).Tone.toInt(&number);
    return number && tone > 0 ? QString::number(tone) : QString();
}

} // namespace tessel
