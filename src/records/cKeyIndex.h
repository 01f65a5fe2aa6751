// Finds the record of a key.
#pragma once

#include <QStringView>

#include <cstddef>
#include <vector>

namespace tessel {

class ReportRecord;

// A hash table of pointers, one record a key. In a list of thousands of rows nothing that a lookup
// touches is in the processor's cache, so it touches two places only: one slot, and the record, which
// has its key inside.
class KeyIndex {
public:
    ReportRecord* find(QStringView key) const;
    // Has what `find` and its caller will touch brought into the cache, and does not wait for it.
    void expect(QStringView key) const;
    // The record that stands for `key` now: one that did before, or else `record`.
    ReportRecord* insert(QStringView key, ReportRecord* record);
    // Lets `record` stand for its key instead of the one that does.
    void replace(QStringView key, ReportRecord* record);
    void erase(QStringView key);
    void clear();

private:
    struct Slot {
        std::size_t hash = 0;
        ReportRecord* record = nullptr; // nullptr: free
    };

    std::size_t mask() const { return m_slots.size() - 1; }
    // The slot of that key, or the free one where it belongs. There must be slots.
    std::size_t slotOf(QStringView key, std::size_t hash) const;
    void grow();

    std::vector<Slot> m_slots; // their number is a power of two
    std::size_t m_used = 0;
};

} // namespace tessel
