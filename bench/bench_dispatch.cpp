// A keep-alive of a known location, from the bytes of its datagram to the refreshed row, in tables of
// several sizes. The station is whole; only its socket, clock and desktop are stand-ins.
#include "support/World.h"

#include "engine/core/mod_CodePage.h"
#include "engine/network/mod_Encode.h"

#include <benchmark/benchmark.h>

#include <QStringList>

#include <algorithm>
#include <cstring>
#include <numeric>
#include <random>

using namespace tessel;

namespace {

constexpr int kSIDSize = 12;

QString presence(bool withStatus) {
    const QString status = withStatus ? QStringLiteral("With a patient") : QString();
    const QString since = withStatus ? QStringLiteral("8:50:12 AM") : QString();
    return QStringList{status,
                       since,
                       withStatus ? QStringLiteral("-1") : QStringLiteral("0"),
                       QString(),
                       QStringLiteral("0"),
                       QString(),
                       since,
                       QStringLiteral("0"),
                       QString()}
        .join(ValueMark);
}

QByteArray keepAlive(const QByteArray& SID, int number, bool withStatus) {
    RawPacket packet;
    packet.SID = QString::fromLatin1(SID);
    packet.host = QStringLiteral("workstation-%1").arg(number % 10000, 4, 10, QChar(u'0'));
    packet.location = QStringLiteral("Room %1").arg(number % 10000, 4, 10, QChar(u'0'));
    packet.code = QStringLiteral("XRKA");
    packet.presence = presence(withStatus);
    packet.tagWord = QStringLiteral("7:0");
    packet.body = toText(EncodeBody(QByteArray(kVersion)));
    return packet.bytes();
}

// SIDs as the program makes them, each once.
std::vector<QByteArray> makeSIDs(int count) {
    std::vector<QByteArray> SIDs;
    for (int i = 0; i < count; ++i) {
        const auto letter = [](int n) { return static_cast<char>('A' + n % 26); };
        QByteArray SID = QByteArray::number(100000 + i * 7919 % 900000).left(6) + QByteArray::number(i % 10);
        SID.insert(3, QByteArray{1, letter(i)} + letter(i / 26));
        SID.insert(8, QByteArray{1, letter(i / 7)} + letter(i / 3) + letter(i / 676));
        SIDs.push_back(SID.leftJustified(kSIDSize, '0', true));
    }
    return SIDs;
}

class Office {
public:
    Office(int rows, bool withStatus) {
        m_world.network.keepSent = false;
        m_world.settle();
        auto SIDs = makeSIDs(rows);
        for (int i = 0; i < rows; ++i) {
            emit m_world[0].link.dataIn(keepAlive(SIDs[static_cast<std::size_t>(i)], i, withStatus));
        }
        if (table().count() != rows + 1) {
            qFatal("the table has %d rows instead of %d", table().count(), rows + 1);
        }
        // Senders come in no order at all, and a round is long enough that none is foreseeable.
        std::mt19937 random(5);
        constexpr int kLeastRound = 10000;
        while (static_cast<int>(m_order.size()) < kSIDSize * kLeastRound) {
            std::shuffle(SIDs.begin(), SIDs.end(), random);
            for (const QByteArray& SID : SIDs) {
                m_order.insert(m_order.end(), SID.begin(), SID.end());
            }
        }
        m_datagram = keepAlive(SIDs.front(), 0, withStatus);
        m_SIDAt = m_datagram.indexOf(SIDs.front());
    }

    // As after a read from the socket, the datagram is always in the same buffer: what varies is the
    // sender.
    void receiveNext() {
        std::memcpy(m_datagram.data() + m_SIDAt, m_order.data() + m_next, kSIDSize);
        m_next = m_next + kSIDSize == m_order.size() ? 0 : m_next + kSIDSize;
        emit m_world[0].link.dataIn(m_datagram);
    }

    ReportRecords& table() { return m_world[0]->endpoints.records(); }

private:
    World m_world{1};
    std::vector<char> m_order;
    std::size_t m_next = 0;
    QByteArray m_datagram;
    qsizetype m_SIDAt = 0;
};

void keepAliveOfKnown(benchmark::State& state) {
    const auto rows = static_cast<int>(state.range(0));
    Office office(rows, state.range(1) != 0);
    for (int i = 0; i < 2 * rows; ++i) {
        office.receiveNext();
    }
    const std::uint64_t before = office.table().revision();
    for (auto _ : state) {
        office.receiveNext();
    }
    if (office.table().revision() - before < static_cast<std::uint64_t>(state.iterations())) {
        state.SkipWithError("not every packet refreshed a row");
    }
    state.SetItemsProcessed(state.iterations());
}
BENCHMARK(keepAliveOfKnown)->ArgNames({"rows", "status"})->ArgsProduct({{10, 1000, 10000}, {0, 1}});

} // namespace
