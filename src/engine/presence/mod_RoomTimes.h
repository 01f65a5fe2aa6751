// Since when rooms are occupied, as every packet of theirs tells. The lists have no place for it.
#pragma once

#include <QHash>
#include <QString>

namespace tessel {

class cPacket;

class RoomTimes {
public:
    // Takes the occupied time from a packet's presence block, or forgets it. Known from now on for at
    // most as many rooms as the table of locations has rows.
    void hear(const cPacket& packet);
    void forget(const QStringList& SIDs);
    void clear() { m_since.clear(); }

    // Time of day as the location told it; empty when it is not occupied or told none.
    QString since(const QString& SID) const { return m_since.value(SID); }
    // "12 min", "1 h 05 min"; empty for a room of which no time is known. A room that was taken before
    // midnight counts on.
    QString occupiedFor(const QString& SID, int nowSecond) const;

private:
    QHash<QString, QString> m_since;
};

} // namespace tessel
