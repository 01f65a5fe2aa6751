// The order in which Tab goes through a window.
#pragma once

class QWidget;

namespace tessel {

// As the layouts of the window, or of a part of one, have their items: rows downwards, from left to right
// in each. What is made later, or shown instead of something, is ordered by itself.
void tabAsLaidOut(QWidget& part);

} // namespace tessel
