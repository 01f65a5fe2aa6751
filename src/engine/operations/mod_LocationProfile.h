// What the user changes about this location itself: its name, colour and note.
#pragma once

#include <QObject>
#include <QString>

namespace tessel {

class INIData;
class NetworkMC;
class NetworkProtocol;
class Settings;
struct OwnState;
struct Restrictions;

class LocationProfile : public QObject {
    Q_OBJECT
public:
    LocationProfile(OwnState& own, INIData& data, Settings& settings, const Restrictions& admin,
                    NetworkProtocol& protocol, NetworkMC& network);

    // Stores the name and tells all locations, which takes a second in which events are handled. Nothing
    // happens for an empty name, or where the administrator keeps it.
    void SaveUserName(const QString& name);
    // Stores colour tag 1 to 20, or 41 for none, and tells all locations in the same way.
    void setColorTag(int tag);
    // Takes the own note away, and tells all locations.
    void ClearNote();

signals:
    // The stored name is another one and is to be read.
    void nameStored();

private:
    OwnState& m_own;
    INIData& m_data;
    Settings& m_settings;
    const Restrictions& m_admin;
    NetworkProtocol& m_protocol;
    NetworkMC& m_network;
};

} // namespace tessel
