#include "controls/list/ReportControl.h"

#include "controls/list/ReportHeader.h"
#include "controls/list/ReportText.h"

#include <QScrollBar>

#include <algorithm>
#include <utility>

namespace tessel {

namespace {

constexpr int kColumnsMeantFor = 10; // points

} // namespace

ReportControl::ReportControl(QWidget* parent)
    : ReportView(new ReportOrder, parent), m_header(new ReportHeader(this)), m_painter(kit()) {
    m_header->setModel(&order());
    connect(m_header, &ReportHeader::widthDragged, this, &ReportControl::layoutColumns);
    connect(m_header, &QHeaderView::sectionClicked, this, &ReportControl::sortBySection);
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

// --- layout ------------------------------------------------------------------------------------

std::vector<int> ReportControl::rowHeights(const std::vector<int>& movedTo) {
    Q_UNUSED(movedTo)
    const int plain = m_painter.rowHeight(false);
    const int tall = m_painter.rowHeight(true);
    std::vector<int> heights(static_cast<std::size_t>(shownCount()), plain);
    for (int row = 0; m_preview && row < shownCount(); ++row) {
        heights[static_cast<std::size_t>(row)] = showsPreview(row) ? tall : plain;
    }
    return heights;
}

bool ReportControl::heightsChanged(const ReportOrder::Synced& synced) const {
    return synced.heights && m_preview;
}

void ReportControl::layoutColumns() {
    m_header->fit(viewport()->width(), m_widthScale);
    placeSpans();
    updateGeometries();
    viewport()->update();
}

void ReportControl::placeSpans() {
    std::vector<ReportPainter::Span> spans;
    for (int section = 0; section < order().columnCount(); ++section) {
        const ReportColumn& column = order().column(section);
        spans.push_back({column.item, m_header->sectionViewportPosition(section),
                         m_header->sectionSize(section),
                         QStyle::visualAlignment(layoutDirection(), column.alignment)});
    }
    m_painter.setSpans(std::move(spans), order().textColumn());
}

// Widths grow with what the letters really take, which is not quite their size in points.
static double widthScale(const QFont& font) {
    const QString letters = QStringLiteral("0123456789 The quick brown fox");
    QFont plain = font;
    plain.setPointSize(kColumnsMeantFor);
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

    QScrollBar* horizontal = horizontalScrollBar();
    horizontal->setSingleStep(scrollStep());
    horizontal->setPageStep(viewport()->width());
    horizontal->setRange(0, std::max(0, m_header->length() - viewport()->width()));
    ReportView::updateGeometries();
}

void ReportControl::scrollContentsBy(int dx, int dy) {
    if (dx != 0) {
        m_header->setOffset(horizontalScrollBar()->value());
        placeSpans();
    }
    ReportView::scrollContentsBy(dx, dy);
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
    return {m_header->sectionViewportPosition(index.column()), row.top(),
            m_header->sectionSize(index.column()), row.height()};
}

QModelIndex ReportControl::indexAt(const QPoint& point) const {
    const int row = rowAt(point.y());
    if (row < 0 || order().columnCount() == 0) {
        return {};
    }
    const int section = m_header->logicalIndexAt(point.x());
    return order().index(row, section >= 0 ? section : order().columnCount() - 1);
}

int ReportControl::horizontalOffset() const {
    return m_header->offset();
}

// --- rows --------------------------------------------------------------------------------------

bool ReportControl::showsPreview(int row) const {
    return m_preview && !order().record(row)->preview.isEmpty();
}

ReportPainter::Row ReportControl::rowLook(int row) const {
    const QRect rect = rowRect(row);
    ReportPainter::Row look;
    look.record = order().record(row).get();
    look.rect = rect;
    // A preview that came after the row was measured waits for its room.
    look.preview = showsPreview(row) && rect.height() > m_painter.rowHeight(false);
    look.state = rowState(row);
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
