#include "windows/operations/frmMicroMetrics.h"

#include "controls/bars/CommandBar.h"
#include "controls/bars/CommandBars.h"
#include "controls/chart/BarChart.h"
#include "controls/chart/ChartPalette.h"
#include "controls/chart/PieChart.h"
#include "engine/core/mod_FileTools.h"
#include "engine/station.h"
#include "windows/dialogs/boxes.h"

#include <QBuffer>
#include <QClipboard>
#include <QComboBox>
#include <QFileDialog>
#include <QGridLayout>
#include <QGuiApplication>
#include <QLabel>
#include <QMenu>
#include <QPixmap>
#include <QScreen>
#include <QShortcut>
#include <QStatusBar>

#include <algorithm>

namespace tessel {

namespace {

using Id = MetricsCommand;

constexpr int kGrid = 8;
constexpr int kMessageMs = 8000;
constexpr int kLetters = 120; // of the window's first width
constexpr int kLines = 34;    // of its height
constexpr int kDateLetters = 26;
constexpr int kShownDates = 20;
constexpr double kMostOfScreen = 0.9;

const QString kAlertsChart = QStringLiteral("801");
const QString kNetworkChart = QStringLiteral("802");

CommandItem item(Id id, const char* caption, const QString& tip, bool checkable = false) {
    return {static_cast<int>(id), QString::fromLatin1(caption), tip, -1, checkable};
}

int theme(std::size_t index) {
    return static_cast<int>(Id::FirstTheme) + static_cast<int>(index);
}

std::vector<CommandItem> commandItems() {
    std::vector<CommandItem> items{
        item(Id::Charts, " Charts ", frmMicroMetrics::tr("What to show")),
        item(Id::Alerts, "Alerts and Messages", frmMicroMetrics::tr("How this location was used on a day"),
             true),
        item(Id::Network, "Network Usage", frmMicroMetrics::tr("What this location sent and received"), true),
        item(Id::Refresh, "  Refresh  ", frmMicroMetrics::tr("Show the traffic up to now (F5)")),
        item(Id::ResetNetwork, "  Reset Network Statistics  ",
             frmMicroMetrics::tr("Count anew from today on")),
        item(Id::Theme, " Theme ", frmMicroMetrics::tr("Colors of the charts")),
        item(Id::Save, " Save ", frmMicroMetrics::tr("Keep the numbers or a picture of the charts")),
        item(Id::SaveCsv, "Save as CSV...", frmMicroMetrics::tr("The numbers, for a spreadsheet (Ctrl+S)")),
        item(Id::SavePicture, "Save as picture...", frmMicroMetrics::tr("The charts as they are shown")),
        item(Id::Copy, "Copy the numbers", frmMicroMetrics::tr("The tables of all charts (Ctrl+Shift+C)")),
        item(Id::Close, "  Close  ", frmMicroMetrics::tr("Close this window (Esc)"))};
    for (std::size_t i = 0; i < kChartPalettes.size(); ++i) {
        items.push_back({theme(i), QString::fromLatin1(kChartPalettes[i]), {}, -1, true});
    }
    return items;
}

} // namespace

frmMicroMetrics::frmMicroMetrics(Station& station, QWidget* parent)
    : QMainWindow(parent), m_station(station), m_commands(new CommandSet(commandItems(), this)),
      m_dateLabel(new QLabel(QStringLiteral(" Date "), this)), m_dates(new QComboBox(this)),
      m_charts(new QWidget(this)), m_pie(new PieChart(m_charts)),
      m_days(new BarChart(BarChart::Marks::FromLast, tr("not kept"), m_charts)),
      m_hours(new BarChart(BarChart::Marks::FromFirst, tr("not kept"), m_charts)),
      m_remark(new QLabel(this)) {
    setWindowTitle(kProductName + QStringLiteral(" Usage"));
    createCharts();
    CreateMenubar();
    createKeys();
    statusBar()->addPermanentWidget(m_remark);
    const QSize wanted(kLetters * fontMetrics().averageCharWidth(), kLines * fontMetrics().lineSpacing());
    resize(wanted.boundedTo(screen()->availableSize() * kMostOfScreen));
    connect(&m_station.shell, &Shell::dayBegan, this, [this] {
        // Who looks at today goes on doing so.
        if (!m_network && m_station.metrics.date() == m_station.metrics.today().addDays(-1)) {
            LoadMetrics(m_station.own.SID, m_station.metrics.today(), true);
        }
    });
    m_pie->setFocus();
}

void frmMicroMetrics::createCharts() {
    m_pie->setObjectName(QStringLiteral("ChartControl"));
    m_days->setObjectName(QStringLiteral("ChartDays"));
    m_hours->setObjectName(QStringLiteral("ChartHours"));
    auto* const layout = new QGridLayout(m_charts);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(kGrid);
    layout->addWidget(m_pie, 0, 0, 2, 1);
    layout->addWidget(m_days, 0, 1);
    layout->addWidget(m_hours, 1, 1);
    layout->setColumnStretch(0, 1);
    layout->setColumnStretch(1, 1);
    connect(m_days, &ChartView::pointChosen, this, [this](int point) {
        const QDate day = m_station.metrics.dayAt(point);
        if (m_station.metrics.kept(day) && day != m_station.metrics.date()) {
            LoadMetrics(m_station.own.SID, day, true);
        }
    });
}

// What stands where a chart has nothing to show.
void frmMicroMetrics::AddTitles() {
    const Metrics& metrics = m_station.metrics;
    m_pie->setEmptyText(m_network                      ? tr("Nothing was sent or received")
                        : metrics.kept(metrics.date()) ? tr("Nothing on this day")
                                                       : tr("This day was not kept"));
    m_hours->setEmptyText(tr("Nothing on this day"));
    m_remark->setText(m_network ? QString() : metrics.remark());
}

void frmMicroMetrics::CreateMenubar() {
    const auto subMenu = [this](Id id, const std::vector<int>& commands) {
        auto* const menu = new QMenu(this);
        menu->addActions(m_commands->actions(commands, menu));
        m_commands->setMenu(static_cast<int>(id), menu);
    };
    std::vector<int> themes;
    for (std::size_t i = 0; i < kChartPalettes.size(); ++i) {
        themes.push_back(theme(i));
    }
    subMenu(Id::Charts, {static_cast<int>(Id::Alerts), static_cast<int>(Id::Network)});
    subMenu(Id::Theme, themes);
    subMenu(Id::Save, {static_cast<int>(Id::SaveCsv), static_cast<int>(Id::SavePicture), kSeparator,
                       static_cast<int>(Id::Copy)});
    auto* const bar = new CommandBar(*m_commands,
                                     {static_cast<int>(Id::Charts), static_cast<int>(Id::Refresh),
                                      static_cast<int>(Id::ResetNetwork), static_cast<int>(Id::Theme),
                                      static_cast<int>(Id::Save), static_cast<int>(Id::Close)},
                                     tr("Usage"), this);
    bar->setObjectName(QStringLiteral("CommandBarsMetrics"));
    connect(m_commands, &CommandSet::triggered, this, [this](int id) { execute(static_cast<Id>(id)); });

    m_dates->setObjectName(QStringLiteral("lstDates"));
    m_dates->setAccessibleName(QStringLiteral("Choose a Date"));
    m_dates->setToolTip(QStringLiteral("Choose a Date"));
    m_dates->setPlaceholderText(QStringLiteral("Choose a Date"));
    m_dates->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    m_dates->setMinimumContentsLength(kDateLetters);
    m_dates->setMaxVisibleItems(kShownDates);
    connect(m_dates, &QComboBox::activated, this, &frmMicroMetrics::LoadNewChart);
    m_dateLabel->setBuddy(m_dates);

    auto* const centre = new QWidget(this);
    auto* const top = new QHBoxLayout;
    top->setSpacing(kGrid);
    top->addWidget(bar, 1);
    top->addWidget(m_dateLabel);
    top->addWidget(m_dates);
    auto* const layout = new QVBoxLayout(centre);
    layout->setContentsMargins(kGrid, kGrid, kGrid, kGrid);
    layout->setSpacing(kGrid);
    layout->addLayout(top);
    layout->addWidget(m_charts, 1);
    setCentralWidget(centre);
    m_remark->setTextFormat(Qt::PlainText);
}

void frmMicroMetrics::createKeys() {
    const auto key = [this](const QKeySequence& keys, auto act) {
        auto* const shortcut = new QShortcut(keys, this);
        shortcut->setAutoRepeat(false); // to count anew is work
        connect(shortcut, &QShortcut::activated, this, act);
    };
    key(QKeySequence::Refresh, [this] {
        if (m_network) {
            LoadChartNetwork();
        } else {
            LoadMetrics(m_station.own.SID, m_station.metrics.date(), true);
        }
    });
    key(QKeySequence::Save, [this] { execute(Id::SaveCsv); });
    key(QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_C), [this] { execute(Id::Copy); });
    key(QKeySequence(Qt::Key_Escape), [this] { close(); });
    key(QKeySequence::Close, [this] { close(); });
}

void frmMicroMetrics::take(const WindowRequest&) {
    showPalette(m_station.settings.Metrics_PAL());
    LoadMetrics(m_station.own.SID, m_station.metrics.today(), false);
    if (m_station.settings.Metrics_CHART() == kNetworkChart) {
        LoadChartNetwork();
    } else {
        LoadChart();
    }
}

void frmMicroMetrics::execute(MetricsCommand command) {
    switch (command) {
    case Id::Alerts:
        m_station.settings.Metrics_CHART.set(kAlertsChart);
        LoadMetrics(m_station.own.SID, m_station.metrics.today(), true);
        break;
    case Id::Network:
        m_station.settings.Metrics_CHART.set(kNetworkChart);
        LoadChartNetwork();
        break;
    case Id::Refresh:
        LoadChartNetwork();
        break;
    case Id::ResetNetwork:
        ResetNetworkMetrics();
        break;
    case Id::SaveCsv:
        saveCsv(askPath(tr("Save as CSV"), QStringLiteral(".csv"), tr("Comma-separated values (*.csv)")));
        break;
    case Id::SavePicture:
        savePicture(askPath(tr("Save as picture"), QStringLiteral(".png"), tr("Pictures (*.png)")));
        break;
    case Id::Copy:
        QGuiApplication::clipboard()->setText(copyText());
        statusBar()->showMessage(tr("Copied to the clipboard"), kMessageMs);
        break;
    case Id::Close:
        close();
        break;
    default:
        for (std::size_t i = 0; i < kChartPalettes.size(); ++i) {
            if (static_cast<int>(command) == theme(i)) {
                m_station.settings.Metrics_PAL.set(QString::fromLatin1(kChartPalettes[i]));
                showPalette(m_station.settings.Metrics_PAL());
            }
        }
        break;
    }
    refreshChecks();
}

void frmMicroMetrics::showPalette(const QString& name) {
    for (ChartView* const chart : {static_cast<ChartView*>(m_pie), static_cast<ChartView*>(m_days),
                                   static_cast<ChartView*>(m_hours)}) {
        chart->setChartPalette(name);
    }
    refreshChecks();
}

void frmMicroMetrics::refreshChecks() {
    const bool network = m_station.settings.Metrics_CHART() == kNetworkChart;
    m_commands->setChecked(static_cast<int>(Id::Alerts), !network);
    m_commands->setChecked(static_cast<int>(Id::Network), network);
    const QString palette = chartPaletteNamed(m_station.settings.Metrics_PAL());
    for (std::size_t i = 0; i < kChartPalettes.size(); ++i) {
        m_commands->setChecked(theme(i), palette == QLatin1String(kChartPalettes[i]));
    }
}

void frmMicroMetrics::LoadMetrics(const QString& SID, QDate date, bool loadDateList) {
    m_station.metrics.LoadMetrics(SID, date);
    fillDates();
    if (loadDateList) {
        LoadChart();
    }
}

void frmMicroMetrics::fillDates() {
    const std::vector<Metrics::Day>& days = m_station.metrics.lstDates();
    m_dates->clear();
    int current = -1;
    for (const Metrics::Day& day : days) {
        current = day.date == m_station.metrics.date() ? m_dates->count() : current;
        m_dates->addItem(day.longText);
    }
    m_dates->setCurrentIndex(current);
    m_dates->setEnabled(!days.empty());
}

void frmMicroMetrics::LoadNewChart(int row) {
    const std::vector<Metrics::Day>& days = m_station.metrics.lstDates();
    if (row >= 0 && row < static_cast<int>(days.size())) {
        const QDate date = days[static_cast<std::size_t>(row)].date;
        LoadMetrics(m_station.own.SID, date, true);
    }
}

void frmMicroMetrics::LoadChart() {
    const Metrics& metrics = m_station.metrics;
    m_pie->setSeries(metrics.AddSeriesAlerts());
    m_days->setSeries(metrics.AddSeriesDays());
    m_hours->setSeries(metrics.AddSeriesHours());
    showNetwork(false);
}

void frmMicroMetrics::LoadChartNetwork() {
    m_pie->setSeries(m_station.usage.AddSeriesNetwork());
    showNetwork(true);
}

// Each chart has commands of its own.
void frmMicroMetrics::showNetwork(bool network) {
    m_network = network;
    static_cast<QGridLayout*>(m_charts->layout())->setColumnStretch(1, network ? 0 : 1);
    m_days->setVisible(!network);
    m_hours->setVisible(!network);
    m_dateLabel->setVisible(!network);
    m_dates->setVisible(!network);
    m_commands->setVisible(static_cast<int>(Id::Refresh), network);
    m_commands->setVisible(static_cast<int>(Id::ResetNetwork), network);
    AddTitles();
    refreshChecks();
}

void frmMicroMetrics::ResetNetworkMetrics() {
    openQuestion(this, QMessageBox::Question, QStringLiteral("Reset Network Usage"),
                 QStringLiteral("This will reset all Tessel Network usage numbers. \n"
                                "  \n"
                                "Are you sure you want to continue?  "),
                 this, [this] {
                     m_station.usage.SaveNetworkUsage(true);
                     LoadChartNetwork();
                 });
}

QString frmMicroMetrics::askPath(const QString& title, const QString& suffix, const QString& filter) {
    const QString day =
        (m_network ? m_station.metrics.today() : m_station.metrics.date()).toString(Qt::ISODate);
    const QString first = m_station.folders.documents() + tr("Usage %1").arg(day) + suffix;
    const QString path = QFileDialog::getSaveFileName(this, title, first, filter);
    return path.isEmpty() || path.endsWith(suffix, Qt::CaseInsensitive) ? path : path + suffix;
}

void frmMicroMetrics::saveCsv(const QString& path) {
    if (!path.isEmpty()) {
        tellSaved(path, replaceFile(path, m_network ? m_station.usage.csv() : m_station.metrics.csv()));
    }
}

void frmMicroMetrics::savePicture(const QString& path) {
    if (path.isEmpty()) {
        return;
    }
    // The one point that has the keyboard at the moment means nothing to who sees the picture.
    QWidget* const focus = m_charts->focusWidget();
    if (focus != nullptr) {
        focus->clearFocus();
    }
    QByteArray bytes;
    QBuffer buffer(&bytes);
    const bool made = m_charts->grab().save(&buffer, "PNG");
    if (focus != nullptr) {
        focus->setFocus();
    }
    tellSaved(path, made && replaceFile(path, bytes));
}

void frmMicroMetrics::tellSaved(const QString& path, bool saved) {
    statusBar()->showMessage(saved ? tr("Saved as %1").arg(path) : tr("%1 could not be written").arg(path),
                             kMessageMs);
}

QString frmMicroMetrics::copyText() const {
    if (m_network) {
        return m_pie->copyText();
    }
    return QStringList{m_pie->copyText(), m_days->copyText(), m_hours->copyText()}.join(u'\n');
}

} // namespace tessel
