// The dialog that chooses the network adapter.
#pragma once

#include "engine/ports/cLink.h"

#include <QDialog>

#include <vector>

class QComboBox;
class QLineEdit;

namespace tessel {

class Station;

class frmAdapters : public QDialog {
    Q_OBJECT
public:
    explicit frmAdapters(Station& station, QWidget* parent = nullptr);

private:
    void chooseEntry(int entry);
    void restart(); // cmdRestart
    void reset();   // cmdReset

    Station& m_station;
    std::vector<Adapter> m_adapters;
    QComboBox* m_list; // cmbNet
    QLineEdit* m_bind; // txtBind
};

} // namespace tessel
