#include "windows/presence/frmRoomStatus.h"

#include "controls/edit/PromptEdit.h"
#include "controls/list/ReportControl.h"
#include "controls/list/ReportHeader.h"
#include "engine/core/mod_Settings.h"
#include "engine/presence/mod_LocationActions.h"
#include "engine/presence/mod_LocationViews.h"
#include "engine/presence/mod_RoomStatus.h"
#include "windows/dialogs/frmPreview.h"

#include <QKeyEvent>
#include <QLabel>
#include <QScreen>
#include <QShortcut>
#include <QToolBar>
#include <QVBoxLayout>

#include <algorithm>

namespace tessel {

namespace {

constexpr QSize kFirstSize(600, 420);
constexpr int kGrid = 8;
constexpr int kLeastLarge = 16;
constexpr int kLargeRows = 14;    // that a screen has room for, title among them
constexpr double kUsualFont = 10; // points, for which widths are told
constexpr int kIconWidth = 24;
constexpr int kLeastName = 120;
constexpr int kNameWidth = 240;
constexpr int kPatientWidth = 140;
constexpr int kStaffWidth = 60;
constexpr int kTimeWidth = 125;

ReportColumn column(const char* caption, RoomItem item, int width) {
    ReportColumn made;
    made.caption = QLatin1String(caption);
    made.item = static_cast<int>(item);
    made.width = width;
    return made;
}

} // namespace

frmRoomStatus::frmRoomStatus(RoomStatus& rooms, LocationActions& actions, const LocationViews& views,
                             const Settings& settings)
    : m_rooms(rooms), m_actions(actions), m_views(views), m_settings(settings),
      m_search(new PromptEdit(QStringLiteral("Filter"), this)), m_board(new ReportControl(this)),
      m_bar(new QToolBar(QStringLiteral("Main"), this)), m_title(new QLabel(this)) {
    setWindowTitle(QStringLiteral("Occupied Locations"));
    Create_StatusView();
    CreateStatusbar();
    // In larger letters it needs more room, and its bar must show whole.
    const double scale =
        std::max({1.0, fontInfo().pointSizeF() / kUsualFont, m_board->fontSize() / kUsualFont});
    resize((QSizeF(kFirstSize) * scale).toSize().expandedTo(m_bar->sizeHint() + QSize(kGrid, 0)));

    m_search->setObjectName(QStringLiteral("txtSearch"));
    m_search->setAccessibleName(tr("Filter rooms"));
    m_search->setPictures(m_images.image(Image::Search, palette()),
                          m_images.image(Image::MenuClose, palette()));
    m_title->setText(windowTitle());
    m_title->setVisible(false);
    auto* const centre = new QWidget(this);
    auto* const layout = new QVBoxLayout(centre);
    layout->setContentsMargins(kGrid, kGrid, kGrid, kGrid);
    layout->setSpacing(kGrid);
    layout->addWidget(m_title);
    layout->addWidget(m_search);
    layout->addWidget(m_board, 1);
    setCentralWidget(centre);

    connect(m_search, &PromptEdit::searchChanged, m_board, &ReportControl::setFilterText);
    connect(m_search, &PromptEdit::leaveForList, this, [this] { m_board->setFocus(); });
    connect(&m_rooms, &RoomStatus::loaded, m_search, &PromptEdit::clearSearch);
    connect(&m_rooms, &RoomStatus::previewModeChanged, this, [this] {
        m_notes->setChecked(m_rooms.previewMode());
        m_board->setPreviewMode(m_rooms.previewMode());
    });
    connect(&m_rooms, &RoomStatus::knownChanged, this, &frmRoomStatus::showEmptyState);
    connect(m_board, &ReportControl::recordActivated, this, [this](const ReportRecordPtr& row) {
        if (const auto* const home = m_views.rptEndpoints.find(item(*row, RoomItem::SID).text)) {
            m_actions.LaunchActionsWindow(*home);
        }
    });
    m_board->setFocus();
}

frmRoomStatus::~frmRoomStatus() {
    m_rooms.setMode(RoomStatus::Mode::Closed);
}

void frmRoomStatus::Create_StatusView() {
    m_board->setObjectName(QStringLiteral("rptStatus"));
    m_board->setAccessibleName(windowTitle());
    m_board->setIconProvider([this](int number) { return m_images.image(number, palette()); });
    showEmptyState();
    m_board->setNoMatchState({tr("No room matches the filter"), tr("Escape in the filter shows all again."),
                              static_cast<int>(Image::Search)});
    m_board->setSortKeys({{static_cast<int>(RoomItem::SORT), false, true}});
    m_board->setPreviewMode(m_rooms.previewMode());
    m_board->setFontSize(m_settings.Fonts_EVFS());
    m_board->setRecords(&m_rooms.rptStatus);
    showColumns();
}

void frmRoomStatus::showEmptyState() {
    if (m_rooms.known()) {
        m_board->setEmptyState({tr("No room is occupied"),
                                tr("Seat Patient, in the main window, fills a room."),
                                static_cast<int>(Image::SeatPatient)});
    } else {
        m_board->setEmptyState({tr("It is not known which rooms are occupied"),
                                tr("The network is down, or the other locations have not answered yet."),
                                static_cast<int>(Image::Refresh)});
    }
}

void frmRoomStatus::showColumns() {
    // What is left is for names, short of what a patient's name can take.
    const int usual = static_cast<int>(m_board->width() * kUsualFont / m_board->fontSize());
    const int left = usual - kIconWidth - kStaffWidth - (m_large ? kTimeWidth : 0);
    ReportColumn name =
        column("Active", RoomItem::Active, std::clamp(left - kPatientWidth, kLeastName, kNameWidth));
    name.text = true; // a note begins below it
    ReportColumn patient = column("Patient", RoomItem::Patient, kPatientWidth);
    patient.stretch = true;
    std::vector<ReportColumn> columns{column("", RoomItem::Icon, kIconWidth), name, patient,
                                      column("Staff", RoomItem::Staff, kStaffWidth)};
    if (m_large) {
        columns.push_back(column("Occupied for", RoomItem::Time, kTimeWidth));
    }
    m_board->setColumns(std::move(columns));
}

// As it is shown: in its order, without what the filter hides.
PrintDocument frmRoomStatus::printed() const {
    m_board->syncNow();
    const auto& order = static_cast<const ReportOrder&>(*m_board->model());
    std::vector<ReportRecordPtr> rows;
    rows.reserve(static_cast<std::size_t>(order.shownCount()));
    for (int row = 0; row < order.shownCount(); ++row) {
        rows.push_back(order.record(row));
    }
    return {windowTitle(),
            {{.heading = windowTitle(), .text = m_rooms.printedAt()}, {.rows = m_rooms.printed(rows)}}};
}

void frmRoomStatus::CreateStatusbar() {
    const auto add = [this](const char* name, const QString& caption, const QString& tip, Image picture,
                            const QKeySequence& keys) {
        QAction* const action = m_bar->addAction(m_images.image(picture, palette()), caption);
        action->setObjectName(QLatin1String(name));
        action->setToolTip(tip);
        action->setShortcut(keys);
        return action;
    };
    m_bar->setObjectName(QStringLiteral("Main"));
    m_bar->setMovable(false);
    m_bar->setContextMenuPolicy(Qt::PreventContextMenu);
    m_bar->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    connect(add("mnuRefresh", QStringLiteral("  Refresh  "), tr("Look at the rooms anew (F5)"),
                Image::Refresh, QKeySequence::Refresh),
            &QAction::triggered, &m_rooms, &RoomStatus::Load_Active);
    m_notes = add("mnuNotes", QStringLiteral("Toggle Location Notes"),
                  tr("Show or hide the notes of locations"), Image::Notes, {});
    m_notes->setCheckable(true);
    m_notes->setChecked(m_rooms.previewMode());
    connect(m_notes, &QAction::triggered, &m_rooms, &RoomStatus::SetPreviewMode);
    connect(add("mnuPrint", tr("Print"), tr("Print what the board shows (Ctrl+P)"), Image::PrintMessage,
                QKeySequence::Print),
            &QAction::triggered, this, [this] { showPreview(printed(), this); });
    connect(add("mnuLarge", tr("Large board"), tr("Fill the screen, for a wall (F11)"),
                Image::OccupiedLocations, Qt::Key_F11),
            &QAction::triggered, this, [this] { setLarge(!m_large); });
    connect(add("mnuClose", QStringLiteral("  Close  "), QStringLiteral("Close Recents"), Image::MenuClose,
                QKeySequence::Close),
            &QAction::triggered, this, &QWidget::close);
    addToolBar(Qt::BottomToolBarArea, m_bar);
    // The bar's actions work while it is hidden, too.
    addActions(m_bar->actions());
}

void frmRoomStatus::showLook() {
    m_bar->setVisible(!m_large);
    m_search->setVisible(!m_large);
    m_title->setVisible(m_large);
    sizeLetters();
}

void frmRoomStatus::setLarge(bool large) {
    if (large == m_large) {
        return;
    }
    m_large = large;
    if (large) {
        m_wasMaximised = isMaximized();
        m_usual = geometry();
    }
    showLook();
    if (large) {
        showFullScreen();
        setGeometry(screen()->geometry()); // a screen on a wall may have no window manager
    } else if (m_wasMaximised) {
        showMaximized();
    } else {
        showNormal();
        setGeometry(m_usual);
    }
    m_rooms.setMode(large ? RoomStatus::Mode::Large : RoomStatus::Mode::Window);
    m_board->setFocus();
}

void frmRoomStatus::sizeLetters() {
    if (!m_large) {
        m_board->setFontSize(m_settings.Fonts_EVFS());
        showColumns();
        return;
    }
    constexpr int kPointsPerInch = 72;
    const int points = height() * kPointsPerInch / (2 * kLargeRows * logicalDpiY());
    QFont letters = font();
    letters.setPointSize(std::max(kLeastLarge, points));
    m_title->setFont(letters);
    m_board->setWallFontSize(letters.pointSize());
    showColumns();
}

void frmRoomStatus::showEvent(QShowEvent* event) {
    QMainWindow::showEvent(event);
    if (m_rooms.mode() == RoomStatus::Mode::Closed) {
        m_rooms.setMode(m_large ? RoomStatus::Mode::Large : RoomStatus::Mode::Window);
    }
    sizeLetters();
}

void frmRoomStatus::hideEvent(QHideEvent* event) {
    QMainWindow::hideEvent(event);
    if (!event->spontaneous()) {
        m_rooms.setMode(RoomStatus::Mode::Closed);
    }
}

void frmRoomStatus::closeEvent(QCloseEvent* event) {
    QMainWindow::closeEvent(event);
    if (m_large) {
        // It comes back as a window.
        m_large = false;
        setWindowState(windowState() & ~Qt::WindowFullScreen);
        setGeometry(m_usual);
        showLook();
    }
}

void frmRoomStatus::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape) {
        if (m_large) {
            setLarge(false);
        } else {
            close();
        }
        return;
    }
    QMainWindow::keyPressEvent(event);
}

void frmRoomStatus::resizeEvent(QResizeEvent* event) {
    QMainWindow::resizeEvent(event);
    sizeLetters();
}

} // namespace tessel
