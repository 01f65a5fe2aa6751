// The network layer: choice of group and adapter, going on line and off, and the timers that do so.
#pragma once

#include "engine/core/mod_Wait.h"
#include "engine/ports/cClock.h"
#include "engine/ports/cLink.h"

#include <QObject>
#include <QString>

namespace tessel {

class cErrorLog;
class INIData;
class NetworkProtocol;
struct OwnState;

// Whether the station renews its membership in the group by itself.
enum class Rejoin { Never, WhenDeaf, Always };

class NetworkMC : public QObject {
    Q_OBJECT
public:
    NetworkMC(OwnState& own, INIData& data, cErrorLog& log, Clock& clock, Link& link,
              NetworkProtocol& protocol);

    // Reads what is read once at the start: transport, keep-alive minutes and interval, group.
    void LoadNetworkProtocol();
    // Goes on line and announces the station. Nothing happens while online. Any failure leaves the
    // station offline until somebody calls `RestartNetwork`.
    void Network_Start();
    // Says goodbye, waits a second so that it leaves the socket, and goes off line. Datagrams are
    // handled during the wait.
    void Network_Stop();
    // Takes leave and announces the station anew: a changed name reaches the others in no other way.
    // Datagrams are handled during the second between. Nothing happens while offline.
    void AnnounceAnew();
    // The network layer reset: off line, all locations forgotten, and back in five seconds.
    void RestartNetwork();

    // Whether what the user sends now can reach anybody. If not, the footer says so: every act that
    // sends asks here first, and does nothing on false.
    bool CanSend();
    // Whether the network comes up by itself in a few seconds, or is just going down for that.
    bool starting() const;

    // Stores another network group, and restarts the network if it differs from the stored one.
    void SaveNetwork(int group);
    // Its row in the table of groups.
    int networkGroupRow() const;

    // Tells everyone of this station, and asks for their reply.
    void Announce();

    // Writes the choice of the adapter dialog. `adapter`: index in the list, -1 to leave the stored
    // one alone; an empty address or "0.0.0.0" forgets the own IP address.
    void ChooseAdapter(int adapter, const QString& address);
    // Forgets both choices; they come into force at the next start.
    void ResetAdapter();
    // Index of the stored adapter, -1 for none.
    int storedAdapter() const;
    std::vector<Adapter> adapters() const { return m_link.adapters(); }

    int protocol() const { return m_protocol; }
    // Minutes of silence after which an endpoint counts as gone.
    int EPKM() const { return m_epkm; }
    // Milliseconds between two keep-alives.
    int keepAliveMs() const { return m_ka; }
    Rejoin rejoin() const { return m_rejoin; }
    const LinkConfig& config() const { return m_config; }

    Timer tmrNetStart;
    // Runs while interfaces, addresses or routes are changing, and for a moment after.
    Timer tmrSettle;
    Timer tmrKA;
    Timer tmrAnnounce;

signals:
    void footer(const QString& text, const QString& tip, bool timed);
    // A word for the footer that gives way to what stood there.
    void remark(const QString& text, const QString& tip);
    // Going on line, taking leave, going off line.
    void canSendChanged();
    // Before every start of the network.
    void startingNetwork();
    // All locations are to be forgotten.
    void resetUserLists();
    // After each keep-alive packet.
    void keepAliveSent();

private:
    void startNow();
    void interfacesSettled();
    void tellAgain();
    void logAdapter(const QString& message);
    // Whether a line was not written for a minute; it counts as written now.
    bool dueAgain(std::int64_t& last) const;
    void Network_LoadConfig();
    bool chooseInterfaces();
    bool bringUp();
    void goOffline();
    void sayGoodbye();
    void socketError(int number, const QString& description);
    QString netSetting(const char* key, const QString& fallback) const;
    int netNumber(const char* key, int fallback) const;

    OwnState& m_own;
    INIData& m_data;
    cErrorLog& m_log;
    Clock& m_clock;
    Link& m_link;
    NetworkProtocol& m_protocolLayer;
    Wait m_wait;
    LinkConfig m_config;
    int m_protocol = 0;
    int m_epkm = 0;
    int m_ka = 0;
    Rejoin m_rejoin = Rejoin::WhenDeaf;
    bool m_startTried = false;
    bool m_restartWanted = false; // asked for while the station took leave
    int m_lastError = 0;
    // Moments of the last lines in the log; -1: none yet.
    std::int64_t m_lastErrorAt = -1;
    std::int64_t m_lastAdapterAt = -1;
    std::int64_t m_lastChangeAt = -1;
};

} // namespace tessel
