// Text of unknown origin made fit for a line.
#pragma once

#include <QString>

namespace tessel {

// Whether a character would end a line, jump within it or do worse, instead of being seen.
bool isControl(QChar c);

// The text with a blank in the place of each control character and line break. Costs nothing for a
// clean text.
QString withoutControls(QString text);

} // namespace tessel
