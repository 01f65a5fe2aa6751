#include "mainwindow/frmMain.h"

#include "controls/MessageBar.h"
#include "controls/PromptEdit.h"
#include "controls/ReportControl.h"
#include "controls/ScreenPlacement.h"
#include "core/cWindowRegistry.h"
#include "core/mod_Definitions.h"
#include "station.h"

#include <QCloseEvent>
#include <QLabel>
#include <QMenuBar>
#include <QStatusBar>
#include <QTimer>
#include <QVBoxLayout>

namespace tessel {

namespace {
const QString kFormName = QStringLiteral("frmMain");
constexpr QSize kFirstSize(460, 560);
constexpr QSize kLeastSize(280, 240);
constexpr int kGrid = 8;
constexpr int kNoteMs = 15000;
} // namespace

frmMain::frmMain(Station& station, WindowRegistry& registry)
    : m_station(station), m_registry(registry), m_search(new PromptEdit(QStringLiteral("Search"), this)),
      m_home(new ReportControl(this)), m_footer(new QLabel(this)),
      m_alertBar(new MessageBar(MessageBar::Accent::Alert, this)),
      m_statusBar(new MessageBar(MessageBar::Accent::Status, this)) {
    setObjectName(kFormName);
    setWindowTitle(kProductName);
    setMinimumSize(kLeastSize);
    createMenus();
    createHomeList();
    createFooter();
    createBars();
    restorePlace();
    m_station.loadMain();

    auto* const centre = new QWidget(this);
    auto* const layout = new QVBoxLayout(centre);
    layout->setContentsMargins(kGrid, kGrid, kGrid, 0);
    layout->setSpacing(kGrid);
    layout->addWidget(m_statusBar);
    layout->addWidget(m_search);
    layout->addWidget(m_home, 1);
    layout->addWidget(m_alertBar);
    setCentralWidget(centre);
    m_home->setFocus();
}

void frmMain::createMenus() {
    QMenu* const program = menuBar()->addMenu(tr("&Station"));
    QAction* const search = program->addAction(tr("&Search"), QKeySequence::Find, m_search,
                                               [this] { m_search->setFocus(Qt::ShortcutFocusReason); });
    search->setStatusTip(tr("Find locations by name, status or note"));
    program->addSeparator();
    program->addAction(tr("Mi&nimise"), this, &QWidget::showMinimized);
    program->addAction(tr("E&xit"), QKeySequence::Quit, this, [this] { m_station.tmrExit.setEnabled(true); });

    QMenu* const status = menuBar()->addMenu(tr("S&tatus"));
    status->addAction(tr("&My Status…"), QKeySequence(Qt::CTRL | Qt::Key_M), this,
                      [this] { m_station.desktop().showWindow(WindowId::SetStatus); });
    QAction* const quiet =
        status->addAction(tr("&Do Not Disturb"), this, [this] { m_station.status.SetDND(); });
    quiet->setCheckable(true);
    connect(&m_station.status, &LocalStatus::doNotDisturbChanged, quiet,
            [this, quiet] { quiet->setChecked(m_station.own.doNotDisturb); });

    QMenu* const alerts = menuBar()->addMenu(tr("&Alerts"));
    alerts->addAction(tr("&Ring Doorbell…"), QKeySequence(Qt::CTRL | Qt::Key_D), this,
                      [this] { m_station.desktop().showWindow(WindowId::GlobalDoorBell); });
    alerts->addAction(tr("&Notifications"), QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_N), this,
                      [this] { m_station.desktop().showWindow(WindowId::Notifications); });

    QMenu* const network = menuBar()->addMenu(tr("&Network"));
    network->addAction(tr("&Refresh"), QKeySequence::Refresh, this, [this] { m_station.network.Announce(); });
    network->addSeparator();
    network->addAction(tr("&Active Connections…"), QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_A), this,
                       [this] { m_station.desktop().showWindow(WindowId::Endpoints); });
    network->addAction(tr("Network A&dapter…"), this,
                       [this] { m_station.desktop().showWindow(WindowId::Adapters); });
}

void frmMain::createHomeList() {
    const auto column = [](const QString& caption, LocationItem item, int width) {
        ReportColumn made;
        made.caption = caption;
        made.item = static_cast<int>(item);
        made.width = width;
        return made;
    };
    ReportColumn color = column(QString(), LocationItem::Icon, 24);
    color.sortByValue = true;
    ReportColumn name = column(QStringLiteral("Active"), LocationItem::Active, 160);
    ReportColumn status = column(QStringLiteral("Status"), LocationItem::Status, 180);
    status.stretch = true;
    m_home->setColumns({color, name, status});
    m_home->setSortKeys(
        {{static_cast<int>(LocationItem::ST), true, true}, {static_cast<int>(LocationItem::SN)}});
    m_home->setFontSize(m_station.settings.Fonts_EVFS());
    m_home->setPreviewMode(true);
    m_home->setEmptyText(tr("No locations yet.\nThe network comes up a few seconds after the start."));
    m_home->setNoMatchText(tr("No location matches the search"));
    m_home->setAccessibleName(tr("Locations"));
    m_home->setRecords(&m_station.views.rptEndpoints);
    m_search->setAccessibleName(tr("Search locations"));
    connect(m_search, &PromptEdit::searchChanged, m_home, &ReportControl::setFilterText);
    connect(m_search, &PromptEdit::leaveForList, m_home, [this] { m_home->setFocus(); });
}

void frmMain::createFooter() {
    m_footer->setTextFormat(Qt::PlainText);
    m_footer->setAccessibleName(tr("Network state"));
    statusBar()->addWidget(m_footer, 1);
    connect(&m_station.footer, &Footer::changed, this, &frmMain::showFooter);
    showFooter();
}

void frmMain::createBars() {
    m_alertBar->setObjectName(QStringLiteral("AlertBar"));
    m_alertBar->setButton(QStringLiteral("Close"), tr("Close the alert"));
    m_statusBar->setObjectName(QStringLiteral("MyStatusBar"));
    m_statusBar->setButton(QStringLiteral("Turn Off"), QStringLiteral("Turn Off Status Message"));
    connect(m_alertBar, &MessageBar::buttonClicked, &m_station.alertBar, &AlertBar::TurnOff_AlertBar);
    connect(m_statusBar, &MessageBar::buttonClicked, &m_station.status, &LocalStatus::TurnOffStatus);
    connect(&m_station.alertBar, &AlertBar::changed, this, &frmMain::showBars);
    connect(&m_station.status, &LocalStatus::changed, this, &frmMain::showBars);
    showBars();
}

void frmMain::showBars() {
    BarContent alert;
    if (m_station.alertBar.AlertBarShown()) {
        const AlertBar::Content& content = m_station.alertBar.content();
        alert = {m_images.image(content.iconId, palette()), content.title, content.text, content.time,
                 content.name};
    }
    m_alertBar->setContent(alert);
    BarContent own;
    if (!m_station.status.messageBar().isEmpty()) {
        own = {{}, QStringLiteral("My Status:"), m_station.status.messageBar(), {}, {}};
    }
    m_statusBar->setContent(own);
}

void frmMain::showFooter() {
    const Footer& footer = m_station.footer;
    m_footer->setText(footer.text());
    m_footer->setToolTip(footer.tip().toHtmlEscaped());
}

void frmMain::restorePlace() {
    const QSize size = m_registry.GetFormSize(kFormName).value_or(kFirstSize).expandedTo(kLeastSize);
    const QRect place = placedOnScreens(m_registry.GetFormPos(kFormName), size, freeScreenAreas());
    resize(place.size());
    move(place.topLeft());
}

void frmMain::resetPlace() {
    const QRect place = placedOnScreens(std::nullopt, kFirstSize, freeScreenAreas());
    showNormal();
    resize(place.size());
    move(place.topLeft());
    savePlace();
}

void frmMain::showNote(const QString& text) {
    statusBar()->showMessage(text, kNoteMs);
}

bool frmMain::shake(QPoint offset) {
    if (isMinimized() || !isVisible() || isMaximized()) {
        return false;
    }
    const QPoint rest = m_rest.value_or(pos());
    move(rest + offset);
    m_rest = offset.isNull() ? std::nullopt : std::optional(rest);
    return true;
}

void frmMain::savePlace() {
    // What is stored is the place of the window as it is when neither maximised nor minimised.
    const bool usual = (windowState() & (Qt::WindowMaximized | Qt::WindowFullScreen)) == 0;
    const QPoint frame = geometry().topLeft() - pos();
    m_registry.SaveFormPos(kFormName, usual ? pos() : normalGeometry().topLeft() - frame);
    m_registry.SaveFormSize(kFormName, usual ? size() : normalGeometry().size());
}

void frmMain::showEvent(QShowEvent* event) {
    QMainWindow::showEvent(event);
    if (!m_loaded) {
        m_loaded = true;
        // The window is painted before the last step writes to the disk.
        QTimer::singleShot(0, this, [this] { m_station.mainLoaded(); });
    }
}

void frmMain::closeEvent(QCloseEvent* event) {
    const CloseReason reason = m_station.own.exiting ? CloseReason::Code : CloseReason::User;
    if (m_station.closing(reason) == CloseAction::Minimise) {
        showMinimized();
        event->ignore();
        return;
    }
    event->accept();
}

} // namespace tessel
