// The two usage meters across runs.
#pragma once

#include "records/cChartSeries.h"

#include <QByteArray>
#include <QString>

namespace tessel {

class cErrorLog;
class Clock;
class INIData;
class NetworkProtocol;
class Settings;

class NetworkUsage {
public:
    NetworkUsage(INIData& data, const Settings& settings, const Clock& clock, cErrorLog& log,
                 NetworkProtocol& protocol)
        : m_data(data), m_settings(settings), m_clock(clock), m_log(log), m_protocol(protocol) {}

    // Takes the totals of earlier runs from the loaded settings.
    void load();
    // Stores the totals; `reset` sets them to 0 and starts a new count today.
    void SaveNetworkUsage(bool reset);

    // In megabytes of 1024 times 1024 bytes, with three decimals.
    static double BytesToMegabytes(double bytes);
    // The date of the last reset.
    const QString& since() const { return m_since; }
    // What was sent and received since then.
    ChartSeries AddSeriesNetwork() const;
    // The same as lines of values.
    QByteArray csv() const;

private:
    INIData& m_data;
    const Settings& m_settings;
    const Clock& m_clock;
    cErrorLog& m_log;
    NetworkProtocol& m_protocol;
    QString m_since; // as `NETLR` has it
};

} // namespace tessel
