// Places and sizes of windows, and the autostart entry: what belongs to the user's desktop and not to
// the data folder.
#pragma once

#include <QPoint>
#include <QSize>
#include <QString>

#include <optional>

namespace tessel {

class Registry {
public:
    void SaveFormPos(const QString& form, QPoint position);
    std::optional<QPoint> GetFormPos(const QString& form) const;
    void SaveFormSize(const QString& form, QSize size);
    std::optional<QSize> GetFormSize(const QString& form) const;

    // Writes or deletes the entry that starts `program` with the user's session.
    static void SetAutoStart(const QString& program, bool on);
};

} // namespace tessel
