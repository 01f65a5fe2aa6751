// The window "Location Note": the own note.
#pragma once

#include <QDialog>

class QPushButton;

namespace tessel {

class KeyFilterEdit;
class OwnPresence;
class Shell;
struct OwnState;

class frmActiveNote : public QDialog {
    Q_OBJECT
public:
    frmActiveNote(const OwnState& own, OwnPresence& presence, Shell& shell, QWidget* parent = nullptr);

private:
    void set();    // cmdSet
    void remove(); // cmdRemove
    void showPreviewMode();

    OwnPresence& m_presence;
    Shell& m_shell;
    KeyFilterEdit* m_note;  // fltNote
    QPushButton* m_preview; // cmdLocationNote
};

} // namespace tessel
