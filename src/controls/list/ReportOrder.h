// The rows of a report list in the order in which they are shown: filtered, sorted, as a model.
#pragma once

#include "records/cReportRecords.h"

#include <QAbstractTableModel>
#include <QCollator>
#include <QPointer>
#include <QStringList>

#include <functional>
#include <optional>
#include <vector>

namespace tessel {

// What a cell looks like.
enum class CellForm {
    Plain,
    State, // the back colour as a strip of full height, and the icon in a slot of its own
    Name,  // in strong letters
    Aged,  // a text, and its age in a part of its own; under the name where there is little room
    Badge  // the icon alone
};

struct ReportColumn {
    QString caption;
    int width = 100; // pixels at font size 10
    int item = 0;
    bool visible = true;
    bool stretch = false; // takes the room that is left; else the last column does
    Qt::Alignment alignment = Qt::AlignLeft;
    bool sortByValue = false; // a click on the header sorts by the item's value, not its text
    bool text = false;        // what a row is called: see `textColumn`
    CellForm form = CellForm::Plain;
    int share = 0; // of the room that the columns without one leave; 0: has its width
    int most = 0;  // with a share: pixels at font size 10 that it needs at most
    // With `Aged`: how many characters at the end of the text are the age.
    std::function<int(const ReportRecord&)> ageLength = {};
    // What the cell says to those who do not see it; empty for its text.
    std::function<QString(const ReportRecord&)> spoken = {};
};

struct SortKey {
    int item = 0;
    bool byValue = false;
    bool ascending = true;
    bool operator==(const SortKey&) const = default;
};

// Nothing here moves by itself: `sync` looks at what changed in the records since the last time,
// however much that was, and costs one pass over the rows.
class ReportOrder : public QAbstractTableModel {
    Q_OBJECT
public:
    struct Synced {
        bool order = false;       // rows came, went or moved
        bool heights = false;     // a row got or lost its preview or its aged text
        std::vector<int> movedTo; // with `order`: by old row the new one, -1 when it is gone

        // Where the old row stands now; when it is gone, the row at its place; -1 for none.
        int standIn(int oldRow, int rowsNow) const;
    };

    explicit ReportOrder(QObject* parent = nullptr);

    void setRecords(ReportRecords* records);
    ReportRecords* records() const { return m_records; }
    void setColumns(const std::vector<ReportColumn>& columns);
    void setSortKeys(std::vector<SortKey> keys);
    const std::vector<SortKey>& sortKeys() const { return m_sort; }
    void setFilterText(const QString& text);
    // Words for which a row is found beside its texts, parted by blanks. One with a colon in it is found
    // by its beginning, any other as a whole, so that nobody gets half of the rows for two letters.
    void setKeywords(std::function<QString(const ReportRecord&)> keywords);
    bool isFiltered() const { return !m_words.isEmpty(); }
    // From now on filters may come: what the first one would have to do is done, and kept until they
    // will not.
    void prepareFilter(bool prepared);

    Synced sync();

    // As of the last sync. A record stays valid even when it was removed since.
    const ReportRecordPtr& record(int row) const { return m_shown[static_cast<std::size_t>(row)]; }
    int rowOf(const ReportRecord* record) const; // -1: not shown
    int shownCount() const { return static_cast<int>(m_shown.size()); }
    const ReportItem& cell(int row, int column) const;
    const ReportColumn& column(int section) const { return m_columns[static_cast<std::size_t>(section)]; }
    // The column that names a row, else the first: type-ahead looks there, and previews begin there.
    int textColumn() const;

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    QModelIndexList match(const QModelIndex& start, int role, const QVariant& value, int hits = 1,
                          Qt::MatchFlags flags = {Qt::MatchStartsWith | Qt::MatchWrap}) const override;

protected:
    // What the filter looks at, never null.
    virtual QString searchedText(const ReportRecord& record) const;

private:
    struct Rank {
        std::int32_t value = 0;
        QString text; // what `key` was made from
        std::optional<QCollatorSortKey> key;
    };
    struct Known {
        ReportRecordPtr record;
        std::uint64_t revision = 0;
        int place = -1;
        bool accepted = true;
        bool pinned = false;
        bool preview = false;
        bool aged = false;
        std::vector<Rank> ranks;
        QString searched; // folded text of the row, made when first needed
        QString keywords; // folded, a blank before and behind each
    };
    struct Touched {
        bool order = false;
        bool heights = false;
        int first = -1;
        int last = -1;
    };

    const std::vector<ReportRecordPtr>& sourceRows() const;
    const Known* known(const ReportRecord* record) const;
    void adoptRows();
    Touched refreshRows();
    bool refresh(Known& row, bool& heights);
    bool refreshRanks(Known& row);
    void fold(Known& row) const;
    bool accepts(Known& row) const;
    bool isAged(const ReportRecord& record) const;
    bool stands(const Known& a, const Known& b) const;
    std::vector<int> ordered() const;
    bool isShown(const std::vector<int>& order) const;
    std::vector<int> show(const std::vector<int>& order);

    QPointer<ReportRecords> m_records;
    std::vector<ReportColumn> m_columns; // the visible ones
    std::vector<SortKey> m_sort;
    QStringList m_words;
    QCollator m_collator;
    std::function<QString(const ReportRecord&)> m_keywords;
    int m_aged = -1; // the item of an aged text

    std::vector<Known> m_known; // in the order of the records
    std::vector<ReportRecordPtr> m_shown;
    std::uint64_t m_seen = 0;
    std::uint64_t m_structureSeen = 0;
    bool m_rulesChanged = false;
    bool m_prepared = false;
};

// The item, or an empty one when the row has no such item.
const ReportItem& itemOf(const ReportRecord& record, int item);

} // namespace tessel
