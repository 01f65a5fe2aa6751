// Whether the program runs in a session that is shown on another computer, and whose it is.
#pragma once

#include <QHash>
#include <QString>

namespace tessel {

// What the environment and the login manager tell of this session; taken when it is made.
class cls_terminalservices {
public:
    cls_terminalservices();

    bool IsRemoteSession() const;
    // `fallback` where the login manager tells of none.
    QString ClientLoginName(const QString& fallback) const;

private:
    QHash<QString, QString> m_record; // as the login manager wrote it; empty where there is none
};

} // namespace tessel
