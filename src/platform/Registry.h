// Places and sizes of windows, and the autostart entry: what belongs to the user's desktop and not to
// the data folder.
#pragma once

#include "engine/ports/cWindowRegistry.h"

namespace tessel {

class Registry : public WindowRegistry {
public:
    void SaveFormPos(const QString& form, QPoint position) override;
    std::optional<QPoint> GetFormPos(const QString& form) const override;
    void SaveFormSize(const QString& form, QSize size) override;
    std::optional<QSize> GetFormSize(const QString& form) const override;
    void SetAutoStart(const QString& program, bool on) override;
    bool autoStart() const override;
};

} // namespace tessel
