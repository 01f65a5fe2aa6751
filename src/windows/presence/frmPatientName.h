// Asks who is seated at this location.
#pragma once

#include <QDialog>

namespace tessel {

class KeyFilterEdit;
class OwnPresence;
struct OwnState;

// However it closes, the engine hears the name; all but "Save" mean none.
class frmPatientName : public QDialog {
    Q_OBJECT
public:
    frmPatientName(const OwnState& own, OwnPresence& presence, QWidget* parent = nullptr);

    void done(int result) override;

private:
    OwnPresence& m_presence;
    KeyFilterEdit* m_name; // fltName
    bool m_done = false;
};

} // namespace tessel
