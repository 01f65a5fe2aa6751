// The text of packets: building and sending them, cutting apart what arrives, and the two meters.
#pragma once

#include "engine/network/cPacket.h"
#include "engine/network/mod_Catalogue.h"
#include "engine/ports/cLink.h"

#include <QByteArrayView>
#include <QString>

#include <array>
#include <cstdint>
#include <functional>
#include <vector>

namespace tessel {

class ReportRecords;
class Settings;
struct OwnState;

class NetworkProtocol {
public:
    using Handler = std::function<void(const cPacket&)>;
    // `source`: as `Link::dataIn` gives it.
    using Listener = std::function<void(const cPacket&, Code, quint32 source)>;

    NetworkProtocol(OwnState& own, const Settings& settings, Link& link)
        : m_own(own), m_settings(settings), m_link(link) {}

    // Only 0 exists; with any other value nothing is sent.
    void setProtocol(int protocol) { m_protocol = protocol; }
    // Bytes of the largest packet that the socket takes; 0: whatever the system takes.
    void setMaxPacketSize(int bytes) { m_maxPacketSize = bytes; }

    // Builds one packet with the own presence and sends it. Nothing at all happens while offline, or
    // behind the goodbye. False when nothing has left this machine.
    bool SendPacket(QStringView code, QStringView body, QStringView third);
    // The same with the third argument that the catalogue gives.
    void send(Code code, QStringView body = {});
    // Tells what others have not heard of this location's state, because there was no way to them at that
    // moment: they would go on showing a patient who has left. Nothing that was told is told again.
    void tellAgain();
    // Whether an announcement is among it.
    bool announcementLost() const;
    // Sends the goodbye, which is the last that leaves as long as `leaving` is set.
    void sendGoodbye();
    // The longest body, in characters, that a packet of this code has room for now. A longer one is lost.
    int bodyRoom(Code code) const;

    // Lets `handler` act on packets of this code that pass the code's filter. The last one set holds.
    void attach(Code code, Handler handler);

    // Lets `listener` hear of every packet of a known code, own ones too, before its filter is looked at.
    void listen(Listener listener) { m_listeners.push_back(std::move(listener)); }

    // Names a table in which packets look for the row of their sender. It hears of each sender before
    // the packet is taken apart.
    void addTable(const ReportRecords& table) { m_tables.push_back(&table); }

    // A datagram arrived: splits it and dispatches each packet, in order.
    void receive(QByteArrayView datagram, quint32 source = 0);
    void DispatchPacket(QByteArrayView text, quint32 source = 0);

    // Characters of packet text, sent and received since the last reset.
    double bytesSent() const { return m_bytesSent; }
    double bytesReceived() const { return m_bytesReceived; }
    void setMeters(double sent, double received);
    void AddBytesSent(QByteArrayView packet) { m_bytesSent += static_cast<double>(packet.size()); }
    void AddBytesReceived(QByteArrayView packet) { m_bytesReceived += static_cast<double>(packet.size()); }

    // Packet text that arrived and was not handled.
    void countReceived(double characters) { m_bytesReceived += characters; }

    // How much a datagram matters here, below `kWeights`: alerts and messages more than all else, and
    // what known locations send more than the same of unknown ones.
    static constexpr std::size_t kWeights = 9;
    DatagramWeight weigh(QByteArrayView datagram) const;

    // Packets of this run. A received one is counted when its code is known and its filter let it
    // pass, whether a handler is attached or not.
    std::uint64_t packetsSent() const { return m_packetsSent; }
    std::uint64_t packetsReceived(Code code) const { return m_received[indexOf(code)]; }
    std::uint64_t packetsReceived() const;

    // The presence block of the own state.
    QString ownPresence() const;
    // Whether a packet came from this station itself.
    bool isOwn(const cPacket& packet) const { return isOwnSID(packet.bytes(Field::SID)); }

private:
    bool transmit(QStringView code, QStringView body, QStringView third);
    void remember(Code code, bool sent);
    // All of a packet that stands before its body.
    QByteArray head(QStringView code, QStringView third) const;
    void expectSender(QByteArrayView packet) const;
    bool passes(Filter filter, const cPacket& packet) const;
    bool isTarget(QByteArrayView bytes) const;
    bool isOwnSID(QByteArrayView bytes) const;
    bool equalsOwnTag(QByteArrayView bytes) const;

    OwnState& m_own;
    const Settings& m_settings;
    Link& m_link;
    std::vector<Code> m_untold; // of the own state, each once
    bool m_known = false;       // others may have a row of this station: it has sent, and no goodbye since
    std::vector<const ReportRecords*> m_tables;
    std::vector<Listener> m_listeners;
    int m_protocol = 0;
    int m_maxPacketSize = 0;
    std::array<Handler, kCodeCount> m_handlers;
    std::array<std::uint64_t, kCodeCount> m_received{};
    std::uint64_t m_packetsSent = 0;
    double m_bytesSent = 0;
    double m_bytesReceived = 0;
};

} // namespace tessel
