// The board of occupied rooms: its rows, made from the Home list.
#pragma once

#include "engine/ports/cClock.h"
#include "records/cReportRecords.h"

#include <QList>
#include <QObject>
#include <QStringList>

#include <vector>

namespace tessel {

class LocationViews;
class RoomTimes;
class Settings;
struct OwnState;

// Items of a row. The SID and what rows are sorted by are never shown, the time on the large board alone.
enum class RoomItem { Icon, Active, Patient, Staff, SID, SORT, Time };
inline constexpr int kRoomItems = 7;

inline ReportItem& item(ReportRecord& record, RoomItem index) {
    return record.item(static_cast<int>(index));
}
inline const ReportItem& item(const ReportRecord& record, RoomItem index) {
    return record.item(static_cast<int>(index));
}

class RoomStatus : public QObject {
    Q_OBJECT
public:
    // How the board is looked at: not at all, in its window, which is made anew once a minute, or as the
    // large board, which follows each change within a second.
    enum class Mode { Closed, Window, Large };

    RoomStatus(const OwnState& own, Settings& settings, Clock& clock, const LocationViews& views,
               const RoomTimes& times);

    void setMode(Mode mode);
    Mode mode() const { return m_mode; }
    // Makes the board anew.
    void Load_Active();
    // Whether the others can have told who sits where: not while offline, nor until they have answered
    // after that. An empty board says nothing then, least of all on a wall.
    bool known() const;
    // This station can send from now on, or no longer.
    void networkChanged();
    // Whether notes of locations are shown; flipping is stored.
    bool previewMode() const;
    void SetPreviewMode();

    // These rows of the board for paper, each with how long it has been occupied; the captions first.
    QList<QStringList> printed(const std::vector<ReportRecordPtr>& rows) const;
    // Of which moment that tells.
    QString printedAt() const;

    ReportRecords rptStatus{static_cast<int>(RoomItem::SID)};

    Timer tmrRefresh;
    Timer tmrFollow;  // gathers the changes that the large board follows
    Timer tmrAnswers; // the others answer an announcement

signals:
    // The board was made anew by the clock or by hand; a search in it ends.
    void loaded();
    void previewModeChanged();
    void knownChanged();

private:
    void fill();
    // True when the row had to change.
    bool Add_to_View(const ReportRecord& home, ReportRecord& row) const;

    const OwnState& m_own;
    Settings& m_settings;
    Clock& m_clock;
    const LocationViews& m_views;
    const RoomTimes& m_times;
    Mode m_mode = Mode::Closed;
};

} // namespace tessel
