// Keys of the INI files in the data folder.
#pragma once

#include "engine/core/cIniDocument.h"

#include <QString>

#include <vector>

namespace tessel {

class cInifile;
class Folders;

// `file` is a bare name, looked for in the data folder; the Path forms take a whole path.
class INIData {
public:
    INIData(cInifile& ini, const Folders& folders) : m_ini(ini), m_folders(folders) {}

    // An empty value counts as absent, so that the default comes back.
    QString ReadSetting(const QString& file, const QString& section, const QString& key,
                        const QString& fallback) const;
    // The value or empty.
    QString ReadSettingRaw(const QString& file, const QString& section, const QString& key) const;
    // True when it stands in the file.
    bool WriteSetting(const QString& file, const QString& section, const QString& key, const QString& value);
    // Several keys of one section, with one replacement of the file.
    bool WriteSettings(const QString& file, const QString& section,
                       const std::vector<cIniDocument::KeyValue>& values);
    // Writes and removes keys of any sections, with one replacement of the file.
    bool WriteChanges(const QString& file, const std::vector<cIniDocument::Change>& changes);
    void DeleteSetting(const QString& file, const QString& section, const QString& key);

    QString ReadSettingPath(const QString& path, const QString& section, const QString& key,
                            const QString& fallback) const;
    bool WriteSettingPath(const QString& path, const QString& section, const QString& key,
                          const QString& value);

    // Puts a damaged file aside, so that nothing is written into it: one that cannot be read, or is no
    // file of settings. `keptAs` is its new name, empty when it is in order or not there. False when
    // it is damaged and stands where it was; then this run leaves it alone.
    bool PutAsideDamaged(const QString& file, QString& keptAs);

private:
    void aim(const QString& path, const QString& section, const QString& key) const;

    cInifile& m_ini;
    const Folders& m_folders;
};

} // namespace tessel
