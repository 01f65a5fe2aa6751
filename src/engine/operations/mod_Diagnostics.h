// All facts of this location that somebody who helps its user asks for.
#pragma once

#include <QString>

namespace tessel {

class Admin;
class NetworkMC;
class Settings;
class Tones;
struct OwnState;
struct SystemFacts;

class Diagnostics {
public:
    Diagnostics(const OwnState& own, const SystemFacts& facts, const Settings& settings, const Admin& admin,
                const NetworkMC& network, const Tones& tones)
        : m_own(own), m_facts(facts), m_settings(settings), m_admin(admin), m_network(network),
          m_tones(tones) {}

    // One fact a line, its label in front; a line on sounds only where nothing is heard.
    QString GetDiagInfo() const;

private:
    const OwnState& m_own;
    const SystemFacts& m_facts;
    const Settings& m_settings;
    const Admin& m_admin;
    const NetworkMC& m_network;
    const Tones& m_tones;
};

} // namespace tessel
