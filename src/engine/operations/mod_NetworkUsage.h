// The two usage meters across runs.
#pragma once

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

private:
    INIData& m_data;
    const Settings& m_settings;
    const Clock& m_clock;
    cErrorLog& m_log;
    NetworkProtocol& m_protocol;
};

} // namespace tessel
