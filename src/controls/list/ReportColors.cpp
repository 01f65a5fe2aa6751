#include "controls/list/ReportColors.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace tessel {

namespace {

constexpr int kSteps = 64;

double linear(double channel) {
    return channel <= 0.04045 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
}

// Colours are weighed many times a frame, and `pow` is slow.
const std::array<double, 256>& linears() {
    static const std::array<double, 256> table = [] {
        std::array<double, 256> made{};
        for (std::size_t channel = 0; channel < made.size(); ++channel) {
            made[channel] = linear(static_cast<double>(channel) / 255);
        }
        return made;
    }();
    return table;
}

double luminance(const QColor& color) {
    const auto of = [](int channel) { return linears()[static_cast<std::size_t>(channel)]; };
    return 0.2126 * of(color.red()) + 0.7152 * of(color.green()) + 0.0722 * of(color.blue());
}

// Moves the lightness of `text` in small steps to black or white; invalid when even the end of the
// way is not readable.
QColor moved(const QColor& text, const QColor& back, bool lighter, double contrast) {
    const QColor hsl = text.toHsl();
    const double start = hsl.lightnessF();
    for (int step = 1; step <= kSteps; ++step) {
        const double way = static_cast<double>(step) / kSteps;
        const double lightness = lighter ? start + (1.0 - start) * way : start * (1.0 - way);
        const QColor tried = QColor::fromHslF(std::max(hsl.hslHueF(), 0.0F), hsl.hslSaturationF(),
                                              static_cast<float>(lightness))
                                 .toRgb();
        if (contrastRatio(tried, back) >= contrast) {
            return tried;
        }
    }
    return {};
}

} // namespace

double contrastRatio(const QColor& a, const QColor& b) {
    const double la = luminance(a);
    const double lb = luminance(b);
    return (std::max(la, lb) + 0.05) / (std::min(la, lb) + 0.05);
}

QColor blend(const QColor& under, const QColor& over, double share) {
    const auto mix = [share](int from, int to) {
        return static_cast<int>(std::lround(from + (to - from) * share));
    };
    return {mix(under.red(), over.red()), mix(under.green(), over.green()), mix(under.blue(), over.blue())};
}

QColor textOn(const QColor& back) {
    return contrastRatio(Qt::black, back) >= contrastRatio(Qt::white, back) ? Qt::black : Qt::white;
}

QColor readableOn(const QColor& text, const QColor& back, const QColor& plain, double contrast) {
    if (contrastRatio(text, back) >= contrast) {
        return text;
    }
    const bool lighter = luminance(plain) > luminance(back);
    for (const bool direction : {lighter, !lighter}) {
        const QColor found = moved(text, back, direction, contrast);
        if (found.isValid()) {
            return found;
        }
    }
    return textOn(back);
}

} // namespace tessel
