// The note of another location.
#pragma once

#include "engine/presence/mod_LocationActions.h"
#include "windows/FormWindows.h"

#include <QDialog>

namespace tessel {

class KeyFilterEdit;
class NetworkMC;
struct OwnState;

class frmLocationNote : public QDialog, public RequestedWindow {
    Q_OBJECT
public:
    frmLocationNote(LocationActions& actions, const OwnState& own, NetworkMC& network,
                    QWidget* parent = nullptr);

    void take(const WindowRequest& request) override;

private:
    void set();    // cmdSet
    void remove(); // cmdRemove

    LocationActions& m_actions;
    NetworkMC& m_network;
    QString m_SID;
    KeyFilterEdit* m_note; // fltNote
};

} // namespace tessel
