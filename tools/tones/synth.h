// A small additive synthesizer.
#pragma once

#include <cstdint>
#include <vector>

namespace tones {

inline constexpr int kRate = 22050;

struct Partial {
    double ratio; // of the note's hertz
    double level;
    double fall; // seconds until it is down to a third
};

// A slow wave on top of the tone.
struct Waver {
    double hertz = 0;
    double pitch = 0; // as a part of the note's hertz
    double level = 0; // as a part of the level
};

struct Voice {
    std::vector<Partial> partials;
    double attack; // seconds
    Waver waver = {};
};

class Sound {
public:
    explicit Sound(double seconds) : m_samples(static_cast<std::size_t>(seconds * kRate)) {}

    // Struck at `start` and left to ring to the end of the sound.
    void note(const Voice& voice, double start, double hertz, double level) {
        add(voice, start, {hertz, hertz}, 0, level, length() - start);
    }
    // Held for `seconds`.
    void hold(const Voice& voice, double start, double hertz, double level, double seconds) {
        add(voice, start, {hertz, hertz}, 0, level, seconds);
    }
    // Struck, while the pitch moves from one to the other within `seconds`.
    void glide(const Voice& voice, double start, double from, double to, double seconds, double level) {
        add(voice, start, {from, to}, seconds, level, length() - start);
    }

    // The samples, as loud as every other sound plus `decibels`, and never over the full scale.
    std::vector<std::int16_t> finish(double decibels) const;

private:
    struct Pitch {
        double from;
        double to;
    };

    double length() const { return static_cast<double>(m_samples.size()) / kRate; }
    void add(const Voice& voice, double start, Pitch pitch, double glide, double level, double seconds);
    double loudness() const;

    std::vector<double> m_samples;
};

} // namespace tones
