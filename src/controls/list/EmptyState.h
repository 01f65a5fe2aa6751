// What stands in the place of rows while a list shows none: a faint picture, what is the matter, and the
// way out.
#pragma once

#include "controls/look/PaintKit.h"

#include <QString>

class QPainter;
class QRect;

namespace tessel {

// Plain texts. Nothing at all is shown for an empty sentence.
struct EmptyState {
    QString text;     // one sentence
    QString hint;     // the way out, on a line of its own; empty for none
    int picture = -1; // a number of the kit's icon provider; -1 for none
};

// In the middle of `room`. In little room the words go before the picture.
void paintEmptyState(QPainter& painter, const EmptyState& state, const QRect& room, PaintKit& kit);

} // namespace tessel
