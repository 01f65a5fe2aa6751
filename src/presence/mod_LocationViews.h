// What the location lists of the main window show: a projection of the endpoint table.
#pragma once

#include "network/cEndpointNews.h"
#include "records/cReportRecords.h"

#include <QObject>
#include <QString>
#include <QStringList>

#include <array>

namespace tessel {

class Clock;
class Settings;
struct OwnState;

// Items of a row of the Home list.
enum class LocationItem { Icon, Active, Status, Staff, SID, TIME, SN, ST, OST, VR };
inline constexpr int kLocationItems = 10;
// Numeric value of `LocationItem::Active` while the location is occupied.
inline constexpr int kOccupiedValue = 13;

inline ReportItem& item(ReportRecord& record, LocationItem index) {
    return record.item(static_cast<int>(index));
}
inline const ReportItem& item(const ReportRecord& record, LocationItem index) {
    return record.item(static_cast<int>(index));
}

class LocationViews : public QObject {
    Q_OBJECT
public:
    LocationViews(const OwnState& own, const Settings& settings, const Clock& clock);

    void Add_to_Active(const EndpointAdded& endpoint);
    void Active_RemoveEndpoint(const QStringList& SIDs);
    void clear();
    void ProcessStatusUpdate(const PresenceChanged& change);
    void ProcessLocationUpdate(const PresenceChanged& change);
    void ProcessStaffUpdate(const StaffTagChanged& change);
    void ProcessLocationNoteUpdate(const NoteChanged& change);
    void ProcessStatusTime(const StatusTimeRefreshed& refreshed);

    // Index of the row with that SID, -1 when there is none.
    int Active_FindSID(const QString& SID) const;

    // Sets all counts of the colour tags to 0.
    void ClearLocationsTabsCount();
    // Counts the rows of each colour tag anew.
    void CountLocationsTabs();
    // Rows with this colour tag, 1 to 40.
    int tagCount(int tag) const;

    ReportRecords rptEndpoints{static_cast<int>(LocationItem::SID)};

private:
    void count(const ReportRecord& record, int step);
    void setStatus(ReportRecord& record, const QString& text, const QString& time) const;

    const OwnState& m_own;
    const Settings& m_settings;
    const Clock& m_clock;
    std::array<int, 40> m_tagCounts{};
};

} // namespace tessel
