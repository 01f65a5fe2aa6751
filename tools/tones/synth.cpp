#include "synth.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace tones {

namespace {

constexpr double kTurn = 2 * std::numbers::pi;
// Long enough that no end clicks, short enough that nobody hears it.
constexpr double kRelease = 0.012;
// A partial up here would come back mirrored at half the rate.
constexpr double kHighest = 0.45 * kRate;
// Root mean square of the loudest stretch of this length, relative to full scale.
constexpr double kLoudness = 0.235;
constexpr double kStretch = 0.25;
constexpr double kPeak = 0.7079; // -3 dB

// Half a cosine wave, from 0 to 1.
double ramp(double part) {
    return part >= 1 ? 1 : part <= 0 ? 0 : .5 - .5 * std::cos(std::numbers::pi * part);
}

} // namespace

void Sound::add(const Voice& voice, double start, Pitch pitch, double glide, double level, double seconds) {
    const auto first = static_cast<std::size_t>(start * kRate);
    const auto count = static_cast<std::size_t>(seconds * kRate);
    const std::size_t last = std::min(first + count, m_samples.size());
    double phase = 0; // of the note, in turns
    for (std::size_t i = first; i < last; ++i) {
        const double time = static_cast<double>(i - first) / kRate;
        const double left = static_cast<double>(last - 1 - i) / kRate;
        const double wave = std::sin(kTurn * voice.waver.hertz * time);
        const double hertz = (pitch.from + (pitch.to - pitch.from) * (glide > 0 ? ramp(time / glide) : 0)) *
                             (1 + voice.waver.pitch * wave);
        double sample = 0;
        for (const Partial& partial : voice.partials) {
            if (partial.ratio * hertz < kHighest) {
                sample +=
                    partial.level * std::exp(-time / partial.fall) * std::sin(kTurn * partial.ratio * phase);
            }
        }
        m_samples[i] += sample * level * ramp(time / voice.attack) * ramp(left / kRelease) *
                        (1 - voice.waver.level * (.5 + .5 * wave));
        phase += hertz / kRate;
    }
}

double Sound::loudness() const {
    const auto stretch = static_cast<std::size_t>(kStretch * kRate);
    double sum = 0;
    double loudest = 0;
    double before = 0;
    std::vector<double> squares;
    squares.reserve(m_samples.size());
    for (const double sample : m_samples) {
        // The ear hears little of what is low: half of the slope is enough at these pitches.
        const double heard = sample - .5 * before;
        before = sample;
        squares.push_back(heard * heard);
        sum += squares.back();
        if (squares.size() > stretch) {
            sum -= squares[squares.size() - stretch - 1];
        }
        loudest = std::max(loudest, sum / static_cast<double>(stretch));
    }
    // What the filter leaves of a tone of 800 hertz.
    return std::sqrt(loudest) / .516;
}

std::vector<std::int16_t> Sound::finish(double decibels) const {
    double peak = 0;
    double mean = 0;
    for (const double sample : m_samples) {
        peak = std::max(peak, std::abs(sample));
        mean += sample;
    }
    mean /= static_cast<double>(std::max<std::size_t>(m_samples.size(), 1));
    const double wanted = kLoudness * std::pow(10, decibels / 20);
    const double gain = peak > 0 ? std::min(wanted / loudness(), kPeak / peak) : 0;

    std::vector<std::int16_t> samples;
    samples.reserve(m_samples.size());
    for (std::size_t i = 0; i < m_samples.size(); ++i) {
        // The mean is taken off inside, so that both ends stay at zero.
        const double part = static_cast<double>(std::min(i, m_samples.size() - 1 - i)) / kRate;
        const double level = (m_samples[i] - mean * ramp(part / kRelease)) * ramp(part / kRelease * 4) * gain;
        samples.push_back(static_cast<std::int16_t>(std::lround(level * 32767)));
    }
    return samples;
}

} // namespace tones
