#include "World.h"

#include "engine/core/mod_CodePage.h"
#include "engine/core/mod_Definitions.h"
#include "engine/core/mod_FileTools.h"

namespace tessel {

WorldStation::WorldStation(VirtualClock& clock, FakeNetwork& network, const QString& home, int number)
    : link(network) {
    facts.programFolder = home + QLatin1String("/program/");
    facts.appData = home + QLatin1String("/data/");
    facts.commonAppData = home + QLatin1String("/common/");
    facts.documents = home + QLatin1String("/documents/");
    facts.desktop = home + QLatin1String("/desktop/");
    facts.hostName = QStringLiteral("host%1").arg(number);
    facts.userName = QStringLiteral("user%1").arg(number);
    facts.osName = QStringLiteral("Test OS");
    MakeFolder(facts.programFolder);
    set(kUserFile, QStringLiteral("User"), QStringLiteral("FirstRun"), QStringLiteral("0"));
    set(kUserFile, QStringLiteral("User"), QStringLiteral("LOCATION"), QStringLiteral("Room %1").arg(number));
    set(kUserFile, QStringLiteral("User"), QStringLiteral("TAG"), QString::number((number - 1) % 20 + 1));
    set(kUserFile, QStringLiteral("Settings"), QStringLiteral("UPD"), QStringLiteral("0"));
    station = std::make_unique<Station>(facts, desktop.ports(clock, link, sounds, keys),
                                        static_cast<std::uint64_t>(number));
    desktop.windows.onShowMain = [this] {
        station->loadMain();
        station->mainLoaded();
    };
}

void WorldStation::set(const QString& file, const QString& section, const QString& key,
                       const QString& value) {
    cInifile ini;
    ini.Path = facts.appData + QLatin1String("Tessel Status/") + file;
    ini.Section = section;
    ini.Key = key;
    ini.setValue(value);
}

QString WorldStation::get(const QString& file, const QString& section, const QString& key) const {
    cInifile ini;
    ini.Path = facts.appData + QLatin1String("Tessel Status/") + file;
    ini.Section = section;
    ini.Key = key;
    return ini.Value();
}

QByteArray WorldStation::fileBytes(const QString& name) const {
    QByteArray bytes;
    readWholeFile(facts.appData + QLatin1String("Tessel Status/") + name, 1 << 26, bytes);
    return bytes;
}

void WorldStation::addTones() {
    const QString folder = facts.programFolder + QLatin1String("Sounds/");
    for (const char* const name : {"DoorbellOne", "DoorbellAll", "Phone", "Urgent", "SingleMsg", "AllMsg",
                                   "Status", "Sent", "Startup"}) {
        replaceFile(folder + QLatin1String(name) + QLatin1String(".wav"), "RIFF");
    }
    for (int tone = 1; tone <= 9; ++tone) {
        replaceFile(folder + QStringLiteral("Favorites/%1A.wav").arg(tone), "RIFF");
    }
}

World::World(int stations) {
    for (int number = 1; number <= stations; ++number) {
        m_stations.push_back(
            std::make_unique<WorldStation>(clock, network, m_home.filePath(QString::number(number)), number));
    }
}

void World::start(std::size_t index) {
    (*m_stations[index])->start();
}

void World::startAll() {
    for (std::size_t index = 0; index < size(); ++index) {
        start(index);
    }
}

void World::settle() {
    startAll();
    run(10);
}

QByteArray RawPacket::bytes() const {
    const QString mark = QStringLiteral("R\u20AC");
    return toBytes(QStringList{kMarker, SID, host, location, code, presence, note, tagWord, body}.join(mark) +
                   mark + QStringLiteral("<\u20ACP>"));
}

} // namespace tessel
