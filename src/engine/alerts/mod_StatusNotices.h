// Tells the user of other locations' statuses, by popup and tone.
#pragma once

#include <QString>

namespace tessel {

class FavoriteLookup;
class Popups;
class Settings;
class Tones;
struct OwnState;
struct StatusNews;

class StatusNotices {
public:
    StatusNotices(const OwnState& own, const Settings& settings, const FavoriteLookup& favorites,
                  Popups& popups, Tones& tones)
        : m_own(own), m_settings(settings), m_favorites(favorites), m_popups(popups), m_tones(tones) {}

    // A location set a status. Favorites have switches of their own.
    void statusSet(const StatusNews& news);
    // A popup about a status that is gone goes too.
    void statusCleared(const QString& SID);
    // Another location set a shared status here.
    void setHere(const QString& text, const QString& tone, const QString& location, const QString& SID);

private:
    void popup(const QString& label, const QString& text, const QString& time, const QString& SID);

    const OwnState& m_own;
    const Settings& m_settings;
    const FavoriteLookup& m_favorites;
    Popups& m_popups;
    Tones& m_tones;
};

} // namespace tessel
