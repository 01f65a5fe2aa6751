// What this location does for the location of a row: requests that its owner carries out, the windows
// for them, and favorites.
#pragma once

#include <QString>

namespace tessel {

class Favorites;
class LocalStatus;
class LocationViews;
class NetworkProtocol;
class OwnPresence;
class ReportRecord;
class Windows;
struct OwnState;

// Pages of the window of a location's actions.
enum class ActionsPage { Status, Favorite };

// What the windows about another location start with.
struct LocationFacts {
    QString Location;
    QString SID;
    int Slot = -1; // among the favorites, -1 for none
    int Tag = 0;   // staff tag
    QString Status;
    bool Occupied = false;
    QString Patient;
    QString Note;
};

// What the action on a room is called, with the patient's name behind it, and its picture.
QString RoomCaption(bool occupied, const QString& patient);
int RoomPicture(bool occupied);

class LocationActions {
public:
    struct Targets {
        const OwnState& own;
        NetworkProtocol& protocol;
        Windows& windows;
        const LocationViews& views;
        LocalStatus& status;
        OwnPresence& presence;
        Favorites& favorites;
    };

    explicit LocationActions(const Targets& targets) : m_targets(targets) {}

    // Acts on a row: the own location's at once or in its own window, another's in a window about it.
    void SetOccupiedRemote(const ReportRecord& row);
    void SetLocationNoteRemote(const ReportRecord& row);
    void ClearStaffTag(const ReportRecord& row);
    void LaunchActionsWindow(const ReportRecord& row, ActionsPage page = ActionsPage::Status);

    bool isFavorite(const ReportRecord& row) const;
    // One that is a favorite already is told of in a box.
    void AddtoFavoriteList(const ReportRecord& row);
    void Add_LocalFavorite();
    // Asks before.
    void RemovefromFavoriteList(const ReportRecord& row);
    void Remove_LocalFavorite();
    // Takes every slot of that location away.
    void removeFavorite(const QString& SID);

    // As the Home list has them; without a row the SID alone.
    LocationFacts factsOf(const QString& SID) const;

    // Requests. While offline they are dropped.
    // `sharedIndex`: -1 for a typed text. False, and nothing is sent, for fewer than 2 characters.
    bool Set_Status(const QString& SID, const QString& text, int sharedIndex);
    void Clear_Status(const QString& SID);
    // Toggles the room; an empty name for none.
    void ToggleOccupied(const QString& SID, const QString& patient);
    void Set_StaffTag(const QString& SID, int tag);
    // False, and nothing is sent, for fewer than 4 characters.
    bool SetNote(const QString& SID, const QString& typed);
    void RemoveNote(const QString& SID);

private:
    bool isOwn(const ReportRecord& row) const;
    void add(const QString& Location, const QString& SID);

    Targets m_targets;
};

} // namespace tessel
