// The window "DoorBell Alert": a doorbell to everyone or to a group.
#pragma once

#include <QDialog>

#include <vector>

class QComboBox;
class QLabel;
class QPushButton;

namespace tessel {

class AlertEngine;
class KeyFilterEdit;
class NetworkMC;
class Snippets;
struct OwnState;

class frmGlobalDoorBell : public QDialog {
    Q_OBJECT
public:
    frmGlobalDoorBell(const OwnState& own, const Snippets& snippets, const NetworkMC& network,
                      AlertEngine& alerts, QWidget* parent = nullptr);

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void LoadSnippetDB();
    void SendDoorBell();
    void showCanSend();

    const OwnState& m_own;
    const Snippets& m_snippets;
    AlertEngine& m_alerts;
    QComboBox* m_snippet; // cmbSnippet
    KeyFilterEdit* m_text;
    QLabel* m_offline;
    std::vector<QPushButton*> m_groups; // cmdGroup; 0 is everyone
};

} // namespace tessel
