#include "engine/operations/mod_LocationReport.h"

#include "engine/network/mod_Endpoints.h"
#include "engine/network/mod_Network_Protocol.h"
#include "records/mod_PlainText.h"

#include <array>
#include <span>

namespace tessel {

QString locationReport(const Endpoints& endpoints, const NetworkProtocol& protocol, ReportFacts facts) {
    constexpr std::array kColumns{EndpointItem::Active, EndpointItem::Host,        EndpointItem::Version,
                                  EndpointItem::SID,    EndpointItem::LastRefresh, EndpointItem::Status,
                                  EndpointItem::Note};
    constexpr std::size_t kTechnical = 5;
    const std::span columns =
        std::span(kColumns).first(facts == ReportFacts::All ? kColumns.size() : kTechnical);
    QString report = QStringLiteral("packets sent %1, received %2\n")
                         .arg(protocol.packetsSent())
                         .arg(protocol.packetsReceived());
    if (facts == ReportFacts::Technical) {
        report += QLatin1String("location\thost\tversion\tSID\tlast refresh\n");
    }
    for (const auto& record : endpoints.records().rows()) {
        QStringList fields;
        for (const EndpointItem column : columns) {
            fields += withoutControls(item(*record, column).text).trimmed();
        }
        report += fields.join(u'\t') + u'\n';
    }
    return report;
}

} // namespace tessel
