// What is heard, and what is not any more: whether the own packets come back, whether other locations
// still reach this one, and whether somebody else speaks under its identity.
#pragma once

#include "engine/ports/cClock.h"

#include <QObject>
#include <QSet>
#include <QString>

#include <optional>

namespace tessel {

class cErrorLog;
class cPacket;
class Link;
class NetworkMC;
class NetworkProtocol;
enum class Code : std::uint8_t;
struct OwnState;

// Another computer that uses the own SID, as its packet tells.
struct DuplicateIdentity {
    QString host;
    QString address; // dotted; empty when it is not known
};

class Hearing : public QObject {
    Q_OBJECT
public:
    Hearing(const OwnState& own, cErrorLog& log, Clock& clock, Link& link, NetworkProtocol& protocol,
            NetworkMC& network);

    // A location was entered in the table.
    void locationAdded(const QString& SID);
    // On `tmrKA`'s tick, behind the keep-alive: when other locations have fallen silent, leaves the group
    // and joins it again, since a switch may have forgotten the membership; when the own packets do not
    // come back, restarts the network.
    void tick();

    // The last one that was told of in this run.
    const std::optional<DuplicateIdentity>& duplicate() const { return m_duplicate; }

    // Renews the membership where that has helped, or always if net.cfg says so.
    Timer tmrRenew;

signals:
    // A text that stands in the footer until `footerOver` or another one.
    void footer(const QString& text, const QString& tip);
    void footerOver(const QString& text);
    // At most once an hour.
    void duplicateIdentity(const tessel::DuplicateIdentity& other);

private:
    void canSendChanged();
    void heard(const cPacket& packet, Code code, quint32 source);
    void heardOwn(const cPacket& packet, quint32 source);
    void tellDuplicate(const cPacket& packet, quint32 source);
    void cameBack();
    // True when the network was restarted.
    bool restartForOwn();
    void joinForOthers();
    void showInFooter();
    std::int64_t longestSilence() const;
    bool looksForOthers() const;

    const OwnState& m_own;
    cErrorLog& m_log;
    Clock& m_clock;
    Link& m_link;
    const NetworkProtocol& m_protocol;
    NetworkMC& m_network;
    // Locations that were heard since the start and did not say goodbye.
    QSet<QString> m_known;
    // Moments of the clock; -1: never.
    std::int64_t m_ownAt = 0;
    std::int64_t m_foreignAt = 0;
    std::int64_t m_joinedAt = -1;
    std::int64_t m_restartedAt = -1;
    std::int64_t m_duplicateAt = -1;
    std::optional<DuplicateIdentity> m_duplicate;
    std::int64_t m_quietUntil = 0; // own packets of before may still be on their way
    bool m_joinedInVain = false;   // so far, in this silence
    QString m_shown;               // in the footer
};

} // namespace tessel
