// The options: every setting of this location, on eight pages, with a search box.
#pragma once

#include "windows/FormWindows.h"
#include "windows/options/OptionTable.h"

#include <QDialog>

#include <array>

class QLabel;
class QLineEdit;
class QTabWidget;

namespace tessel {

class OptionPage;
class QuickStatusPage;
class Station;

// A change holds at once; the quick statuses are saved together, by their button or at the close.
class frmOptions : public QDialog, public RequestedWindow {
    Q_OBJECT
public:
    explicit frmOptions(Station& station, QWidget* parent = nullptr);

    // Opens a page, and on it an entry.
    void take(const WindowRequest& request) override;
    void showPage(OptionsPage page);

    // Also the close button's and Escape's way.
    void reject() override;

protected:
    void changeEvent(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    void addPages();
    void addLocation(OptionPage& page);
    void addUpdates(OptionPage& page);
    void addFavorites(OptionPage& page);
    void addPopups(OptionPage& page);
    void addSounds(OptionPage& page);
    void addNetwork(OptionPage& page);
    void addAdvanced(OptionPage& page);
    void applyRestrictions();
    void search(const QString& text);
    bool saveAll();
    OptionPage& page(OptionsPage page) const { return *m_pages[static_cast<std::size_t>(page)]; }

    Station& m_station;
    QLineEdit* m_search;
    QTabWidget* m_tabs; // tbOptions
    QLabel* m_nothing;
    std::array<OptionPage*, kOptionsPages> m_pages{};
    QuickStatusPage* m_quick = nullptr;
};

} // namespace tessel
