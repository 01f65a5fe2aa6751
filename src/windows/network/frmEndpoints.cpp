#include "windows/network/frmEndpoints.h"

#include "controls/edit/PromptEdit.h"
#include "controls/list/ReportControl.h"
#include "controls/list/ReportText.h"
#include "engine/core/mod_FileTools.h"
#include "engine/network/mod_Endpoints.h"
#include "engine/ports/cSession.h"
#include "engine/ports/cWindows.h"
#include "engine/station.h"
#include "windows/dialogs/boxes.h"

#include <QCloseEvent>
#include <QFrame>
#include <QHBoxLayout>
#include <QLabel>
#include <QMenuBar>
#include <QPushButton>
#include <QStatusBar>
#include <QVBoxLayout>

namespace tessel {

namespace {

const QString kTitle = QStringLiteral("Active Connections");
constexpr QSize kFirstSize(760, 420);
constexpr int kGrid = 8;
constexpr int kMessageMs = 5000;
constexpr int kCaptionPadding = 30; // of a column's caption, both sides together
// Widths are told for text of this size, in points.
constexpr double kUsualFontSize = 10;

struct Column {
    EndpointItem item;
    const char* caption;
    int width;
};
constexpr Column kColumns[] = {
    {EndpointItem::Active, "Active", 90},   {EndpointItem::Host, "Host", 120},
    {EndpointItem::Version, "Version", 50}, {EndpointItem::Flags, "Flags", 70},
    {EndpointItem::SID, "SID", 200},        {EndpointItem::LastRefresh, "Last Refresh", 120},
};

constexpr const char* kRowLabels[] = {
    "Active: ", "Host: ",   "Version: ",     "Flags: ", "SessionID: ",    "Last Refresh: ",
    "KA: ",     "Status: ", "Status Time: ", "Tag: ",   "Location Note: "};

// A foreign packet can name its location by 256 characters without a blank, or by line feeds: neither
// may make a box that does not fit the screen, or a line that passes for another.
constexpr int kLongestValue = 100;

constexpr char kSIDQuestion[] = "Please confirm SID Deletion.\n"
                                "\n"
                                "Note the Following: \n"
                                " * If this client was added as a Favorite it will be lost. \n"
                                " * All Usage data for this client will no longer be accessible. \n"
                                " * You should only reset the SID if this computer was cloned or another \n"
                                "   client has a duplicate SID.\n"
                                "\n"
                                "\n"
                                "This action cannot be undone.";

} // namespace

frmEndpoints::frmEndpoints(Station& station)
    : m_station(station), m_filter(new PromptEdit(QStringLiteral("Search"), this)),
      m_grid(new ReportControl(this)) {
    setWindowTitle(kTitle);
    m_scale = std::max(1.0, fontInfo().pointSizeF() / kUsualFontSize);
    resize(kFirstSize * m_scale);
    createGrid();
    createMenus();

    auto* const centre = new QWidget(this);
    auto* const layout = new QVBoxLayout(centre);
    layout->setContentsMargins(kGrid, kGrid, kGrid, 0);
    layout->setSpacing(kGrid);
    layout->addWidget(createIdentityNotice());
    layout->addWidget(m_filter);
    layout->addWidget(m_grid, 1);
    setCentralWidget(centre);
    statusBar();
    m_grid->setFocus();
}

QWidget* frmEndpoints::createIdentityNotice() {
    auto* const notice = new QFrame(this);
    notice->setObjectName(QStringLiteral("IdentityNotice"));
    notice->setFrameShape(QFrame::StyledPanel);
    m_identityText = new QLabel(notice);
    m_identityText->setTextFormat(Qt::PlainText);
    m_identityText->setWordWrap(true);
    auto* const reset = new QPushButton(tr("Reset &SID…"), notice);
    reset->setObjectName(QStringLiteral("cmdResetSID"));
    reset->setToolTip(tr("Gives this location an identity of its own; needs a restart"));
    connect(reset, &QPushButton::clicked, this, &frmEndpoints::askSIDReset);
    auto* const layout = new QHBoxLayout(notice);
    layout->addWidget(m_identityText, 1);
    layout->addWidget(reset);
    m_identity = notice;
    connect(&m_station.hearing, &Hearing::duplicateIdentity, this, &frmEndpoints::showIdentityNotice);
    showIdentityNotice();
    return notice;
}

void frmEndpoints::showIdentityNotice() {
    const auto& other = m_station.hearing.duplicate();
    m_identity->setVisible(other.has_value());
    if (other) {
        m_identityText->setText(tr("Another computer uses this location's identity: %1 %2")
                                    .arg(singleLine(other->host, kLongestValue), other->address));
    }
}

void frmEndpoints::createGrid() {
    std::vector<ReportColumn> columns;
    for (const Column& column : kColumns) {
        ReportColumn made;
        made.caption = QLatin1String(column.caption);
        // The list scales widths with its font, so a caption's width is told as for the usual one.
        const int caption = fontMetrics().horizontalAdvance(made.caption) + kCaptionPadding;
        made.width = std::max(column.width, static_cast<int>(caption / m_scale));
        made.item = static_cast<int>(column.item);
        // Names are what is looked for, so they get the room that is left.
        made.stretch = column.item == EndpointItem::Active;
        made.sortByValue = column.item == EndpointItem::LastRefresh;
        columns.push_back(made);
    }
    m_grid->setColumns(std::move(columns));
    m_grid->setFontSize(qRound(fontInfo().pointSizeF()));
    m_grid->setSortableByHeader(true);
    m_grid->setIconProvider([this](int number) { return m_images.image(number, palette()); });
    m_grid->setEmptyState({tr("No connections yet"),
                           tr("They come once the network is up; Reset Network in the menu tries anew."),
                           static_cast<int>(Image::OccupiedLocations)});
    m_grid->setNoMatchState({tr("No connection matches the search"),
                             tr("Escape in the search box shows all again."),
                             static_cast<int>(Image::Search)});
    m_grid->setAccessibleName(kTitle);
    m_grid->setRecords(&m_station.endpoints.records());
    connect(m_grid, &ReportControl::recordActivated, this, &frmEndpoints::showRow);

    m_filter->setObjectName(QStringLiteral("txtFilter"));
    m_filter->setAccessibleName(tr("Search connections"));
    m_filter->setPictures(m_images.image(Image::Search, palette()),
                          m_images.image(Image::MenuClose, palette()));
    connect(m_filter, &PromptEdit::searchChanged, m_grid, &ReportControl::setFilterText);
    connect(m_filter, &PromptEdit::leaveForList, m_grid, [this] { m_grid->setFocus(); });
}

void frmEndpoints::createMenus() {
    const auto add = [this](QMenu* menu, const char* name, const QString& text, const QKeySequence& keys,
                            auto act) {
        QAction* const action = menu->addAction(text, keys, this, act);
        action->setObjectName(QLatin1String(name));
        return action;
    };
    QMenu* const file = menuBar()->addMenu(tr("&File"));
    add(file, "mnuLog", tr("Show &Log"), {}, [this] { openLog(); });
    add(file, "mnuShowDataFiles", tr("Show &Data Files"), {},
        [this] { m_station.session.openPath(m_station.folders.data()); });
    file->addSeparator();
    add(file, "mnuExit", tr("&Close"), QKeySequence::Close, [this] {
        close();
    })->setShortcuts({QKeySequence(QKeySequence::Close), QKeySequence(Qt::Key_Escape)});

    QMenu* const network = menuBar()->addMenu(tr("&Network"));
    add(network, "mnuRefresh", tr("&Refresh"), QKeySequence::Refresh, [this] { refreshCaption(); });
    add(network, "mnuAnnounce", tr("&Announce"), {}, [this] {
        if (m_station.network.CanSend()) {
            m_station.network.Announce();
        }
    });
    add(network, "mnuRebuildUsers", tr("Re&build List"), {},
        [this] { m_station.endpoints.RefreshAllEndpoints(); });
    add(network, "mnuLFD_Connections", tr("Look for &Lost Connections"), {},
        [this] { m_station.endpoints.Process_KeepAlive_Times(); });
    network->addSeparator();
    add(network, "mnuReset", tr("Re&set Network"), {}, [this] { m_station.network.RestartNetwork(); });
    QAction* const adapter = add(network, "mnuNetworkSettings", tr("&Network Adapter…"), {},
                                 [this] { m_station.windows.show({WindowId::Adapters}); });
    if (Admin::restricted(m_station.admin.NetworkSettings)) {
        adapter->setEnabled(false);
        adapter->setToolTip(kLockedByAdmin);
        network->setToolTipsVisible(true);
    }

    QMenu* const tools = menuBar()->addMenu(tr("&Tools"));
    add(tools, "mnuInformation", tr("&Information…"), {},
        [this] { m_station.windows.show({WindowId::NetworkInfo}); });
    QAction* const test = add(tools, "mnuMessageTest", tr("Message &Test…"), {},
                              [this] { m_station.windows.show({WindowId::MessageTest}); });
    const auto offerTest = [this, test] { test->setVisible(m_station.settings.Settings_TestMode()); };
    connect(tools, &QMenu::aboutToShow, this, offerTest);
    offerTest();
    tools->addSeparator();
    add(tools, "mnuSID", tr("Reset &SID…"), {}, [this] { askSIDReset(); });
}

void frmEndpoints::refreshCaption() {
    m_station.endpoints.records().redrawAll();
    setWindowTitle(kTitle + QStringLiteral(" (%1)").arg(m_station.endpoints.records().count()));
}

void frmEndpoints::showRow(const ReportRecordPtr& record) {
    QStringList lines;
    for (int index = 0; index < static_cast<int>(std::size(kRowLabels)); ++index) {
        lines += QLatin1String(kRowLabels[index]) + singleLine(record->item(index).text, kLongestValue);
    }
    openBox(this, QMessageBox::NoIcon, kProductName, lines.join(u'\n'));
}

void frmEndpoints::askSIDReset() {
    openQuestion(this, QMessageBox::Warning, QStringLiteral("Delete SessionID"), QLatin1String(kSIDQuestion),
                 this, [this] {
                     // Until then the station keeps the identity under which the others know it.
                     openRestartBox(this);
                     m_station.identity.ResetSID();
                     m_station.network.RestartNetwork();
                 });
}

void frmEndpoints::openLog() {
    const QString path = m_station.folders.dataFile(kErrorFile);
    if (!FileExists(path)) {
        statusBar()->showMessage(tr("The log is empty"), kMessageMs);
    } else if (!m_station.session.openPath(path)) {
        statusBar()->showMessage(tr("No program shows %1").arg(path), kMessageMs);
    }
}

void frmEndpoints::closeEvent(QCloseEvent* event) {
    // Only hidden: the next look finds search, sort and selection as they were.
    event->accept();
}

} // namespace tessel
