#include "controls/ReportControl.h"

#include "controls/ReportAccess.h"
#include "controls/ReportColors.h"
#include "controls/ReportHeader.h"
#include "controls/ReportText.h"

#include <QApplication>
#include <QPaintEvent>
#include <QPainter>
#include <QScopedValueRollback>
#include <QScrollBar>

#include <algorithm>
#include <utility>

namespace tessel {

namespace {

constexpr qint64 kFrame = 16; // milliseconds
// A sync may take this part of the time at most, so that a storm over very many rows leaves the
// thread to those who make it.
constexpr qint64 kSyncShare = 8;
constexpr int kColumnsMeantFor = 10; // points
constexpr int kLeastFont = 8;
constexpr int kLargestFont = 20;
constexpr int kEmptyMargin = 24;

} // namespace

ReportControl::ReportControl(QWidget* parent)
    : QAbstractItemView(parent), m_order(new ReportOrder(this)), m_header(new ReportHeader(this)) {
    ReportAccess::install();
    setModel(m_order);
    m_header->setModel(m_order);
    setSelectionMode(SingleSelection);
    setSelectionBehavior(SelectRows);
    setEditTriggers(NoEditTriggers);
    setTabKeyNavigation(false);
    setVerticalScrollMode(ScrollPerPixel);
    setHorizontalScrollMode(ScrollPerPixel);
    viewport()->setAttribute(Qt::WA_Hover);
    m_syncTimer.setSingleShot(true);
    m_syncTimer.setTimerType(Qt::PreciseTimer);
    connect(&m_syncTimer, &QTimer::timeout, this, &ReportControl::syncNow);
    connect(m_header, &ReportHeader::widthDragged, this, [this] {
        layoutColumns();
        emit columnWidthsChanged();
    });
    connect(m_header, &QHeaderView::sectionClicked, this, &ReportControl::sortBySection);
    setFontSize(m_fontSize);
}

void ReportControl::setRecords(ReportRecords* records) {
    if (m_order->records() != nullptr) {
        disconnect(m_order->records(), nullptr, this, nullptr);
    }
    m_order->setRecords(records);
    if (records != nullptr) {
        connect(records, &ReportRecords::changed, this, &ReportControl::noteChange);
        connect(records, &QObject::destroyed, this, &ReportControl::noteChange);
    }
    syncOrNote();
}

ReportRecords* ReportControl::records() const {
    return m_order->records();
}

void ReportControl::setColumns(std::vector<ReportColumn> columns) {
    const ReportRecordPtr current = currentRecord();
    {
        const QScopedValueRollback quiet(m_syncing, true);
        m_header->setColumns(std::move(columns));
        m_order->setColumns(m_header->columns());
        if (current) {
            select(m_order->rowOf(current.get()));
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
    m_order->setSortKeys(std::move(keys));
    m_header->showSort(sortKeys());
    syncOrNote();
}

void ReportControl::setSortableByHeader(bool sortable) {
    m_header->setSectionsClickable(sortable);
    m_header->showSort(sortKeys());
}

void ReportControl::setFilterText(const QString& text) {
    m_order->setFilterText(text);
    syncOrNote();
}

void ReportControl::setIconProvider(ReportIconProvider provider) {
    m_painter.setIconProvider(std::move(provider));
    viewport()->update();
}

void ReportControl::setPreviewMode(bool preview) {
    m_preview = preview;
    layoutRows();
}

void ReportControl::setFontSize(int points) {
    m_fontSize = std::clamp(points, kLeastFont, kLargestFont);
    QFont sized = font();
    sized.setPointSize(m_fontSize);
    setFont(sized);
    applyFont(); // a font equal to the one before tells nobody
}

void ReportControl::setEmptyText(const QString& text) {
    m_emptyText = text;
    viewport()->update();
}

void ReportControl::setNoMatchText(const QString& text) {
    m_noMatchText = text;
    viewport()->update();
}

void ReportControl::setBackgroundPicture(const QPixmap& picture) {
    m_background = picture;
    viewport()->update();
}

ReportRecordPtr ReportControl::currentRecord() const {
    return m_current && m_current->row() >= 0 ? m_current : nullptr;
}

bool ReportControl::selectRecord(const ReportRecordPtr& record) {
    syncNow();
    const int row = m_order->rowOf(record.get());
    if (row >= 0) {
        m_revealOnShow = !isVisible();
        select(row);
    }
    return row >= 0;
}

bool ReportControl::selectKey(int item, QStringView key) {
    syncNow();
    for (int row = 0; row < shownCount(); ++row) {
        if (itemOf(*m_order->record(row), item).text == key) {
            return selectRecord(m_order->record(row));
        }
    }
    return false;
}

void ReportControl::ensureTopVisible() {
    verticalScrollBar()->setValue(0);
}

// --- keeping up with the records ---------------------------------------------------------------

// Runs once for each change of a record: nothing but the flag may cost anything here.
void ReportControl::noteChange() {
    if (!m_pending) {
        m_pending = true;
        schedule();
    }
}

void ReportControl::schedule() {
    if (!isVisible() || m_syncTimer.isActive()) {
        return;
    }
    const qint64 gap = std::max(kFrame, m_syncCost * kSyncShare);
    const qint64 since = m_sinceSync.isValid() ? m_sinceSync.elapsed() : gap;
    m_syncTimer.start(static_cast<int>(std::max<qint64>(0, gap - since)));
}

void ReportControl::syncOrNote() {
    m_pending = true;
    if (isVisible()) {
        syncNow();
    }
}

void ReportControl::syncNow() {
    if (m_syncing) {
        schedule();
        return;
    }
    m_syncTimer.stop();
    m_sinceSync.start();
    m_pending = false;
    const int count = shownCount();
    {
        const QScopedValueRollback quiet(m_syncing, true);
        const int currentRow = currentIndex().row();
        const auto synced = m_order->sync();
        m_drawn = m_order->records() != nullptr ? m_order->records()->revision() : 0;
        placeSpans();
        follow(synced, currentRow);
    }
    m_syncCost = m_sinceSync.restart();
    if (shownCount() != count) {
        emit shownCountChanged(shownCount());
    }
    tellCurrent();
}

void ReportControl::follow(const ReportOrder::Synced& synced, int currentRow) {
    if (!synced.order) {
        if (synced.heights && m_preview) {
            layoutRows();
        }
        return;
    }
    tellAccessibility(QAccessibleTableModelChangeEvent::ModelReset, 0, shownCount() - 1);
    layoutRows(synced.movedTo);
    executeDelayedItemsLayout();
    const int row = synced.standIn(currentRow, shownCount());
    if (row >= 0 && (currentIndex().row() != row || !selectionModel()->isRowSelected(row))) {
        // Where the record moved to is no reason to scroll there.
        const QScopedValueRollback still(m_scrollLocked, true);
        select(row);
    }
    viewport()->update();
}

void ReportControl::tellCurrent() {
    const int row = currentIndex().row();
    const ReportRecordPtr now = row >= 0 ? m_order->record(row) : nullptr;
    if (now != m_current) {
        m_current = now;
        emit currentRecordChanged(now);
    }
}

// --- layout ------------------------------------------------------------------------------------

// Places the rows anew and keeps those in sight where they are. `movedTo` says which row is which
// now, empty when all are where they were.
void ReportControl::layoutRows(const std::vector<int>& movedTo) {
    const int plain = m_painter.rowHeight(false);
    const int tall = m_painter.rowHeight(true);
    std::vector<int> heights(static_cast<std::size_t>(shownCount()), plain);
    for (int row = 0; m_preview && row < shownCount(); ++row) {
        heights[static_cast<std::size_t>(row)] = showsPreview(row) ? tall : plain;
    }
    ReportRows placed;
    placed.place(heights);
    std::swap(placed, m_rows);

    const int offset = verticalOffset();
    // Whoever stands at the top wants to see what comes in there.
    const int shift =
        offset == 0 ? 0 : m_rows.shiftSince(placed, offset, offset + viewport()->height(), movedTo);
    updateGeometries();
    verticalScrollBar()->setValue(offset + shift);
    viewport()->update();
}

void ReportControl::layoutColumns() {
    m_header->fit(viewport()->width(), m_widthScale);
    placeSpans();
    updateGeometries();
    viewport()->update();
}

void ReportControl::placeSpans() {
    std::vector<ReportPainter::Span> spans;
    for (int section = 0; section < m_order->columnCount(); ++section) {
        const ReportColumn& column = m_order->column(section);
        spans.push_back({column.item, m_header->sectionViewportPosition(section),
                         m_header->sectionSize(section),
                         QStyle::visualAlignment(layoutDirection(), column.alignment)});
    }
    m_painter.setSpans(std::move(spans), m_order->textColumn());
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
    m_painter.setFont(font());
    m_painter.setPalette(palette());
    layoutRows();
    layoutColumns();
}

void ReportControl::sortBySection(int section) {
    const ReportColumn column = m_order->column(section);
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
    emit sortedByHeader(column.item, first.ascending);
}

void ReportControl::updateGeometries() {
    const int header = m_header->isHidden() ? 0 : m_header->sizeHint().height();
    if (viewportMargins().top() != header) {
        setViewportMargins(0, header, 0, 0);
    }
    const QRect room = viewport()->geometry();
    m_header->setGeometry(room.left(), room.top() - header, room.width(), header);

    QScrollBar* vertical = verticalScrollBar();
    vertical->setSingleStep(m_painter.rowHeight(false));
    vertical->setPageStep(viewport()->height());
    vertical->setRange(0, std::max(0, m_rows.total() - viewport()->height()));
    QScrollBar* horizontal = horizontalScrollBar();
    horizontal->setSingleStep(m_painter.rowHeight(false));
    horizontal->setPageStep(viewport()->width());
    horizontal->setRange(0, std::max(0, m_header->length() - viewport()->width()));
    QAbstractItemView::updateGeometries();
}

void ReportControl::scrollContentsBy(int dx, int dy) {
    if (dx != 0) {
        m_header->setOffset(horizontalScrollBar()->value());
        placeSpans();
    }
    viewport()->scroll(isRightToLeft() ? -dx : dx, dy);
    if (underMouse()) {
        hover(rowAt(viewport()->mapFromGlobal(QCursor::pos()).y()));
    }
}

// The columns are others now, the rows are not.
void ReportControl::reset() {
    QAbstractItemView::reset();
    m_hovered = -1;
    tellAccessibility(QAccessibleTableModelChangeEvent::ModelReset, 0, shownCount() - 1);
}

// The base class would draw everything for a change of more than one cell.
void ReportControl::dataChanged(const QModelIndex& topLeft, const QModelIndex& bottomRight,
                                const QList<int>& roles) {
    Q_UNUSED(roles)
    const int last = std::min(bottomRight.row(), m_rows.count() - 1);
    for (int row = std::max(topLeft.row(), rowAt(0));
         row <= last && m_rows.top(row) < verticalOffset() + viewport()->height(); ++row) {
        if (m_order->record(row)->revision() > m_drawn) {
            viewport()->update(rowRect(row));
        }
    }
    tellAccessibility(QAccessibleTableModelChangeEvent::DataChanged, topLeft.row(), bottomRight.row());
}

void ReportControl::tellAccessibility(QAccessibleTableModelChangeEvent::ModelChangeType what, int firstRow,
                                      int lastRow) {
    if (QAccessible::isActive()) {
        QAccessibleTableModelChangeEvent told(this, what);
        told.setFirstRow(firstRow);
        told.setLastRow(lastRow);
        told.setFirstColumn(0);
        told.setLastColumn(m_order->columnCount() - 1);
        QAccessible::updateAccessibility(&told);
    }
}

// --- what the base class asks ------------------------------------------------------------------

int ReportControl::rowAt(int viewportY) const {
    return m_rows.at(viewportY + verticalOffset());
}

QRect ReportControl::rowRect(int row) const {
    return {0, m_rows.top(row) - verticalOffset(), viewport()->width(), m_rows.height(row)};
}

QRect ReportControl::visualRect(const QModelIndex& index) const {
    if (!index.isValid() || index.row() >= m_rows.count()) {
        return {};
    }
    const QRect row = rowRect(index.row());
    return {m_header->sectionViewportPosition(index.column()), row.top(),
            m_header->sectionSize(index.column()), row.height()};
}

void ReportControl::scrollTo(const QModelIndex& index, ScrollHint hint) {
    if (m_scrollLocked || !index.isValid() || index.row() >= m_rows.count()) {
        return;
    }
    const QRect row = rowRect(index.row());
    const int room = viewport()->height();
    int by = 0;
    if (hint == PositionAtTop || (hint == EnsureVisible && row.top() < 0)) {
        by = row.top();
    } else if (hint == PositionAtBottom || (hint == EnsureVisible && row.bottom() >= room)) {
        by = std::min(row.top(), row.bottom() + 1 - room);
    } else if (hint == PositionAtCenter) {
        by = row.center().y() - room / 2;
    }
    verticalScrollBar()->setValue(verticalOffset() + by);
}

QModelIndex ReportControl::indexAt(const QPoint& point) const {
    const int row = rowAt(point.y());
    if (row < 0 || m_order->columnCount() == 0) {
        return {};
    }
    const int section = m_header->logicalIndexAt(point.x());
    return m_order->index(row, section >= 0 ? section : m_order->columnCount() - 1);
}

int ReportControl::horizontalOffset() const {
    return m_header->offset();
}

int ReportControl::verticalOffset() const {
    return verticalScrollBar()->value();
}

bool ReportControl::isIndexHidden(const QModelIndex& index) const {
    Q_UNUSED(index)
    return false;
}

QRegion ReportControl::visualRegionForSelection(const QItemSelection& selection) const {
    QRegion region;
    for (const QItemSelectionRange& range : selection) {
        for (int row = range.top(); row >= 0 && row <= std::min(range.bottom(), m_rows.count() - 1); ++row) {
            region += rowRect(row);
        }
    }
    return region & viewport()->rect();
}

void ReportControl::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
    QAbstractItemView::currentChanged(current, previous);
    if (QAccessible::isActive() && current.isValid() && hasFocus()) {
        QAccessibleEvent focus(this, QAccessible::Focus);
        focus.setChild(ReportAccess::childOf(current));
        QAccessible::updateAccessibility(&focus);
    }
    if (!m_syncing) {
        tellCurrent();
    }
}

void ReportControl::select(int row) {
    if (row >= 0 && m_order->columnCount() > 0) {
        selectionModel()->setCurrentIndex(m_order->index(row, std::max(0, currentIndex().column())),
                                          QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    }
}

// --- painting ----------------------------------------------------------------------------------

bool ReportControl::showsPreview(int row) const {
    return m_preview && !m_order->record(row)->preview.isEmpty();
}

ReportPainter::Row ReportControl::rowLook(int row) const {
    const QRect rect = rowRect(row);
    ReportPainter::Row look;
    look.record = m_order->record(row).get();
    look.rect = rect;
    // A preview that came after the row was measured waits for its room.
    look.preview = showsPreview(row) && rect.height() > m_painter.rowHeight(false);
    look.selected = selectionModel()->isRowSelected(row);
    look.focused = hasFocus() && isActiveWindow();
    look.hovered = row == m_hovered;
    return look;
}

void ReportControl::paintEvent(QPaintEvent* event) {
    if (m_pending) {
        schedule();
    }
    QPainter painter(viewport());
    if (shownCount() == 0) {
        paintEmpty(painter);
        return;
    }
    const int first = rowAt(event->rect().top());
    for (int row = first; row >= 0 && row < m_rows.count(); ++row) {
        const ReportPainter::Row look = rowLook(row);
        if (look.rect.top() > event->rect().bottom()) {
            break;
        }
        if (event->region().intersects(look.rect)) {
            m_painter.paint(painter, look);
        }
    }
}

void ReportControl::paintEmpty(QPainter& painter) {
    const QRect room = viewport()->rect();
    if (!m_background.isNull()) {
        QSize size = m_background.deviceIndependentSize().toSize();
        if (size.width() > room.width() || size.height() > room.height()) {
            size.scale(room.size(), Qt::KeepAspectRatio);
        }
        painter.setRenderHint(QPainter::SmoothPixmapTransform);
        painter.drawPixmap(QStyle::alignedRect(Qt::LeftToRight, Qt::AlignCenter, size, room), m_background);
    }
    const bool filtered =
        m_order->isFiltered() && m_order->records() != nullptr && m_order->records()->count() > 0;
    const QString& text = filtered ? m_noMatchText : m_emptyText;
    const QColor base = palette().color(QPalette::Base);
    painter.setPen(
        readableOn(blend(base, palette().color(QPalette::Text), 0.6), base, palette().color(QPalette::Text)));
    painter.setFont(font());
    painter.drawText(room.adjusted(kEmptyMargin, kEmptyMargin, -kEmptyMargin, -kEmptyMargin),
                     Qt::AlignCenter | Qt::TextWordWrap, text.left(kTipChars));
}

// --- events ------------------------------------------------------------------------------------

void ReportControl::resizeEvent(QResizeEvent* event) {
    QAbstractItemView::resizeEvent(event);
    layoutColumns();
}

void ReportControl::showEvent(QShowEvent* event) {
    QAbstractItemView::showEvent(event);
    if (m_pending) {
        syncNow();
    }
    if (std::exchange(m_revealOnShow, false)) {
        scrollTo(currentIndex());
    }
}

void ReportControl::changeEvent(QEvent* event) {
    QAbstractItemView::changeEvent(event);
    switch (event->type()) {
    case QEvent::FontChange:
    case QEvent::StyleChange:
    case QEvent::PaletteChange:
    case QEvent::EnabledChange:
    case QEvent::LayoutDirectionChange:
        applyFont();
        break;
    default:
        break;
    }
}

} // namespace tessel
