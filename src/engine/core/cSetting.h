// A setting: a value in memory that knows where it stands in user.cfg and writes itself.
#pragma once

#include "records/cReportRecords.h"

#include <QString>

#include <cstdint>
#include <string_view>

namespace tessel {

class INIData;

// How the values of settings read. A text that is no number gives 0 or false.
bool toBoolean(const QString& text);
std::int32_t toNumber(const QString& text);
// "#rrggbb", a colour name, or a number with the red in its lowest byte: "&H" and hexadecimal
// digits, or decimal. `kNoColor` for anything else.
Argb toColor(const QString& text);

// Where a setting stands, and what holds while its key is absent or empty.
struct SettingKey {
    std::string_view section;
    std::string_view key;
    std::string_view fallback;
};

// `T`: bool, std::int32_t, QString, or Argb for a colour.
template <typename T> class Setting {
public:
    Setting(INIData& data, const SettingKey& key) : m_data(data), m_key(key) {}

    const T& operator()() const { return m_value; }
    const SettingKey& key() const { return m_key; }

    // False when the text in the file is no such value; 0, false or the default colour then holds.
    bool read();
    // What holds while the key is absent holds for this run.
    void holdDefault() { take(fallback()); }
    // Takes the value and writes it at once. False when it did not reach the file; it holds for this
    // run all the same.
    bool set(const T& value);

private:
    QString fallback() const;
    bool take(const QString& text);

    INIData& m_data;
    const SettingKey& m_key;
    T m_value{};
};

} // namespace tessel
