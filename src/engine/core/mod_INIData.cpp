#include "engine/core/mod_INIData.h"

#include "engine/core/cInifile.h"
#include "engine/core/mod_FileTools.h"
#include "engine/core/mod_Folders.h"
#include "engine/core/mod_Limits.h"

#include <QFileInfo>

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

bool INIData::WriteChanges(const QString& file, const std::vector<cIniDocument::Change>& changes) {
    aim(m_folders.dataFile(file), {}, {});
    return m_ini.setAll(changes);
}

void INIData::DeleteSetting(const QString& file, const QString& section, const QString& key) {
    aim(m_folders.dataFile(file), section, key);
    m_ini.DeleteKey();
}

bool INIData::PutAsideDamaged(const QString& file, QString& keptAs) {
    const QString path = m_folders.dataFile(file);
    keptAs.clear();
    QByteArray bytes;
    if (!QFileInfo::exists(path) ||
        (readWholeFile(path, static_cast<qint64>(kMaxIniBytes), bytes) && !cIniDocument(bytes).damaged())) {
        return true;
    }
    keptAs = putAside(path);
    if (keptAs.isEmpty()) {
        m_ini.forbid(path);
        return false;
    }
    return true;
}

} // namespace tessel
