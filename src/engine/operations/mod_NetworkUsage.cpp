#include "engine/operations/mod_NetworkUsage.h"

#include "engine/alerts/cStamp.h"
#include "engine/core/cErrorLog.h"
#include "engine/core/mod_Csv.h"
#include "engine/core/mod_Definitions.h"
#include "engine/core/mod_INIData.h"
#include "engine/core/mod_Settings.h"
#include "engine/network/mod_Network_Protocol.h"
#include "engine/ports/cClock.h"

#include <QLocale>

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
    m_since = m_settings.Metrics_NETLR();
    if (m_since.isEmpty()) {
        m_since = m_clock.dateText();
    }
}

void NetworkUsage::SaveNetworkUsage(bool reset) {
    if (reset) {
        m_protocol.setMeters(0, 0);
    }
    std::vector<cIniDocument::KeyValue> values{{QStringLiteral("NETS"), total(m_protocol.bytesSent())},
                                               {QStringLiteral("NETR"), total(m_protocol.bytesReceived())}};
    if (reset || m_data.ReadSettingRaw(kUserFile, kSection, kSince).isEmpty()) {
        m_since = m_clock.dateText();
        values.emplace_back(kSince, m_since);
    }
    m_data.WriteSettings(kUserFile, kSection, values);
    if (reset) {
        m_log.LogEvent(QStringLiteral("NetworkUsage"), QStringLiteral("Reset"), {});
    }
}

double NetworkUsage::BytesToMegabytes(double bytes) {
    return std::round(bytes / 1024 / 1024 * 1000) / 1000;
}

ChartSeries NetworkUsage::AddSeriesNetwork() const {
    const auto point = [](const char* name, double bytes) {
        const double megabytes = BytesToMegabytes(bytes);
        return CreatePiePoint(QLatin1String(name), megabytes,
                              QLocale::system().toString(megabytes, 'f', 3) + QLatin1String(" Megabytes"));
    };
    return {QStringLiteral("Tessel network usage since \n") + cStamp().LongDate(m_since),
            QStringLiteral("Network Usage"),
            QStringLiteral("Megabytes"),
            {point("Data Sent", m_protocol.bytesSent()), point("Data Recieved", m_protocol.bytesReceived())}};
}

QByteArray NetworkUsage::csv() const {
    QByteArray lines =
        csvLine({QStringLiteral("Since"), QStringLiteral("Network Usage"), QStringLiteral("Megabytes")});
    for (const ChartPoint& point : AddSeriesNetwork().points) {
        lines += csvLine({m_since, point.name, QString::number(point.value, 'f', 3)});
    }
    return lines;
}

} // namespace tessel
