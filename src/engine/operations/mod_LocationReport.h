// A station's view of the office as plain text, for scripts and for those who help users.
#pragma once

#include <QString>

namespace tessel {

class Endpoints;
class NetworkProtocol;

// What is told of a location: everything, or only what says nothing of persons, for others to read.
enum class ReportFacts { All, Technical };

// First the line "packets sent S, received R", then one line for each location in the order of the
// table, its fields separated by tabs: location, host, version, SID, last refresh, status, note. The last
// two are not among the technical facts, which get a line of headings instead.
QString locationReport(const Endpoints& endpoints, const NetworkProtocol& protocol,
                       ReportFacts facts = ReportFacts::All);

} // namespace tessel
