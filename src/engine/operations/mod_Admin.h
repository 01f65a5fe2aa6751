// The administrator's restrictions, from tsa.dat.
#pragma once

#include "engine/core/cRestrictions.h"

#include <QString>

namespace tessel {

class cInifile;
class INIData;

// Set once at the start: what is written to the file later holds from the next start on.
class Admin : public Restrictions {
public:
    // Reads tsa.dat of the program's folder or else of the data folder. No file is the normal case.
    void LoadAdminSettings(cInifile& ini, const QString& programFolder, const QString& dataFolder);

    // The values in the order above, joined without a separator, `KA` as "True" or "False".
    QString GetAdminFlags() const;

    // Writes a key given as key, `ListMark`, value to tsa.dat of the data folder.
    static void SetAdminKey(INIData& data, const QString& text);
    // Writes a key given as section, key and value, joined by `ListMark`, to user.cfg. Like the above it
    // holds from the next start on.
    static void SetUserSettingRemote(INIData& data, const QString& text);
};

} // namespace tessel
