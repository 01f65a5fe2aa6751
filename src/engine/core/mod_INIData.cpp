#include "engine/core/mod_INIData.h"

#include "engine/core/cInifile.h"
#include "engine/core/mod_Folders.h"

namespace tessel {

void INIData::aim(const QString& path, const QString& section, const QString& key) const {
    m_ini.Path = path;
    m_ini.Section = section;
    m_ini.Key = key;
    m_ini.Default.clear();
}

QString INIData::ReadSettingPath(const QString& path, const QString& section, const QString& key,
                                 const QString& fallback) const {
    aim(path, section, key);
    const QString value = m_ini.Value();
    return value.isEmpty() ? fallback : value;
}

bool INIData::WriteSettingPath(const QString& path, const QString& section, const QString& key,
                               const QString& value) {
    aim(path, section, key);
    return m_ini.setValue(value);
}

QString INIData::ReadSetting(const QString& file, const QString& section, const QString& key,
                             const QString& fallback) const {
    return ReadSettingPath(m_folders.dataFile(file), section, key, fallback);
}

QString INIData::ReadSettingRaw(const QString& file, const QString& section, const QString& key) const {
    return ReadSetting(file, section, key, {});
}

bool INIData::WriteSetting(const QString& file, const QString& section, const QString& key,
                           const QString& value) {
    return WriteSettingPath(m_folders.dataFile(file), section, key, value);
}

bool INIData::WriteSettings(const QString& file, const QString& section,
                            const std::vector<cIniDocument::KeyValue>& values) {
    aim(m_folders.dataFile(file), section, {});
    return m_ini.setValues(values);
}

void INIData::DeleteSetting(const QString& file, const QString& section, const QString& key) {
    aim(m_folders.dataFile(file), section, key);
    m_ini.DeleteKey();
}

} // namespace tessel
