// The look of all windows: one style, a light and a dark palette, one accent colour.
#pragma once

#include <QColor>
#include <QPalette>

namespace tessel {

// The two palettes.
QPalette officePalette(bool dark);
// The frame of what one types into or chooses from: seen on every back of this palette.
QColor frameColor(const QPalette& palette);

// Takes the desktop's choice of light or dark. The environment variable TESSEL_THEME, "light" or
// "dark", goes before it.
void SetStyle();

} // namespace tessel
