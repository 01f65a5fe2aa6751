// Any bytes as datagrams of the network, on a whole station: it must go on, and its lists agree.
//
// The input is a row of chunks: a length of two bytes, highest first, then as many bytes of one
// datagram. Between them the clock goes on by the datagram's last byte, so timers tick.
#include "support/World.h"

#include "engine/core/mod_CodePage.h"
#include "engine/core/mod_Definitions.h"
#include "engine/core/mod_Limits.h"

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

using namespace tessel;

namespace {

void require(bool holds, int line = __builtin_LINE()) {
    if (!holds) {
        std::fprintf(stderr, "line %d does not hold\n", line);
        std::abort();
    }
}

// One station for many inputs, since making one costs more than the input; rebuilt now and then so
// that a find does not hang on what came long before it.
class Target {
public:
    Target() {
        world[0].set(kUserFile, QStringLiteral("User"), QStringLiteral("SID"),
                     QStringLiteral("111AA111AAA1"));
        world[0].set(kUserFile, QStringLiteral("Advanced"), QStringLiteral("ENCODE"), QStringLiteral("0"));
        world[0].set(kUserFile, QStringLiteral("Settings"), QStringLiteral("TestMode"), QStringLiteral("0"));
        world.network.keepSent = false;
        world.settle();
    }

    void hear(QByteArrayView datagram) {
        Station& station = *world[0].station;
        station.protocol.receive(datagram);
        world.clock.advance(datagram.isEmpty() ? 1 : static_cast<unsigned char>(datagram.back()) * 16);
        check();
    }

    bool ended() { return world[0]->own.exiting; }

    // A good packet is heard as if nothing had been.
    void checkAlive() {
        Station& station = *world[0].station;
        world.run(7); // a reset of the network is over by then, and so is an end of the program
        if (ended()) {
            return;
        }
        require(station.own.online && station.protocol.bytesReceived() > 0);
        const QByteArray here =
            RawPacket{.SID = QStringLiteral("alive"), .code = QStringLiteral("XAN")}.bytes();
        const QByteArray gone =
            RawPacket{.SID = QStringLiteral("alive"), .code = QStringLiteral("XD")}.bytes();
        station.protocol.receive(here);
        require(station.endpoints.Endpoint_VerifyOnline(QStringLiteral("alive")));
        station.protocol.receive(gone);
        require(!station.endpoints.Endpoint_VerifyOnline(QStringLiteral("alive")));
    }

private:
    void check() {
        Station& station = *world[0].station;
        const ReportRecords& table = station.endpoints.records();
        const ReportRecords& view = station.views.rptEndpoints;
        require(table.count() == view.count());
        for (int row = 0; row < table.count(); ++row) {
            const ReportRecord& record = *table.at(row);
            require(record.row() == row && table.find(item(record, EndpointItem::SID).text) == &record);
            const ReportRecord* const shown = view.find(item(record, EndpointItem::SID).text);
            require(shown != nullptr);
            require(item(*shown, LocationItem::Staff).value == item(record, EndpointItem::StaffTag).value);
            const QString& note = item(record, EndpointItem::Note).text;
            require(shown->preview == (note.size() > 3 ? note : QString()));
            require(item(record, EndpointItem::Presence).text.size() <= kMaxPresenceText);
            for (const EndpointItem index :
                 {EndpointItem::Active, EndpointItem::Host, EndpointItem::Version, EndpointItem::Flags,
                  EndpointItem::SID, EndpointItem::Status, EndpointItem::Note, EndpointItem::Marker}) {
                require(item(record, index).text.size() <= kMaxRowText);
            }
        }
        const OwnState& own = station.own;
        require(own.SID == QLatin1String("111AA111AAA1"));
        require(own.status.size() <= kMaxRowText && own.patientName.size() <= kMaxRowText &&
                own.note.size() <= kMaxRowText);
        require(own.occupied || own.patientName.isEmpty());
    }

    World world{1};
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    static std::unique_ptr<Target> target;
    static int runs = 0;
    if (target == nullptr || target->ended() || ++runs % 500 == 0) {
        target.reset();
        target = std::make_unique<Target>();
    }
    const QByteArrayView all(reinterpret_cast<const char*>(bytes), static_cast<qsizetype>(size));
    qsizetype at = 0;
    while (at + 2 <= all.size() && !target->ended()) {
        const qsizetype wanted = bytes[at] << 8 | bytes[at + 1];
        const qsizetype length = std::min(wanted, all.size() - at - 2);
        target->hear(all.sliced(at + 2, length));
        at += 2 + length;
    }
    target->checkAlive();
    return 0;
}
