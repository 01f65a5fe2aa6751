// The list of this program: rows of records under a header, filtered, sorted, drawn as they stand.
//
// The records never wait for the list. A change costs them one flag here; the list catches up a
// frame later with all that happened since, and not at all while it is hidden.
#pragma once

#include "controls/ReportOrder.h"
#include "controls/ReportPainter.h"
#include "controls/ReportRows.h"

#include <QAbstractItemView>
#include <QAccessible>
#include <QElapsedTimer>
#include <QPixmap>
#include <QTimer>

#include <vector>

namespace tessel {

class ReportHeader;

class ReportControl : public QAbstractItemView {
    Q_OBJECT
public:
    explicit ReportControl(QWidget* parent = nullptr);

    // The records stay their owner's; nullptr for none.
    void setRecords(ReportRecords* records);
    ReportRecords* records() const;

    // All columns, shown or not. `columns` tells them back with the widths the user gave them.
    void setColumns(std::vector<ReportColumn> columns);
    const std::vector<ReportColumn>& columns() const;
    // To hide or show; its sections are the visible columns.
    ReportHeader* header() const { return m_header; }

    // First key first; rows equal in all keep the order of the records. Pinned rows stand above.
    void setSortKeys(std::vector<SortKey> keys);
    const std::vector<SortKey>& sortKeys() const { return m_order->sortKeys(); }
    void setSortableByHeader(bool sortable);

    // Shows the rows in which every blank-separated word stands in a shown column or the preview.
    void setFilterText(const QString& text);
    void setIconProvider(ReportIconProvider provider);
    void setPreviewMode(bool preview);
    void setFontSize(int points); // 8 to 20
    int fontSize() const { return m_fontSize; }

    void setEmptyText(const QString& text);            // there are no rows
    void setNoMatchText(const QString& text);          // there are, but the filter hides them all
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
    void shownCountChanged(int count);
    void sortedByHeader(int item, bool ascending);
    void columnWidthsChanged();

protected:
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
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void changeEvent(QEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;

private:
    void noteChange();
    void schedule();
    void syncOrNote();
    void follow(const ReportOrder::Synced& synced, int currentRow);
    void tellCurrent();
    void tellAccessibility(QAccessibleTableModelChangeEvent::ModelChangeType what, int firstRow, int lastRow);
    void layoutRows(const std::vector<int>& movedTo = {});
    void layoutColumns();
    void applyFont();
    void sortBySection(int section);
    void placeSpans();
    int rowAt(int viewportY) const; // -1 beyond the last
    QRect rowRect(int row) const;
    ReportPainter::Row rowLook(int row) const;
    bool showsPreview(int row) const;
    void select(int row);
    void hover(int row);
    void requestMenuAtCurrent();
    void copyCurrent() const;
    bool showTip(const QPoint& pos, const QPoint& globalPos);
    void paintEmpty(QPainter& painter);

    ReportOrder* m_order;
    ReportHeader* m_header;
    ReportPainter m_painter;
    ReportRows m_rows;
    ReportRecordPtr m_current; // as last told
    ReportRecordPtr m_pressed; // under the mouse button when it went down
    QPoint m_pressedAt;
    int m_hovered = -1;
    std::uint64_t m_drawn = 0; // revision of the records at the last sync

    bool m_preview = false;
    int m_fontSize = 10;
    double m_widthScale = 1; // of the columns
    QString m_emptyText;
    QString m_noMatchText;
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
