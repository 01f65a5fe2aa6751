// Buttons that switch something on and off, and take a double click for one.
#pragma once

class QAbstractButton;

namespace tessel {

// Many double-click everything; on a button that seats a patient and removes him again that would be
// nothing at all. From now on the second click of two is none; keys press as ever.
void pressOncePerDoubleClick(QAbstractButton& button);

} // namespace tessel
