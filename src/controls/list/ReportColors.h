// Colours chosen by others, made readable on what they happen to stand on.
#pragma once

#include <QColor>

namespace tessel {

// Least contrast at which a text of ordinary size is readable for nearly everyone.
inline constexpr double kReadableContrast = 4.5;

// From 1 (no difference) to 21 (black and white).
double contrastRatio(const QColor& a, const QColor& b);

// `over` laid on `under`; `share` from 0 (none of it) to 1.
QColor blend(const QColor& under, const QColor& over, double share);

// Whether what stands on it is meant to be light.
inline bool isDark(const QColor& back) {
    return back.lightness() < 128;
}

// Black or white, whichever is easier to read on `back`.
QColor textOn(const QColor& back);

// `text` if it is readable on `back`, else the nearest lightness of the same hue that is, moved
// towards `plain`, the colour of ordinary text there. Readable is what has this contrast.
QColor readableOn(const QColor& text, const QColor& back, const QColor& plain,
                  double contrast = kReadableContrast);

} // namespace tessel
