// The list of this program: rows of records under a header, filtered, sorted, drawn as they stand.
#pragma once

#include "controls/list/ReportPainter.h"
#include "controls/list/ReportView.h"

#include <vector>

namespace tessel {

class ReportHeader;

class ReportControl : public ReportView {
    Q_OBJECT
public:
    explicit ReportControl(QWidget* parent = nullptr);

    // All columns, shown or not. `columns` tells them back with the widths the user gave them.
    // The filter looks in the shown ones and the preview.
    void setColumns(std::vector<ReportColumn> columns);
    const std::vector<ReportColumn>& columns() const;
    // To hide or show; its sections are the visible columns.
    ReportHeader* header() const { return m_header; }

    // First key first; rows equal in all keep the order of the records. Pinned rows stand above.
    void setSortKeys(std::vector<SortKey> keys);
    const std::vector<SortKey>& sortKeys() const { return order().sortKeys(); }
    void setSortableByHeader(bool sortable);
    void setPreviewMode(bool preview);
    void setHeaderShown(bool shown);

    QRect visualRect(const QModelIndex& index) const override;
    QModelIndex indexAt(const QPoint& point) const override;

signals:
    // The header of the state slot was clicked.
    void stateHeaderClicked(QPoint globalPos);

protected:
    std::vector<int> rowHeights(const std::vector<int>& movedTo) override;
    bool heightsChanged(const ReportOrder::Synced& synced) const override;
    void paintRow(QPainter& painter, int row) override;
    void applyFont() override;
    QString hiddenText(const QModelIndex& index, const QPoint& pos) const override;
    QString copied(const ReportRecord& record) const override;
    void rowsSynced() override { placeSpans(); }

    int horizontalOffset() const override;
    void updateGeometries() override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void layoutColumns();
    void sortBySection(int section);
    void placeSpans();
    ReportPainter::Row rowLook(int row) const;
    ReportPainter::Lines linesOf(int row) const;
    bool wantsStack() const;

    ReportHeader* m_header;
    ReportPainter m_painter;
    bool m_preview = false;
    bool m_stacked = false;  // the status stands under the name
    double m_widthScale = 1; // of the columns
};

} // namespace tessel
