// The administrator's restrictions, from tsa.dat.
#pragma once

#include <QString>
#include <QStringView>

namespace tessel {

class cInifile;

// Letters are "A" allowed or "R" restricted, and empty without a file. Set once at the start: what is
// written to the file later holds from the next start on.
class Admin {
public:
    bool AdminFilePresent = false;
    QString NetworkSettings;
    QString AdvancedSettings;
    bool KA = false; // locations that time out stay listed, marked red
    QString UserChange;
    QString Updates;
    QString HotKeys;
    QString UserName;
    QString Support;
    QString SSAdmin;
    QString SSHide;
    QString WTS;
    QString ENC;

    // Reads tsa.dat of the program's folder or else of the data folder. No file is the normal case.
    void LoadAdminSettings(cInifile& ini, const QString& programFolder, const QString& dataFolder);

    // The values in the order above, joined without a separator, `KA` as "True" or "False".
    QString GetAdminFlags() const;

    // Writes a key given as key, `ListMark`, value to tsa.dat of the data folder.
    static void SetAdminKey(cInifile& ini, const QString& dataFolder, const QString& text);

    static bool restricted(const QString& letter) { return letter == u"R"; }
};

} // namespace tessel
