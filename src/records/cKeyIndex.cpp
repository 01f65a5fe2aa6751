#include "records/cKeyIndex.h"

#include "records/cReportRecords.h"

#include <QHashFunctions>

namespace tessel {

namespace {

// Keys come from the network: without a seed that changes from run to run, somebody could choose
// them so that they all fall on one slot.
std::size_t hashOf(QStringView key) {
    static const std::size_t seed = QHashSeed::globalSeed();
    return qHash(key, seed);
}

} // namespace

std::size_t KeyIndex::slotOf(QStringView key, std::size_t hash) const {
    std::size_t at = hash & mask();
    while (m_slots[at].record != nullptr &&
           (m_slots[at].hash != hash || !m_slots[at].record->m_key.equals(key))) {
        at = (at + 1) & mask();
    }
    return at;
}

ReportRecord* KeyIndex::find(QStringView key) const {
    return m_used == 0 ? nullptr : m_slots[slotOf(key, hashOf(key))].record;
}

void KeyIndex::expect(QStringView key) const {
    if (m_used == 0) {
        return;
    }
    const std::size_t hash = hashOf(key);
    std::size_t at = hash & mask();
    while (m_slots[at].record != nullptr && m_slots[at].hash != hash) {
        at = (at + 1) & mask();
    }
    constexpr std::size_t kLine = 64;
    constexpr std::size_t kLines = 6; // of the record: its key, its revision and the first items
    const char* const record = reinterpret_cast<const char*>(m_slots[at].record);
    for (std::size_t line = 0; record != nullptr && line < kLines; ++line) {
        __builtin_prefetch(record + line * kLine, 1);
    }
}

ReportRecord* KeyIndex::insert(QStringView key, ReportRecord* record) {
    grow();
    const std::size_t hash = hashOf(key);
    Slot& slot = m_slots[slotOf(key, hash)];
    if (slot.record == nullptr) {
        slot = {hash, record};
        ++m_used;
    }
    return slot.record;
}

void KeyIndex::replace(QStringView key, ReportRecord* record) {
    m_slots[slotOf(key, hashOf(key))].record = record;
}

void KeyIndex::erase(QStringView key) {
    if (m_used == 0) {
        return;
    }
    std::size_t hole = slotOf(key, hashOf(key));
    if (m_slots[hole].record == nullptr) {
        return;
    }
    // Those behind move up, so that no search ends at the hole before it has found them.
    for (std::size_t at = (hole + 1) & mask(); m_slots[at].record != nullptr; at = (at + 1) & mask()) {
        const std::size_t home = m_slots[at].hash & mask();
        if (((at - home) & mask()) >= ((at - hole) & mask())) {
            m_slots[hole] = m_slots[at];
            hole = at;
        }
    }
    m_slots[hole] = {};
    --m_used;
}

void KeyIndex::clear() {
    m_slots.clear();
    m_used = 0;
}

void KeyIndex::grow() {
    constexpr std::size_t kLeast = 16;
    if (4 * (m_used + 1) <= 3 * m_slots.size()) {
        return;
    }
    std::vector<Slot> before(m_slots.empty() ? kLeast : 2 * m_slots.size());
    before.swap(m_slots);
    for (const Slot& slot : before) {
        if (slot.record != nullptr) {
            std::size_t at = slot.hash & mask();
            while (m_slots[at].record != nullptr) {
                at = (at + 1) & mask();
            }
            m_slots[at] = slot;
        }
    }
}

} // namespace tessel
