// A station's view of the office as plain text, for scripts and for those who help users.
#pragma once

#include <QString>

namespace tessel {

class Endpoints;
class NetworkProtocol;

// First the line "packets sent S, received R", then one line for each location in the order of the
// table, its fields separated by tabs: location, host, version, SID, last refresh, status, note.
QString locationReport(const Endpoints& endpoints, const NetworkProtocol& protocol);

} // namespace tessel
