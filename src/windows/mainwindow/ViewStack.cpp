#include "windows/mainwindow/ViewStack.h"

#include "controls/list/CardControl.h"
#include "controls/list/ReportControl.h"
#include "controls/list/ReportHeader.h"
#include "controls/look/Images.h"
#include "controls/look/Tokens.h"
#include "engine/core/mod_FileTools.h"
#include "engine/presence/mod_LocationWords.h"
#include "engine/station.h"
#include "windows/ListFont.h"
#include "windows/mainwindow/MessageView.h"

#include <QPixmap>
#include <QShortcut>
#include <QTimer>

namespace tessel {

namespace {

// How long a selection takes to settle before a menu is shown for it.
constexpr int kSettleMs = 100;
// A picture that somebody put behind an empty list; anything larger is no background.
constexpr qint64 kLargestPicture = 4 << 20;

constexpr View kLocationViews[] = {View::Home, View::Status, View::Favorites};

ReportColumn column(const char* caption, LocationItem item, int width) {
    ReportColumn made;
    made.caption = QLatin1String(caption);
    made.item = static_cast<int>(item);
    made.width = width;
    return made;
}

std::vector<ReportColumn> locationColumns() {
    ReportColumn state = column("", LocationItem::Icon, look::kState);
    state.form = CellForm::State;
    state.spoken = SpokenState;
    ReportColumn name = column("Active", LocationItem::Active, 160);
    name.text = true;
    name.form = CellForm::Name;
    name.share = look::kNameShare;
    name.most = look::kNameMost;
    ReportColumn status = column("Status", LocationItem::Status, 180);
    status.form = CellForm::Aged;
    status.ageLength = AgeLength;
    status.share = look::kStatusShare;
    status.most = look::kStatusMost;
    ReportColumn staff = column("Staff", LocationItem::Staff, look::kStaff);
    staff.form = CellForm::Badge;
    staff.spoken = SpokenStaffTag;
    return {state, name, status, staff};
}

SortKey byText(LocationItem item) {
    return {static_cast<int>(item), false, true};
}

SortKey byValue(LocationItem item) {
    return {static_cast<int>(item), true, true};
}

} // namespace

ViewStack::ViewStack(Station& station, CommandSet& commands, std::function<QIcon(int)> icon, QWidget* parent)
    : QStackedWidget(parent), m_station(station), m_icon(std::move(icon)) {
    Create_EndpointView();
    Create_StatusView();
    Create_FavoritesView();
    Create_MessageView(commands);
    applyFont();
    applyPreview();
    Arrange();
    QTimer::singleShot(0, this, &ViewStack::loadBackgrounds);
}

void ViewStack::Create_EndpointView() {
    createList(View::Home, m_station.views.rptEndpoints, {});
    showNetwork();
    // When all that happens at once is over: a restart goes off line before it arms its timer.
    connect(
        &m_station.network, &NetworkMC::canSendChanged, this, [this] { showNetwork(); },
        Qt::QueuedConnection);
}

void ViewStack::showNetwork() {
    const bool starting = m_station.network.starting();
    m_lists[View::Home]->setEmptyState({tr("No locations yet"),
                                        starting ? tr("The network comes up a few seconds after the start.")
                                        : m_station.own.canSend()
                                            ? tr("No other location has answered. Ctrl+R looks again.")
                                            : tr("Offline: they come as soon as there is a network."),
                                        static_cast<int>(Image::Home)});
}

void ViewStack::Create_StatusView() {
    createList(View::Status, m_station.views.rptStatusView,
               {QStringLiteral("No Location has a status set"), tr("Ctrl+M sets yours, for all to see."),
                static_cast<int>(Image::StatusView)});
}

void ViewStack::Create_FavoritesView() {
    ReportControl& list = createList(View::Favorites, m_station.views.rptFavorites,
                                     {QStringLiteral("No favorites have been selected"),
                                      tr("Right-click a location under Home and choose Add to Favorites."),
                                      static_cast<int>(Image::Favorites)});
    auto* const remove = new QShortcut(Qt::Key_Delete, &list, nullptr, nullptr, Qt::WidgetShortcut);
    remove->setAutoRepeat(false);
    connect(remove, &QShortcut::activated, this, [this, &list] {
        if (const ReportRecordPtr record = list.currentRecord()) {
            m_station.actions.RemovefromFavoriteList(*record);
        }
    });
}

void ViewStack::Create_MessageView(CommandSet& commands) {
    m_messages = new MessageView(m_station, commands, m_icon, this);
    addWidget(m_messages);
    m_lists[View::Inbox] = &m_messages->list();
}

ReportControl& ViewStack::createList(View view, ReportRecords& records, const EmptyState& empty) {
    auto* const list = new ReportControl(this);
    list->setColumns(locationColumns());
    list->setKeywords(SearchWords);
    list->setIconProvider(m_icon);
    list->setEmptyState(empty);
    list->setNoMatchState({tr("No location matches the search"),
                           tr("Escape in the search box shows all again."), static_cast<int>(Image::Search)});
    const auto* const row =
        std::find_if(kViews.begin(), kViews.end(), [view](const ViewRow& v) { return v.view == view; });
    list->setAccessibleName(QString::fromLatin1(row->caption).trimmed());
    list->setRecords(&records);
    addWidget(list);
    m_lists[view] = list;

    connect(list, &ReportControl::currentRecordChanged, this, &ViewStack::currentRowChanged);
    connect(list, &ReportControl::stateHeaderClicked, this, &ViewStack::stateMenuRequested);
    connect(list, &ReportControl::recordMenuRequested, this,
            [this](const ReportRecordPtr& record, const QPoint& globalPos) {
                QTimer::singleShot(kSettleMs, this,
                                   [this, record, globalPos] { emit menuRequested(record, globalPos); });
            });
    connect(list, &ReportControl::recordActivated, this,
            [this](const ReportRecordPtr& record) { m_station.actions.LaunchActionsWindow(*record); });
    return *list;
}

void ViewStack::loadBackgrounds() {
    const auto load = [this](View view, const QString& path) {
        QByteArray bytes;
        QPixmap picture;
        const bool loaded = readWholeFile(path, kLargestPicture, bytes) && picture.loadFromData(bytes);
        if (loaded) {
            list(view).setBackgroundPicture(picture);
        }
        return loaded;
    };
    const Folders& folders = m_station.folders;
    load(View::Home, folders.dataFile(QStringLiteral("nb.jpg")));
    load(View::Status, folders.dataFile(QStringLiteral("nb.jpg")));
    load(View::Favorites, folders.dataFile(QStringLiteral("fnb.jpg")));
    const QString behindMessages = QStringLiteral("mv.jpg");
    if (!load(View::Inbox, folders.dataFile(behindMessages))) {
        load(View::Inbox, folders.program() + behindMessages);
    }
}

ReportControl& ViewStack::locations(View view) const {
    return static_cast<ReportControl&>(list(view));
}

void ViewStack::showCurrent() {
    m_current = m_station.shell.view();
    setCurrentWidget(m_current == View::Inbox ? static_cast<QWidget*>(m_messages) : &current());
    current().setFocus();
}

const ReportRecord* ViewStack::currentRow() const {
    return m_current == View::Inbox ? nullptr : current().currentRecord().get();
}

void ViewStack::setHeadersShown(bool shown) {
    for (const View view : kLocationViews) {
        locations(view).setHeaderShown(shown);
    }
}

void ViewStack::setStateFiltered(bool filtered) {
    if (m_current != View::Inbox) {
        locations(m_current).header()->setStateFiltered(filtered);
    }
}

void ViewStack::prepareSearch(bool prepared) {
    for (const auto& [view, list] : m_lists) {
        list->prepareFilter(prepared && view == m_current);
    }
}

void ViewStack::applyFont() {
    const Settings& settings = m_station.settings;
    const int points = m_station.shell.reportFont();
    for (const View view : kLocationViews) {
        setListFont(list(view), settings.Fonts_EVF(), points, settings.Fonts_EVFB());
    }
    // The inbox begins with a size of its own, and follows the buttons that size all lists.
    if (m_points != 0 && points != m_points) {
        list(View::Inbox).setFontSize(points);
    }
    m_points = points;
}

void ViewStack::applyPreview() {
    for (const View view : kLocationViews) {
        locations(view).setPreviewMode(m_station.shell.previewMode());
    }
}

void ViewStack::Arrange() {
    const Settings& settings = m_station.settings;
    const SortKey color = byValue(LocationItem::ST);
    const SortKey name = byText(LocationItem::SN);
    const SortKey time = byValue(LocationItem::TIME);
    const std::vector<SortKey> byColor{color, name};
    const std::vector<SortKey> byName{name, color};
    const std::vector<SortKey> statusOrders[] = {{time, color}, {time, name}, {name, time}};
    const int status = settings.Settings_SORTSV();
    locations(View::Home).setSortKeys(settings.Settings_SORTEV() == 1 ? byName : byColor);
    locations(View::Status).setSortKeys(statusOrders[status == 1 || status == 2 ? status : 0]);
    locations(View::Favorites).setSortKeys(settings.Settings_SORTFV() == 1 ? byName : byColor);
}

} // namespace tessel
