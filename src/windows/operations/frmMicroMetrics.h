// The window "Usage": how this location was used on a day, and what its network traffic came to.
#pragma once

#include "windows/FormWindows.h"

#include <QDate>
#include <QMainWindow>

class QComboBox;
class QLabel;

namespace tessel {

class BarChart;
class CommandSet;
class PieChart;
class Station;

// Its commands.
enum class MetricsCommand : int {
    Close = 100,
    Date = 101,
    ChooseDate = 102,
    ResetNetwork = 103,
    Refresh = 104,
    Theme = 200,
    FirstTheme = 210,
    Save = 300,
    SaveCsv = 301,
    SavePicture = 302,
    Copy = 303,
    Charts = 800,
    Alerts = 801,
    Network = 802
};

class frmMicroMetrics : public QMainWindow, public RequestedWindow {
    Q_OBJECT
public:
    explicit frmMicroMetrics(Station& station, QWidget* parent = nullptr);

    // Loads today and shows the chart that was shown last.
    void take(const WindowRequest& request) override;

    void execute(MetricsCommand command);
    // Write what is shown to a file, and say in the foot how it went.
    void saveCsv(const QString& path);
    void savePicture(const QString& path);

private:
    void CreateMenubar();
    void createCharts();
    void AddTitles();
    void createKeys();
    void LoadMetrics(const QString& SID, QDate date, bool loadDateList);
    void LoadChart();
    void LoadChartNetwork();
    void LoadNewChart(int row);
    void ResetNetworkMetrics();
    void showNetwork(bool network);
    void fillDates();
    void showPalette(const QString& name);
    void refreshChecks();
    QString askPath(const QString& title, const QString& suffix, const QString& filter);
    void tellSaved(const QString& path, bool saved);
    QString copyText() const;

    Station& m_station;
    CommandSet* m_commands; // CommandBarsMetrics
    QLabel* m_dateLabel;
    QComboBox* m_dates; // lstDates
    QWidget* m_charts;
    PieChart* m_pie;
    BarChart* m_days;
    BarChart* m_hours;
    QLabel* m_remark;
    bool m_network = false; // which chart is up
};

} // namespace tessel
