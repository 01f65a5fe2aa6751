#include "engine/presence/mod_LocationViews.h"

#include "engine/core/cOwnState.h"
#include "engine/core/mod_ElapsedText.h"
#include "engine/core/mod_Settings.h"
#include "engine/core/mod_TimeText.h"
#include "engine/ports/cClock.h"
#include "engine/presence/cFavoriteLookup.h"

#include <QSet>

#include <algorithm>

namespace tessel {

namespace {

const QString kBlank = QStringLiteral(" ");
const QString kOwnMark = QStringLiteral("|");
// A shorter note shows nowhere.
constexpr int kShortestPreview = 4;
constexpr int kShortestStatus = 2;

// Tag colours that are too dark for black text.
constexpr bool isDarkTag(int tag) {
    return (tag >= 12 && tag <= 16) || tag == 18 || tag == 20;
}

QString previewOf(const QString& note) {
    return note.size() >= kShortestPreview ? note : QString();
}

QString GetNoteBoardToolTip(const QString& patientName) {
    return patientName;
}

// The status that a row shows, without its age.
QString statusOfBlock(const ReportRecord& row) {
    return item(row, LocationItem::OST).text.section(ValueMark, 0, 0).trimmed();
}

// The row's presence block with this status in it. A row whose status was cleared holds none.
QString blockWithStatus(const ReportRecord& row, const QString& status, const QString& time) {
    QStringList values = item(row, LocationItem::OST).text.split(ValueMark);
    values.resize(std::max<qsizetype>(values.size(), kPresenceCount));
    values[static_cast<int>(PresenceValue::Status)] = status;
    values[static_cast<int>(PresenceValue::StatusTime)] = time;
    return values.join(ValueMark);
}

void setTime(ReportRecord& record, const QString& time) {
    item(record, LocationItem::TIME).text = time;
    item(record, LocationItem::TIME).value = parseTime(time); // to sort by
}

void setStatus(ReportRecord& record, const QString& text, const QString& time) {
    item(record, LocationItem::Status).text = text;
    item(record, LocationItem::Status).value = text != kBlank ? 1 : 0;
    record.setTip(static_cast<int>(LocationItem::Status), text != kBlank ? text : QString());
    setTime(record, time);
}

constexpr int kNoIcon = -1;

// A picture says what colours and numbers say, for those who do not see these.
void setState(ReportRecord& record, bool doNotDisturb) {
    const bool occupied = isOccupied(record);
    item(record, LocationItem::Icon).icon = occupied ? (doNotDisturb ? kStateBoth : kStateOccupied)
                                                     : (doNotDisturb ? kStateDoNotDisturb : kStateFree);
}

void setOccupied(ReportRecord& record, const Presence& presence) {
    item(record, LocationItem::Active).value = presence.occupied ? kOccupiedValue : 0;
    setState(record, isDoNotDisturb(record));
    record.setTip(static_cast<int>(LocationItem::Active), GetNoteBoardToolTip(presence.patientName));
}

void setDoNotDisturb(ReportRecord& record, bool doNotDisturb, bool own) {
    item(record, LocationItem::Active).foreColor = own ? kBlue : doNotDisturb ? kRed : kNoColor;
    setState(record, doNotDisturb);
}

void setStaffTag(ReportRecord& record, int tag) {
    item(record, LocationItem::Staff).value = tag;
    // A number from elsewhere would draw one of the program's other pictures.
    item(record, LocationItem::Staff).icon = IsLocationTag(tag) ? tag : kNoIcon;
    record.tag = tag;
}

// What a row of the Home list shows, in a row of another one.
void copyRow(const ReportRecord& home, ReportRecord& row) {
    for (int index = 0; index < kLocationItems; ++index) {
        row.item(index) = home.item(index);
    }
    for (const LocationItem told : {LocationItem::Active, LocationItem::Status}) {
        row.setTip(static_cast<int>(told), home.tip(static_cast<int>(told)));
    }
    row.preview = home.preview;
    row.pinned = home.pinned;
    row.tag = home.tag;
}

void putSlot(ReportRecord& favorite, int slot, const QString& marker) {
    item(favorite, LocationItem::VR).text = QString::number(slot);
    item(favorite, LocationItem::VR).value = slot;
    item(favorite, LocationItem::FavoriteVR).text = marker;
}

void removeAll(ReportRecords& list, const QSet<const ReportRecord*>& gone) {
    if (gone.size() == 1) {
        list.remove((*gone.cbegin())->row());
    } else if (!gone.isEmpty()) {
        list.removeIf([&gone](const ReportRecord& record) { return gone.contains(&record); });
    }
}

} // namespace

LocationViews::LocationViews(const OwnState& own, const Settings& settings, const Clock& clock,
                             const FavoriteLookup& favorites)
    : m_own(own), m_settings(settings), m_clock(clock), m_favorites(favorites) {
    rptStatusView.setRefill([this] { refillStatusView(); });
}

QString LocationViews::withAge(const QString& status, const QString& statusTime) const {
    return ElapsedText(statusTime, status, ElapsedForm::WithText, m_clock.secondOfDay(),
                       m_settings.Settings_STIMER());
}

void LocationViews::fill(ReportRecord& record, const EndpointAdded& endpoint) const {
    const Presence& presence = endpoint.presence;
    const bool own = endpoint.SID == m_own.SID;

    setStatus(record, kBlank, kBlank);
    if (presence.status.size() >= kShortestStatus) {
        setStatus(record, withAge(presence.status, presence.statusTime), presence.statusTime);
    }
    item(record, LocationItem::Active).text = endpoint.location;
    setDoNotDisturb(record, presence.doNotDisturb, own);
    setOccupied(record, presence);
    setStaffTag(record, presence.staffTag);
    item(record, LocationItem::SID).text = endpoint.SID;
    item(record, LocationItem::SN).text = endpoint.location;
    item(record, LocationItem::ST).text = QString::number(endpoint.tag);
    item(record, LocationItem::ST).value = endpoint.tag;
    item(record, LocationItem::OST).text = endpoint.block;
    item(record, LocationItem::VR).text = endpoint.marker;
    record.preview = previewOf(endpoint.note);
    record.pinned = own;

    ReportItem& cell = item(record, LocationItem::Icon);
    cell.text = own ? kOwnMark : QString();
    if (isDarkTag(endpoint.tag)) {
        cell.foreColor = kWhite;
    }
    if (endpoint.tag > 0 && endpoint.tag <= static_cast<int>(kTagColors.size())) {
        cell.backColor = kTagColors[static_cast<std::size_t>(endpoint.tag - 1)];
    }
}

void LocationViews::Add_to_Active(const EndpointAdded& endpoint) {
    const auto record = std::make_shared<ReportRecord>(kLocationItems);
    fill(*record, endpoint);
    rptEndpoints.append(record);
    if (const int slot = m_favorites.slotOf(endpoint.SID); slot >= 0 && slot <= FavoriteLookup::kLastSlot) {
        Add_to_Favorites(endpoint, slot);
    }
    changed();
}

void LocationViews::Add_to_Favorites(const EndpointAdded& endpoint, int slot) {
    const auto record = std::make_shared<ReportRecord>(kFavoriteItems);
    fill(*record, endpoint);
    putSlot(*record, slot, endpoint.marker);
    Active_RemoveFavorite(endpoint.SID);
    rptFavorites.append(record);
}

void LocationViews::Add_to_Favorites(const QString& SID, int slot) {
    const ReportRecord* const home = rptEndpoints.find(SID);
    if (home == nullptr || slot < 0 || slot > FavoriteLookup::kLastSlot) {
        return;
    }
    const auto record = std::make_shared<ReportRecord>(kFavoriteItems);
    copyRow(*home, *record);
    putSlot(*record, slot, item(*home, LocationItem::VR).text);
    Active_RemoveFavorite(SID);
    rptFavorites.append(record);
}

void LocationViews::Active_RemoveEndpoint(const QStringList& SIDs) {
    QSet<const ReportRecord*> gone;
    QSet<const ReportRecord*> goneFavorites;
    for (const QString& SID : SIDs) {
        if (const ReportRecord* const record = rptEndpoints.find(SID); record != nullptr) {
            gone.insert(record);
        }
        if (const ReportRecord* const favorite = rptFavorites.find(SID); favorite != nullptr) {
            goneFavorites.insert(favorite);
        }
    }
    removeAll(rptEndpoints, gone);
    removeAll(rptFavorites, goneFavorites);
    changed();
}

void LocationViews::Active_RemoveFavorite(const QString& SID) {
    if (const ReportRecord* const record = rptFavorites.find(SID); record != nullptr) {
        rptFavorites.remove(record->row());
    }
}

void LocationViews::clear() {
    rptEndpoints.clear();
    rptStatusView.clear();
    rptFavorites.clear();
}

bool LocationViews::showStatus(ReportRecords& list, const PresenceChanged& change) const {
    ReportRecord* const record = list.find(change.SID);
    if (record == nullptr) {
        return false;
    }
    if (change.presence.status.isEmpty()) {
        setStatus(*record, kBlank, kBlank);
        item(*record, LocationItem::OST).text = kBlank;
    } else {
        setStatus(*record, change.presence.status.trimmed(), change.presence.statusTime.trimmed());
        item(*record, LocationItem::OST).text = change.block;
    }
    record->preview = previewOf(change.note);
    setOccupied(*record, change.presence);
    list.redraw(*record);
    return true;
}

void LocationViews::tellStatus(const PresenceChanged& change, int favoriteSlot) {
    if (change.presence.status.isEmpty()) {
        emit statusCleared(change.SID);
    } else if (change.SID != m_own.SID) {
        emit statusSet({change.location, change.SID, change.presence.status.trimmed(),
                        change.presence.statusTime, change.presence.statusTone, favoriteSlot});
    }
}

void LocationViews::ProcessStatusUpdate(const PresenceChanged& change) {
    if (!showStatus(rptEndpoints, change)) {
        return;
    }
    // A favorite is left to the favorites, so that nobody is told twice.
    if (m_favorites.slotOf(change.SID) < 0) {
        tellStatus(change, -1);
    } else if (change.presence.status.isEmpty()) {
        emit statusCleared(change.SID);
    }
    changed();
}

void LocationViews::ProcessStatusUpdateFav(const PresenceChanged& change) {
    if (!showStatus(rptFavorites, change)) {
        return;
    }
    // A row that outlived its favorite has been told of with all the others.
    if (const int slot = m_favorites.slotOf(change.SID); slot >= 0) {
        tellStatus(change, slot);
    }
}

void LocationViews::showState(ReportRecords& list, const PresenceChanged& change) const {
    ReportRecord* const record = list.find(change.SID);
    if (record == nullptr) {
        return;
    }
    setOccupied(*record, change.presence);
    setDoNotDisturb(*record, change.presence.doNotDisturb, change.SID == m_own.SID);
    list.redraw(*record);
}

void LocationViews::ProcessLocationUpdate(const PresenceChanged& change) {
    showState(rptEndpoints, change);
    showState(rptFavorites, change);
    changed();
}

void LocationViews::ProcessStaffUpdate(const StaffTagChanged& change) {
    for (ReportRecords* const list : {&rptEndpoints, &rptFavorites}) {
        if (ReportRecord* const record = list->find(change.SID); record != nullptr) {
            setStaffTag(*record, change.tag);
            list->redraw(*record);
        }
    }
    changed();
}

void LocationViews::ProcessLocationNoteUpdate(const NoteChanged& change) {
    for (ReportRecords* const list : {&rptEndpoints, &rptFavorites}) {
        if (ReportRecord* const record = list->find(change.SID); record != nullptr) {
            record->preview = previewOf(change.note);
            list->redraw(*record);
        }
    }
    changed();
}

// The packet of a status may be lost: what the keep-alive says of it holds for all lists from then on.
void LocationViews::showStatusTime(ReportRecords& list, const StatusTimeRefreshed& refreshed) const {
    ReportRecord* const record = list.find(refreshed.SID);
    if (record == nullptr || refreshed.status.isEmpty() || refreshed.statusTime.isEmpty()) {
        return;
    }
    const QString status = refreshed.status.trimmed();
    const QString text = withAge(status, refreshed.statusTime);
    const bool grown = item(*record, LocationItem::Status).text != text;
    // The number, since texts of thousands of rows are not in the processor's cache.
    const bool later = item(*record, LocationItem::TIME).value != parseTime(refreshed.statusTime);
    if (!grown && !later) {
        return;
    }
    if (later || statusOfBlock(*record) != status) {
        item(*record, LocationItem::OST).text = blockWithStatus(*record, status, refreshed.statusTime);
        setTime(*record, refreshed.statusTime.trimmed());
    }
    item(*record, LocationItem::Status).text = text;
    item(*record, LocationItem::Status).value = 1;
    record->setTip(static_cast<int>(LocationItem::Status), text);
    list.redraw(*record);
}

void LocationViews::ProcessStatusTime(const StatusTimeRefreshed& refreshed) {
    showStatusTime(rptEndpoints, refreshed);
    changed();
    ProcessFavoriteTime(refreshed);
}

void LocationViews::ProcessFavoriteTime(const StatusTimeRefreshed& refreshed) {
    showStatusTime(rptFavorites, refreshed);
}

void LocationViews::setStatusTabCurrent(bool current) {
    m_statusTabCurrent = current;
    if (current) {
        ProcessStatusView();
    }
}

void LocationViews::changed() {
    if (m_statusTabCurrent) {
        ProcessStatusView();
    }
}

void LocationViews::ProcessStatusView() {
    if (rptEndpoints.count() > 0) {
        rptStatusView.setStale();
    }
}

int LocationViews::statusCount() const {
    return static_cast<int>(std::ranges::count_if(
        rptEndpoints.rows(), [](const ReportRecordPtr& home) { return GetStatusActive(*home); }));
}

ReportRecordPtr LocationViews::Add_to_Status(const ReportRecord& home) const {
    const ReportRecord* const known = rptStatusView.find(item(home, LocationItem::SID).text);
    ReportRecordPtr row =
        known != nullptr ? rptStatusView.at(known->row()) : std::make_shared<ReportRecord>(kLocationItems);
    copyRow(home, *row);
    // The age is told anew, for all rows at once.
    item(*row, LocationItem::Status).text = withAge(statusOfBlock(home), item(home, LocationItem::TIME).text);
    row->setTip(static_cast<int>(LocationItem::Status), item(*row, LocationItem::Status).text);
    return row;
}

void LocationViews::refillStatusView() {
    std::vector<ReportRecordPtr> rows;
    for (const auto& home : rptEndpoints.rows()) {
        if (GetStatusActive(*home)) {
            rows.push_back(Add_to_Status(*home));
        }
    }
    rptStatusView.assign(std::move(rows));
    rptStatusView.redrawAll();
}

int LocationViews::Active_FindSID(const QString& SID) const {
    const ReportRecord* const record = rptEndpoints.find(SID);
    return record == nullptr ? -1 : record->row();
}

int LocationViews::Active_FindSIDFav(const QString& SID) const {
    const ReportRecord* const record = rptFavorites.find(SID);
    return record == nullptr ? -1 : record->row();
}

QString GetLocationName(const ReportRecord& row) {
    return item(row, LocationItem::Active).text;
}

QString GetSID(const ReportRecord& row) {
    return item(row, LocationItem::SID).text;
}

bool GetStatusActive(const ReportRecord& row) {
    return item(row, LocationItem::Status).text.size() >= kShortestStatus;
}

QString GetCurrentStatus(const ReportRecord& row) {
    return item(row, LocationItem::Status).value != 0 ? statusOfBlock(row) : QString();
}

int GetColorTag(const ReportRecord& row) {
    return item(row, LocationItem::ST).value;
}

int GetStatusTag(const ReportRecord& row) {
    return item(row, LocationItem::Staff).value;
}

bool isOccupied(const ReportRecord& row) {
    return item(row, LocationItem::Active).value == kOccupiedValue;
}

QString GetOccupiedName(const ReportRecord& row) {
    return row.tip(static_cast<int>(LocationItem::Active));
}

bool isLocationDND(const ReportRecord& row) {
    return item(row, LocationItem::Active).foreColor == kRed;
}

bool isDoNotDisturb(const ReportRecord& row) {
    const int state = item(row, LocationItem::Icon).icon;
    return state == kStateDoNotDisturb || state == kStateBoth;
}

bool IsVirtualLocation(const ReportRecord& row) {
    const LocationItem marker =
        row.itemCount() == kFavoriteItems ? LocationItem::FavoriteVR : LocationItem::VR;
    return item(row, marker).text == kVirtualMarker;
}

} // namespace tessel
