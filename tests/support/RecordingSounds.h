// A sound device that writes down what it was to play.
#pragma once

#include "engine/ports/cSounds.h"

#include <QStringList>

namespace tessel {

class RecordingSounds : public Sounds {
public:
    // File names without their folder, and "beep <hertz> <ms>".
    QStringList played;
    QString missing; // what it says of itself

    QString trouble() const override { return missing; }

    void play(const QString& path) override { played += path.section(u'/', -1); }
    void beep(int hertz, int ms) override { played += QStringLiteral("beep %1 %2").arg(hertz).arg(ms); }
};

} // namespace tessel
