// The word that something comes into force at the program's next start.
#pragma once

class QMessageBox;
class QWidget;

namespace tessel {

// Opens the box, which deletes itself once it is closed. Nothing waits for it.
QMessageBox* openRestartBox(QWidget* parent);

} // namespace tessel
