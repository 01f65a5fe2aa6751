// The lists of the main window, one a view.
#pragma once

#include "controls/list/ReportView.h"
#include "engine/mainwindow/mod_Shell.h"
#include "records/cReportRecords.h"

#include <QPoint>
#include <QStackedWidget>

#include <functional>
#include <map>

class QIcon;

namespace tessel {

class CommandSet;
class MessageView;
class ReportControl;
class ReportView;
class Station;

class ViewStack : public QStackedWidget {
    Q_OBJECT
public:
    // `icon`: gives the picture of a number.
    ViewStack(Station& station, CommandSet& commands, std::function<QIcon(int)> icon,
              QWidget* parent = nullptr);

    // Shows the list of the current view.
    void showCurrent();
    ReportView& current() const { return list(m_current); }
    ReportView& list(View view) const { return *m_lists.at(view); }
    ReportControl& home() const { return locations(View::Home); }
    // The row of a location that a command starts from; nullptr for none.
    const ReportRecord* currentRow() const;

    // Lists without their headers, where every row counts.
    void setHeadersShown(bool shown);
    // Marks that the current list is narrowed by the state of its rows.
    void setStateFiltered(bool filtered);

    // Whether the current list is about to be searched.
    void prepareSearch(bool prepared);
    void applyFont();
    void applyPreview();
    // Puts the rows of all lists in the order of the settings.
    void Arrange();

signals:
    void menuRequested(const tessel::ReportRecordPtr& record, const QPoint& globalPos);
    void currentRowChanged();
    // The user asks by the header whom the list shall show.
    void stateMenuRequested(QPoint globalPos);

private:
    void Create_EndpointView();
    // Why the first list is empty, if it is.
    void showNetwork();
    void Create_StatusView();
    void Create_FavoritesView();
    void Create_MessageView(CommandSet& commands);
    // With what the lists of locations have in common.
    ReportControl& createList(View view, ReportRecords& records, const EmptyState& empty);
    ReportControl& locations(View view) const;
    void loadBackgrounds();

    Station& m_station;
    std::function<QIcon(int)> m_icon;
    std::map<View, ReportView*> m_lists;
    MessageView* m_messages = nullptr;
    View m_current = View::Home;
    int m_points = 0; // of the letters, as last set by the buttons of the status bar
};

} // namespace tessel
