#include "engine/network/mod_Network_MC.h"

#include "engine/core/cErrorLog.h"
#include "engine/core/cInifile.h"
#include "engine/core/cOwnState.h"
#include "engine/core/mod_Definitions.h"
#include "engine/core/mod_INIData.h"
#include "engine/network/mod_NetworkGroups.h"
#include "engine/network/mod_Network_Protocol.h"

#include <limits>
#include <utility>

namespace tessel {

namespace {

const QString kSection = QStringLiteral("Config");
constexpr int kBufferSize = 8048;
constexpr int kKeepAliveMs = 45000;
constexpr int kKeepAliveMinutes = 4;
constexpr int kGoodbyeSeconds = 1;
// A lease, its address and its routes come one after the other.
constexpr int kSettleMs = 2000;
// The same trouble, over and over, is worth one line a minute.
constexpr std::int64_t kSameErrorMs = 60000;

QString version() {
    return QString::fromLatin1(kVersion);
}

} // namespace

NetworkMC::NetworkMC(OwnState& own, INIData& data, cErrorLog& log, Clock& clock, Link& link,
                     NetworkProtocol& protocol)
    : tmrNetStart(clock, "tmrNetStart", 5000, Timer::Kind::OneShot, [this] { startNow(); }),
      tmrSettle(clock, "tmrSettle", kSettleMs, Timer::Kind::OneShot, [this] { interfacesSettled(); }),
      tmrKA(clock, "tmrKA", 30000, Timer::Kind::Repeating,
            [this] {
                m_protocolLayer.send(Code::XRKA, version());
                tellAgain();
                emit keepAliveSent();
            }),
      tmrAnnounce(clock, "tmrAnnounce", 3000, Timer::Kind::OneShot,
                  [this] { m_protocolLayer.send(Code::XANR, version()); }),
      m_own(own), m_data(data), m_log(log), m_clock(clock), m_link(link), m_protocolLayer(protocol),
      m_wait(clock) {
    connect(&link, &Link::error, this, &NetworkMC::socketError);
    connect(&link, &Link::interfacesChanged, this, [this] { tmrSettle.restart(); });
}

void NetworkMC::startNow() {
    if (m_own.exiting) {
        return;
    }
    m_startTried = true;
    emit startingNetwork();
    if (m_protocol == 0) {
        Network_Start();
    }
}

void NetworkMC::interfacesSettled() {
    // A start that is due anyway, or has not been asked for yet, sees the interfaces as they then are.
    if (starting()) {
        return;
    }
    if (!m_own.online) {
        startNow();
    } else if (!m_link.interfaceIsThere()) {
        if (dueAgain(m_lastChangeAt)) {
            m_log.LogEvent(QStringLiteral("Adapter"),
                           QStringLiteral("The network adapter has changed, the network restarts"),
                           QStringLiteral("ADPC"));
        }
        RestartNetwork();
    } else {
        tellAgain();
    }
}

void NetworkMC::tellAgain() {
    if (m_protocolLayer.announcementLost()) {
        Announce();
    }
    m_protocolLayer.tellAgain();
}

bool NetworkMC::dueAgain(std::int64_t& last) const {
    const std::int64_t now = m_clock.monotonicMs();
    if (last >= 0 && now - last < kSameErrorMs) {
        return false;
    }
    last = now;
    return true;
}

QString NetworkMC::netSetting(const char* key, const QString& fallback) const {
    return m_data.ReadSetting(kNetFile, kSection, QLatin1String(key), fallback);
}

int NetworkMC::netNumber(const char* key, int fallback) const {
    return cInifile::CLngDefault(netSetting(key, {}), fallback);
}

void NetworkMC::LoadNetworkProtocol() {
    m_protocol = netNumber("Protocol", 0);
    m_protocolLayer.setProtocol(m_protocol);
    m_epkm = netNumber("EPKM", kKeepAliveMinutes);
    if (m_epkm < std::numeric_limits<std::int16_t>::min() ||
        m_epkm > std::numeric_limits<std::int16_t>::max()) {
        m_epkm = kKeepAliveMinutes;
    }
    m_ka = netNumber("ka", kKeepAliveMs);
}

void NetworkMC::Network_LoadConfig() {
    const NetworkGroup& group = networkGroup(netSetting("net", QStringLiteral("0")));
    const int rejoin = netNumber("rejoin", 1);
    m_rejoin = rejoin == 0 ? Rejoin::Never : rejoin == 2 ? Rejoin::Always : Rejoin::WhenDeaf;
    m_config = {};
    m_config.maxPacketSize = netNumber("maxp", kBufferSize);
    m_protocolLayer.setMaxPacketSize(m_config.maxPacketSize);
    m_config.inBufferSize = netNumber("maxibp", kBufferSize);
    m_config.outBufferSize = netNumber("maxob", kBufferSize);
    m_config.localPort = group.port;
    m_config.remotePort = group.port;
    m_config.group = QString::fromLatin1(group.address);
    m_config.remoteHost = m_config.group;
    m_config.timeToLive = group.timeToLive;
    if (group.overridable) {
        // A text that is no number fails at the socket, as a wrong number would.
        constexpr int kNoNumber = -1;
        const auto number = [this](const char* key, int fallback) {
            return cInifile::CLngDefault(netSetting(key, QString::number(fallback)), kNoNumber);
        };
        m_config.localPort = number("mclport", group.port);
        m_config.remotePort = number("mcrport", group.port);
        m_config.group = netSetting("mcgroup", m_config.group);
        m_config.remoteHost = netSetting("mchost", m_config.remoteHost);
        m_config.timeToLive = number("mcttl", group.timeToLive);
    }
}

int NetworkMC::storedAdapter() const {
    return netNumber("adapter", -1);
}

bool NetworkMC::chooseInterfaces() {
    const QString iphost = netSetting("iphost", {});
    if (!netSetting("adapter", {}).isEmpty()) {
        const std::vector<Adapter> list = m_link.adapters();
        const int index = storedAdapter();
        if (index < 0 || index >= static_cast<int>(list.size())) {
            logAdapter(QStringLiteral("There is no such network adapter, of %1").arg(list.size()));
            return false;
        }
        const Adapter& adapter = list[static_cast<std::size_t>(index)];
        if (adapter.address.isEmpty()) {
            // Any other one would lead to some other network.
            logAdapter(QLatin1String("The network adapter has no address: ") + adapter.name);
            return false;
        }
        m_own.ownIPAddress = adapter.address;
    } else if (!iphost.isEmpty()) {
        m_own.ownIPAddress = iphost;
    }
    if (netNumber("adapov", 0) != 0) {
        m_config.sendInterface = netSetting("adpsend", {});
        m_config.receiveInterface = netSetting("adprecv", {});
    } else if (!m_own.ownIPAddress.isEmpty() && m_own.ownIPAddress != m_own.host) {
        // The host's own name says nothing about an adapter, so the system chooses.
        m_config.localHost = m_own.ownIPAddress;
        m_config.sendInterface = m_own.ownIPAddress;
        m_config.receiveInterface = m_own.ownIPAddress;
    }
    return true;
}

void NetworkMC::logAdapter(const QString& message) {
    if (dueAgain(m_lastAdapterAt)) {
        m_log.LogEvent(QStringLiteral("Adapter"), message, netSetting("adapter", {}));
    }
}

bool NetworkMC::bringUp() {
    emit footer({}, {}, true);
    Network_LoadConfig();
    m_link.close();
    return chooseInterfaces() && m_link.open(m_config);
}

void NetworkMC::Network_Start() {
    if (m_own.online) {
        return;
    }
    if (!bringUp()) {
        goOffline();
        return;
    }
    m_own.online = true;
    m_own.leaving = false;
    emit canSendChanged();
    tmrKA.setInterval(m_ka);
    tmrKA.setEnabled(true);
    Announce();
    m_protocolLayer.tellAgain();
    // The first packet may have shown that there is no way out.
    if (m_own.online) {
        emit footer(QStringLiteral("Online"), {}, true);
    }
}

void NetworkMC::Announce() {
    m_protocolLayer.send(Code::XAN, version());
}

bool NetworkMC::starting() const {
    return !m_startTried || m_own.leaving || tmrNetStart.enabled();
}

bool NetworkMC::CanSend() {
    if (!m_own.canSend()) {
        emit remark(QStringLiteral("Not sent: offline"), QStringLiteral("No Connection to network"));
    }
    return m_own.canSend();
}

void NetworkMC::goOffline() {
    m_own.online = false;
    m_link.close();
    emit canSendChanged();
    emit footer(QStringLiteral("Offline"), QStringLiteral("No Connection to network"), false);
}

void NetworkMC::Network_Stop() {
    // A second request during the wait is already being carried out.
    if (m_own.leaving) {
        return;
    }
    // Before anybody hears of it: whoever draws the commands must find them disabled.
    m_own.leaving = true;
    emit footer(QStringLiteral("Disconnecting"), QStringLiteral("Offline"), false);
    sayGoodbye();
    m_own.online = false;
    m_link.close();
    m_own.leaving = m_own.exiting;
    m_restartWanted = false;
}

void NetworkMC::sayGoodbye() {
    m_own.leaving = true;
    emit canSendChanged();
    m_protocolLayer.sendGoodbye();
    m_wait.WaitSeconds(kGoodbyeSeconds);
}

void NetworkMC::AnnounceAnew() {
    if (!m_own.canSend()) {
        return;
    }
    sayGoodbye();
    if (m_own.exiting) {
        return;
    }
    m_own.leaving = false;
    emit canSendChanged();
    if (std::exchange(m_restartWanted, false)) {
        RestartNetwork();
    } else {
        Announce();
    }
}

int NetworkMC::networkGroupRow() const {
    return static_cast<int>(&networkGroup(netSetting("net", QStringLiteral("0"))) - kNetworkGroups.data());
}

void NetworkMC::SaveNetwork(int group) {
    if (group == networkGroupRow()) {
        return;
    }
    m_data.WriteSetting(kNetFile, kSection, QStringLiteral("net"), QString::number(group));
    emit footer({}, {}, false);
    RestartNetwork();
}

void NetworkMC::RestartNetwork() {
    if (m_own.leaving) {
        m_restartWanted = true;
        return;
    }
    if (m_link.isActive()) {
        Network_Stop();
    }
    // The program may have been ended during the wait for the goodbye.
    if (m_own.exiting) {
        return;
    }
    emit resetUserLists();
    tmrNetStart.setEnabled(true);
}

void NetworkMC::socketError(int number, const QString& description) {
    if (number != m_lastError) {
        m_lastError = number;
        m_lastErrorAt = -1;
    }
    if (dueAgain(m_lastErrorAt)) {
        m_log.LogEvent(QStringLiteral("MSocket"), description, QString::number(number));
    }
    if (m_own.online && !m_link.isActive()) {
        goOffline();
    }
}

void NetworkMC::ChooseAdapter(int adapter, const QString& address) {
    if (address.isEmpty() || address == u"0.0.0.0") {
        m_own.ownIPAddress.clear();
        m_data.DeleteSetting(kNetFile, kSection, QStringLiteral("iphost"));
    } else {
        if (adapter >= 0) {
            m_data.WriteSetting(kNetFile, kSection, QStringLiteral("adapter"), QString::number(adapter));
        }
        m_data.WriteSetting(kNetFile, kSection, QStringLiteral("iphost"), address);
        m_own.ownIPAddress = address;
    }
    RestartNetwork();
}

void NetworkMC::ResetAdapter() {
    m_data.DeleteSetting(kNetFile, kSection, QStringLiteral("iphost"));
    m_data.DeleteSetting(kNetFile, kSection, QStringLiteral("adapter"));
    m_own.ownIPAddress.clear();
}

} // namespace tessel
