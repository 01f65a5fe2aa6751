#include "controls/list/ReportControl.h"

#include "controls/list/ReportHeader.h"
#include "controls/list/ReportText.h"
#include "controls/look/Tokens.h"

#include <algorithm>
#include <utility>

namespace tessel {

ReportControl::ReportControl(QWidget* parent)
    : ReportView(new ReportOrder, parent), m_header(new ReportHeader(this)), m_painter(kit()) {
    m_header->setModel(&order());
    connect(m_header, &ReportHeader::widthDragged, this, &ReportControl::layoutColumns);
    connect(m_header, &QHeaderView::sectionClicked, this, &ReportControl::sortBySection);
    connect(m_header, &ReportHeader::stateClicked, this, &ReportControl::stateHeaderClicked);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff); // the columns give way
    setFontSize(fontSize());
}

void ReportControl::setColumns(std::vector<ReportColumn> columns) {
    const ReportRecordPtr current = currentRecord();
    {
        const auto quiet = quietly();
        m_header->setColumns(std::move(columns));
        order().setColumns(m_header->columns());
        if (current) {
            select(order().rowOf(current.get()));
        }
    }
    layoutColumns();
    m_header->showSort(sortKeys());
    syncOrNote();
}

const std::vector<ReportColumn>& ReportControl::columns() const {
    return m_header->columns();
}

void ReportControl::setSortKeys(std::vector<SortKey> keys) {
    order().setSortKeys(std::move(keys));
    m_header->showSort(sortKeys());
    syncOrNote();
}

void ReportControl::setSortableByHeader(bool sortable) {
    m_header->setSectionsClickable(sortable);
    m_header->showSort(sortKeys());
}

void ReportControl::setPreviewMode(bool preview) {
    m_preview = preview;
    layoutRows();
}

void ReportControl::setHeaderShown(bool shown) {
    if (m_header->isHidden() == shown) {
        m_header->setVisible(shown);
        updateGeometries();
    }
}

// --- layout ------------------------------------------------------------------------------------

std::vector<int> ReportControl::rowHeights(const std::vector<int>& movedTo) {
    Q_UNUSED(movedTo)
    std::vector<int> heights(static_cast<std::size_t>(shownCount()), m_painter.rowHeight({}));
    if (!m_preview && !m_stacked) {
        return heights;
    }
    const int tall[2][2] = {{m_painter.rowHeight({}), m_painter.rowHeight({false, true})},
                            {m_painter.rowHeight({true, false}), m_painter.rowHeight({true, true})}};
    for (int row = 0; row < shownCount(); ++row) {
        const ReportPainter::Lines lines = linesOf(row);
        heights[static_cast<std::size_t>(row)] = tall[lines.status ? 1 : 0][lines.preview ? 1 : 0];
    }
    return heights;
}

bool ReportControl::heightsChanged(const ReportOrder::Synced& synced) const {
    return synced.heights && (m_preview || m_stacked);
}

bool ReportControl::wantsStack() const {
    // Larger letters want more room for the two side by side.
    return width() < look::kNarrow * std::max(1.0, m_widthScale) || fontSize() > look::kLargePoints;
}

void ReportControl::layoutColumns() {
    const bool aged = std::ranges::any_of(
        columns(), [](const ReportColumn& column) { return column.form == CellForm::Aged; });
    if (const bool stacked = aged && wantsStack(); stacked != m_stacked) {
        m_stacked = stacked;
        layoutRows();
    }
    m_header->fit(viewport()->width(), m_widthScale, m_stacked);
    placeSpans();
    updateGeometries();
    viewport()->update();
}

void ReportControl::placeSpans() {
    std::vector<ReportPainter::Span> spans;
    for (int section = 0; section < order().columnCount(); ++section) {
        const ReportColumn& column = order().column(section);
        const auto alignment = QStyle::visualAlignment(layoutDirection(), column.alignment);
        const bool below = m_header->isSectionHidden(section);
        int left = m_header->sectionViewportPosition(section);
        int width = m_header->sectionSize(section);
        if (below && order().textColumn() < order().columnCount()) {
            // From where the name begins to the end of the row.
            const int name = order().textColumn();
            const bool right = isRightToLeft();
            left = right ? 0 : m_header->sectionViewportPosition(name);
            const int end = right ? m_header->sectionViewportPosition(name) + m_header->sectionSize(name)
                                  : viewport()->width();
            width = end - left;
        }
        spans.push_back({&column, left, width, alignment, below});
    }
    m_painter.setSpans(std::move(spans), order().textColumn());
}

// Widths grow with what the letters really take, which is not quite their size in points.
static double widthScale(const QFont& font) {
    const QString letters = QStringLiteral("0123456789 The quick brown fox");
    QFont plain = font;
    plain.setPointSize(look::kMeantFor);
    return QFontMetricsF(font).horizontalAdvance(letters) / QFontMetricsF(plain).horizontalAdvance(letters);
}

void ReportControl::applyFont() {
    m_widthScale = widthScale(font());
    m_header->setFont(font());
    kit().setFont(font());
    kit().setPalette(palette());
    layoutRows();
    layoutColumns();
}

void ReportControl::sortBySection(int section) {
    const ReportColumn column = order().column(section);
    std::vector<SortKey> keys = sortKeys();
    SortKey first{column.item, column.sortByValue, true};
    if (!keys.empty() && keys.front().item == column.item) {
        first.byValue = keys.front().byValue;
        first.ascending = !keys.front().ascending;
    }
    // What sorted until now goes on sorting the rows that are alike.
    std::erase_if(keys, [&column](const SortKey& key) { return key.item == column.item; });
    keys.insert(keys.begin(), first);
    setSortKeys(std::move(keys));
}

void ReportControl::updateGeometries() {
    const int header = m_header->isHidden() ? 0 : m_header->sizeHint().height();
    if (viewportMargins().top() != header) {
        setViewportMargins(0, header, 0, 0);
    }
    const QRect room = viewport()->geometry();
    m_header->setGeometry(room.left(), room.top() - header, room.width(), header);

    ReportView::updateGeometries();
}

void ReportControl::resizeEvent(QResizeEvent* event) {
    ReportView::resizeEvent(event);
    layoutColumns();
}

QRect ReportControl::visualRect(const QModelIndex& index) const {
    if (!index.isValid() || index.row() >= places().count()) {
        return {};
    }
    const QRect row = rowRect(index.row());
    if (m_header->isSectionHidden(index.column())) {
        const QRect line = m_painter.statusLine(row);
        const int name = m_header->sectionViewportPosition(order().textColumn());
        return QRect(name, line.top(), row.width() - name, line.height()) & row;
    }
    return {m_header->sectionViewportPosition(index.column()), row.top(),
            m_header->sectionSize(index.column()), row.height()};
}

QModelIndex ReportControl::indexAt(const QPoint& point) const {
    const int row = rowAt(point.y());
    if (row < 0 || order().columnCount() == 0) {
        return {};
    }
    for (int section = 0; section < order().columnCount(); ++section) {
        if (m_header->isSectionHidden(section) && linesOf(row).status &&
            m_painter.statusLine(rowRect(row)).contains(point) &&
            point.x() >= m_header->sectionViewportPosition(order().textColumn())) {
            return order().index(row, section);
        }
    }
    const int section = m_header->logicalIndexAt(point.x());
    return order().index(row, section >= 0 ? section : order().columnCount() - 1);
}

int ReportControl::horizontalOffset() const {
    return m_header->offset();
}

// --- rows --------------------------------------------------------------------------------------

ReportPainter::Lines ReportControl::linesOf(int row) const {
    const ReportRecord& record = *order().record(row);
    const auto hasStatus = [&] {
        const auto aged = std::ranges::find(columns(), CellForm::Aged, &ReportColumn::form);
        return aged != columns().end() && !QStringView(itemOf(record, aged->item).text).trimmed().isEmpty();
    };
    return {m_stacked && hasStatus(), m_preview && !record.preview.isEmpty()};
}

ReportPainter::Row ReportControl::rowLook(int row) const {
    const QRect rect = rowRect(row);
    ReportPainter::Row look;
    look.record = order().record(row).get();
    look.rect = rect;
    look.lines = linesOf(row);
    // What came after the row was measured waits for its room.
    look.lines.preview =
        look.lines.preview && rect.height() > m_painter.rowHeight({look.lines.status, false});
    look.lines.status = look.lines.status && rect.height() > m_painter.rowHeight({});
    look.state = rowState(row);
    look.state.own = look.record->pinned;
    return look;
}

void ReportControl::paintRow(QPainter& painter, int row) {
    m_painter.paint(painter, rowLook(row));
}

QString ReportControl::hiddenText(const QModelIndex& index, const QPoint& pos) const {
    return m_painter.hiddenText(rowLook(index.row()), pos);
}

QString ReportControl::copied(const ReportRecord& record) const {
    QStringList texts;
    for (int section = 0; section < order().columnCount(); ++section) {
        const QString& text = itemOf(record, order().column(section).item).text;
        texts.append(singleLine(text, static_cast<int>(text.size())));
    }
    return texts.join(u'\t');
}

} // namespace tessel
