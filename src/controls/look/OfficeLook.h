// The look of all windows: one style, a light and a dark palette, one accent colour.
#pragma once

namespace tessel {

// Takes the desktop's choice of light or dark. The environment variable TESSEL_THEME, "light" or
// "dark", goes before it.
void SetStyle();

} // namespace tessel
