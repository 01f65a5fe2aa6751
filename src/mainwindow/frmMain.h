// The main window.
#pragma once

#include "controls/Images.h"

#include <QMainWindow>

#include <optional>

class QLabel;

namespace tessel {

class MessageBar;
class PromptEdit;
class ReportControl;
class Station;
class WindowRegistry;

class frmMain : public QMainWindow {
    Q_OBJECT
public:
    frmMain(Station& station, WindowRegistry& registry);

    // Stores position and size.
    void savePlace();

    // Puts the window back to its first place and size, and stores them.
    void resetPlace();
    // Shows a short note for a while.
    void showNote(const QString& text);
    // Moves the window by so many pixels from where it rests; none puts it back. False while it is
    // minimised.
    bool shake(QPoint offset);

    ReportControl* homeList() const { return m_home; }

protected:
    void closeEvent(QCloseEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    void createMenus();
    void createHomeList();
    void createFooter();
    void restorePlace();
    void createBars();
    void showFooter();
    void showBars();

    Station& m_station;
    WindowRegistry& m_registry;
    Images m_images;
    PromptEdit* m_search;
    ReportControl* m_home;
    QLabel* m_footer;
    MessageBar* m_alertBar;
    MessageBar* m_statusBar;      // "My Status:"
    std::optional<QPoint> m_rest; // place during a shake
    bool m_loaded = false;
};

} // namespace tessel
