#include "controls/list/ReportOrder.h"

#include "controls/list/ReportText.h"

#include <QLocale>

#include <algorithm>
#include <functional>
#include <iterator>
#include <utility>

namespace tessel {

namespace {

constexpr int kRankedChars = 200;    // two rows alike for longer keep the order in which they came
constexpr int kSearchedChars = 4000; // of each text

} // namespace

const ReportItem& itemOf(const ReportRecord& record, int item) {
    static const ReportItem none;
    return item >= 0 && item < record.itemCount() ? record.item(item) : none;
}

int ReportOrder::Synced::standIn(int oldRow, int rowsNow) const {
    if (oldRow < 0 || oldRow >= static_cast<int>(movedTo.size())) {
        return -1;
    }
    const auto here = movedTo.begin() + oldRow;
    const auto stayed = [](int row) { return row >= 0; };
    const auto below = std::find_if(here, movedTo.end(), stayed);
    if (below != movedTo.end()) {
        return *below;
    }
    const auto above = std::find_if(std::make_reverse_iterator(here), movedTo.rend(), stayed);
    return above != movedTo.rend() ? *above : std::min(oldRow, rowsNow - 1);
}

ReportOrder::ReportOrder(QObject* parent) : QAbstractTableModel(parent) {
    // The C locale compares code by code and knows no numbers.
    if (m_collator.locale().language() == QLocale::C) {
        m_collator.setLocale(QLocale(QLocale::English));
    }
    m_collator.setNumericMode(true);
    m_collator.setCaseSensitivity(Qt::CaseInsensitive);
}

void ReportOrder::setRecords(ReportRecords* records) {
    m_records = records;
    m_seen = 0;
    m_structureSeen = 0;
    m_rulesChanged = true;
}

void ReportOrder::setColumns(const std::vector<ReportColumn>& columns) {
    beginResetModel();
    m_columns.clear();
    std::copy_if(columns.begin(), columns.end(), std::back_inserter(m_columns),
                 [](const ReportColumn& column) { return column.visible; });
    const auto aged = std::ranges::find(m_columns, CellForm::Aged, &ReportColumn::form);
    m_aged = aged == m_columns.end() ? -1 : aged->item;
    for (Known& row : m_known) {
        row.searched.clear();
        row.aged = isAged(*row.record);
    }
    m_rulesChanged = true;
    endResetModel();
}

void ReportOrder::setSortKeys(std::vector<SortKey> keys) {
    if (keys == m_sort) {
        return;
    }
    m_sort = std::move(keys);
    for (Known& row : m_known) {
        row.ranks.clear();
    }
    m_rulesChanged = true;
}

void ReportOrder::setKeywords(std::function<QString(const ReportRecord&)> keywords) {
    m_keywords = std::move(keywords);
    for (Known& row : m_known) {
        row.searched.clear();
    }
    m_rulesChanged = true;
}

bool ReportOrder::isAged(const ReportRecord& record) const {
    return m_aged >= 0 && !QStringView(itemOf(record, m_aged).text).trimmed().isEmpty();
}

void ReportOrder::setFilterText(const QString& text) {
    QStringList words = text.toCaseFolded().simplified().split(u' ', Qt::SkipEmptyParts);
    if (words == m_words) {
        return;
    }
    m_words = std::move(words);
    m_rulesChanged = true;
}

void ReportOrder::prepareFilter(bool prepared) {
    m_prepared = prepared;
    for (Known& row : m_known) {
        if (prepared) {
            fold(row);
        } else if (m_words.isEmpty()) {
            row.searched.clear();
        }
    }
}

ReportOrder::Synced ReportOrder::sync() {
    if (m_records) {
        m_records->bringUpToDate();
    }
    const std::uint64_t revision = m_records ? m_records->revision() : 0;
    const std::uint64_t structure = m_records ? m_records->structureRevision() : 0;
    const bool adopt = structure != m_structureSeen || sourceRows().size() != m_known.size();
    if (!adopt && !m_rulesChanged && revision == m_seen) {
        return {};
    }
    if (adopt) {
        adoptRows();
    }
    const Touched touched = refreshRows();
    const bool reorder = adopt || m_rulesChanged || touched.order;
    m_seen = revision;
    m_structureSeen = structure;
    m_rulesChanged = false;

    Synced done;
    done.heights = touched.heights;
    if (reorder) {
        const std::vector<int> order = ordered();
        if (!isShown(order)) {
            done.order = true;
            done.movedTo = show(order);
            return done;
        }
        for (std::size_t place = 0; place < order.size(); ++place) {
            m_known[static_cast<std::size_t>(order[place])].place = static_cast<int>(place);
        }
    }
    if (touched.last >= 0 && !m_columns.empty()) {
        emit dataChanged(index(touched.first, 0), index(touched.last, columnCount() - 1));
    }
    return done;
}

int ReportOrder::rowOf(const ReportRecord* record) const {
    if (record == nullptr) {
        return -1;
    }
    if (const Known* row = known(record); row != nullptr) {
        return row->place;
    }
    const auto found = std::find_if(m_shown.begin(), m_shown.end(),
                                    [record](const ReportRecordPtr& shown) { return shown.get() == record; });
    return found == m_shown.end() ? -1 : static_cast<int>(found - m_shown.begin());
}

const ReportItem& ReportOrder::cell(int row, int column) const {
    return itemOf(*record(row), this->column(column).item);
}

int ReportOrder::textColumn() const {
    const auto named = std::find_if(m_columns.begin(), m_columns.end(),
                                    [](const ReportColumn& column) { return column.text; });
    return named == m_columns.end() ? 0 : static_cast<int>(named - m_columns.begin());
}

int ReportOrder::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : shownCount();
}

int ReportOrder::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(m_columns.size());
}

QVariant ReportOrder::data(const QModelIndex& index, int role) const {
    if (!checkIndex(index, CheckIndexOption::IndexIsValid)) {
        return {};
    }
    switch (role) {
    case Qt::DisplayRole:
        return singleLine(cell(index.row(), index.column()).text);
    case Qt::AccessibleTextRole: {
        if (const auto& spoken = column(index.column()).spoken; spoken) {
            return singleLine(spoken(*record(index.row())), kTipChars);
        }
        // A cell that only shows a colour or a picture is told by its tip.
        const QString& text = cell(index.row(), index.column()).text;
        return singleLine(text.isEmpty() ? record(index.row())->tip(column(index.column()).item) : text,
                          kTipChars);
    }
    case Qt::AccessibleDescriptionRole:
        return index.column() == textColumn() ? singleLine(record(index.row())->preview, kTipChars)
                                              : QString();
    case Qt::TextAlignmentRole:
        return QVariant::fromValue(column(index.column()).alignment | Qt::AlignVCenter);
    default:
        return {};
    }
}

QVariant ReportOrder::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || section < 0 || section >= columnCount()) {
        return {};
    }
    switch (role) {
    case Qt::DisplayRole:
    case Qt::AccessibleTextRole:
        return column(section).caption;
    case Qt::TextAlignmentRole:
        return QVariant::fromValue(column(section).alignment | Qt::AlignVCenter);
    default:
        return {};
    }
}

Qt::ItemFlags ReportOrder::flags(const QModelIndex& index) const {
    return index.isValid() ? Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemNeverHasChildren
                           : Qt::NoItemFlags;
}

QModelIndexList ReportOrder::match(const QModelIndex& start, int role, const QVariant& value, int hits,
                                   Qt::MatchFlags flags) const {
    return QAbstractTableModel::match(start.siblingAtColumn(textColumn()), role, value, hits, flags);
}

const std::vector<ReportRecordPtr>& ReportOrder::sourceRows() const {
    static const std::vector<ReportRecordPtr> none;
    return m_records ? m_records->rows() : none;
}

const ReportOrder::Known* ReportOrder::known(const ReportRecord* record) const {
    const auto row = static_cast<std::size_t>(record->row()); // -1, removed, is beyond any end
    return row < m_known.size() && m_known[row].record.get() == record ? &m_known[row] : nullptr;
}

// What is known of a row follows it to its new place, so that only new rows cost anything.
void ReportOrder::adoptRows() {
    const auto& rows = sourceRows();
    std::vector<Known> fresh(rows.size());
    for (Known& row : m_known) {
        const auto at = static_cast<std::size_t>(row.record->row());
        if (at < rows.size() && rows[at] == row.record) {
            fresh[at] = std::move(row);
        }
    }
    for (std::size_t at = 0; at < rows.size(); ++at) {
        if (!fresh[at].record) {
            fresh[at].record = rows[at];
        }
    }
    m_known = std::move(fresh);
}

ReportOrder::Touched ReportOrder::refreshRows() {
    Touched touched;
    for (Known& row : m_known) {
        const bool changed = row.revision != row.record->revision();
        if (!changed && !m_rulesChanged) {
            continue;
        }
        if (changed && row.place >= 0) {
            touched.first = touched.first < 0 ? row.place : std::min(touched.first, row.place);
            touched.last = std::max(touched.last, row.place);
        }
        if (changed) {
            touched.order |= refresh(row, touched.heights);
        } else {
            refreshRanks(row);
        }
        const bool accepted = accepts(row);
        touched.order |= std::exchange(row.accepted, accepted) != accepted;
    }
    return touched;
}

// True when the row may stand elsewhere now.
bool ReportOrder::refresh(Known& row, bool& heights) {
    const ReportRecord& record = *row.record;
    row.revision = record.revision();
    row.searched.clear();
    heights |= std::exchange(row.preview, !record.preview.isEmpty()) == record.preview.isEmpty();
    const bool aged = isAged(record);
    heights |= std::exchange(row.aged, aged) != aged;
    const bool pinnedChanged = std::exchange(row.pinned, record.pinned) != record.pinned;
    return refreshRanks(row) || pinnedChanged;
}

bool ReportOrder::refreshRanks(Known& row) {
    bool moved = row.ranks.size() != m_sort.size();
    row.ranks.resize(m_sort.size());
    for (std::size_t i = 0; i < m_sort.size(); ++i) {
        const ReportItem& item = itemOf(*row.record, m_sort[i].item);
        Rank& rank = row.ranks[i];
        if (m_sort[i].byValue) {
            moved |= std::exchange(rank.value, item.value) != item.value;
        } else if (!rank.key || rank.text != item.text) {
            rank.text = item.text;
            rank.key = m_collator.sortKey(item.text.left(kRankedChars).toCaseFolded());
            moved = true;
        }
    }
    return moved;
}

void ReportOrder::fold(Known& row) const {
    if (row.searched.isNull()) {
        row.searched = searchedText(*row.record).toCaseFolded();
        row.keywords = m_keywords ? u' ' + m_keywords(*row.record).toCaseFolded() + u' ' : QString();
    }
}

bool ReportOrder::accepts(Known& row) const {
    if (m_words.isEmpty()) {
        if (!m_prepared) {
            row.searched.clear();
        }
        return true;
    }
    fold(row);
    return std::all_of(m_words.begin(), m_words.end(), [&row](const QString& word) {
        if (row.searched.contains(word)) {
            return true;
        }
        if (row.keywords.isEmpty()) {
            return false;
        }
        return row.keywords.contains(word.contains(u':') ? u' ' + word : u' ' + word + u' ');
    });
}

// A word holds no line break, so it cannot be found across two texts.
QString ReportOrder::searchedText(const ReportRecord& record) const {
    QString text = record.preview.left(kSearchedChars);
    for (const ReportColumn& column : m_columns) {
        text += u'\n';
        text += QStringView(itemOf(record, column.item).text).left(kSearchedChars);
    }
    return text;
}

bool ReportOrder::stands(const Known& a, const Known& b) const {
    if (a.pinned != b.pinned) {
        return a.pinned;
    }
    for (std::size_t i = 0; i < m_sort.size(); ++i) {
        const Rank& left = a.ranks[i];
        const Rank& right = b.ranks[i];
        const int difference = m_sort[i].byValue ? (left.value > right.value) - (left.value < right.value)
                                                 : left.key->compare(*right.key);
        if (difference != 0) {
            return (difference < 0) == m_sort[i].ascending;
        }
    }
    return &a < &b; // neighbours in one vector: the order in which the rows came
}

std::vector<int> ReportOrder::ordered() const {
    std::vector<int> order;
    order.reserve(m_known.size());
    for (std::size_t i = 0; i < m_known.size(); ++i) {
        if (m_known[i].accepted) {
            order.push_back(static_cast<int>(i));
        }
    }
    const auto before = [this](int a, int b) {
        return stands(m_known[static_cast<std::size_t>(a)], m_known[static_cast<std::size_t>(b)]);
    };
    if (!std::is_sorted(order.begin(), order.end(), before)) {
        std::sort(order.begin(), order.end(), before);
    }
    return order;
}

bool ReportOrder::isShown(const std::vector<int>& order) const {
    return std::equal(order.begin(), order.end(), m_shown.begin(), m_shown.end(),
                      [this](int row, const ReportRecordPtr& shown) {
                          return m_known[static_cast<std::size_t>(row)].record == shown;
                      });
}

std::vector<int> ReportOrder::show(const std::vector<int>& order) {
    emit layoutAboutToBeChanged({}, VerticalSortHint);
    std::vector<ReportRecordPtr> shown;
    shown.reserve(order.size());
    for (Known& row : m_known) {
        row.place = -1;
    }
    for (const int at : order) {
        Known& row = m_known[static_cast<std::size_t>(at)];
        row.place = static_cast<int>(shown.size());
        shown.push_back(row.record);
    }
    std::vector<int> movedTo;
    movedTo.reserve(m_shown.size());
    for (const ReportRecordPtr& old : m_shown) {
        const Known* row = known(old.get());
        movedTo.push_back(row == nullptr ? -1 : row->place);
    }
    m_shown = std::move(shown);

    const QModelIndexList from = persistentIndexList();
    QModelIndexList to;
    to.reserve(from.size());
    for (const QModelIndex& old : from) {
        const auto row = static_cast<std::size_t>(old.row());
        to.append(row < movedTo.size() && movedTo[row] >= 0 ? index(movedTo[row], old.column())
                                                            : QModelIndex());
    }
    changePersistentIndexList(from, to);
    emit layoutChanged({}, VerticalSortHint);
    return movedTo;
}

} // namespace tessel
