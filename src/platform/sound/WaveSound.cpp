#include "platform/sound/WaveSound.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace tessel {

namespace {

constexpr std::size_t kChunkHeader = 8;
constexpr std::size_t kShortFormat = 16;
constexpr std::size_t kLongFormat = 40;
constexpr std::size_t kSubformatAt = 24;
constexpr std::uint32_t kPcm = 1;
constexpr std::uint32_t kExtensible = 0xFFFE;
// What sound servers take.
constexpr std::uint32_t kLowestRate = 4000;
constexpr std::uint32_t kHighestRate = 192000;
constexpr std::uint32_t kMostChannels = 8;

constexpr int kToneRate = 44100;
constexpr int kToneRampMs = 5;
constexpr double kToneLevel = 0.35;

// The little-endian number in the first bytes; there must be that many.
std::uint32_t number(std::string_view bytes, std::size_t count) {
    std::uint32_t value = 0;
    for (std::size_t i = count; i > 0; --i) {
        value = value << 8U | static_cast<unsigned char>(bytes[i - 1]);
    }
    return value;
}

struct Format {
    std::uint32_t channels = 0;
    std::uint32_t rate = 0;
    std::uint32_t sampleBytes = 0;
};

std::optional<Format> readFormat(std::string_view chunk) {
    if (chunk.size() < kShortFormat) {
        return std::nullopt;
    }
    std::uint32_t kind = number(chunk, 2);
    if (kind == kExtensible && chunk.size() >= kLongFormat) {
        kind = number(chunk.substr(kSubformatAt), 2);
    }
    const std::uint32_t bits = number(chunk.substr(14), 2);
    const Format format{number(chunk.substr(2), 2), number(chunk.substr(4), 4), bits / 8};
    const bool known = kind == kPcm && format.channels >= 1 && format.channels <= kMostChannels &&
                       format.rate >= kLowestRate && format.rate <= kHighestRate && bits % 8 == 0 &&
                       format.sampleBytes >= 1 && format.sampleBytes <= 4;
    return known ? std::optional(format) : std::nullopt;
}

std::int16_t sampleAt(std::string_view bytes, std::uint32_t sampleBytes) {
    if (sampleBytes == 1) {
        return static_cast<std::int16_t>((static_cast<unsigned char>(bytes[0]) - 128) * 256);
    }
    // The two highest bytes are as much as anyone hears of an alert.
    return static_cast<std::int16_t>(number(bytes.substr(sampleBytes - 2), 2));
}

std::optional<PcmSound> readSamples(std::string_view data, const Format& format) {
    const std::size_t frameBytes = std::size_t{format.channels} * format.sampleBytes;
    const std::size_t most = std::size_t{format.rate} * (kMaxSoundMs / 1000);
    const std::size_t frames = std::min(data.size() / frameBytes, most);
    if (frames == 0) {
        return std::nullopt;
    }
    const std::uint32_t channels = std::min(format.channels, 2U);
    PcmSound sound{static_cast<int>(format.rate), static_cast<int>(channels), {}};
    sound.samples.reserve(frames * channels);
    for (std::size_t frame = 0; frame < frames; ++frame) {
        for (std::size_t channel = 0; channel < channels; ++channel) {
            const std::string_view sample = data.substr(frame * frameBytes + channel * format.sampleBytes);
            sound.samples.push_back(sampleAt(sample, format.sampleBytes));
        }
    }
    return sound;
}

} // namespace

int PcmSound::milliseconds() const {
    const std::size_t frames = samples.size() / static_cast<std::size_t>(std::max(channels, 1));
    return static_cast<int>(frames * 1000 / static_cast<std::size_t>(std::max(rate, 1)));
}

std::optional<PcmSound> decodeWave(std::string_view file) {
    constexpr std::size_t kFileHeader = 12;
    if (file.size() < kFileHeader || file.substr(0, 4) != "RIFF" || file.substr(8, 4) != "WAVE") {
        return std::nullopt;
    }
    std::string_view rest = file.substr(kFileHeader);
    std::optional<Format> format;
    while (rest.size() >= kChunkHeader) {
        const std::string_view name = rest.substr(0, 4);
        const std::size_t size = number(rest.substr(4), 4);
        // Recorders that were stopped the hard way leave a size beyond the end of the file.
        const std::string_view chunk = rest.substr(kChunkHeader, size);
        if (name == "fmt ") {
            format = readFormat(chunk);
            if (!format.has_value()) {
                return std::nullopt;
            }
        } else if (name == "data") {
            return format.has_value() ? readSamples(chunk, *format) : std::nullopt;
        }
        // A chunk of an odd size is followed by a byte that belongs to nobody.
        rest.remove_prefix(std::min(rest.size(), kChunkHeader + chunk.size() + chunk.size() % 2));
    }
    return std::nullopt;
}

std::optional<PcmSound> plainTone(int hertz, int ms) {
    if (hertz <= 0 || hertz > kToneRate / 2 || ms <= 0) {
        return std::nullopt;
    }
    const int frames = static_cast<int>(std::int64_t{std::min(ms, kMaxSoundMs)} * kToneRate / 1000);
    const int ramp = std::max(1, std::min(kToneRate * kToneRampMs / 1000, frames / 2));
    PcmSound sound{kToneRate, 1, {}};
    sound.samples.reserve(static_cast<std::size_t>(frames));
    for (int i = 0; i < frames; ++i) {
        const double level = kToneLevel * std::min({1.0, 1.0 * i / ramp, 1.0 * (frames - 1 - i) / ramp});
        const double turns = std::fmod(static_cast<double>(hertz) * i / kToneRate, 1.0);
        sound.samples.push_back(
            static_cast<std::int16_t>(std::lround(32767 * level * std::sin(2 * std::numbers::pi * turns))));
    }
    return sound;
}

} // namespace tessel
