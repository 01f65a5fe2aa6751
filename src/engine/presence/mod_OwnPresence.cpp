#include "engine/presence/mod_OwnPresence.h"

#include "engine/core/cOwnState.h"
#include "engine/core/mod_Definitions.h"
#include "engine/core/mod_INIData.h"
#include "engine/core/mod_Limits.h"
#include "engine/network/mod_FitText.h"
#include "engine/network/mod_Network_Protocol.h"
#include "engine/ports/cClock.h"
#include "engine/ports/cWindows.h"

namespace tessel {

namespace {

// What another location asks for travels in every packet from then on: a text of thousands of
// characters would make them too long to send. Nobody shows more of it than this anyway.
QString asked(const cPacket& packet, int value) {
    return packet.bodyValue(value).left(kMaxRowText);
}

} // namespace

OwnPresence::OwnPresence(OwnState& own, INIData& data, const Clock& clock, NetworkProtocol& protocol,
                         Windows& windows)
    : m_own(own), m_data(data), m_clock(clock), m_protocol(protocol), m_windows(windows) {
    attachHandlers(protocol);
}

void OwnPresence::attachHandlers(NetworkProtocol& protocol) {
    protocol.attach(Code::XALS, [this](const cPacket&) { SetOccupiedStatus(false); });
    protocol.attach(Code::XALSN,
                    [this](const cPacket& packet) { SetOccupiedStatusRemote(true, asked(packet, 1)); });
    protocol.attach(Code::XASTR, [this](const cPacket& packet) {
        // What cannot be read is no order to clear the tag.
        bool readable = false;
        const short tag = packet.bodyValue(1).trimmed().toShort(&readable);
        if (readable) {
            Set_StaffTag(tag);
        }
    });
    protocol.attach(Code::XALN, [this](const cPacket& packet) { SetLocationNote(asked(packet, 1)); });
}

void OwnPresence::toggleOccupied(const QString& patient) {
    m_own.occupied = !m_own.occupied;
    m_own.patientName = m_own.occupied ? FitText(patient) : QString();
    m_own.occupiedTime = m_own.occupied ? m_clock.timeText() : QString();
    emit changed();
}

void OwnPresence::SetOccupiedStatus(bool Ask) {
    m_asking = false;
    toggleOccupied({});
    m_asking = Ask && m_own.occupied;
    if (m_asking) {
        m_windows.show({.window = WindowId::PatientName, .modal = true});
    } else {
        m_protocol.send(Code::XALU);
    }
}

QString OwnPresence::patientOf(const QString& typed) {
    constexpr int kShortest = 2;
    const QString name = typed.trimmed().left(kLongestPatient);
    return name.size() < kShortest ? QString() : name;
}

void OwnPresence::namePatient(const QString& name) {
    if (!m_asking) {
        return; // it was freed from elsewhere meanwhile
    }
    m_asking = false;
    m_own.patientName = FitText(patientOf(name));
    emit changed();
    m_protocol.send(Code::XALU);
}

void OwnPresence::SetOccupiedStatusRemote(bool Named, const QString& Name) {
    m_asking = false;
    toggleOccupied(Named ? Name : QString());
    m_protocol.send(Code::XALU);
}

void OwnPresence::Set_StaffTag(std::int16_t tag) {
    m_own.staffTagTime = tag != 0 ? m_clock.timeText() : QString();
    announceStaffTag(tag);
}

void OwnPresence::announceStaffTag(std::int16_t tag) {
    m_own.staffTag = tag;
    emit changed();
    m_protocol.send(Code::XAST);
}

void OwnPresence::ClearStaffTag(const QString& SID) {
    if (SID == m_own.SID) {
        announceStaffTag(0);
    } else if (!SID.isEmpty()) {
        m_protocol.send(Code::XASTR, QString(SID + ValueMark + u'0'));
    }
}

void OwnPresence::SaveActiveNote() {
    m_data.WriteSetting(kUserFile, QStringLiteral("Note"), QStringLiteral("ACTIVE"), m_own.note);
}

void OwnPresence::SetLocationNote(const QString& note) {
    m_own.note = FitText(note).trimmed();
    SaveActiveNote();
    emit changed();
    m_protocol.send(Code::XALNU);
}

bool OwnPresence::SetActiveNote(const QString& typed) {
    if (typed.trimmed().size() < kShortestNote) {
        return false;
    }
    SetLocationNote(typed.trimmed().left(kLongestNote));
    return true;
}

void OwnPresence::RemoveActiveNote() {
    m_own.note.clear();
    emit changed();
    m_protocol.send(Code::XALNU);
}

} // namespace tessel
