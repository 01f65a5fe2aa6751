// The window "Occupied Locations", and the large board that it becomes on a wall.
#pragma once

#include "controls/look/Images.h"
#include "controls/print/PrintDocument.h"

#include <QMainWindow>

class QAction;
class QLabel;
class QToolBar;

namespace tessel {

class LocationActions;
class LocationViews;
class PromptEdit;
class ReportControl;
class RoomStatus;
class Settings;

class frmRoomStatus : public QMainWindow {
    Q_OBJECT
public:
    frmRoomStatus(RoomStatus& rooms, LocationActions& actions, const LocationViews& views,
                  const Settings& settings);
    ~frmRoomStatus() override;

    // Full screen, no bars, letters that a corridor can read; off: back to the window as it was.
    void setLarge(bool large);
    bool isLarge() const { return m_large; }
    PrintDocument printed() const;

protected:
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void Create_StatusView();
    void CreateStatusbar();
    void showLook(); // of the window or the large board
    void showEmptyState();
    void showColumns();
    void sizeLetters();

    RoomStatus& m_rooms;
    LocationActions& m_actions;
    const LocationViews& m_views;
    const Settings& m_settings;
    Images m_images;
    PromptEdit* m_search;   // txtSearch
    ReportControl* m_board; // rptStatus
    QToolBar* m_bar;
    QLabel* m_title; // of the large board
    QAction* m_notes = nullptr;
    bool m_large = false;
    bool m_wasMaximised = false;
    QRect m_usual; // of the window
};

} // namespace tessel
