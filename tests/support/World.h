// An office in one process: stations on one virtual clock and one network in memory.
#pragma once

#include "FakeNetwork.h"
#include "RecordingDesktop.h"
#include "RecordingHotKeys.h"
#include "RecordingSounds.h"
#include "VirtualClock.h"
#include "engine/station.h"

#include <QTemporaryDir>

#include <memory>
#include <vector>

namespace tessel {

// One station with everything that it stands on.
class WorldStation {
public:
    WorldStation(VirtualClock& clock, FakeNetwork& network, const QString& home, int number);

    // Writes a key before or after the start.
    void set(const QString& file, const QString& section, const QString& key, const QString& value);
    QString get(const QString& file, const QString& section, const QString& key) const;
    QByteArray fileBytes(const QString& name) const;
    // Puts the files of all fixed tones, and of favorite tones 1 to 9, beside the program.
    void addTones();

    SystemFacts facts;
    FakeLink link;
    RecordingDesktop desktop;
    RecordingSounds sounds;
    RecordingHotKeys keys;
    std::unique_ptr<Station> station;
    Station* operator->() { return station.get(); }
};

class World {
public:
    // Stations have their first run behind them, a location name "Room N", tag N and a name of their
    // own for host and user. Nothing is started yet.
    explicit World(int stations);

    WorldStation& operator[](std::size_t index) { return *m_stations[index]; }
    std::size_t size() const { return m_stations.size(); }

    void start(std::size_t index);
    void startAll();
    // Starts all and lets them find each other.
    void settle();
    void run(std::int64_t seconds) { clock.advance(seconds * 1000); }
    // Runs until `done` holds; false when it does not within `seconds`.
    bool runUntil(std::int64_t seconds, const std::function<bool()>& done) {
        return clock.advanceUntil(clock.monotonicMs() + seconds * 1000, done);
    }

    // Rows of one station's table, its own among them.
    int locations(std::size_t index) { return (*m_stations[index])->endpoints.records().count(); }

    VirtualClock clock;
    FakeNetwork network{clock};

private:
    QTemporaryDir m_home;
    std::vector<std::unique_ptr<WorldStation>> m_stations;
};

// A packet from outside the program, field by field; bodies go in clear.
struct RawPacket {
    QString SID = QStringLiteral("999XX999XXX9");
    QString host = QStringLiteral("outside");
    QString location = QStringLiteral("Outside");
    QString code{};
    QString presence = QStringLiteral(".\u20AC..\u20AC.0.\u20AC..\u20AC.0.\u20AC..\u20AC..\u20AC.0.\u20AC.");
    QString note{};
    QString tagWord = QStringLiteral("41:");
    QString body{};

    QByteArray bytes() const;
};

} // namespace tessel
