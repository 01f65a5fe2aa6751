// The main window.
#pragma once

#include <QMainWindow>

class QLabel;

namespace tessel {

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

    ReportControl* homeList() const { return m_home; }

protected:
    void closeEvent(QCloseEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    void createMenus();
    void createHomeList();
    void createFooter();
    void restorePlace();
    void showFooter();

    Station& m_station;
    WindowRegistry& m_registry;
    PromptEdit* m_search;
    ReportControl* m_home;
    QLabel* m_footer;
    bool m_loaded = false;
};

} // namespace tessel
