// What the operating system says of itself, its user and its folders; taken once at the start.
#pragma once

#include <QString>

namespace tessel {

// Folders end in a slash; an empty one is unknown.
struct SystemFacts {
    QString programFolder; // of the executable
    QString appData;       // the user's application data
    QString commonAppData; // application data of all users
    QString documents;
    QString desktop;
    QString system;

    QString hostName;
    QString userName;
    QString osName;
    bool remoteSession = false;
    QString clientLoginName; // of a remote session
};

} // namespace tessel
