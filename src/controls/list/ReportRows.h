// Where the rows of a list lie from top to bottom, in pixels.
#pragma once

#include <vector>

namespace tessel {

class ReportRows {
public:
    // One entry a row.
    void place(const std::vector<int>& heights);

    int count() const { return static_cast<int>(m_tops.size()) - 1; }
    int top(int row) const { return m_tops[static_cast<std::size_t>(row)]; }
    int height(int row) const { return top(row + 1) - top(row); }
    int total() const { return m_tops.back(); }
    int at(int y) const; // -1 above the first and below the last

    // How far the rows that lay between `from` and `to` before lie from there now; most of them,
    // since one row that was sorted elsewhere is no reason for the list to go after it. `movedTo`
    // tells each old row's new number or -1; empty when all kept theirs.
    int shiftSince(const ReportRows& before, int from, int to, const std::vector<int>& movedTo) const;

private:
    std::vector<int> m_tops{0}; // and the end of the last
};

} // namespace tessel
