#include "presence/mod_LocationViews.h"

#include "core/cClock.h"
#include "core/cOwnState.h"
#include "core/mod_ElapsedText.h"
#include "core/mod_Settings.h"

#include <QSet>

namespace tessel {

namespace {

const QString kBlank = QStringLiteral(" ");
const QString kOwnMark = QStringLiteral("|");
// A shorter note shows nowhere.
constexpr int kShortestPreview = 4;

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

} // namespace

LocationViews::LocationViews(const OwnState& own, const Settings& settings, const Clock& clock)
    : m_own(own), m_settings(settings), m_clock(clock) {}

void LocationViews::setStatus(ReportRecord& record, const QString& text, const QString& time) const {
    item(record, LocationItem::Status).text = text;
    item(record, LocationItem::Status).value = text != kBlank ? 1 : 0;
    item(record, LocationItem::TIME).text = time;
}

void LocationViews::Add_to_Active(const EndpointAdded& endpoint) {
    const auto record = std::make_shared<ReportRecord>(kLocationItems);
    const Presence& presence = endpoint.presence;
    const bool own = endpoint.SID == m_own.SID;

    setStatus(*record, kBlank, kBlank);
    if (presence.status.size() >= 2) {
        setStatus(*record,
                  ElapsedText(presence.statusTime, presence.status, ElapsedForm::WithText,
                              m_clock.secondOfDay(), m_settings.Settings_STIMER()),
                  presence.statusTime);
    }
    ReportItem& name = item(*record, LocationItem::Active);
    name.text = endpoint.location;
    name.value = presence.occupied ? kOccupiedValue : 0;
    record->setTip(static_cast<int>(LocationItem::Active), GetNoteBoardToolTip(presence.patientName));
    item(*record, LocationItem::Staff).value = presence.staffTag;
    item(*record, LocationItem::SID).text = endpoint.SID;
    item(*record, LocationItem::SN).text = endpoint.location;
    item(*record, LocationItem::ST).text = QString::number(endpoint.tag);
    item(*record, LocationItem::ST).value = endpoint.tag;
    item(*record, LocationItem::OST).text = endpoint.block;
    item(*record, LocationItem::VR).text = endpoint.marker;
    record->tag = presence.staffTag;
    record->preview = previewOf(endpoint.note);

    ReportItem& cell = item(*record, LocationItem::Icon);
    cell.text = own ? kOwnMark : QString();
    if (isDarkTag(endpoint.tag)) {
        cell.foreColor = kWhite;
    }
    if (endpoint.tag > 0 && endpoint.tag <= static_cast<int>(kTagColors.size())) {
        cell.backColor = kTagColors[static_cast<std::size_t>(endpoint.tag - 1)];
    }
    if (own) {
        name.foreColor = kBlue;
        record->pinned = true;
    } else if (presence.doNotDisturb) {
        name.foreColor = kRed;
    }
    rptEndpoints.append(record);
    count(*record, 1);
}

void LocationViews::Active_RemoveEndpoint(const QStringList& SIDs) {
    QSet<const ReportRecord*> gone;
    for (const QString& SID : SIDs) {
        if (const ReportRecord* const record = rptEndpoints.find(SID); record != nullptr) {
            gone.insert(record);
            count(*record, -1);
        }
    }
    if (gone.size() == 1) {
        rptEndpoints.remove((*gone.cbegin())->row());
    } else if (!gone.isEmpty()) {
        rptEndpoints.removeIf([&gone](const ReportRecord& record) { return gone.contains(&record); });
    }
}

void LocationViews::clear() {
    rptEndpoints.clear();
    ClearLocationsTabsCount();
}

void LocationViews::ProcessStatusUpdate(const PresenceChanged& change) {
    ReportRecord* const record = rptEndpoints.find(change.SID);
    if (record == nullptr) {
        return;
    }
    if (change.presence.status.isEmpty()) {
        setStatus(*record, kBlank, kBlank);
        item(*record, LocationItem::OST).text = kBlank;
    } else {
        setStatus(*record, change.presence.status.trimmed(), change.presence.statusTime.trimmed());
        item(*record, LocationItem::OST).text = change.block;
    }
    record->preview = previewOf(change.note);
    item(*record, LocationItem::Active).value = change.presence.occupied ? kOccupiedValue : 0;
    record->setTip(static_cast<int>(LocationItem::Active), GetNoteBoardToolTip(change.presence.patientName));
    rptEndpoints.redraw(*record);
}

void LocationViews::ProcessLocationUpdate(const PresenceChanged& change) {
    ReportRecord* const record = rptEndpoints.find(change.SID);
    if (record == nullptr) {
        return;
    }
    ReportItem& name = item(*record, LocationItem::Active);
    name.value = change.presence.occupied ? kOccupiedValue : 0;
    if (change.SID != m_own.SID) {
        name.foreColor = change.presence.doNotDisturb ? kRed : kNoColor;
    }
    record->setTip(static_cast<int>(LocationItem::Active), GetNoteBoardToolTip(change.presence.patientName));
    rptEndpoints.redraw(*record);
}

void LocationViews::ProcessStaffUpdate(const StaffTagChanged& change) {
    if (ReportRecord* const record = rptEndpoints.find(change.SID); record != nullptr) {
        item(*record, LocationItem::Staff).value = change.tag;
        rptEndpoints.redraw(*record);
    }
}

void LocationViews::ProcessLocationNoteUpdate(const NoteChanged& change) {
    if (ReportRecord* const record = rptEndpoints.find(change.SID); record != nullptr) {
        record->preview = previewOf(change.note);
        rptEndpoints.redraw(*record);
    }
}

void LocationViews::ProcessStatusTime(const StatusTimeRefreshed& refreshed) {
    ReportRecord* const record = rptEndpoints.find(refreshed.SID);
    if (record == nullptr || refreshed.status.isEmpty() || refreshed.statusTime.isEmpty()) {
        return;
    }
    const QString text = ElapsedText(refreshed.statusTime, refreshed.status, ElapsedForm::WithText,
                                     m_clock.secondOfDay(), m_settings.Settings_STIMER());
    ReportItem& status = item(*record, LocationItem::Status);
    constexpr int kTip = static_cast<int>(LocationItem::Status);
    if (status.text != text || record->tip(kTip) != text) {
        status.text = text;
        record->setTip(kTip, text);
        rptEndpoints.redraw(*record);
    }
}

int LocationViews::Active_FindSID(const QString& SID) const {
    const ReportRecord* const record = rptEndpoints.find(SID);
    return record == nullptr ? -1 : record->row();
}

void LocationViews::count(const ReportRecord& record, int step) {
    const int tag = item(record, LocationItem::ST).value;
    if (tag >= 1 && tag <= static_cast<int>(m_tagCounts.size())) {
        m_tagCounts[static_cast<std::size_t>(tag - 1)] += step;
    }
}

void LocationViews::ClearLocationsTabsCount() {
    m_tagCounts.fill(0);
}

void LocationViews::CountLocationsTabs() {
    ClearLocationsTabsCount();
    for (const auto& record : rptEndpoints.rows()) {
        count(*record, 1);
    }
}

int LocationViews::tagCount(int tag) const {
    return tag >= 1 && tag <= static_cast<int>(m_tagCounts.size())
               ? m_tagCounts[static_cast<std::size_t>(tag - 1)]
               : 0;
}

} // namespace tessel
