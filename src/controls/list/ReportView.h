// What the lists of this program have in common: rows of records from top to bottom, one selected.
//
// The records never wait for a list. A change costs them one flag here; the list catches up a frame
// later with all that happened since, and not at all while it is hidden.
#pragma once

#include "controls/list/EmptyState.h"
#include "controls/list/ReportOrder.h"
#include "controls/list/ReportRows.h"
#include "controls/look/PaintKit.h"

#include <QAbstractItemView>
#include <QAccessible>
#include <QElapsedTimer>
#include <QPixmap>
#include <QScopedValueRollback>
#include <QTimer>

#include <vector>

namespace tessel {

class ReportView : public QAbstractItemView {
    Q_OBJECT
public:
    // The records stay their owner's; nullptr for none.
    void setRecords(ReportRecords* records);
    ReportRecords* records() const;

    // Shows the rows in which every blank-separated word stands in a shown text.
    void setFilterText(const QString& text);
    // Words for which rows are found beside their texts: see ReportOrder.
    void setKeywords(std::function<QString(const ReportRecord&)> keywords);
    // Somebody is about to filter, or is no more: the first letter finds its work done.
    void prepareFilter(bool prepared);
    void setIconProvider(ReportIconProvider provider);
    void setFontSize(int points);     // 8 to 20
    void setWallFontSize(int points); // 8 to 200, to be read from afar
    int fontSize() const { return m_fontSize; }

    void setEmptyState(const EmptyState& state);       // there are no rows
    void setNoMatchState(const EmptyState& state);     // the filter hides them all
    void setBackgroundPicture(const QPixmap& picture); // stands behind an empty list only

    // The selected record; nullptr when there is none or when it has just been removed.
    ReportRecordPtr currentRecord() const;
    // Selects and shows it; false when the record is not among the shown ones.
    bool selectRecord(const ReportRecordPtr& record);
    bool selectKey(int item, QStringView key);
    int shownCount() const { return m_order->shownCount(); }
    void ensureTopVisible();
    // Catches up at once instead of with the next frame.
    void syncNow();

    QRect visualRect(const QModelIndex& index) const override;
    void scrollTo(const QModelIndex& index, ScrollHint hint = EnsureVisible) override;
    QModelIndex indexAt(const QPoint& point) const override;
    void reset() override;
    void dataChanged(const QModelIndex& topLeft, const QModelIndex& bottomRight,
                     const QList<int>& roles = {}) override;

signals:
    void recordActivated(const tessel::ReportRecordPtr& record);
    void recordMenuRequested(const tessel::ReportRecordPtr& record, const QPoint& globalPos);
    // nullptr when nothing is selected any more.
    void currentRecordChanged(const tessel::ReportRecordPtr& record);

protected:
    // The order becomes the view's own.
    ReportView(ReportOrder* order, QWidget* parent);

    // How high each row is; `movedTo` as in ReportOrder::Synced, empty when all are where they were.
    virtual std::vector<int> rowHeights(const std::vector<int>& movedTo) = 0;
    // Whether a sync that moved no row asks for other heights.
    virtual bool heightsChanged(const ReportOrder::Synced& synced) const = 0;
    virtual void paintRow(QPainter& painter, int row) = 0;
    // Takes over font and palette.
    virtual void applyFont() = 0;
    // What of the texts at this place is not wholly shown; empty for nothing.
    virtual QString hiddenText(const QModelIndex& index, const QPoint& pos) const = 0;
    // The row as text for other programs.
    virtual QString copied(const ReportRecord& record) const = 0;
    // The rows are up to date, their places are not.
    virtual void rowsSynced() {}
    virtual void rowsPlaced() {}

    ReportOrder& order() const { return *m_order; }
    PaintKit& kit() { return m_kit; }
    const ReportRows& places() const { return m_rows; }
    int scrollStep() const { return m_kit.lineHeight(PaintKit::Face::Plain) + 8; } // pixels
    void syncOrNote();
    // Places the rows anew and keeps those in sight where they are.
    void layoutRows(const std::vector<int>& movedTo = {});
    int rowAt(int viewportY) const; // -1 beyond the last
    QRect rowRect(int row) const;
    RowState rowState(int row) const;
    void select(int row);
    // While it lives, nobody is told of another current row.
    [[nodiscard]] QScopedValueRollback<bool> quietly() { return QScopedValueRollback<bool>(m_syncing, true); }

    QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override;
    int horizontalOffset() const override;
    int verticalOffset() const override;
    bool isIndexHidden(const QModelIndex& index) const override;
    void setSelection(const QRect& rect, QItemSelectionModel::SelectionFlags command) override;
    QRegion visualRegionForSelection(const QItemSelection& selection) const override;
    QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex& index,
                                                         const QEvent* event = nullptr) const override;
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
    void updateGeometries() override;
    void scrollContentsBy(int dx, int dy) override;

    bool viewportEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void changeEvent(QEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;

private:
    void sizeLetters(int points);
    void noteChange();
    void schedule();
    void follow(const ReportOrder::Synced& synced, int currentRow);
    void tellCurrent();
    void tellAccessibility(QAccessibleTableModelChangeEvent::ModelChangeType what, int firstRow, int lastRow);
    void hover(int row);
    void requestMenuAtCurrent();
    bool showTip(const QPoint& pos, const QPoint& globalPos);
    void paintEmpty(QPainter& painter);

    ReportOrder* m_order;
    PaintKit m_kit;
    ReportRows m_rows;
    ReportRecordPtr m_current; // as last told
    ReportRecordPtr m_pressed; // under the mouse button when it went down
    QPoint m_pressedAt;
    int m_hovered = -1;
    std::uint64_t m_drawn = 0; // revision of the records at the last sync

    int m_fontSize = 10;
    EmptyState m_empty;
    EmptyState m_noMatch;
    QPixmap m_background;

    QTimer m_syncTimer;
    QElapsedTimer m_sinceSync;
    qint64 m_syncCost = 0; // milliseconds
    bool m_pending = false;
    bool m_syncing = false;
    bool m_scrollLocked = false;
    bool m_revealOnShow = false;
};

} // namespace tessel
