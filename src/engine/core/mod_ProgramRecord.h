// The record of the last run in user.cfg: an end that is missing tells of a crash.
#pragma once

namespace tessel {

class Clock;
class INIData;
struct OwnState;
struct SystemFacts;

class ProgramRecord {
public:
    ProgramRecord(const OwnState& own, const SystemFacts& facts, INIData& data, const Clock& clock)
        : m_own(own), m_facts(facts), m_data(data), m_clock(clock) {}

    // At the end of loading: which program runs where and since when, and no end yet.
    void writeStart();
    // Time and date of the end.
    void writeEnd();

private:
    const OwnState& m_own;
    const SystemFacts& m_facts;
    INIData& m_data;
    const Clock& m_clock;
};

} // namespace tessel
