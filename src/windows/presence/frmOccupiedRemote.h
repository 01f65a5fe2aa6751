// Seats a patient at another location, or removes the one who is there.
#pragma once

#include "controls/look/Images.h"
#include "engine/presence/mod_LocationActions.h"
#include "windows/FormWindows.h"

#include <QDialog>

class QCheckBox;
class QPushButton;

namespace tessel {

class KeyFilterEdit;
class NetworkMC;
struct OwnState;

class frmOccupiedRemote : public QDialog, public RequestedWindow {
    Q_OBJECT
public:
    frmOccupiedRemote(LocationActions& actions, const OwnState& own, NetworkMC& network,
                      QWidget* parent = nullptr);

    void take(const WindowRequest& request) override;

private:
    void toggle();

    LocationActions& m_actions;
    NetworkMC& m_network;
    LocationFacts m_facts;
    Images m_images;
    QCheckBox* m_occupied;
    KeyFilterEdit* m_name; // fltName
    QPushButton* m_inUse;  // cmdLocInUse
};

} // namespace tessel
