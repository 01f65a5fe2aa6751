// What the operating system says of itself, its user and its folders; taken once at the start.
#pragma once

#include <QString>
#include <QStringList>

#include <functional>

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
    // Of what the program runs on, one a line: its label and the version. Slow: it looks at every library.
    std::function<QStringList()> versions = [] { return QStringList(); };
    bool IsRemoteSession = false;
    QString ClientLoginName; // of a remote session

    // Returns when what was written to the file stands on the disk. None: the system takes its time.
    std::function<void(const QString& path)> syncFile;
};

} // namespace tessel
