// The note of another location.
#pragma once

#include "engine/presence/mod_LocationActions.h"
#include "windows/FormWindows.h"

#include <QDialog>

namespace tessel {

class KeyFilterEdit;

class frmLocationNote : public QDialog, public RequestedWindow {
    Q_OBJECT
public:
    explicit frmLocationNote(LocationActions& actions, QWidget* parent = nullptr);

    void take(const WindowRequest& request) override;

private:
    void set();    // cmdSet
    void remove(); // cmdRemove

    LocationActions& m_actions;
    QString m_SID;
    KeyFilterEdit* m_note; // fltNote
};

} // namespace tessel
