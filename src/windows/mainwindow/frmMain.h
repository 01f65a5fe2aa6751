// The main window: ribbon, views, bars and menus around the lists of locations.
#pragma once

#include "controls/look/Images.h"
#include "records/cReportRecords.h"

#include <QMainWindow>
#include <QTimer>

#include <memory>
#include <optional>

class QToolButton;

namespace tessel {

class CommandBar;
class CommandMenu;
class CommandSet;
class MessageBar;
class PaneBar;
class PromptEdit;
class ReportControl;
class Ribbon;
class Station;
class Tray;
class ViewStack;
class WindowRegistry;

class frmMain : public QMainWindow {
    Q_OBJECT
public:
    frmMain(Station& station, WindowRegistry& registry);
    ~frmMain() override;

    // Stores position and size.
    void SaveFormPosition();
    // Puts the window back to its first place and size, and stores them.
    void resetPlace();
    // Shows a short note, by the tray where there is one.
    void showNote(const QString& title, const QString& text);
    // Moves the window by so many pixels from where it rests; none puts it back. False while it is
    // minimised.
    bool shake(QPoint offset);
    // Out of the way: behind the tray's icon where there is one, else minimised.
    void putAway();

    ViewStack* stack() const { return m_stack; }
    CommandSet* commands() const { return m_commands; }

protected:
    void closeEvent(QCloseEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void changeEvent(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void createCommands();
    void createMenus();
    void createBars();
    void createSearch();
    void createShortcuts();
    void layOut();
    void createTray();
    void connectStation();

    void execute(int number);
    // `touched`: bits of `Touches`.
    void refreshCommands(unsigned touched);
    template <typename Sender, typename Signal>
    void refreshOn(const Sender& sender, Signal signal, unsigned touched);
    void showView();
    void showFooter();
    void showAlertBar();
    // "My Status:", or nothing while there is none.
    void CreateMessagebar();
    void search(const QString& text);
    // The colour of a search box that searches for nothing.
    void ResetSearchFilter();
    // Asks whom the list shall show: those who are free, occupied or not to be disturbed.
    void showStateMenu(QPoint globalPos);
    // Gives the room that there is to the list first: bars fold as the window gets lower.
    void foldByHeight();
    void setSearchPictures();
    // Do not disturb is easily forgotten, and then nobody is heard: its mark stays in the footer.
    void createQuietMark();
    void showQuietMark();
    // Escape in a list: the alert bar goes, or else the search.
    void leaveList();
    void showRowMenu(const ReportRecordPtr& record, const QPoint& globalPos);
    void Set_onTop();
    void LoadFormPosition();

    Station& m_station;
    WindowRegistry& m_registry;
    Images m_images;
    CommandSet* m_commands = nullptr;
    Ribbon* m_ribbon = nullptr;
    CommandBar* m_quickBar = nullptr;
    PaneBar* m_panes = nullptr;
    ViewStack* m_stack = nullptr;
    PromptEdit* m_search = nullptr;
    MessageBar* m_alertBar = nullptr;
    MessageBar* m_ownBar = nullptr; // "My Status:"
    QToolButton* m_quietMark = nullptr;
    QLayout* m_middle = nullptr;
    std::unique_ptr<Tray> m_tray;
    std::optional<QPoint> m_rest; // place during a shake
    std::optional<QPoint> m_lent; // where it stands while its own screen is missing
    QTimer m_counts;
    bool m_loaded = false;
};

} // namespace tessel
