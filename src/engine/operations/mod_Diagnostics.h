// All facts of this location that somebody who helps its user asks for.
#pragma once

#include <QString>

namespace tessel {

class Admin;
class NetworkMC;
class Settings;
struct OwnState;
struct SystemFacts;

// One fact a line, its label in front. `soundTrouble`: why nothing is heard; no line when it is empty.
QString GetDiagInfo(const OwnState& own, const SystemFacts& facts, const NetworkMC& network,
                    const Settings& settings, const Admin& admin, const QString& soundTrouble);

} // namespace tessel
