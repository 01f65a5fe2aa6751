// The window "My Status".
#pragma once

#include <QDialog>

#include <vector>

class QComboBox;
class QGroupBox;
class QPushButton;

namespace tessel {

class KeyFilterEdit;
class StaffTagButtons;
class Station;

class frmSetStatus : public QDialog {
    Q_OBJECT
public:
    explicit frmSetStatus(Station& station, QWidget* parent = nullptr);

private:
    void createChoice();
    QWidget* createQuickButtons();
    QWidget* createStaffTags(); // grpStaff
    void showState();
    void set();   // cmdSet
    void clear(); // cmdClear
    void pressQuick(int index);
    // Index of the shared status that was picked from the list, -1 for a typed text.
    int pickedShared() const;

    Station& m_station;
    QComboBox* m_choice; // cmbStatus
    KeyFilterEdit* m_edit;
    QPushButton* m_set;
    QPushButton* m_clear;
    std::vector<QPushButton*> m_quick;      // cmdStatus
    StaffTagButtons* m_staffTags = nullptr; // none without the group
};

} // namespace tessel
