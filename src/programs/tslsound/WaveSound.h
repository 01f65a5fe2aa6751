// Sounds as samples: what a sound file holds, or a plain tone.
#pragma once

#include <cstdint>
#include <optional>
#include <vector>

namespace tessel {

// No sound is longer than this: what alerts must end.
inline constexpr int kMaxSoundMs = 30000;

struct PcmSound {
    int rate = 0;     // frames a second
    int channels = 0; // 1 or 2; of a file with more, the first two
    std::vector<std::int16_t> samples;

    int milliseconds() const;
};

// Nothing for what is no file with sound in it. One that ends early gives the samples that are there.
// A pipe under the name of a file is not waited for.
std::optional<PcmSound> readSound(const char* path);

// A sine wave that swells and ends without a click. Nothing if there would be nothing to hear.
std::optional<PcmSound> plainTone(int hertz, int ms);

} // namespace tessel
