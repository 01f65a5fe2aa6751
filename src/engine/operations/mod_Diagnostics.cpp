#include "engine/operations/mod_Diagnostics.h"

#include "engine/alerts/mod_Tones.h"
#include "engine/core/cErrorLog.h"
#include "engine/core/cOwnState.h"
#include "engine/core/mod_Limits.h"
#include "engine/core/mod_Settings.h"
#include "engine/network/mod_Network_MC.h"
#include "engine/operations/mod_Admin.h"
#include "engine/operations/mod_LocationReport.h"
#include "engine/ports/cClock.h"
#include "engine/ports/cSystemFacts.h"

#include <algorithm>

namespace tessel {

namespace {
constexpr int kLogLines = 200;

QString yesOrNo(bool yes) {
    return yes ? QStringLiteral("Yes") : QStringLiteral("No");
}
} // namespace

QString Diagnostics::GetDiagInfo() const {
    const LinkConfig& config = m_from.network.config();
    const OwnState& own = m_from.own;
    const std::vector<Adapter> all = m_from.network.adapters();
    QStringList adapters;
    for (const Adapter& adapter : all) {
        adapters += (adapter.name + u' ' + adapter.address).trimmed();
    }
    const auto used = std::find_if(all.begin(), all.end(), [&own](const Adapter& adapter) {
        return own.ownIPAddress.isEmpty() ? !adapter.address.isEmpty() : adapter.address == own.ownIPAddress;
    });
    const QString address =
        !own.ownIPAddress.isEmpty() || used == all.end() ? own.ownIPAddress : used->address;
    QStringList lines;
    const auto add = [&lines](const char* label, const QString& value) {
        lines += QLatin1String(label) + u' ' + value;
    };
    add("Location:", own.location);
    add("Version:", QString::fromLatin1(kVersion));
    add("OS:", m_from.facts.osName);
    add("UDP Port:", QString::number(config.localPort));
    add("MCG:", config.group);
    add("TTL:", QString::number(config.timeToLive));
    add("Net Bind:", config.localHost);
    add("Net Send:", config.sendInterface);
    add("Net Rcv:", config.receiveInterface);
    add("Host:", own.host);
    add("HostIP:", address);
    add("Net:", own.online ? QStringLiteral("Online") : QStringLiteral("Offline"));
    add("Adapters:", adapters.join(QLatin1String(", ")));
    add("DHCP:", used == all.end() ? QString() : yesOrNo(used->leased));
    add("Username:", own.windowsUserName);
    add("Encode:", yesOrNo(m_from.settings.ENCODE()));
    add("Admin:", m_from.admin.AdminFilePresent ? QStringLiteral("True") : QStringLiteral("False"));
    if (m_from.admin.AdminFilePresent) {
        lines += QLatin1String("Admin Flags: ") + m_from.admin.GetAdminFlags();
    }
    return lines.join(u'\n');
}

QString Diagnostics::SoundInfo() const {
    const QString trouble = m_from.tones.trouble();
    return trouble.isEmpty() ? QStringLiteral("The sound player is there") : trouble;
}

QStringList Diagnostics::LogLines() const {
    return m_from.log.lastLines(kLogLines);
}

QString Diagnostics::HelpReport() const {
    QString report = QLatin1String("Tessel Status report, ") + m_from.clock.dateText() + u' ' +
                     m_from.clock.timeText() + QLatin1String(", running since ") + m_from.own.startDate +
                     u' ' + m_from.own.startTime + u'\n';
    const auto section = [&report](const char* title, const QString& text) {
        report += QLatin1String("\n== ") + QLatin1String(title) + QLatin1String(" ==\n") + text +
                  (text.endsWith(u'\n') ? QLatin1String() : QLatin1String("\n"));
    };
    section("Status Information", GetDiagInfo());
    section("Sound", SoundInfo());
    section("Locations", locationReport(m_from.endpoints, m_from.protocol, ReportFacts::Technical));
    QStringList log = LogLines();
    std::transform(log.begin(), log.end(), log.begin(), withoutBrackets);
    section("Log", log.isEmpty() ? QStringLiteral("(empty)") : log.join(u'\n'));
    section("Versions", m_from.facts.versions().join(u'\n'));
    return report;
}

QString withoutBrackets(const QString& line) {
    const qsizetype open = line.indexOf(u'[');
    if (open < 0) {
        return line;
    }
    // What was written there may hold brackets of its own; and a line may have been cut.
    const qsizetype close = line.size() < kMaxLogArgument ? line.lastIndexOf(u']') : -1;
    return line.first(open) + QLatin1String("[...]") + (close > open ? line.sliced(close + 1) : QString());
}

} // namespace tessel
