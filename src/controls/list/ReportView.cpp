#include "controls/list/ReportView.h"

#include "controls/list/ReportAccess.h"
#include "controls/list/ReportColors.h"
#include "controls/list/ReportText.h"
#include "controls/look/Tokens.h"

#include <QPaintEvent>
#include <QPainter>
#include <QScrollBar>

#include <algorithm>
#include <utility>

namespace tessel {

namespace {

constexpr qint64 kFrame = 16; // milliseconds
// A sync may take this part of the time at most, so that a storm over very many rows leaves the
// thread to those who make it.
constexpr qint64 kSyncShare = 8;
constexpr int kLeastFont = 8;
constexpr int kLargestFont = 20;
constexpr int kLargestOnAWall = 200;

} // namespace

ReportView::ReportView(ReportOrder* order, QWidget* parent) : QAbstractItemView(parent), m_order(order) {
    m_order->setParent(this);
    ReportAccess::install();
    setModel(m_order);
    setSelectionMode(SingleSelection);
    setSelectionBehavior(SelectRows);
    setEditTriggers(NoEditTriggers);
    setTabKeyNavigation(false);
    setVerticalScrollMode(ScrollPerPixel);
    setHorizontalScrollMode(ScrollPerPixel);
    viewport()->setAttribute(Qt::WA_Hover);
    m_syncTimer.setSingleShot(true);
    m_syncTimer.setTimerType(Qt::PreciseTimer);
    connect(&m_syncTimer, &QTimer::timeout, this, &ReportView::syncNow);
}

void ReportView::setRecords(ReportRecords* records) {
    if (m_order->records() != nullptr) {
        disconnect(m_order->records(), nullptr, this, nullptr);
    }
    m_order->setRecords(records);
    if (records != nullptr) {
        connect(records, &ReportRecords::changed, this, &ReportView::noteChange);
        connect(records, &QObject::destroyed, this, &ReportView::noteChange);
    }
    syncOrNote();
}

ReportRecords* ReportView::records() const {
    return m_order->records();
}

void ReportView::setFilterText(const QString& text) {
    m_order->setFilterText(text);
    syncOrNote();
}

void ReportView::setKeywords(std::function<QString(const ReportRecord&)> keywords) {
    m_order->setKeywords(std::move(keywords));
    syncOrNote();
}

void ReportView::prepareFilter(bool prepared) {
    syncOrNote();
    m_order->prepareFilter(prepared);
}

void ReportView::setIconProvider(ReportIconProvider provider) {
    m_kit.setIconProvider(std::move(provider));
    viewport()->update();
}

void ReportView::setFontSize(int points) {
    sizeLetters(std::clamp(points, kLeastFont, kLargestFont));
}

void ReportView::setWallFontSize(int points) {
    sizeLetters(std::clamp(points, kLeastFont, kLargestOnAWall));
}

void ReportView::sizeLetters(int points) {
    m_fontSize = points;
    QFont sized = font();
    sized.setPointSize(m_fontSize);
    if (sized == font()) {
        applyFont(); // a font equal to the one before tells nobody
    } else {
        setFont(sized);
    }
}

void ReportView::setEmptyState(const EmptyState& state) {
    m_empty = state;
    viewport()->update();
}

void ReportView::setNoMatchState(const EmptyState& state) {
    m_noMatch = state;
    viewport()->update();
}

void ReportView::setBackgroundPicture(const QPixmap& picture) {
    m_background = picture;
    viewport()->update();
}

ReportRecordPtr ReportView::currentRecord() const {
    return m_current && m_current->row() >= 0 ? m_current : nullptr;
}

bool ReportView::selectRecord(const ReportRecordPtr& record) {
    syncNow();
    const int row = m_order->rowOf(record.get());
    if (row >= 0) {
        m_revealOnShow = !isVisible();
        select(row);
    }
    return row >= 0;
}

bool ReportView::selectKey(int item, QStringView key) {
    syncNow();
    for (int row = 0; row < shownCount(); ++row) {
        if (itemOf(*m_order->record(row), item).text == key) {
            return selectRecord(m_order->record(row));
        }
    }
    return false;
}

void ReportView::ensureTopVisible() {
    verticalScrollBar()->setValue(0);
}

// --- keeping up with the records ---------------------------------------------------------------

// Runs once for each change of a record: nothing but the flag may cost anything here.
void ReportView::noteChange() {
    if (!m_pending) {
        m_pending = true;
        schedule();
    }
}

void ReportView::schedule() {
    if (!isVisible() || m_syncTimer.isActive()) {
        return;
    }
    const qint64 gap = std::max(kFrame, m_syncCost * kSyncShare);
    const qint64 since = m_sinceSync.isValid() ? m_sinceSync.elapsed() : gap;
    m_syncTimer.start(static_cast<int>(std::max<qint64>(0, gap - since)));
}

void ReportView::syncOrNote() {
    m_pending = true;
    if (isVisible()) {
        syncNow();
    }
}

void ReportView::syncNow() {
    if (m_syncing) {
        schedule();
        return;
    }
    m_syncTimer.stop();
    m_sinceSync.start();
    m_pending = false;
    {
        const auto quiet = quietly();
        const int currentRow = currentIndex().row();
        const auto synced = m_order->sync();
        m_drawn = m_order->records() != nullptr ? m_order->records()->revision() : 0;
        rowsSynced();
        follow(synced, currentRow);
    }
    m_syncCost = m_sinceSync.restart();
    tellCurrent();
}

void ReportView::follow(const ReportOrder::Synced& synced, int currentRow) {
    if (!synced.order) {
        if (heightsChanged(synced)) {
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

void ReportView::tellCurrent() {
    const int row = currentIndex().row();
    const ReportRecordPtr now = row >= 0 ? m_order->record(row) : nullptr;
    if (now != m_current) {
        m_current = now;
        emit currentRecordChanged(now);
    }
}

// --- layout ------------------------------------------------------------------------------------

void ReportView::layoutRows(const std::vector<int>& movedTo) {
    ReportRows placed;
    placed.place(rowHeights(movedTo));
    std::swap(placed, m_rows);

    const int offset = verticalOffset();
    // Whoever stands at the top wants to see what comes in there.
    const int shift =
        offset == 0 ? 0 : m_rows.shiftSince(placed, offset, offset + viewport()->height(), movedTo);
    updateGeometries();
    verticalScrollBar()->setValue(offset + shift);
    viewport()->update();
    rowsPlaced();
}

// The columns are others now, the rows are not.
void ReportView::reset() {
    QAbstractItemView::reset();
    m_hovered = -1;
    tellAccessibility(QAccessibleTableModelChangeEvent::ModelReset, 0, shownCount() - 1);
}

// The base class would draw everything for a change of more than one cell.
void ReportView::dataChanged(const QModelIndex& topLeft, const QModelIndex& bottomRight,
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

void ReportView::tellAccessibility(QAccessibleTableModelChangeEvent::ModelChangeType what, int firstRow,
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

int ReportView::rowAt(int viewportY) const {
    return m_rows.at(viewportY + verticalOffset());
}

QRect ReportView::rowRect(int row) const {
    return {0, m_rows.top(row) - verticalOffset(), viewport()->width(), m_rows.height(row)};
}

QRect ReportView::visualRect(const QModelIndex& index) const {
    return index.isValid() && index.row() < m_rows.count() ? rowRect(index.row()) : QRect();
}

void ReportView::scrollTo(const QModelIndex& index, ScrollHint hint) {
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

QModelIndex ReportView::indexAt(const QPoint& point) const {
    const int row = rowAt(point.y());
    return row < 0 ? QModelIndex() : m_order->index(row, 0);
}

int ReportView::horizontalOffset() const {
    return 0;
}

int ReportView::verticalOffset() const {
    return verticalScrollBar()->value();
}

bool ReportView::isIndexHidden(const QModelIndex& index) const {
    Q_UNUSED(index)
    return false;
}

QRegion ReportView::visualRegionForSelection(const QItemSelection& selection) const {
    QRegion region;
    for (const QItemSelectionRange& range : selection) {
        for (int row = range.top(); row >= 0 && row <= std::min(range.bottom(), m_rows.count() - 1); ++row) {
            region += rowRect(row);
        }
    }
    return region & viewport()->rect();
}

void ReportView::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
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

void ReportView::select(int row) {
    if (row >= 0 && m_order->columnCount() > 0) {
        selectionModel()->setCurrentIndex(m_order->index(row, std::max(0, currentIndex().column())),
                                          QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    }
}

void ReportView::updateGeometries() {
    QScrollBar* vertical = verticalScrollBar();
    vertical->setSingleStep(scrollStep());
    vertical->setPageStep(viewport()->height());
    vertical->setRange(0, std::max(0, m_rows.total() - viewport()->height()));
    QAbstractItemView::updateGeometries();
}

void ReportView::scrollContentsBy(int dx, int dy) {
    viewport()->scroll(isRightToLeft() ? -dx : dx, dy);
    if (underMouse()) {
        hover(rowAt(viewport()->mapFromGlobal(QCursor::pos()).y()));
    }
}

// --- painting ----------------------------------------------------------------------------------

RowState ReportView::rowState(int row) const {
    return {selectionModel()->isRowSelected(row), hasFocus() && isActiveWindow(), row == m_hovered};
}

void ReportView::paintEvent(QPaintEvent* event) {
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
        const QRect rect = rowRect(row);
        if (rect.top() > event->rect().bottom()) {
            break;
        }
        if (event->region().intersects(rect)) {
            paintRow(painter, row);
        }
    }
}

void ReportView::paintEmpty(QPainter& painter) {
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
    EmptyState state = filtered ? m_noMatch : m_empty;
    if (!m_background.isNull()) {
        state.picture = -1;
    }
    paintEmptyState(painter, state, room, m_kit);
}

// --- events ------------------------------------------------------------------------------------

void ReportView::showEvent(QShowEvent* event) {
    QAbstractItemView::showEvent(event);
    if (m_pending) {
        syncNow();
    }
    if (std::exchange(m_revealOnShow, false)) {
        scrollTo(currentIndex());
    }
}

void ReportView::changeEvent(QEvent* event) {
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
