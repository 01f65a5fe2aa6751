// The window "New Message": a message to locations, favorites, a group or everyone.
#pragma once

#include "controls/look/Images.h"
#include "windows/FormWindows.h"

#include <QDialog>
#include <QTimer>

class QPushButton;
class QTabWidget;

namespace tessel {

class ElidedLabel;
class GroupButtons;
class MessageFields;
class PromptEdit;
class RecipientPicker;
class Station;

class frmGroupMessage : public QDialog, public RequestedWindow {
    Q_OBJECT
public:
    explicit frmGroupMessage(Station& station, QWidget* parent = nullptr);

    // The request's page is the mode; its SID the location to begin with, its text the message's.
    void take(const WindowRequest& request) override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void createPages();
    QWidget* createGroups();
    void createButtons();
    void layOut();
    void connectStation();
    void SetStartMode(int mode, const QString& SID);
    void SetTabView(int tab, bool save);
    void LoadRecipientsAll();
    void LoadFavorites();
    void LoadGroups();
    void SelectActiveUser(const QString& SID);
    QString GetRecipientList(int& count) const;
    void pressGroup(int button);
    void VerifyOnlineList();
    void blink();
    void showRecipients(const QString& recipients);
    void showOffline();
    void showCanSend();
    void CreateMessage();
    // nullptr on the page of groups.
    RecipientPicker* currentPicker() const;
    // The slot of the chosen group, -1 for none.
    int currentGroup() const;

    Station& m_station;
    Images m_images;
    PromptEdit* m_search;         // txtSearch
    QTabWidget* m_tabs;           // TabControl
    RecipientPicker* m_users;     // lstUsers
    RecipientPicker* m_favorites; // lstFavorites
    QPushButton* m_everyone;      // cmdGroup 0
    GroupButtons* m_groups;
    ElidedLabel* m_to;
    MessageFields* m_message;
    QPushButton* m_alert; // cmdAlert
    QPushButton* m_clear; // cmdClear
    QPushButton* m_send;  // cmdSend
    QTimer m_blink;       // tmrOfflineBlink
    QTimer m_changes;
    bool m_blinkOn = false;
    int m_group = -1; // the pressed button
    QStringList m_offline;
};

} // namespace tessel
