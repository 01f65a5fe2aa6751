// Which locations are favorites, and what is wanted for each.
#pragma once

#include <QString>

namespace tessel {

// Slots are numbered 0 to 50. This one knows no favorites at all.
class FavoriteLookup {
public:
    static constexpr int kLastSlot = 50;

    FavoriteLookup() = default;
    virtual ~FavoriteLookup() = default;
    FavoriteLookup(const FavoriteLookup&) = delete;
    FavoriteLookup& operator=(const FavoriteLookup&) = delete;

    // The slot of a location, -1 when it is no favorite.
    virtual int slotOf(const QString& /*SID*/) const { return -1; }
    // Whether a status change of this favorite shows a popup.
    virtual bool wantsPopup(int /*slot*/) const { return false; }
    // The tone of this favorite; empty for none of its own.
    virtual QString toneOf(int /*slot*/) const { return {}; }
};

} // namespace tessel
