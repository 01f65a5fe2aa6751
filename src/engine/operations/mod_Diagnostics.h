// All facts of this location that somebody who helps its user asks for.
#pragma once

#include <QString>

namespace tessel {

class Admin;
class NetworkMC;
class Settings;
struct OwnState;
struct SystemFacts;

// One fact a line, its label in front.
QString GetDiagInfo(const OwnState& own, const SystemFacts& facts, const NetworkMC& network,
                    const Settings& settings, const Admin& admin);

} // namespace tessel
