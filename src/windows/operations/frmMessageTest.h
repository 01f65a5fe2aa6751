// The bench for messages: sends them to everyone, one after the other, for whoever looks for a fault.
#pragma once

#include <QMainWindow>

class QComboBox;
class QLabel;
class QPushButton;
class QSpinBox;

namespace tessel {

class MessageTest;
class Session;

class frmMessageTest : public QMainWindow {
    Q_OBJECT
public:
    frmMessageTest(MessageTest& test, Session& session, QWidget* parent = nullptr);
    // A test ends with its window.
    ~frmMessageTest() override;

private:
    void createMenus();
    void createFields();
    void showState();
    void ViewmLog();
    void KillmLog();

    MessageTest& m_test;
    Session& m_session;
    QComboBox* m_pause;   // cmbTimer
    QSpinBox* m_count;    // txtmCNT
    QPushButton* m_start; // cmdStart
    QPushButton* m_stop;  // cmdStop
    QLabel* m_state;
};

} // namespace tessel
