#include "engine/core/mod_Identity.h"

#include "engine/core/cErrorLog.h"
#include "engine/core/cOwnState.h"
#include "engine/core/mod_Definitions.h"
#include "engine/core/mod_INIData.h"
#include "engine/ports/cClock.h"

#include <cmath>

namespace tessel {

namespace {
const QString kUserSection = QStringLiteral("User");
const QString kSIDKey = QStringLiteral("SID");
constexpr qsizetype kIDLength = 12;
} // namespace

Identity::Identity(OwnState& own, INIData& data, cErrorLog& log, const Clock& clock, std::uint64_t seed)
    : m_own(own), m_data(data), m_log(log) {
    // Workstations that an image server starts at the same second must not get the same id, so the
    // clock alone will not do.
    m_random.seed(seed != 0 ? seed
                            : (static_cast<std::uint64_t>(std::random_device{}()) << 32U) ^
                                  std::random_device{}() ^ static_cast<std::uint64_t>(clock.localSeconds()));
}

void Identity::LoadSID() {
    QString keptAs;
    m_damage.clear();
    if (!m_data.PutAsideDamaged(kUserFile, keptAs)) {
        m_own.SID.clear();
        tellOfDamage(QStringLiteral("user.cfg is damaged and cannot be put aside: nothing is saved"));
        return;
    }
    if (!keptAs.isEmpty()) {
        tellOfDamage(QStringLiteral("user.cfg was damaged and is kept as %1").arg(keptAs));
    }
    m_own.SID = m_data.ReadSettingRaw(kUserFile, kUserSection, kSIDKey);
    if (m_own.SID.isEmpty()) {
        m_own.SID = CreateSID();
    }
}

void Identity::tellOfDamage(const QString& text) {
    m_log.LogEvent(QStringLiteral("Files"), text, QStringLiteral("FDM"));
    m_damage = text;
}

QString Identity::CreateSID() {
    const QString id = MakeRandomID(QString::fromLatin1(kSIDMask));
    const bool stored = m_data.WriteSetting(kUserFile, kUserSection, kSIDKey, id);
    m_log.LogEvent(QStringLiteral("New SID"), QStringLiteral("SID Created"), id);
    return stored ? id : QString();
}

void Identity::ResetSID() {
    m_log.LogEvent(QStringLiteral("SID Reset"), QStringLiteral("SID Deleted"), m_own.SID);
    m_log.LogEvent(QStringLiteral("Old SID"), QStringLiteral("SID Deleted"), m_own.SID);
    m_data.DeleteSetting(kUserFile, kUserSection, kSIDKey);
    CreateSID();
}

QString Identity::MakeRandomID(const QString& mask) {
    std::uniform_real_distribution<double> unit(0.0, 1.0);
    QString id;
    for (const QChar c : mask) {
        if (c == u'#') {
            id += QString::number(std::lround(unit(m_random) * 9));
        } else if (c == u'X') {
            id += QChar(static_cast<char16_t>(std::floor(26 * unit(m_random) + 65)));
        } else {
            id += c;
        }
    }
    return id.size() == kIDLength ? id : QString();
}

} // namespace tessel
