#include "engine/presence/mod_RoomStatus.h"

#include "engine/core/cOwnState.h"
#include "engine/core/mod_Definitions.h"
#include "engine/core/mod_Settings.h"
#include "engine/presence/mod_LocationViews.h"
#include "engine/presence/mod_RoomTimes.h"

namespace tessel {

namespace {

constexpr int kMinuteMs = 60000;
constexpr int kFollowMs = 250;
constexpr int kAnswersMs = 4000; // the answers come after three seconds
const QString kOthersTip = QStringLiteral("Double-Click to send a Message or Alert");
const QString kOwnTip = QStringLiteral("Double-Click to set your Status");

} // namespace

RoomStatus::RoomStatus(const OwnState& own, Settings& settings, Clock& clock, const LocationViews& views,
                       const RoomTimes& times)
    : tmrRefresh(clock, "tmrRefresh", kMinuteMs, Timer::Kind::Repeating,
                 [this] {
                     if (m_mode == Mode::Large) {
                         fill(); // the times go on
                     } else {
                         Load_Active();
                     }
                 }),
      tmrFollow(clock, "tmrFollow", kFollowMs, Timer::Kind::OneShot, [this] { fill(); }),
      tmrAnswers(clock, "tmrAnswers", kAnswersMs, Timer::Kind::OneShot, [this] { emit knownChanged(); }),
      m_own(own), m_settings(settings), m_clock(clock), m_views(views), m_times(times) {
    connect(&views.rptEndpoints, &ReportRecords::changed, this, [this] {
        if (m_mode == Mode::Large && !tmrFollow.enabled()) {
            tmrFollow.setEnabled(true);
        }
    });
}

void RoomStatus::setMode(Mode mode) {
    m_mode = mode;
    tmrRefresh.setEnabled(mode != Mode::Closed);
    tmrFollow.setEnabled(false);
    if (mode != Mode::Closed) {
        Load_Active();
    }
}

void RoomStatus::Load_Active() {
    emit loaded();
    fill();
}

bool RoomStatus::known() const {
    return m_own.canSend() && !tmrAnswers.enabled();
}

void RoomStatus::networkChanged() {
    if (m_own.canSend()) {
        tmrAnswers.restart();
    } else {
        tmrAnswers.setEnabled(false);
    }
    emit knownChanged();
}

void RoomStatus::fill() {
    std::vector<ReportRecordPtr> rows;
    std::vector<ReportRecordPtr> changed;
    bool same = true;
    for (const auto& home : m_views.rptEndpoints.rows()) {
        if (!isOccupied(*home)) {
            continue;
        }
        const ReportRecord* const known = rptStatus.find(GetSID(*home));
        const ReportRecordPtr row =
            known != nullptr ? rptStatus.at(known->row()) : std::make_shared<ReportRecord>(kRoomItems);
        same = same && known != nullptr && known->row() == static_cast<int>(rows.size());
        if (Add_to_View(*home, *row)) {
            changed.push_back(row);
        }
        rows.push_back(row);
    }
    // A board on a wall is looked at all day and seldom changes: what stays costs nothing.
    if (!same || static_cast<int>(rows.size()) != rptStatus.count()) {
        rptStatus.assign(std::move(rows));
        rptStatus.redrawAll();
        return;
    }
    for (const auto& row : changed) {
        rptStatus.redraw(*row);
    }
}

bool RoomStatus::Add_to_View(const ReportRecord& home, ReportRecord& row) const {
    bool different = false;
    const auto put = [&](RoomItem index, const ReportItem& wanted) {
        ReportItem& cell = item(row, index);
        if (cell.text != wanted.text || cell.value != wanted.value || cell.icon != wanted.icon ||
            cell.foreColor != wanted.foreColor || cell.backColor != wanted.backColor) {
            cell = wanted;
            different = true;
        }
    };
    const QString name = GetLocationName(home);
    const QString SID = GetSID(home);
    ReportItem color = item(home, LocationItem::Icon);
    color.text.clear();
    color.icon = -1; // all of these are occupied
    put(RoomItem::Icon, color);
    put(RoomItem::Active, {.text = name});
    put(RoomItem::Patient, {.text = GetOccupiedName(home)});
    ReportItem staff = item(home, LocationItem::Staff);
    staff.text.clear();
    put(RoomItem::Staff, staff);
    put(RoomItem::SID, {.text = SID});
    put(RoomItem::SORT, {.text = name});
    put(RoomItem::Time,
        {.text = m_mode == Mode::Large ? m_times.occupiedFor(SID, m_clock.secondOfDay()) : QString()});
    constexpr int kTold = static_cast<int>(RoomItem::Active);
    if (row.tip(kTold).isEmpty()) {
        row.setTip(kTold, SID == m_own.SID ? kOwnTip : kOthersTip);
    }
    if (row.preview != home.preview) {
        row.preview = home.preview;
        different = true;
    }
    return different;
}

QList<QStringList> RoomStatus::printed(const std::vector<ReportRecordPtr>& rows) const {
    QList<QStringList> table{{QStringLiteral("Active"), QStringLiteral("Patient"), QStringLiteral("Staff"),
                              QStringLiteral("Occupied for")}};
    if (previewMode()) {
        table.first() += QStringLiteral("Location Note");
    }
    for (const ReportRecordPtr& row : rows) {
        const int tag = item(*row, RoomItem::Staff).value;
        QStringList line{item(*row, RoomItem::Active).text, item(*row, RoomItem::Patient).text,
                         IsLocationTag(tag) ? QStringLiteral("Status tag %1").arg(tag - kFirstStaffTag + 1)
                                            : QString(),
                         m_times.occupiedFor(item(*row, RoomItem::SID).text, m_clock.secondOfDay())};
        if (previewMode()) {
            line += row->preview;
        }
        table += line;
    }
    return table;
}

QString RoomStatus::printedAt() const {
    return m_clock.timeText() + QLatin1String(" on ") + m_clock.dateText();
}

bool RoomStatus::previewMode() const {
    return m_settings.Settings_OSPV();
}

void RoomStatus::SetPreviewMode() {
    m_settings.Settings_OSPV.set(!previewMode());
    emit previewModeChanged();
}

} // namespace tessel
