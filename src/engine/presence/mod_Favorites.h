// The locations that the user has pinned, each with a tone and a switch for popups.
#pragma once

#include "engine/presence/cFavoriteLookup.h"

#include <QObject>

#include <array>
#include <vector>

namespace tessel {

class INIData;
class cErrorLog;

// One slot. It is keyed by the SID: the name is the one at the time of adding.
struct Favorite {
    bool Used = false;
    QString Location;
    QString SID;
    QString Tone; // number of a favorite tone in decimal, "0" for the default
    bool Popup = true;
};

// What came of adding a favorite.
enum class FavoriteAdded { Added = 1, AlreadyThere = 2, Failed = -1 };

// Slots are written one by one at each change and never move: a freed one is taken by the next add.
class Favorites : public QObject, public FavoriteLookup {
    Q_OBJECT
public:
    static constexpr int kSlots = kLastSlot + 1;
    inline static const QString kDefaultTone = QStringLiteral("0");

    Favorites(INIData& data, cErrorLog& log) : m_data(data), m_log(log) {}

    // The first free slot, marked as used. -1, and a line in the log, when there is none.
    int GetFreeFavoriteSlot();
    void ClearFavorites();
    void LoadFavorites();
    // Failed: the list is full, or the slot could not be written.
    FavoriteAdded AddFavorite(const QString& Location, const QString& SID, const QString& Tone);
    // Writes a slot anew. False, and nothing changes, when it could not be written.
    bool UpdateFavorite(int Slot, const QString& Location, const QString& SID, const QString& Tone,
                        bool Popup);
    // -1 when that location is none of the favorites.
    int FindFavoriteSlot(const QString& SID) const;
    bool IsFavoriteSID(const QString& SID) const { return FindFavoriteSlot(SID) >= 0; }
    // Frees the slot if it is still this location's.
    void RemoveFavoriteSlot(int Slot, const QString& SID);

    // Slot 0 to 50.
    const Favorite& slot(int Slot) const { return m_slots[static_cast<std::size_t>(Slot)]; }
    // The used slots, rising.
    std::vector<int> usedSlots() const;

    int slotOf(const QString& SID) const override { return FindFavoriteSlot(SID); }
    bool wantsPopup(int Slot) const override { return slot(Slot).Popup; }
    QString toneOf(int Slot) const override;

signals:
    // A slot was filled, freed or changed.
    void changed();
    // A favorite was added; its row is still missing.
    void added(const QString& SID, int Slot);
    // One more did not fit.
    void full();
    // A slot is about to be freed.
    void removing(const QString& SID);

private:
    bool write(int Slot, const Favorite& favorite);

    INIData& m_data;
    cErrorLog& m_log;
    std::array<Favorite, kSlots> m_slots;
};

} // namespace tessel
