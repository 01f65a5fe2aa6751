// What the user's session offers.
#pragma once

#include <QString>
#include <QStringList>

namespace tessel {

// Implemented on the real desktop and by tests that record what was asked.
class Session {
public:
    Session() = default;
    virtual ~Session() = default;
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;

    // Shows a file or a folder with whatever program the desktop has for it. False when there is none.
    virtual bool openPath(const QString& path) = 0;
    // Starts a program without waiting for it. Nothing happens when there is none at `path`.
    virtual void startProgram(const QString& path, const QStringList& arguments) = 0;
    // Switches the start of this program with the session on or off.
    virtual void SetAutoStart(bool on) = 0;
    // Whether it is on.
    virtual bool autoStart() const = 0;
};

} // namespace tessel
