#include "controls/list/ReportRows.h"

#include <algorithm>

namespace tessel {

void ReportRows::place(const std::vector<int>& heights) {
    m_tops.clear();
    m_tops.reserve(heights.size() + 1);
    m_tops.push_back(0);
    for (const int height : heights) {
        m_tops.push_back(m_tops.back() + height);
    }
}

int ReportRows::at(int y) const {
    if (y < 0 || y >= total()) {
        return -1;
    }
    return static_cast<int>(std::upper_bound(m_tops.begin(), m_tops.end(), y) - m_tops.begin()) - 1;
}

int ReportRows::shiftSince(const ReportRows& before, int from, int to,
                           const std::vector<int>& movedTo) const {
    std::vector<int> shifts;
    for (int row = std::max(0, before.at(from)); row < before.count() && before.top(row) < to; ++row) {
        const int now = movedTo.empty() ? row : movedTo[static_cast<std::size_t>(row)];
        if (now >= 0 && now < count()) {
            shifts.push_back(top(now) - before.top(row));
        }
    }
    if (shifts.empty()) {
        return 0;
    }
    const auto middle = shifts.begin() + static_cast<std::ptrdiff_t>(shifts.size() / 2);
    std::nth_element(shifts.begin(), middle, shifts.end());
    return *middle;
}

} // namespace tessel
