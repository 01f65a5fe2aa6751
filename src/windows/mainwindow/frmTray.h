// The icon in the tray: what this location is doing at a glance, and the way back to its window.
#pragma once

#include <QMenu>
#include <QObject>
#include <QSystemTrayIcon>

#include <functional>

namespace tessel {

class Station;

class Tray : public QObject {
    Q_OBJECT
public:
    Tray(Station& station, std::function<QIcon(int)> icon, QObject* parent = nullptr);

    // Whether the desktop really shows the icon, so that a window can be hidden behind it.
    bool isThere() const;
    // What the icon tells who points at it.
    QString tip() const { return m_tray.toolTip(); }
    // A note beside the icon. False where there is no icon.
    bool Set_TrayPopup(const QString& title, const QString& text);

signals:
    void showRequested();  // mnuTrayRight_Show
    void resetRequested(); // mnuTrayRight_Reset
    void exitRequested();  // mnuTrayRight_Exit
    // The icon was clicked.
    void clicked();

private:
    void SetIcon();
    void askForMarkUp();

    Station& m_station;
    std::function<QIcon(int)> m_icon;
    QMenu m_menu; // mnuTray_Right
    QSystemTrayIcon m_tray;
    int m_shown = -1;
    bool m_marked = false;
    bool m_markUpRead = true; // by whoever shows the notes; until it has answered, to be safe
};

} // namespace tessel
