// Makes the program's tones out of sines, and writes them as wave files.
#include "synth.h"

#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iostream>
#include <string>
#include <vector>

namespace {

using namespace tones;

// Equal temperament, hertz.
constexpr double kC4 = 261.63, kG4 = 392.00, kA4 = 440.00, kC5 = 523.25, kD5 = 587.33, kE5 = 659.26,
                 kG5 = 783.99, kA5 = 880.00, kB5 = 987.77, kC6 = 1046.50, kD6 = 1174.66, kE6 = 1318.51,
                 kG6 = 1567.98;

// Relative to the hertz of the note; the level at the start; the seconds in which it falls to a third.
const Voice kDoorChime{{{1, 1, .42}, {2.0, .35, .25}, {2.76, .3, .14}, {5.4, .12, .05}}, .003};
const Voice kBell{{{1, 1, .5}, {2.0, .5, .35}, {2.4, .3, .3}, {3.0, .25, .2}, {4.5, .12, .1}}, .003};
const Voice kMarimba{{{1, 1, .16}, {3.93, .3, .05}, {9.2, .08, .02}}, .002};
const Voice kCelesta{{{1, 1, .25}, {2, .2, .15}, {4, .12, .07}}, .003};
const Voice kHarp{{{1, 1, .4}, {2, .6, .3}, {3, .35, .2}, {4, .2, .14}, {5, .12, .1}, {6, .07, .07}}, .002};
const Voice kGlass{{{1, 1, .55}, {2.32, .4, .3}, {4.25, .2, .12}}, .006};
const Voice kKalimba{{{1, 1, .3}, {2, .15, .2}, {5.4, .25, .04}, {8.9, .1, .02}}, .002};
const Voice kWood{{{1, 1, .035}, {1.47, .7, .03}, {2.6, .4, .02}}, .001};
const Voice kFlute{{{1, 1, 1.2}, {2, .25, .9}, {3, .08, .6}}, .05, {5.5, .006, .15}};
const Voice kVibraphone{{{1, 1, .6}, {4, .2, .2}, {10, .04, .05}}, .003, {6.0, 0, .35}};
const Voice kMusicBox{{{1, 1, .35}, {3.0, .3, .2}, {6.2, .15, .08}}, .002};
const Voice kOrgan{{{1, 1, 3}, {2, .6, 3}, {3, .3, 3}, {4, .3, 3}, {6, .12, 3}}, .03};
const Voice kPlain{{{1, 1, .12}, {2, .08, .06}}, .012};
const Voice kRinger{{{1, 1, 9}, {2, .3, 9}, {3, .22, 9}, {5, .08, 9}}, .006};
const Voice kAlarm{{{1, 1, 9}, {2, .5, 9}, {3, .45, 9}, {4, .25, 9}, {5, .2, 9}}, .005};

// "Ding-dong".
Sound doorbellOne() {
    Sound sound(1.5);
    sound.note(kDoorChime, 0, kE5, 1);
    sound.note(kDoorChime, .45, kC5, 1);
    return sound;
}

// Three steps down and a full chord: everybody's bell.
Sound doorbellAll() {
    Sound sound(1.9);
    sound.note(kDoorChime, 0, kG5, .9);
    sound.note(kDoorChime, .25, kE5, .9);
    sound.note(kDoorChime, .5, kG5, .9);
    sound.note(kDoorChime, .8, kC5, .8);
    sound.note(kDoorChime, .8, kG4, .6);
    return sound;
}

// Two bursts that warble 18 times a second between two pitches.
Sound phone() {
    constexpr double kStep = 1.0 / 36;
    Sound sound(1.3);
    for (const double start : {0.0, .7}) {
        for (int i = 0; i < 16; ++i) {
            sound.hold(kRinger, start + i * kStep, i % 2 == 0 ? 960 : 1200, 1, kStep + .006);
        }
    }
    return sound;
}

// High against low without a pause: nothing else here is this restless.
Sound urgent() {
    Sound sound(1.6);
    for (int i = 0; i < 5; ++i) {
        sound.hold(kAlarm, i * .32, 1480, 1, .14);
        sound.hold(kAlarm, i * .32 + .15, 1110, 1, .14);
    }
    return sound;
}

Sound singleMsg() {
    Sound sound(.8);
    sound.note(kCelesta, 0, kA5, .9);
    sound.note(kCelesta, .13, kD6, 1);
    return sound;
}

Sound allMsg() {
    Sound sound(1.1);
    sound.note(kCelesta, 0, kD5, 1);
    sound.note(kCelesta, .13, kA5, 1);
    sound.note(kCelesta, .26, kD6, 1);
    sound.note(kCelesta, .45, kD6, .7);
    return sound;
}

Sound status() {
    Sound sound(.6);
    sound.note(kMarimba, 0, kG5, 1);
    sound.note(kMarimba, .11, kG5, .7);
    return sound;
}

Sound sent() {
    Sound sound(.3);
    sound.glide(kPlain, 0, 620, 930, .22, 1);
    return sound;
}

Sound startup() {
    Sound sound(1.8);
    const double notes[] = {kC5, kE5, kG5, kC6};
    for (int i = 0; i < 4; ++i) {
        sound.note(kVibraphone, i * .16, notes[i], .8);
    }
    return sound;
}

Sound chime() {
    Sound sound(1.5);
    sound.note(kBell, 0, kC6, 1);
    sound.note(kBell, .3, kA5, .8);
    return sound;
}

Sound marimba() {
    Sound sound(.9);
    const double notes[] = {kC5, kE5, kG5, kE5, kC6};
    for (int i = 0; i < 5; ++i) {
        sound.note(kMarimba, i * .11, notes[i], 1);
    }
    return sound;
}

Sound harp() {
    Sound sound(1.5);
    const double notes[] = {kC4 * 2, kD5, kE5, kG5, kA5, kC6, kD6, kE6};
    for (int i = 0; i < 8; ++i) {
        sound.note(kHarp, i * .06, notes[i], .6 + .05 * i);
    }
    return sound;
}

Sound glass() {
    Sound sound(1.2);
    sound.note(kGlass, 0, kE6, 1);
    sound.note(kGlass, .09, kG6, .6);
    return sound;
}

Sound kalimba() {
    Sound sound(1.1);
    const double notes[] = {kG5, kD5, kA4, kD5};
    for (int i = 0; i < 4; ++i) {
        sound.note(kKalimba, i * .15, notes[i], 1);
    }
    return sound;
}

Sound woodblock() {
    Sound sound(.6);
    sound.note(kWood, 0, 1150, 1);
    sound.note(kWood, .14, 820, 1);
    sound.note(kWood, .28, 1150, 1);
    return sound;
}

Sound flute() {
    Sound sound(1.2);
    sound.hold(kFlute, 0, kA5, .9, .22);
    sound.hold(kFlute, .2, kB5, .9, .22);
    sound.hold(kFlute, .4, kE6, 1, .75);
    return sound;
}

Sound vibraphone() {
    Sound sound(1.6);
    sound.note(kVibraphone, 0, kG4, .8);
    sound.note(kVibraphone, .05, kD5, .8);
    sound.note(kVibraphone, .1, kB5, .8);
    return sound;
}

Sound musicBox() {
    Sound sound(1.4);
    const double notes[] = {kE6, kC6, kG5, kC6, kD6, kG6};
    for (int i = 0; i < 6; ++i) {
        sound.note(kMusicBox, i * .14, notes[i], .9);
    }
    return sound;
}

Sound droplets() {
    Sound sound(.9);
    sound.glide(kPlain, 0, 500, 1100, .08, 1);
    sound.glide(kPlain, .2, 800, 1700, .07, .8);
    sound.glide(kPlain, .34, 420, 950, .09, 1);
    return sound;
}

Sound birdcall() {
    Sound sound(.9);
    sound.glide(kPlain, 0, 2600, 1900, .1, .9);
    sound.glide(kPlain, .16, 1800, 2700, .09, 1);
    sound.glide(kPlain, .38, 2600, 1900, .1, .9);
    sound.glide(kPlain, .54, 1800, 2700, .09, 1);
    return sound;
}

Sound organ() {
    Sound sound(1.2);
    sound.hold(kOrgan, 0, kG4, .7, .5);
    sound.hold(kOrgan, 0, kB5 / 2, .7, .5);
    sound.hold(kOrgan, .45, kC5, .7, .7);
    sound.hold(kOrgan, .45, kE5, .7, .7);
    sound.hold(kOrgan, .45, kG5, .7, .7);
    return sound;
}

struct Tone {
    const char* name;
    std::function<Sound()> make;
    double decibels = 0; // louder than the others by this much
};

const Tone kFixed[] = {
    {"DoorbellOne", doorbellOne}, {"DoorbellAll", doorbellAll}, {"Phone", phone},
    {"Urgent", urgent, 4},        {"SingleMsg", singleMsg},     {"AllMsg", allMsg},
    {"Status", status},           {"Sent", sent, -8},           {"Startup", startup, -2},
};

// The order is that of their numbers. Locations keep a number: add at the end alone.
const Tone kFavorites[] = {
    {"Chime", chime},        {"Marimba", marimba},     {"Harp", harp},         {"Glass", glass},
    {"Kalimba", kalimba},    {"Woodblock", woodblock}, {"Flute", flute},       {"Vibraphone", vibraphone},
    {"Music box", musicBox}, {"Droplets", droplets},   {"Birdcall", birdcall}, {"Organ", organ},
};

void append(std::string& bytes, std::uint32_t value, int count) {
    for (int i = 0; i < count; ++i) {
        bytes += static_cast<char>(value >> (8 * i) & 0xFFU);
    }
}

std::string waveFile(const std::vector<std::int16_t>& samples) {
    const auto dataBytes = static_cast<std::uint32_t>(samples.size() * 2);
    std::string bytes = "RIFF";
    append(bytes, 36 + dataBytes, 4);
    bytes += "WAVEfmt ";
    append(bytes, 16, 4);
    append(bytes, 1, 2); // PCM
    append(bytes, 1, 2); // mono
    append(bytes, kRate, 4);
    append(bytes, kRate * 2, 4);
    append(bytes, 2, 2);
    append(bytes, 16, 2);
    bytes += "data";
    append(bytes, dataBytes, 4);
    for (const std::int16_t sample : samples) {
        append(bytes, static_cast<std::uint16_t>(sample), 2);
    }
    return bytes;
}

bool write(const std::filesystem::path& path, const std::string& bytes) {
    std::ofstream file(path, std::ios::binary | std::ios::trunc);
    file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    file.close();
    if (!file) {
        std::cerr << "cannot write " << path << '\n';
    }
    return static_cast<bool>(file);
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        std::cerr << "usage: tone_maker FOLDER\n";
        return 2;
    }
    const std::filesystem::path folder = argv[1];
    const std::filesystem::path favorites = folder / "Favorites";
    std::error_code failed;
    std::filesystem::create_directories(favorites, failed);

    bool ok = true;
    for (const Tone& tone : kFixed) {
        ok = write(folder / (std::string(tone.name) + ".wav"), waveFile(tone.make().finish(tone.decibels))) &&
             ok;
    }
    std::string index = "[Load]\nA=" + std::to_string(std::size(kFavorites)) + "\n\n[Alerts]\n";
    int number = 0;
    for (const Tone& tone : kFavorites) {
        const std::string digits = std::to_string(++number);
        index += digits + "=" + tone.name + "\n";
        ok = write(favorites / (digits + "A.wav"), waveFile(tone.make().finish(tone.decibels))) && ok;
    }
    return write(favorites / "notify.dat", index) && ok ? 0 : 1;
}
