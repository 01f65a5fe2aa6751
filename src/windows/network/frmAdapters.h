// The dialog that chooses the network adapter.
#pragma once

#include "engine/ports/cLink.h"

#include <QDialog>

#include <vector>

class QComboBox;
class QLineEdit;

namespace tessel {

class NetworkMC;
class Timer;
struct OwnState;

class frmAdapters : public QDialog {
    Q_OBJECT
public:
    // `tmrExit`: ends the program.
    frmAdapters(const OwnState& own, NetworkMC& network, Timer& tmrExit, QWidget* parent = nullptr);

private:
    void chooseEntry(int entry);
    void restart(); // cmdRestart
    void reset();   // cmdReset

    const OwnState& m_own;
    NetworkMC& m_network;
    Timer& m_tmrExit;
    std::vector<Adapter> m_adapters;
    QComboBox* m_list; // cmbNet
    QLineEdit* m_bind; // txtBind
};

} // namespace tessel
