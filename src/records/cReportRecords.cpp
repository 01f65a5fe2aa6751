#include "records/cReportRecords.h"

#include <algorithm>

namespace tessel {

QString ReportRecord::tip(int index) const {
    for (const auto& [item, text] : m_tips) {
        if (item == index) {
            return text;
        }
    }
    return {};
}

void ReportRecord::setTip(int index, const QString& tip) {
    const auto found =
        std::find_if(m_tips.begin(), m_tips.end(), [index](const auto& t) { return t.first == index; });
    if (found != m_tips.end()) {
        if (tip.isEmpty()) {
            m_tips.erase(found);
        } else {
            found->second = tip;
        }
    } else if (!tip.isEmpty()) {
        m_tips.emplace_back(index, tip);
    }
}

void RecordKey::set(const QString& key) {
    m_long = key.size() > kInside ? key : QString();
    m_size = static_cast<std::int32_t>(std::min(key.size(), kInside));
    std::copy_n(reinterpret_cast<const char16_t*>(key.constData()), m_size, m_characters.begin());
}

ReportRecords::ReportRecords(int keyItem, QObject* parent) : QObject(parent), m_keyItem(keyItem) {}

ReportRecord* ReportRecords::find(QStringView key) const {
    return m_byKey.find(key);
}

void ReportRecords::append(ReportRecordPtr record) {
    insert(count(), std::move(record));
}

void ReportRecords::insert(int row, ReportRecordPtr record) {
    index(record, row);
    record->m_revision = m_revision + 1;
    m_rows.insert(m_rows.begin() + row, std::move(record));
    structureChanged(row);
}

void ReportRecords::remove(int row) {
    const ReportRecordPtr record = at(row);
    m_rows.erase(m_rows.begin() + row);
    record->m_row = -1;
    unindex(*record);
    structureChanged(row);
}

int ReportRecords::removeIf(const std::function<bool(const ReportRecord&)>& gone) {
    const auto kept = std::stable_partition(m_rows.begin(), m_rows.end(),
                                            [&gone](const auto& record) { return !gone(*record); });
    const auto removed = static_cast<int>(m_rows.end() - kept);
    if (removed == 0) {
        return 0;
    }
    std::for_each(kept, m_rows.end(), [](const auto& record) { record->m_row = -1; });
    m_rows.erase(kept, m_rows.end());
    reindex();
    structureChanged(0);
    return removed;
}

void ReportRecords::clear() {
    for (const auto& record : m_rows) {
        record->m_row = -1;
    }
    m_rows.clear();
    m_byKey.clear();
    m_doubles = 0;
    structureChanged(0);
}

void ReportRecords::reserve(int rows) {
    m_rows.reserve(static_cast<std::size_t>(rows));
}

void ReportRecords::assign(std::vector<ReportRecordPtr> rows) {
    if (rows == m_rows) {
        return;
    }
    for (const auto& record : rows) {
        if (record->m_row < 0) {
            record->m_revision = m_revision + 1; // new here: whoever draws it has never seen it
        }
    }
    for (const auto& record : m_rows) {
        record->m_row = -1;
    }
    m_rows = std::move(rows);
    reindex();
    structureChanged(0);
}

void ReportRecords::setStale() {
    m_stale = true;
    emit changed();
}

void ReportRecords::bringUpToDate() {
    if (m_stale && m_refill) {
        m_stale = false;
        m_refill();
    }
}

void ReportRecords::redraw(ReportRecord& record) {
    record.m_revision = ++m_revision;
    emit changed();
}

void ReportRecords::redrawAll() {
    ++m_revision;
    for (const auto& record : m_rows) {
        record->m_revision = m_revision;
    }
    emit changed();
}

void ReportRecords::structureChanged(int firstRow) {
    for (int row = firstRow; row < count(); ++row) {
        at(row)->m_row = row;
    }
    m_structureRevision = ++m_revision;
    emit changed();
}

void ReportRecords::index(const ReportRecordPtr& record, int row) {
    if (m_keyItem < 0) {
        return;
    }
    const QString& key = record->item(m_keyItem).text;
    record->m_key.set(key);
    const ReportRecord* const first = m_byKey.insert(key, record.get());
    if (first != record.get()) {
        ++m_doubles;
        if (row <= first->m_row) {
            m_byKey.replace(key, record.get());
        }
    }
}

void ReportRecords::unindex(const ReportRecord& record) {
    if (m_keyItem < 0) {
        return;
    }
    const QString& key = record.item(m_keyItem).text;
    if (m_byKey.find(key) != &record) {
        m_doubles = std::max(0, m_doubles - 1);
        return;
    }
    m_byKey.erase(key);
    if (m_doubles > 0) {
        // Only a list that has doubles at all pays for the search of the next in line.
        const auto next = std::find_if(m_rows.begin(), m_rows.end(), [this, &key](const auto& other) {
            return other->item(m_keyItem).text == key;
        });
        if (next != m_rows.end()) {
            m_byKey.insert(key, next->get());
            --m_doubles;
        }
    }
}

void ReportRecords::reindex() {
    m_byKey.clear();
    m_doubles = 0;
    for (int row = 0; row < count(); ++row) {
        at(row)->m_row = row;
        index(at(row), row);
    }
}

} // namespace tessel
