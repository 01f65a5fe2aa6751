// The window "DoorBell Alert": a doorbell to everyone or to a group.
#pragma once

#include <QDialog>

#include <vector>

class QComboBox;
class QLabel;
class QPushButton;

namespace tessel {

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
    void SendDoorBell();
    void showCanSend();

    Station& m_station;
    QComboBox* m_snippet; // cmbSnippet
    KeyFilterEdit* m_text;
    QLabel* m_offline;
    std::vector<QPushButton*> m_groups; // cmdGroup; 0 is everyone
};

} // namespace tessel
