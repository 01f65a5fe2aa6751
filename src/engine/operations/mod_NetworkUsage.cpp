#include "engine/operations/mod_NetworkUsage.h"

#include "engine/core/cErrorLog.h"
#include "engine/core/mod_Definitions.h"
#include "engine/core/mod_INIData.h"
#include "engine/core/mod_Settings.h"
#include "engine/network/mod_Network_Protocol.h"
#include "engine/ports/cClock.h"

#include <cmath>

namespace tessel {

namespace {
const QString kSection = QStringLiteral("Metrics");
const QString kSince = QStringLiteral("NETLR");

QString total(double characters) {
    return QString::number(characters, 'f', 0);
}

// What cannot be a total, say "nan", would stay in the meter for ever.
double readTotal(const QString& text) {
    const double characters = text.toDouble();
    return std::isfinite(characters) && characters > 0 ? characters : 0;
}
} // namespace

void NetworkUsage::load() {
    m_protocol.setMeters(readTotal(m_settings.Metrics_NETS()), readTotal(m_settings.Metrics_NETR()));
}

void NetworkUsage::SaveNetworkUsage(bool reset) {
    if (reset) {
        m_protocol.setMeters(0, 0);
    }
    std::vector<cIniDocument::KeyValue> values{{QStringLiteral("NETS"), total(m_protocol.bytesSent())},
                                               {QStringLiteral("NETR"), total(m_protocol.bytesReceived())}};
    if (reset || m_data.ReadSettingRaw(kUserFile, kSection, kSince).isEmpty()) {
        values.emplace_back(kSince, m_clock.dateText());
    }
    m_data.WriteSettings(kUserFile, kSection, values);
    if (reset) {
        m_log.LogEvent(QStringLiteral("NetworkUsage"), QStringLiteral("Reset"), {});
    }
}

} // namespace tessel
