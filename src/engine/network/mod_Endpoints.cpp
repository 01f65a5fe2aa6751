#include "engine/network/mod_Endpoints.h"

#include "engine/core/cErrorLog.h"
#include "engine/core/cOwnState.h"
#include "engine/core/cRestrictions.h"
#include "engine/core/mod_CodePage.h"
#include "engine/core/mod_ElapsedText.h"
#include "engine/core/mod_Limits.h"
#include "engine/core/mod_Settings.h"
#include "engine/network/mod_FitText.h"
#include "engine/network/mod_Network_MC.h"
#include "engine/network/mod_Network_Protocol.h"
#include "engine/ports/cClock.h"

#include <QSet>

namespace tessel {

namespace {

// The note of a row that a keep-alive brought: the packet that tells the note was never heard.
const QString kNoteUnknown = QStringLiteral("6");
const QString kBlank = QStringLiteral(" ");

// The second half of the tag word says nothing to a receiver.
std::int16_t tagOf(const QString& flags) {
    return flags.section(u':', 0, 0).trimmed().toShort();
}

QString presenceText(const cPacket& packet) {
    const QByteArrayView block = packet.bytes(Field::Presence);
    return toText(block.first(std::min<qsizetype>(block.size(), kMaxPresenceText)));
}

} // namespace

Endpoints::Endpoints(OwnState& own, const Settings& settings, const Restrictions& restrictions,
                     cErrorLog& log, const Clock& clock, NetworkProtocol& protocol, NetworkMC& network)
    : m_own(own), m_settings(settings), m_restrictions(restrictions), m_log(log), m_clock(clock),
      m_protocol(protocol), m_network(network) {
    attachHandlers(protocol);
}

void Endpoints::attachHandlers(NetworkProtocol& protocol) {
    protocol.attach(Code::XRKA, [this](const cPacket& packet) { keepAliveFrom(packet); });
    protocol.attach(Code::XAN, [this](const cPacket& packet) {
        const bool own = m_protocol.isOwn(packet);
        addFrom(packet, !own || m_settings.Settings_SHOWUSER());
        if (!own) {
            m_network.tmrAnnounce.setEnabled(true);
        }
    });
    protocol.attach(Code::XANR, [this](const cPacket& packet) { addFrom(packet, true); });
    protocol.attach(Code::XD, [this](const cPacket& packet) { RemoveEndpoint(packet.text(Field::SID)); });
    protocol.attach(Code::XAS, [this](const cPacket& packet) {
        ProcessUpdate(packet.text(Field::Location), packet.text(Field::SID), presenceText(packet),
                      packet.text(Field::Note));
    });
    protocol.attach(Code::XALU, [this](const cPacket& packet) {
        ProcessLocationUpdate(packet.text(Field::Location), packet.text(Field::SID), presenceText(packet),
                              packet.text(Field::Note));
    });
    protocol.attach(Code::XAST, [this](const cPacket& packet) {
        ProcessStaffUpdate(packet.text(Field::Location), packet.text(Field::SID), presenceText(packet));
    });
    protocol.attach(Code::XALNU, [this](const cPacket& packet) {
        ProcessLocationNote(packet.text(Field::Location), packet.text(Field::SID), packet.text(Field::Note));
    });
}

void Endpoints::addFrom(const cPacket& packet, bool show) {
    if (find(packet.bytes(Field::SID)) != nullptr) {
        return;
    }
    Add_Endpoint(packet.text(Field::Location), packet.text(Field::Host), packet.bodyText().left(kMaxRowText),
                 packet.text(Field::TagWord), packet.text(Field::SID), presenceText(packet),
                 packet.text(Field::Note), show, packet.text(Field::Marker));
}

void Endpoints::keepAliveFrom(const cPacket& packet) {
    if (!m_own.online) {
        return;
    }
    ReportRecord* const record = find(packet.bytes(Field::SID));
    if (record == nullptr) {
        Refresh_Endpoint(packet.text(Field::Location), packet.text(Field::Host),
                         packet.bodyText().left(kMaxRowText), packet.text(Field::TagWord),
                         packet.text(Field::SID), presenceText(packet), packet.text(Field::Marker));
        return;
    }
    refresh(*record);
    const QByteArrayView status = packet.presenceValue(PresenceValue::Status);
    if (status.size() >= 2) {
        // Not the row's own text: its characters are elsewhere in memory, and of thousands of rows cold.
        emit statusTimeRefreshed({packet.text(Field::SID),
                                  toText(status.first(std::min<qsizetype>(status.size(), kMaxRowText))),
                                  toText(packet.presenceValue(PresenceValue::StatusTime))});
    }
}

ReportRecord* Endpoints::find(QByteArrayView SID) const {
    // Looks the bytes up without making a text of them: nearly every packet comes this way.
    char16_t characters[kMaxRowText];
    const QByteArrayView cut = SID.first(std::min<qsizetype>(SID.size(), kMaxRowText));
    toText(cut, characters);
    return m_records.find(QStringView(characters, cut.size()));
}

bool Endpoints::roomForOneMore() {
    if (m_records.count() < kMaxEndpoints) {
        return true;
    }
    if (!m_fullLogged) {
        m_fullLogged = true;
        m_log.LogEvent(QStringLiteral("Endpoints"),
                       QStringLiteral("Table is full, new locations are ignored"),
                       QString::number(kMaxEndpoints));
    }
    return false;
}

void Endpoints::Add_Endpoint(const QString& Location, const QString& Host, const QString& Version,
                             const QString& Flags, const QString& SID, const QString& Presence,
                             const QString& Note, bool Show, const QString& Marker) {
    // The own row has its place in a full table too.
    if (FindEndpointRow(SID) >= 0 || (SID != m_own.SID && !roomForOneMore())) {
        return;
    }
    const auto presence = Presence::of(Presence);
    const auto record = std::make_shared<ReportRecord>(kEndpointItems);
    const auto put = [&record](EndpointItem index, const QString& text) { item(*record, index).text = text; };
    put(EndpointItem::Active, Location);
    put(EndpointItem::Host, Host);
    put(EndpointItem::Version, Version);
    put(EndpointItem::Flags, Flags);
    put(EndpointItem::SID, SID);
    put(EndpointItem::LastRefresh, m_clock.timeText());
    item(*record, EndpointItem::LastRefresh).value = m_clock.secondOfDay();
    put(EndpointItem::Status, presence.status);
    item(*record, EndpointItem::Status).value = presence.status.isEmpty() ? 0 : 1;
    put(EndpointItem::StatusTime, presence.statusTime);
    put(EndpointItem::Tag, QString::number(tagOf(Flags)));
    put(EndpointItem::Note, Note);
    put(EndpointItem::Marker, Marker);
    put(EndpointItem::Presence, Presence);
    put(EndpointItem::StaffTagTime, presence.staffTagTime);
    item(*record, EndpointItem::StaffTag).value = presence.staffTag;
    record->tag = presence.staffTag;
    if (SID == m_own.SID) {
        for (int index = 0; index < kVisibleEndpointItems; ++index) {
            record->item(index).foreColor = kGreen;
        }
    }
    m_records.append(record);
    if (Show) {
        emit added({Location, SID, Presence, presence, Note, tagOf(Flags), Marker});
    }
}

void Endpoints::refresh(ReportRecord& record) {
    ReportItem& cell = item(record, EndpointItem::LastRefresh);
    cell.text = m_clock.timeText();
    cell.value = m_clock.secondOfDay();
    m_records.redraw(record);
}

void Endpoints::Refresh_Endpoint(const QString& Location, const QString& Host, const QString& Version,
                                 const QString& Flags, const QString& SID, const QString& Presence,
                                 const QString& Marker) {
    if (!m_own.online) {
        return;
    }
    ReportRecord* const record = m_records.find(SID);
    if (record == nullptr) {
        Add_Endpoint(Location, Host, Version, Flags, SID, Presence, kNoteUnknown, true, Marker);
        return;
    }
    refresh(*record);
    const auto presence = Presence::of(Presence);
    if (presence.status.size() >= 2) {
        emit statusTimeRefreshed({SID, presence.status, presence.statusTime});
    }
}

void Endpoints::RemoveEndpoint(const QString& SID) {
    if (const ReportRecord* const record = m_records.find(SID); record != nullptr) {
        m_records.remove(record->row());
    }
    emit removed({SID});
}

bool Endpoints::Endpoint_VerifyOnline(const QString& SID) const {
    return FindEndpointRow(SID) >= 0;
}

int Endpoints::FindEndpointRow(const QString& SID) const {
    const ReportRecord* const record = m_records.find(SID);
    return record == nullptr ? -1 : record->row();
}

void Endpoints::RefreshAllEndpoints() {
    RemoveAllEndpoints();
    m_network.Announce();
}

void Endpoints::RemoveAllEndpoints() {
    m_records.clear();
    m_fullLogged = false;
    emit listsCleared();
}

void Endpoints::ResetUserLists() {
    RemoveAllEndpoints();
}

void Endpoints::keepAliveSent() {
    m_passDue = !m_passDue;
    if (!m_passDue) {
        Process_KeepAlive_Times();
    }
}

bool Endpoints::age(ReportRecord& record) {
    ReportItem& cell = item(record, EndpointItem::LastRefresh);
    const int minutes = (m_clock.secondOfDay() - cell.value) / 60;
    const int EPKM = m_network.EPKM();
    if (minutes == EPKM - 2) {
        cell.backColor = kYellow;
    } else if (minutes == EPKM - 1) {
        cell.backColor = kRed;
    } else if (minutes >= EPKM || minutes <= -1) {
        cell.backColor = kRed;
        return !m_restrictions.KA;
    }
    return false;
}

bool Endpoints::watch(ReportRecord& record) {
    ReportItem& cell = item(record, EndpointItem::LastRefresh);
    const int minutes = (m_clock.secondOfDay() - cell.value) / 60;
    if (minutes < m_network.EPKM() && minutes > -2) {
        Refresh_Endpoint(m_own.location, m_own.host, QString::fromLatin1(kVersion), QStringLiteral("0"),
                         m_own.SID, m_own.status + ValueMark + m_own.statusTime, kMarker);
        return false;
    }
    cell.backColor = kRed;
    m_log.LogEvent(QStringLiteral("NR"), QStringLiteral("Network Layer Reset"), QStringLiteral("NLR"));
    return true;
}

void Endpoints::Process_KeepAlive_Times() {
    // Removing a row while walking would mean to begin again; a table that times out as a whole, as
    // at midnight, would then take the square of its size. So the gone are removed in one sweep.
    QSet<const ReportRecord*> gone;
    QStringList goneSIDs;
    bool reset = false;
    for (int row = 0; row < m_records.count() && !reset; ++row) {
        ReportRecord& record = *m_records.at(row);
        item(record, EndpointItem::LastRefresh).backColor = kNoColor; // the paper of whoever draws it
        if (item(record, EndpointItem::SID).text == m_own.SID) {
            reset = watch(record);
        } else if (age(record)) {
            gone.insert(&record);
            goneSIDs += item(record, EndpointItem::SID).text;
        }
        m_records.redraw(record);
    }
    if (!gone.isEmpty()) {
        m_records.removeIf([&gone](const ReportRecord& record) { return gone.contains(&record); });
        emit removed(goneSIDs);
    }
    if (reset) {
        m_network.RestartNetwork();
    } else if (m_own.canSend() && m_records.find(m_own.SID) == nullptr) {
        // A goodbye under the own name, from a copy of this station, has removed the row, at all others
        // too; without it nothing watches the clock.
        m_network.Announce();
    }
}

void Endpoints::tell(HistoryCode code, const QString& word, const QString& location, const QString& SID,
                     const QString& text) {
    emit historyEntry({code, word, location, text, m_clock.timeText(), m_clock.dateText(), SID});
}

void Endpoints::tellStatusChange(const ReportRecord& record, const QString& location, const QString& SID,
                                 const Presence& now) {
    const auto before = Presence::of(item(record, EndpointItem::Presence).text);
    const QString withAge = before.status + QLatin1String(" ( ") +
                            ElapsedText(before.statusTime, {}, ElapsedForm::TimeOnly, m_clock.secondOfDay(),
                                        m_settings.Settings_STIMER()) +
                            QLatin1String(" ) ");
    if (now.status.isEmpty()) {
        if (m_settings.Recents_STC()) {
            tell(HistoryCode::StatusCleared, QStringLiteral("Status Cleared"), location, SID, withAge);
        }
    } else if (m_settings.Recents_ST()) {
        if (before.status.isEmpty()) {
            tell(HistoryCode::Status, QStringLiteral("Status"), location, SID, now.status);
        } else {
            tell(HistoryCode::StatusUpdated, QStringLiteral("Status Updated"), location, SID, withAge);
        }
    }
}

void Endpoints::ProcessUpdate(const QString& Location, const QString& SID, const QString& Presence,
                              const QString& Note) {
    const auto presence = Presence::of(Presence);
    if (ReportRecord* const record = m_records.find(SID); record != nullptr) {
        tellStatusChange(*record, Location, SID, presence);
        const bool set = !presence.status.isEmpty();
        item(*record, EndpointItem::Status).text = set ? presence.status.trimmed() : kBlank;
        item(*record, EndpointItem::Status).value = set ? 1 : 0;
        item(*record, EndpointItem::StatusTime).text = set ? presence.statusTime.trimmed() : kBlank;
        item(*record, EndpointItem::Presence).text = Presence;
        item(*record, EndpointItem::Note).text = Note;
        m_records.redraw(*record);
    }
    emit statusChanged({Location, SID, Presence, presence, Note});
}

void Endpoints::ProcessLocationUpdate(const QString& Location, const QString& SID, const QString& Presence,
                                      const QString& Note) {
    const auto presence = Presence::of(Presence);
    if (m_settings.Recents_LU()) {
        if (presence.occupied) {
            const QString text = presence.patientName.isEmpty()
                                     ? QStringLiteral("Occupied")
                                     : QLatin1String("Occupied (") + presence.patientName + u')';
            tell(HistoryCode::Occupied, text, Location, SID, text);
        } else if (m_settings.Recents_LUC()) {
            tell(HistoryCode::Open, QStringLiteral("Open"), Location, SID, QStringLiteral("Open"));
        }
    }
    emit locationChanged({Location, SID, Presence, presence, Note});
}

void Endpoints::ProcessStaffUpdate(const QString& Location, const QString& SID, const QString& Presence) {
    const auto presence = Presence::of(Presence);
    if (SID == m_own.SID) {
        m_own.staffTag = presence.staffTag;
        m_own.staffTagTime = presence.staffTag != 0 ? FitText(presence.staffTagTime) : QString();
    }
    if (ReportRecord* const record = m_records.find(SID); record != nullptr) {
        ReportItem& time = item(*record, EndpointItem::StaffTagTime);
        if (presence.staffTag != 0) {
            if (m_settings.Recents_STAG()) {
                tell(HistoryCode::StaffTagSet, QStringLiteral("Status Tag Set"), Location, SID, {});
            }
        } else if (m_settings.Recents_STAGC()) {
            tell(HistoryCode::StaffTagCleared, QStringLiteral("Status Tag Cleared"), Location, SID,
                 ElapsedText(time.text, {}, ElapsedForm::TimeOnly, m_clock.secondOfDay(),
                             m_settings.Settings_STIMER()));
        }
        time.text = presence.staffTag != 0 ? presence.staffTagTime : QString();
        item(*record, EndpointItem::StaffTag).value = presence.staffTag;
        record->tag = presence.staffTag;
        m_records.redraw(*record);
    }
    emit staffTagChanged({Location, SID, presence.staffTag, presence.staffTagTime});
}

void Endpoints::ProcessLocationNote(const QString& Location, const QString& SID, const QString& Note) {
    if (ReportRecord* const record = m_records.find(SID); record != nullptr) {
        item(*record, EndpointItem::Note).text = Note;
        m_records.redraw(*record);
    }
    emit noteChanged({Location, SID, Note});
}

} // namespace tessel
