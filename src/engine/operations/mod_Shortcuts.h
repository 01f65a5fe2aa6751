// Links on the user's desktop that set a quick status.
#pragma once

#include <QString>

namespace tessel {

class Session;
class Folders;

class Shortcuts {
public:
    // What the user is told.
    struct Answer {
        QString caption;
        QString text;
    };

    Shortcuts(const Folders& folders, Session& session) : m_folders(folders), m_session(session) {}

    // Makes the link for quick status 0, 1 or 2 with what stands in its boxes.
    Answer create(int slot, const QString& name, const QString& message);

private:
    // False when there is no link afterwards.
    bool CreateDesktopShortcut(const QString& linkPath, const QString& targetPath, const QString& description,
                               const QString& arguments, const QString& statusName);

    const Folders& m_folders;
    Session& m_session;
};

} // namespace tessel
