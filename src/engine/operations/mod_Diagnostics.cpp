#include "engine/operations/mod_Diagnostics.h"

#include "engine/alerts/mod_Tones.h"
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

QString Diagnostics::GetDiagInfo() const {
    const QString soundTrouble = m_tones.trouble();
    const LinkConfig& config = m_network.config();
    QStringList adapters;
    QStringList addresses;
    for (const Adapter& adapter : m_network.adapters()) {
        adapters += adapter.name + u' ' + adapter.address;
        addresses += adapter.address;
    }
    QStringList lines;
    const auto add = [&lines](const char* label, const QString& value) {
        lines += QLatin1String(label) + u' ' + value;
    };
    add("Location:", m_own.location);
    add("Version:", QString::fromLatin1(kVersion));
    add("OS:", m_facts.osName);
    add("UDP Port:", QString::number(config.localPort));
    add("MCG:", config.group);
    add("TTL:", QString::number(config.timeToLive));
    add("Net Bind:", config.localHost);
    add("Net Send:", config.sendInterface);
    add("Net Rcv:", config.receiveInterface);
    add("Host:", m_own.host);
    add("HostIP:", m_own.ownIPAddress.isEmpty() ? addresses.value(0) : m_own.ownIPAddress);
    add("Net:", m_own.online ? QStringLiteral("Online") : QStringLiteral("Offline"));
    add("Adapters:", adapters.join(QLatin1String(", ")));
    add("DHCP:", QString());
    add("Username:", m_own.windowsUserName);
    add("Encode:", yesOrNo(m_settings.ENCODE()));
    add("Admin:", m_admin.AdminFilePresent ? QStringLiteral("True") : QStringLiteral("False"));
    if (m_admin.AdminFilePresent) {
        lines += QLatin1String("Admin Flags: ") + m_admin.GetAdminFlags();
    }
    if (!soundTrouble.isEmpty()) {
        add("Sound:", soundTrouble);
    }
    return lines.join(u'\n');
}

} // namespace tessel
