// The table of all locations heard of, this one included. It lives in memory alone and fills itself
// from what arrives.
#pragma once

#include "engine/network/cEndpointNews.h"
#include "records/cReportRecords.h"

#include <QObject>
#include <QString>
#include <QStringList>

namespace tessel {

class cErrorLog;
class Clock;
class NetworkMC;
class NetworkProtocol;
class Settings;
struct OwnState;
struct Restrictions;

// Columns of the table. Those from `KA` on have no width and serve as storage.
enum class EndpointItem {
    Active,
    Host,
    Version,
    Flags,
    SID,
    LastRefresh,
    KA,
    Status,
    StatusTime,
    Tag,
    Note,
    Marker,
    Presence,
    StaffTagTime,
    StaffTag
};
inline constexpr int kEndpointItems = 15;
inline constexpr int kVisibleEndpointItems = 6;

class Endpoints : public QObject {
    Q_OBJECT
public:
    Endpoints(OwnState& own, const Settings& settings, const Restrictions& restrictions, cErrorLog& log,
              const Clock& clock, NetworkProtocol& protocol, NetworkMC& network);

    // Adds a row unless the SID has one, and tells the views when `show` is true.
    void Add_Endpoint(const QString& Location, const QString& Host, const QString& Version,
                      const QString& Flags, const QString& SID, const QString& Presence, const QString& Note,
                      bool Show, const QString& Marker);
    // Refreshes the row, or adds it with the note "6". Nothing happens while offline.
    void Refresh_Endpoint(const QString& Location, const QString& Host, const QString& Version,
                          const QString& Flags, const QString& SID, const QString& Presence,
                          const QString& Marker);
    void RemoveEndpoint(const QString& SID);
    bool Endpoint_VerifyOnline(const QString& SID) const;
    // Index of the row with that SID, -1 when there is none.
    int FindEndpointRow(const QString& SID) const;
    // Forgets all locations and asks everyone to announce themselves.
    void RefreshAllEndpoints();
    void RemoveAllEndpoints();
    void ResetUserLists();
    // One ageing pass: colours the rows by their age and removes those that are gone.
    void Process_KeepAlive_Times();

    void ProcessUpdate(const QString& Location, const QString& SID, const QString& Presence,
                       const QString& Note);
    void ProcessLocationUpdate(const QString& Location, const QString& SID, const QString& Presence,
                               const QString& Note);
    void ProcessStaffUpdate(const QString& Location, const QString& SID, const QString& Presence);
    void ProcessLocationNote(const QString& Location, const QString& SID, const QString& Note);

    // After a keep-alive of this station: every second one runs the ageing pass.
    void keepAliveSent();

    ReportRecords& records() { return m_records; }
    const ReportRecords& records() const { return m_records; }

signals:
    void added(const EndpointAdded& endpoint);
    void removed(const QStringList& SIDs);
    void listsCleared();
    void statusChanged(const PresenceChanged& change);
    void locationChanged(const PresenceChanged& change);
    void staffTagChanged(const StaffTagChanged& change);
    void noteChanged(const NoteChanged& change);
    void statusTimeRefreshed(const StatusTimeRefreshed& refreshed);
    void historyEntry(const HistoryEntry& entry);

private:
    void attachHandlers(NetworkProtocol& protocol);
    void addFrom(const cPacket& packet, bool show);
    void keepAliveFrom(const cPacket& packet);
    ReportRecord* find(QByteArrayView SID) const;
    void refresh(ReportRecord& record);
    bool roomForOneMore();
    // Colours one row of another location. True when the location is gone and to be removed.
    bool age(ReportRecord& record);
    // Looks after the own row. True when the clock has jumped and the network is to be reset.
    bool watch(ReportRecord& record);
    void tell(HistoryCode code, const QString& word, const QString& location, const QString& SID,
              const QString& text);
    void tellStatusChange(const ReportRecord& record, const QString& location, const QString& SID,
                          const Presence& now);

    OwnState& m_own;
    const Settings& m_settings;
    const Restrictions& m_restrictions;
    cErrorLog& m_log;
    const Clock& m_clock;
    NetworkProtocol& m_protocol;
    NetworkMC& m_network;
    ReportRecords m_records{static_cast<int>(EndpointItem::SID)};
    bool m_passDue = false;
    bool m_fullLogged = false;
};

inline ReportItem& item(ReportRecord& record, EndpointItem index) {
    return record.item(static_cast<int>(index));
}
inline const ReportItem& item(const ReportRecord& record, EndpointItem index) {
    return record.item(static_cast<int>(index));
}

} // namespace tessel
