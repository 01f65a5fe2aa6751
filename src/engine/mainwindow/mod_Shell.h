// The main window's own state: which view is current, and how the lists look.
#pragma once

#include "engine/ports/cClock.h"

#include <QObject>
#include <QString>

#include <array>

namespace tessel {

class Inbox;
class LocationViews;
class Settings;

// The four views, by the command that opens each.
enum class View { Home = 350, Status = 351, Favorites = 352, Inbox = 353 };

struct ViewRow {
    View view;
    const char* caption;
    const char* prompt; // of the search box
    const char* tip;
    bool stored; // whether the program may open on it
};

inline constexpr std::array kViews{
    ViewRow{View::Home, "Home ", "Search", " All Locations ", true},
    ViewRow{View::Status, "Status ", "Search Status", " View only locations with Status ", true},
    ViewRow{View::Favorites, "Favorites ", "Search Favorites", " My Favorites ", true},
    ViewRow{View::Inbox, "Inbox ", "Search Messages", " New Messages ", false},
};

class Shell : public QObject {
    Q_OBJECT
public:
    static constexpr int kSmallestFont = 8;
    static constexpr int kLargestFont = 20;

    Shell(Settings& settings, LocationViews& views, const Inbox& inbox, Clock& clock);

    // Opens a view by its command; nothing happens for any other number. Leaving a view ends its
    // search.
    void SetTabView(int id);
    View view() const { return m_view; }
    const ViewRow& viewRow() const;
    // The caption of a view's tab, with the number of its list's rows as last counted, if there are any.
    // Empty for a number that is no view.
    QString tabCaption(int id) const;
    // Counts the rows of all views, those that a search hides too. It walks through the Home list.
    void CountLocationsTabs();
    // None has been counted: the lists are about to be filled anew.
    void ClearLocationsTabsCount();
    // The view to open on.
    int storedView() const;

    // Notes as second lines, or not.
    void SetPreviewMode();
    bool previewMode() const;

    // Within 8 to 20 points; at the limits nothing changes.
    void IncreaseReportFont();
    void DecreaseReportFont();
    int reportFont() const;
    QString increaseTip() const;
    QString decreaseTip() const;

    // Sort orders of the lists. Numbers beyond the list's count change nothing.
    void SetSort_EndpointView(int order);
    void SetSort_StatusView(int order);
    void SetSort_FavoriteView(int order);

    // Toggles whether the windows stay on top.
    void toggleOnTop();

    // Whether the status bar offers the doorbell, setting `DBNAV`.
    void setDoorbellOffered(bool offered);

    Timer tmrTime;

signals:
    // The search of the view that is left is over.
    void ClearSearchBox();
    void viewChanged();
    void tabsCounted();
    void previewModeChanged();
    void reportFontChanged();
    void sortChanged();
    void onTopChanged();
    // What the user wants to be offered: the doorbell, staff tags.
    void offersChanged();
    // The date is another one, as after midnight.
    void dayBegan();

private:
    void setReportFont(int points);

    Settings& m_settings;
    LocationViews& m_views;
    const Inbox& m_inbox;
    Clock& m_clock;
    QDate m_day;
    View m_view = View::Home;
    std::array<int, kViews.size()> m_rows{}; // by the order of kViews
};

} // namespace tessel
