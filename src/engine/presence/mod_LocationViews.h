// What the three location lists of the main window show: projections of the endpoint table.
#pragma once

#include "engine/network/cEndpointNews.h"
#include "records/cReportRecords.h"

#include <QObject>
#include <QString>
#include <QStringList>

namespace tessel {

class Clock;
class FavoriteLookup;
class Settings;
struct OwnState;

// Items of a row. In the favorites the slot's number stands at `VR`, and the marker one place on.
enum class LocationItem { Icon, Active, Status, Staff, SID, TIME, SN, ST, OST, VR, FavoriteVR };
inline constexpr int kLocationItems = 10;
inline constexpr int kFavoriteItems = 11;
// Numeric value of `LocationItem::Active` while the location is occupied.
inline constexpr int kOccupiedValue = 13;
// Pictures of `LocationItem::Icon`: whether one may come in.
inline constexpr int kStateFree = 920;
inline constexpr int kStateOccupied = 921;
inline constexpr int kStateDoNotDisturb = 922;
inline constexpr int kStateBoth = 923;

inline ReportItem& item(ReportRecord& record, LocationItem index) {
    return record.item(static_cast<int>(index));
}
inline const ReportItem& item(const ReportRecord& record, LocationItem index) {
    return record.item(static_cast<int>(index));
}

// Another location has set a status that this one's user may want to hear of.
struct StatusNews {
    QString location;
    QString SID;
    QString status;
    QString statusTime;
    QString tone; // empty for a plain status
    int favoriteSlot = -1;
};

class LocationViews : public QObject {
    Q_OBJECT
public:
    LocationViews(const OwnState& own, const Settings& settings, const Clock& clock,
                  const FavoriteLookup& favorites);

    void Add_to_Active(const EndpointAdded& endpoint);
    void Add_to_Favorites(const EndpointAdded& endpoint, int slot);
    // From the location's row in the Home list; nothing happens when there is none.
    void Add_to_Favorites(const QString& SID, int slot);
    void Active_RemoveEndpoint(const QStringList& SIDs);
    void Active_RemoveFavorite(const QString& SID);
    void clear();
    void ProcessStatusUpdate(const PresenceChanged& change);
    void ProcessStatusUpdateFav(const PresenceChanged& change);
    void ProcessLocationUpdate(const PresenceChanged& change);
    void ProcessStaffUpdate(const StaffTagChanged& change);
    void ProcessLocationNoteUpdate(const NoteChanged& change);
    void ProcessStatusTime(const StatusTimeRefreshed& refreshed);
    void ProcessFavoriteTime(const StatusTimeRefreshed& refreshed);
    // Makes the Status list anew from the Home list, which happens when it is next looked at.
    void ProcessStatusView();
    // While the Status tab is the current view, every change makes its list anew; hidden, it costs
    // nothing.
    void setStatusTabCurrent(bool current);

    // How many rows the Status list has, or will have once it is looked at.
    int statusCount() const;

    // Index of the row with that SID, -1 when there is none.
    int Active_FindSID(const QString& SID) const;
    int Active_FindSIDFav(const QString& SID) const;

    ReportRecords rptEndpoints{static_cast<int>(LocationItem::SID)};
    ReportRecords rptStatusView{static_cast<int>(LocationItem::SID)};
    ReportRecords rptFavorites{static_cast<int>(LocationItem::SID)};

signals:
    void statusSet(const StatusNews& news);
    void statusCleared(const QString& SID);

private:
    void fill(ReportRecord& record, const EndpointAdded& endpoint) const;
    void refillStatusView();
    // The row of a Home row in the Status list: the one that it has there, or a new one.
    ReportRecordPtr Add_to_Status(const ReportRecord& home) const;
    bool showStatus(ReportRecords& list, const PresenceChanged& change) const;
    void showState(ReportRecords& list, const PresenceChanged& change) const;
    void showStatusTime(ReportRecords& list, const StatusTimeRefreshed& refreshed) const;
    void tellStatus(const PresenceChanged& change, int favoriteSlot);
    QString withAge(const QString& status, const QString& statusTime) const;
    void changed();

    const OwnState& m_own;
    const Settings& m_settings;
    const Clock& m_clock;
    const FavoriteLookup& m_favorites;
    bool m_statusTabCurrent = false;
};

// What a row of one of these lists says.
QString GetLocationName(const ReportRecord& row);
QString GetSID(const ReportRecord& row);
// Whether the location has a status of at least 2 characters.
bool GetStatusActive(const ReportRecord& row);
// The status without its age.
QString GetCurrentStatus(const ReportRecord& row);
int GetColorTag(const ReportRecord& row);
int GetStatusTag(const ReportRecord& row); // the staff tag
bool isOccupied(const ReportRecord& row);
QString GetOccupiedName(const ReportRecord& row);
// By the colour of the name, which is blue on the own row whatever holds there.
bool isLocationDND(const ReportRecord& row);
bool isDoNotDisturb(const ReportRecord& row);
bool IsVirtualLocation(const ReportRecord& row);

} // namespace tessel
