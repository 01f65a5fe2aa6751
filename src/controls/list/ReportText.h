// Text of unknown origin and length made fit for the screen.
#pragma once

#include <QString>

namespace tessel {

// No column is wide enough for more, and laying out a text of megabytes would stop the window.
inline constexpr int kShownChars = 500;
inline constexpr int kTipChars = 1000;

// The text in one line: control characters and line breaks become blanks; what is longer than
// `maxChars` is cut and ends in an ellipsis. Costs nothing for a short, clean text.
QString singleLine(const QString& text, int maxChars = kShownChars);

// The text in several lines: "\n" ends a line, other control characters are blanks; empty lines at
// the ends go. Cut like a single line.
QString plainLines(const QString& text, int maxChars);

// The text as markup that shows exactly these characters, line breaks included: tool tips guess
// whether they were given markup, so plain text from outside must never reach them as it is.
QString plainTip(const QString& text);

} // namespace tessel
