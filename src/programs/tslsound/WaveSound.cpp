#include "programs/tslsound/WaveSound.h"

#include <sndfile.h>

#include <algorithm>
#include <cmath>
#include <fcntl.h>
#include <memory>
#include <numbers>
#include <sys/stat.h>
#include <unistd.h>

namespace tessel {

namespace {

// What sound servers take.
constexpr int kLowestRate = 4000;
constexpr int kHighestRate = 192000;
constexpr int kMostChannels = 8;
constexpr sf_count_t kBlock = 4096; // frames that are read at once

constexpr int kToneRate = 44100;
constexpr int kToneRampMs = 5;
constexpr double kToneLevel = 0.35;

struct Close {
    void operator()(SNDFILE* file) const { sf_close(file); }
};

} // namespace

int PcmSound::milliseconds() const {
    const std::size_t frames = samples.size() / static_cast<std::size_t>(std::max(channels, 1));
    return static_cast<int>(frames * 1000 / static_cast<std::size_t>(std::max(rate, 1)));
}

std::optional<PcmSound> readSound(const char* path) {
    const int descriptor = ::open(path, O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    struct stat facts {};
    if (descriptor < 0 || ::fstat(descriptor, &facts) != 0 || !S_ISREG(facts.st_mode)) {
        return std::nullopt; // the program ends next, and what is open with it
    }
    SF_INFO info{};
    const std::unique_ptr<SNDFILE, Close> file(sf_open_fd(descriptor, SFM_READ, &info, SF_TRUE));
    if (file == nullptr || info.channels < 1 || info.channels > kMostChannels ||
        info.samplerate < kLowestRate || info.samplerate > kHighestRate) {
        return std::nullopt;
    }
    sf_command(file.get(), SFC_SET_SCALE_FLOAT_INT_READ, nullptr, SF_TRUE);
    PcmSound sound{info.samplerate, std::min(info.channels, 2), {}};
    std::vector<std::int16_t> block(static_cast<std::size_t>(kBlock * info.channels));
    sf_count_t got = kBlock;
    while (got == kBlock && sound.milliseconds() < kMaxSoundMs) {
        got = sf_readf_short(file.get(), block.data(), kBlock);
        for (sf_count_t frame = 0; frame < got; ++frame) {
            const auto first = block.begin() + frame * info.channels;
            sound.samples.insert(sound.samples.end(), first, first + sound.channels);
        }
    }
    return sound.samples.empty() ? std::nullopt : std::optional(std::move(sound));
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
