// A network in memory: it carries bytes between links of the same group and port, and can lose, double
// and delay them.
#pragma once

#include "VirtualClock.h"
#include "engine/ports/cLink.h"

#include <QByteArray>

#include <map>
#include <random>
#include <vector>

namespace tessel {

class FakeLink;

class FakeNetwork {
public:
    explicit FakeNetwork(VirtualClock& clock);

    // Chances from 0 to 1, and the longest delay: with more than 0, datagrams overtake each other.
    double loss = 0;
    double doubling = 0;
    int longestDelayMs = 0;

    // Everything sent, in order; only while `keepSent` is on.
    bool keepSent = true;
    std::vector<QByteArray> sent;

    // Sends from outside, to all links of the default group. `source`: as in `Link::dataIn`.
    void inject(const QByteArray& datagram, quint32 source = 0);

private:
    friend class FakeLink;
    struct InFlight {
        QByteArray bytes;
        int port;
        QString group;
        quint32 source;
    };
    void send(const QByteArray& bytes, int port, const QString& group, quint32 source);
    void deliverDue();

    VirtualClock& m_clock;
    std::mt19937 m_random{1};
    std::vector<FakeLink*> m_links;
    int m_gone = 0; // links that are no more
    std::multimap<std::int64_t, InFlight> m_inFlight;
};

class FakeLink : public Link {
    Q_OBJECT
public:
    explicit FakeLink(FakeNetwork& network);
    ~FakeLink() override;

    bool open(const LinkConfig& config) override;
    void close() override { m_active = false; }
    bool isActive() const override { return m_active; }
    bool send(QByteArrayView datagram) override;
    std::vector<Adapter> adapters() const override { return adapterList; }
    bool rejoin() override;
    bool interfaceIsThere() const override { return interfaceThere; }
    bool isOwnAddress(quint32 asked) const override { return asked == address; }

    // What the test wants of the next `open`, and what the last one was given.
    bool refuse = false;
    LinkConfig config;
    int opened = 0;
    bool interfaceThere = true;
    bool noWay = false; // nothing leaves the machine
    // Hears nothing of others, or not even itself, until it joins anew.
    bool deafToOthers = false;
    bool deafToItself = false;
    bool joiningHelps = true;
    std::vector<std::int64_t> rejoinedAt; // moments of the clock
    std::vector<Adapter> adapterList;
    quint32 address = 0; // of the machine; by default each link has one
    // The socket breaks.
    void breakDown(int number);

private:
    friend class FakeNetwork;
    FakeNetwork& m_network;
    bool m_active = false;
};

} // namespace tessel
