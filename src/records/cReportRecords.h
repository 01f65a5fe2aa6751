// The rows behind a report list: plain data that engines fill and controls draw.
#pragma once

#include "records/cKeyIndex.h"

#include <QObject>
#include <QString>
#include <QStringView>

#include <algorithm>
#include <array>
#include <cstdint>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace tessel {

// A colour as 0xAARRGGBB. `kNoColor` leaves the choice to the palette of whoever draws.
using Argb = std::uint32_t;
inline constexpr Argb kNoColor = 0;
constexpr Argb argb(int red, int green, int blue) {
    return 0xFF000000U | (static_cast<Argb>(red) << 16U) | (static_cast<Argb>(green) << 8U) |
           static_cast<Argb>(blue);
}

// One cell. `value` is a number beside the text (a flag, an icon number, an age): what it means is
// the list's own affair. `icon` is an image number, -1 for none.
struct ReportItem {
    QString text;
    std::int32_t value = 0;
    std::int32_t icon = -1;
    Argb foreColor = kNoColor;
    Argb backColor = kNoColor;
};

// The key of a record, with its characters inside if they are few.
class RecordKey {
public:
    void set(const QString& key);
    bool equals(QStringView key) const {
        return key == (m_long.isNull() ? QStringView(m_characters.data(), m_size) : QStringView(m_long));
    }

private:
    static constexpr qsizetype kInside = 12; // a SID
    std::array<char16_t, kInside> m_characters{};
    std::int32_t m_size = 0;
    QString m_long; // null when the key is inside
};

// One row of a list. Change it freely, then tell `ReportRecords::redraw`; the key item alone must
// stay as it was when the record was added.
class ReportRecord {
public:
    explicit ReportRecord(int itemCount)
        : m_itemCount(itemCount),
          m_moreItems(static_cast<std::size_t>(std::max(0, itemCount - kItemsInside))) {}

    int itemCount() const { return m_itemCount; }
    ReportItem& item(int index) { return const_cast<ReportItem&>(std::as_const(*this).item(index)); }
    const ReportItem& item(int index) const {
        return index < kItemsInside ? m_items[static_cast<std::size_t>(index)]
                                    : m_moreItems[static_cast<std::size_t>(index - kItemsInside)];
    }

    // Tool tip of one item; empty for none. Few items have one, so they are kept aside.
    QString tip(int index) const;
    void setTip(int index, const QString& tip);

    QString preview;      // second line of the row; empty for none
    std::int32_t tag = 0; // the owner's number for this row
    bool pinned = false;  // stands before all others, whatever the sort order

    int row() const { return m_row; }
    // The revision of the list at which this row last changed.
    std::uint64_t revision() const { return m_revision; }

private:
    friend class ReportRecords;
    friend class KeyIndex;

    // What each packet touches stands side by side, and not behind another pointer: in a long list
    // every step to a new place waits for memory. As many items as the longest list of locations has.
    static constexpr int kItemsInside = 10;

    RecordKey m_key; // while it is in a list with a key
    std::uint64_t m_revision = 0;
    int m_row = -1;
    int m_itemCount;
    std::array<ReportItem, kItemsInside> m_items;
    std::vector<ReportItem> m_moreItems;
    std::vector<std::pair<int, QString>> m_tips;
};

using ReportRecordPtr = std::shared_ptr<ReportRecord>;

// The rows of one list in the order in which they came, with an index by key.
//
// A view holds the rows that it draws by `ReportRecordPtr`, so a row removed here stays valid until
// the view has caught up. It compares revisions when it gets round to it: a storm of changes costs
// the engine a counter each, and the view one look.
class ReportRecords : public QObject {
    Q_OBJECT
public:
    // `keyItem`: index of the item that identifies a row, -1 for a list without a key.
    explicit ReportRecords(int keyItem, QObject* parent = nullptr);

    int count() const { return static_cast<int>(m_rows.size()); }
    const ReportRecordPtr& at(int row) const { return m_rows[static_cast<std::size_t>(row)]; }
    const std::vector<ReportRecordPtr>& rows() const { return m_rows; }

    // The first row with this key, nullptr when there is none. Exact comparison.
    ReportRecord* find(QStringView key) const;
    // Says that `find` will be asked for this key in a moment: the row of a long list is not in the
    // processor's cache, and can be on its way there meanwhile.
    void expect(QStringView key) const { m_byKey.expect(key); }

    // Adds at the end or before `row` (0 to count). The items must be filled already.
    void append(ReportRecordPtr record);
    void insert(int row, ReportRecordPtr record);

    void remove(int row);
    // Removes every row that `gone` answers with true, in one sweep. Returns how many.
    int removeIf(const std::function<bool(const ReportRecord&)>& gone);
    void clear();
    void reserve(int rows);

    // Puts these rows in the place of all there are; a record that stands in both stays itself.
    void assign(std::vector<ReportRecordPtr> rows);

    // For a list that is made from another one: `refill` makes it anew. It is called when somebody is
    // about to look at a list that is stale, so that a storm of changes is made up for once.
    void setRefill(std::function<void()> refill) { m_refill = std::move(refill); }
    void setStale();
    void bringUpToDate();

    // Tells that a row's items changed.
    void redraw(ReportRecord& record);
    // Tells that all rows are to be drawn anew.
    void redrawAll();

    // Grows with every change of any kind.
    std::uint64_t revision() const { return m_revision; }
    // The revision of the last change that added, removed or moved rows.
    std::uint64_t structureRevision() const { return m_structureRevision; }

signals:
    // Something changed. Comes once for each change: a slot only notes it.
    void changed();

private:
    void structureChanged(int firstRow);
    void index(const ReportRecordPtr& record, int row);
    void unindex(const ReportRecord& record);
    void reindex();

    int m_keyItem;
    std::vector<ReportRecordPtr> m_rows;
    KeyIndex m_byKey;
    int m_doubles = 0; // rows whose key an earlier row has already
    std::uint64_t m_revision = 1;
    std::uint64_t m_structureRevision = 1;
    std::function<void()> m_refill;
    bool m_stale = false;
};

} // namespace tessel
