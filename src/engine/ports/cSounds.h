// The sound device as the engines see it.
#pragma once

#include <QString>

namespace tessel {

// Implemented by the platform and by tests. Nothing here waits or fails: without a device it is
// silent.
class Sounds {
public:
    Sounds() = default;
    virtual ~Sounds() = default;
    Sounds(const Sounds&) = delete;
    Sounds& operator=(const Sounds&) = delete;

    // What keeps every sound from being heard, in one line; empty when nothing is known to.
    virtual QString trouble() const { return {}; }

    // Plays a wave file from its beginning and cuts off whatever is playing.
    virtual void play(const QString& path) = 0;
    // A plain tone of `hertz` for `ms`, likewise.
    virtual void beep(int hertz, int ms) = 0;
};

} // namespace tessel
