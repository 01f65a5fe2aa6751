#include "engine/presence/mod_LocationActions.h"

#include "engine/core/cOwnState.h"
#include "engine/network/mod_FitText.h"
#include "engine/network/mod_Network_Protocol.h"
#include "engine/ports/cWindows.h"
#include "engine/presence/mod_Favorites.h"
#include "engine/presence/mod_LocalStatus.h"
#include "engine/presence/mod_LocationViews.h"
#include "engine/presence/mod_OwnPresence.h"

namespace tessel {

namespace {

QString body(const QStringList& values) {
    return values.join(ValueMark);
}

constexpr int kSeatPatientPicture = 13;
constexpr int kRemovePatientPicture = 21;
// Twice what can be typed. A longer name comes from some other program, and must not make a window wider
// than the screen.
constexpr qsizetype kShownPatient = 30;

} // namespace

QString RoomCaption(bool occupied, const QString& patient) {
    QString name = patient.simplified();
    if (name.size() > kShownPatient) {
        name = name.left(kShownPatient - 1) + QChar(0x2026);
    }
    return !occupied        ? QStringLiteral("Seat Patient")
           : name.isEmpty() ? QStringLiteral("Remove Patient")
                            : QLatin1String("Remove Patient (") + name + u')';
}

int RoomPicture(bool occupied) {
    return occupied ? kRemovePatientPicture : kSeatPatientPicture;
}

bool LocationActions::isOwn(const ReportRecord& row) const {
    return GetSID(row) == m_targets.own.SID;
}

void LocationActions::SetOccupiedRemote(const ReportRecord& row) {
    if (isOwn(row)) {
        m_targets.presence.SetOccupiedStatus(true);
    } else {
        m_targets.windows.show({.window = WindowId::OccupiedRemote, .SID = GetSID(row), .modal = true});
    }
}

void LocationActions::SetLocationNoteRemote(const ReportRecord& row) {
    if (isOwn(row)) {
        m_targets.windows.show({.window = WindowId::ActiveNote, .modal = true});
    } else {
        m_targets.windows.show({.window = WindowId::LocationNote, .SID = GetSID(row), .modal = true});
    }
}

void LocationActions::ClearStaffTag(const ReportRecord& row) {
    m_targets.presence.ClearStaffTag(GetSID(row));
}

void LocationActions::LaunchActionsWindow(const ReportRecord& row, ActionsPage page) {
    if (isOwn(row)) {
        m_targets.windows.show({.window = WindowId::SetStatus, .modal = true});
    } else {
        m_targets.windows.show(
            {.window = WindowId::Actions, .SID = GetSID(row), .page = static_cast<int>(page), .modal = true});
    }
}

bool LocationActions::isFavorite(const ReportRecord& row) const {
    return m_targets.favorites.IsFavoriteSID(GetSID(row));
}

void LocationActions::add(const QString& Location, const QString& SID) {
    if (m_targets.favorites.AddFavorite(Location, SID, Favorites::kDefaultTone) ==
        FavoriteAdded::AlreadyThere) {
        m_targets.windows.show({.window = WindowId::AlreadyFavorite, .modal = true});
    }
}

void LocationActions::AddtoFavoriteList(const ReportRecord& row) {
    add(GetLocationName(row), GetSID(row));
}

void LocationActions::Add_LocalFavorite() {
    add(m_targets.own.location, m_targets.own.SID);
}

void LocationActions::RemovefromFavoriteList(const ReportRecord& row) {
    m_targets.windows.show({.window = WindowId::RemoveFavorite, .SID = GetSID(row), .modal = true});
}

void LocationActions::Remove_LocalFavorite() {
    removeFavorite(m_targets.own.SID);
}

void LocationActions::removeFavorite(const QString& SID) {
    for (int slot = m_targets.favorites.FindFavoriteSlot(SID); slot >= 0;
         slot = m_targets.favorites.FindFavoriteSlot(SID)) {
        m_targets.favorites.RemoveFavoriteSlot(slot, SID);
    }
}

LocationFacts LocationActions::factsOf(const QString& SID) const {
    LocationFacts facts;
    facts.SID = SID;
    facts.Slot = m_targets.favorites.FindFavoriteSlot(SID);
    if (const ReportRecord* const row = m_targets.views.rptEndpoints.find(SID); row != nullptr) {
        facts.Location = GetLocationName(*row);
        facts.Tag = GetStatusTag(*row);
        facts.Status = GetStatusActive(*row) ? GetCurrentStatus(*row) : QString();
        facts.Occupied = isOccupied(*row);
        facts.Patient = facts.Occupied ? GetOccupiedName(*row) : QString();
        facts.Note = row->preview;
    } else if (facts.Slot >= 0) {
        facts.Location = m_targets.favorites.slot(facts.Slot).Location;
    }
    return facts;
}

bool LocationActions::Set_Status(const QString& SID, const QString& text, int sharedIndex) {
    const QString status = text.trimmed().left(LocalStatus::kLongestStatus);
    if (SID.isEmpty() || status.size() < LocalStatus::kShortestStatus) {
        return false;
    }
    m_targets.protocol.send(
        Code::XAS2, body({SID, FitText(status), sharedIndex < 0 ? QString() : QString::number(sharedIndex)}));
    return true;
}

void LocationActions::Clear_Status(const QString& SID) {
    m_targets.status.clearStatusOf(SID);
}

void LocationActions::ToggleOccupied(const QString& SID, const QString& patient) {
    if (!SID.isEmpty()) {
        m_targets.protocol.send(Code::XALSN, body({SID, FitText(OwnPresence::patientOf(patient))}));
    }
}

void LocationActions::Set_StaffTag(const QString& SID, int tag) {
    if (!SID.isEmpty()) {
        m_targets.protocol.send(Code::XASTR, body({SID, QString::number(tag)}));
    }
}

bool LocationActions::SetNote(const QString& SID, const QString& typed) {
    const QString note = typed.trimmed().left(OwnPresence::kLongestNote);
    if (SID.isEmpty() || note.size() < OwnPresence::kShortestNote) {
        return false;
    }
    m_targets.protocol.send(Code::XALN, body({SID, FitText(note)}));
    return true;
}

void LocationActions::RemoveNote(const QString& SID) {
    if (!SID.isEmpty()) {
        m_targets.protocol.send(Code::XALN, body({SID, QString()}));
    }
}

} // namespace tessel
