// Plays one sound through the desktop's sound server, and ends.
//
// It is a program of its own because a sound server may not answer for half a minute, and because
// libraries for sound stay in memory once loaded. Whoever starts it cuts the sound off by ending it.
#include "programs/tslsound/WaveSound.h"

#include <pulse/error.h>
#include <pulse/simple.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <unistd.h>

namespace {

using namespace tessel;

// Seconds for the file, the server and whatever else may hang; a sound that comes later alerts nobody
// to anything. The alarm ends the process.
constexpr unsigned kPatience = 4;
// What the server keeps ahead, in milliseconds. Its own choice may be two seconds, and that late an
// alert would come.
constexpr pa_usec_t kAheadMs = 120;

struct Close {
    void operator()(pa_simple* stream) const { pa_simple_free(stream); }
};

int play(const PcmSound& sound) {
    const pa_sample_spec format{PA_SAMPLE_S16NE, static_cast<std::uint32_t>(sound.rate),
                                static_cast<std::uint8_t>(sound.channels)};
    pa_buffer_attr ahead{};
    ahead.maxlength = ahead.prebuf = ahead.minreq = ahead.fragsize = static_cast<std::uint32_t>(-1);
    ahead.tlength = static_cast<std::uint32_t>(pa_usec_to_bytes(kAheadMs * 1000, &format));
    int error = 0;
    const std::unique_ptr<pa_simple, Close> stream(pa_simple_new(
        nullptr, "Tessel Status", PA_STREAM_PLAYBACK, nullptr, "Tone", &format, nullptr, nullptr, &error));
    if (stream != nullptr) {
        ::alarm(kPatience + static_cast<unsigned>(sound.milliseconds()) / 1000U + 1U);
        if (pa_simple_write(stream.get(), sound.samples.data(), sound.samples.size() * sizeof(std::int16_t),
                            &error) == 0 &&
            pa_simple_drain(stream.get(), &error) == 0) {
            return 0;
        }
    }
    std::fprintf(stderr, "tslsound: %s\n", pa_strerror(error));
    return 1;
}

} // namespace

int main(int argc, char** argv) {
    ::alarm(kPatience);
    std::optional<PcmSound> sound;
    if (argc == 3 && std::strcmp(argv[1], "play") == 0) {
        sound = readSound(argv[2]);
    } else if (argc == 4 && std::strcmp(argv[1], "beep") == 0) {
        sound = plainTone(std::atoi(argv[2]), std::atoi(argv[3]));
    } else {
        std::fputs("Usage: tslsound play FILE         play a sound file\n"
                   "       tslsound beep HERTZ MS     play a plain tone\n",
                   stderr);
        return 2;
    }
    if (!sound.has_value()) {
        std::fputs("tslsound: nothing that can be played\n", stderr);
        return 1;
    }
    return play(*sound);
}
