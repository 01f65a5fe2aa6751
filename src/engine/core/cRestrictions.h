// What the administrator of an office restricts.
#pragma once

#include <QString>

namespace tessel {

// What stands where a restriction takes something away.
inline const QString kLockedByAdmin = QStringLiteral("Locked by the administrator");

// Letters are "A" allowed or "R" restricted, and empty without an administrator's file.
struct Restrictions {
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

    static bool restricted(const QString& letter) { return letter == u"R"; }
};

} // namespace tessel
