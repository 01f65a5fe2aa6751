// The window "Location Actions": what this location can do to another one.
#pragma once

#include "controls/look/Images.h"
#include "engine/presence/mod_LocationActions.h"
#include "windows/FormWindows.h"

#include <QDialog>

class QCheckBox;
class QComboBox;
class QGroupBox;
class QLabel;
class QPushButton;
class QTabWidget;

namespace tessel {

class Favorites;
class KeyFilterEdit;
class NetworkMC;
class Settings;
class SharedStatus;
class StaffTagButtons;
class Tones;
struct OwnState;

// Every act is a request: the window shows what it has asked for, the row what became of it.
class frmActions : public QDialog, public RequestedWindow {
    Q_OBJECT
public:
    struct Network {
        const OwnState& own;
        NetworkMC& layer;
    };
    frmActions(LocationActions& actions, Network network, Favorites& favorites, const SharedStatus& shared,
               Tones& tones, const Settings& settings, QWidget* parent = nullptr);

    void take(const WindowRequest& request) override;

private:
    QWidget* createStatusPage();
    QWidget* createFavoritePage();
    void SetTabView(ActionsPage page);
    void LoadFavTones();
    void fillStatuses();
    void showStatus(bool set, const QString& text);
    // Whether the location can be asked for something now.
    void showCanSend(bool canSend);
    void showRoom();
    void showFavorite();
    void Set_Status();
    void Clear_Status(bool Close);
    void toggleRoom(); // cmdLocInUse
    void Set_StaffTag(int tag, bool Close);
    void AddFavorite();
    void removeFavorite(); // cmdFavorite
    void saveFavorite();   // cmdSave

    LocationActions& m_actions;
    Network m_network;
    Favorites& m_favorites;
    const SharedStatus& m_shared;
    Tones& m_tones;
    const bool m_offersTags; // setting `SST`
    LocationFacts m_facts;
    bool m_statusSet = false; // as far as this window knows
    Images m_images;

    QTabWidget* m_pages;
    QGroupBox* m_statusGroup;
    QComboBox* m_status; // cmbStatus
    KeyFilterEdit* m_statusText;
    QPushButton* m_set;   // cmdStatus
    QPushButton* m_clear; // cmdClear
    QLabel* m_roomState;
    KeyFilterEdit* m_name; // fltName
    QPushButton* m_inUse;  // cmdLocInUse
    StaffTagButtons* m_tags;
    QComboBox* m_tone;       // cmbFavTone
    QCheckBox* m_popup;      // chkFavPopup
    QPushButton* m_play;     // cmdPlayQuick
    QPushButton* m_save;     // cmdSave
    QPushButton* m_favorite; // cmdFavorite
    QPushButton* m_add;
    QLabel* m_favoriteState;
};

} // namespace tessel
