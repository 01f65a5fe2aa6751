// The window "DoorBell Alert": a doorbell to everyone or to a group.
#pragma once

#include <QDialog>

class QComboBox;
class QLabel;
class QPushButton;

namespace tessel {

class GroupButtons;
class KeyFilterEdit;
class Station;

class frmGlobalDoorBell : public QDialog {
    Q_OBJECT
public:
    explicit frmGlobalDoorBell(Station& station, QWidget* parent = nullptr);

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void LoadSnippetDB();
    void LoadGroups();
    // F1 to F10 press the buttons of the groups. False for any other key.
    bool ProcessKeys(const QKeyEvent& event);
    void SendDoorBell();
    void SendDoorBell_Group(int slot);

    Station& m_station;
    QComboBox* m_snippet; // cmbSnippet
    KeyFilterEdit* m_text;
    QLabel* m_offline;
    QPushButton* m_everyone; // cmdGroup 0
    GroupButtons* m_groups;
};

} // namespace tessel
