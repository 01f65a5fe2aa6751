#include "engine/operations/mod_Diagnostics.h"

#include "engine/core/cOwnState.h"
#include "engine/core/mod_Settings.h"
#include "engine/network/mod_Network_MC.h"
#include "engine/operations/mod_Admin.h"
#include "engine/ports/cSystemFacts.h"

#include <QStringList>

namespace tessel {

namespace {
QString yesOrNo(bool yes) {
    return yes ? QStringLiteral("Yes") : QStringLiteral("No");
}
} // namespace

QString GetDiagInfo(const OwnState& own, const SystemFacts& facts, const NetworkMC& network,
                    const Settings& settings, const Admin& admin, const QString& soundTrouble) {
    const LinkConfig& config = network.config();
    QStringList adapters;
    QStringList addresses;
    for (const Adapter& adapter : network.adapters()) {
        adapters += adapter.name + u' ' + adapter.address;
        addresses += adapter.address;
    }
    QStringList lines;
    const auto add = [&lines](const char* label, const QString& value) {
        lines += QLatin1String(label) + u' ' + value;
    };
    add("Location:", own.location);
    add("Version:", QString::fromLatin1(kVersion));
    add("OS:", facts.osName);
    add("UDP Port:", QString::number(config.localPort));
    add("MCG:", config.group);
    add("TTL:", QString::number(config.timeToLive));
    add("Net Bind:", config.localHost);
    add("Net Send:", config.sendInterface);
    add("Net Rcv:", config.receiveInterface);
    add("Host:", own.host);
    add("HostIP:", own.ownIPAddress.isEmpty() ? addresses.value(0) : own.ownIPAddress);
    add("Net:", own.online ? QStringLiteral("Online") : QStringLiteral("Offline"));
    add("Adapters:", adapters.join(QLatin1String(", ")));
    add("DHCP:", QString());
    add("Username:", own.windowsUserName);
    add("Encode:", yesOrNo(settings.ENCODE()));
    add("Admin:", admin.AdminFilePresent ? QStringLiteral("True") : QStringLiteral("False"));
    if (admin.AdminFilePresent) {
        lines += QLatin1String("Admin Flags: ") + admin.GetAdminFlags();
    }
    if (!soundTrouble.isEmpty()) {
        add("Sound:", soundTrouble);
    }
    return lines.join(u'\n');
}

} // namespace tessel
