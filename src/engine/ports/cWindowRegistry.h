// Where the places and sizes of windows are kept.
#pragma once

#include <QPoint>
#include <QSize>
#include <QString>

#include <optional>

namespace tessel {

// `form`: the window's name, say "frmMain".
class WindowRegistry {
public:
    WindowRegistry() = default;
    virtual ~WindowRegistry() = default;
    WindowRegistry(const WindowRegistry&) = delete;
    WindowRegistry& operator=(const WindowRegistry&) = delete;

    virtual void SaveFormPos(const QString& form, QPoint position) = 0;
    virtual std::optional<QPoint> GetFormPos(const QString& form) const = 0;
    virtual void SaveFormSize(const QString& form, QSize size) = 0;
    virtual std::optional<QSize> GetFormSize(const QString& form) const = 0;
    // Writes or deletes the entry that starts `program` with the user's session.
    virtual void SetAutoStart(const QString& program, bool on) = 0;
    // Whether there is one that the desktop does not skip.
    virtual bool autoStart() const = 0;
};

} // namespace tessel
