#include "engine/alerts/mod_Messages.h"

#include "engine/core/cErrorLog.h"
#include "engine/core/cOwnState.h"
#include "engine/core/mod_Definitions.h"
#include "engine/core/mod_Limits.h"
#include "engine/core/mod_Settings.h"
#include "engine/network/mod_FitText.h"
#include "engine/network/mod_Network_Protocol.h"
#include "engine/ports/cClock.h"

namespace tessel {

Messages::Messages(const OwnState& own, const Settings& settings, cErrorLog& log, const Clock& clock,
                   NetworkProtocol& protocol)
    : m_own(own), m_settings(settings), m_log(log), m_clock(clock) {
    protocol.attach(Code::XATM, [this](const cPacket& packet) {
        ProcessMessage(packet.bodyText(), packet.text(Field::SID), packet.text(Field::Location));
    });
    protocol.attach(Code::XATE, [this](const cPacket& packet) {
        ProcessMessageAll(packet.bodyText(), packet.text(Field::SID), packet.text(Field::Location));
    });
    protocol.attach(Code::XATG, [this](const cPacket& packet) {
        // Cut at the mark wherever it stands: a text that holds it ends there.
        ProcessMessageAll(packet.bodyText().section(ListMark, 1, 1), packet.text(Field::SID),
                          packet.text(Field::Location));
    });
}

void Messages::ProcessMessage(const QString& body, const QString& SID, const QString& location) {
    process(m_listed, body, SID, location);
}

void Messages::ProcessMessageAll(const QString& body, const QString& SID, const QString& location) {
    process(m_everyone, body, SID, location);
}

void Messages::process(Road& road, const QString& body, const QString& SID, const QString& location) {
    enum Value { Kind, Recipients, MessageID, Text };
    const QString id = body.section(ValueMark, MessageID, MessageID);
    const QString text = body.section(ValueMark, Text, Text);
    const QString recipients = body.section(ValueMark, Recipients, Recipients);
    // Who reads a log leaves out what stands between the brackets, so that the last must not be cut off.
    const QString raw = u'[' + body.left(kMaxLogArgument - 2) + u']';
    const auto debug = [&](const char* what, const QString& detail) {
        if (m_settings.Settings_TestMode()) {
            m_log.LogEvent(QStringLiteral("Messages"), QLatin1String(what) + QLatin1String(road.logSuffix),
                           detail);
        }
    };
    if (text.isEmpty()) {
        debug("Debug Blank Message", raw);
    }
    if (recipients.isEmpty()) {
        debug("Debug No Recipient", raw);
    }
    if (id == road.lastID) {
        debug("Duplicate MessageID", id);
        return;
    }
    road.lastID = id;
    if (road.everyone || isRecipient(recipients)) {
        emit arrived({body.section(ValueMark, Kind, Kind), road.everyone, id, location, SID, text,
                      m_clock.timeText(), m_clock.dateText()});
    }
}

bool Messages::isRecipient(const QString& recipients) const {
    const QStringView all(recipients);
    for (qsizetype begin = 0; begin <= all.size();) {
        qsizetype end = all.indexOf(ListMark, begin);
        end = end < 0 ? all.size() : end;
        if (ListItemIs(all.sliced(begin, end - begin), m_own.SID)) {
            return true;
        }
        begin = end + ListMark.size();
    }
    return false;
}

} // namespace tessel
