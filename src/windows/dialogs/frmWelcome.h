// The dialog of the first run: name, colour and doorbell of this location.
#pragma once

#include <QDialog>

class QCheckBox;

namespace tessel {

class ColorTagPicker;
class KeyFilterEdit;
class Station;

class frmWelcome : public QDialog {
    Q_OBJECT
public:
    explicit frmWelcome(Station& station);

    // Closing the dialog is not choosing: it comes again at the next start, and the program ends.
    void reject() override;

private:
    void SaveUserName(); // cmdOk

    Station& m_station;
    KeyFilterEdit* m_name;
    ColorTagPicker* m_color; // ColorTag
    QCheckBox* m_doorBell;   // chkDoorBell_Nav
};

} // namespace tessel
