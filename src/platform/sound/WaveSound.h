// Sounds as samples: what a wave file holds, or a plain tone.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

namespace tessel {

// No more of a file is read; half a minute of stereo in the rate of studios.
inline constexpr std::size_t kMaxWaveBytes = 6U << 20U;
// No sound is longer than this: what alerts must end.
inline constexpr int kMaxSoundMs = 30000;

struct PcmSound {
    int rate = 0;     // frames a second
    int channels = 0; // 1 or 2; of a file with more, the first two
    std::vector<std::int16_t> samples;

    int milliseconds() const;
};

// Reads uncompressed samples of 8, 16, 24 or 32 bits. Nothing for every other kind of file, and for
// one without a single sample. A file that ends early gives the samples that are there.
std::optional<PcmSound> decodeWave(std::string_view file);

// A sine wave that swells and ends without a click. Nothing if there would be nothing to hear.
std::optional<PcmSound> plainTone(int hertz, int ms);

} // namespace tessel
