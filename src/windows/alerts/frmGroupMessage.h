// The window "New Message": a message to locations, favorites, a group or everyone.
#pragma once

#include "windows/FormWindows.h"

#include <QDialog>
#include <QTimer>

#include <vector>

class QComboBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QPushButton;
class QTabWidget;

namespace tessel {

class MessageEdit;
class Station;

class frmGroupMessage : public QDialog, public RequestedWindow {
    Q_OBJECT
public:
    explicit frmGroupMessage(Station& station, QWidget* parent = nullptr);

    // The request's page is the mode; its SID the location to begin with.
    void take(const WindowRequest& request) override;

private:
    QWidget* createListPage(QListWidget* list, QPushButton* clear, const char* name);
    QWidget* createGroups();
    void createText();
    void SetStartMode(int mode, const QString& SID);
    void SetTabView(int tab, bool save);
    void LoadRecipientsAll();
    void LoadFavorites();
    void LoadGroups();
    void SelectActiveUser(const QString& SID);
    QString GetRecipientList(int& count) const;
    void pressGroup(int index);
    void editGroup(int slot);
    void VerifyOnlineList();
    void showSelection(QListWidget& list, QPushButton& clear);
    void search(const QString& text);
    void showOffline();
    void showCanSend();
    void CreateMessage();
    QListWidget* currentList() const;

    Station& m_station;
    QTabWidget* m_tabs;       // TabControl
    QLineEdit* m_search;      // txtSearch
    QListWidget* m_users;     // lstUsers
    QListWidget* m_favorites; // lstFavorites
    QPushButton* m_clearUsers;
    QPushButton* m_clearFavorites;
    std::vector<QPushButton*> m_groups; // cmdGroup; 0 is everyone
    MessageEdit* m_text;
    QComboBox* m_snippets; // cmbSnippit
    QPushButton* m_alert;  // cmdAlert
    QPushButton* m_send;
    QLabel* m_note;
    QTimer m_blink; // tmrOfflineBlink
    bool m_blinkOn = false;
    int m_group = -1; // the pressed button
    QStringList m_offline;
};

} // namespace tessel
