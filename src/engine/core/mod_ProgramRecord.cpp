#include "engine/core/mod_ProgramRecord.h"

#include "engine/core/cOwnState.h"
#include "engine/core/mod_Definitions.h"
#include "engine/core/mod_INIData.h"
#include "engine/ports/cClock.h"
#include "engine/ports/cSystemFacts.h"

namespace tessel {

namespace {
const QString kProgramSection = QStringLiteral("Program");
} // namespace

void ProgramRecord::writeStart() {
    m_data.WriteSettings(kUserFile, kProgramSection,
                         {{QStringLiteral("VER"), QString::fromLatin1(kVersion)},
                          {QStringLiteral("OS"), m_facts.osName},
                          {QStringLiteral("WIN"), m_own.windowsUserName},
                          {QStringLiteral("START"), m_own.startTime},
                          {QStringLiteral("DATE"), m_own.startDate},
                          {QStringLiteral("SHTDWN"), QString()}});
}

void ProgramRecord::writeEnd() {
    m_data.WriteSettings(
        kUserFile, kProgramSection,
        {{QStringLiteral("SHTDWN"), m_clock.timeText()}, {QStringLiteral("SHTDWNDATE"), m_clock.dateText()}});
}

} // namespace tessel
