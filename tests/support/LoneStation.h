// One station alone on its network, with the test in the part of all others.
#pragma once

#include "World.h"

#include "engine/core/mod_CodePage.h"
#include "engine/core/mod_Definitions.h"

#include <gtest/gtest.h>

namespace tessel {

class LoneStation : public testing::Test {
protected:
    LoneStation() {
        // In clear, so that a test can write bodies as it would read them.
        user("Advanced", "ENCODE", "0");
        user("User", "SID", "111AA111AAA1");
    }

    void user(const char* section, const char* key, const QString& value) {
        me.set(kUserFile, QLatin1String(section), QLatin1String(key), value);
    }
    void net(const char* key, const QString& value) {
        me.set(kNetFile, QStringLiteral("Config"), QLatin1String(key), value);
    }
    void admin(const char* key, const QString& value) {
        me.set(kAdminFile, QStringLiteral("Admin"), QLatin1String(key), value);
    }
    // Starts, and waits until the station is online.
    void begin() {
        world.start(0);
        world.run(6);
        ASSERT_TRUE(me->own.online);
    }
    // A packet from somebody else, heard at once.
    void hear(const RawPacket& packet) { me->protocol.receive(packet.bytes()); }
    void hear(const QString& code, const QString& body = {}, const QString& SID = kOther) {
        hear({.SID = SID, .code = code, .body = body});
    }
    // `target` and `values`, joined as the values of a body.
    static QString body(const QStringList& values) { return values.join(ValueMark); }
    static QString presence(const QString& status, const QString& statusTime = {}, bool occupied = false,
                            const QString& patient = {}, int staffTag = 0, const QString& staffTime = {},
                            bool dnd = false) {
        return QStringList{status,
                           statusTime,
                           occupied ? QStringLiteral("-1") : QStringLiteral("0"),
                           patient,
                           QString::number(staffTag),
                           staffTime,
                           {},
                           dnd ? QStringLiteral("-1") : QStringLiteral("0"),
                           {}}
            .join(ValueMark);
    }

    // What was sent since the last call, here or of `sentCodes`: "<code> <body>", values joined by "/".
    QStringList sent() {
        QStringList all;
        for (; m_seen < world.network.sent.size(); ++m_seen) {
            const auto packet = cPacket::parse(world.network.sent[m_seen], false);
            all += (toText(packet->bytes(Field::Code)) + u' ' + packet->bodyText().replace(ValueMark, "/"))
                       .trimmed();
        }
        return all;
    }
    // The codes alone.
    QStringList sentCodes() {
        QStringList codes;
        for (const QString& packet : sent()) {
            codes += packet.section(u' ', 0, 0);
        }
        return codes;
    }
    const ReportRecord* row(const QString& SID = kOther) { return me->endpoints.records().find(SID); }
    QString cell(EndpointItem index, const QString& SID = kOther) {
        const ReportRecord* const record = row(SID);
        return record == nullptr ? QStringLiteral("(no row)") : item(*record, index).text;
    }
    const ReportRecord* viewRow(const QString& SID = kOther) { return me->views.rptEndpoints.find(SID); }
    QString shown(LocationItem index, const QString& SID = kOther) {
        const ReportRecord* const record = viewRow(SID);
        return record == nullptr ? QStringLiteral("(no row)") : item(*record, index).text;
    }
    QStringList errorLines() const {
        return toText(me.fileBytes(kErrorFile)).split(u'\n', Qt::SkipEmptyParts);
    }
    int loggedWith(const QString& text) const { return static_cast<int>(errorLines().filter(text).size()); }

    inline static const QString kMe = QStringLiteral("111AA111AAA1");
    inline static const QString kOther = QStringLiteral("999XX999XXX9");

    World world{1};
    WorldStation& me = world[0];

private:
    std::size_t m_seen = 0;
};

} // namespace tessel
