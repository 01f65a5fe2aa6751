// What a screen reader sees of a report list, or of another view of a flat table: a table of cells.
#pragma once

#include <QAbstractItemView>
#include <QAccessible>
#include <QAccessibleWidget>
#include <QHash>
#include <QPointer>

#include <utility>

namespace tessel {

class ReportAccess : public QAccessibleWidget, public QAccessibleTableInterface {
public:
    explicit ReportAccess(QAbstractItemView* control);
    ~ReportAccess() override;

    // Makes report lists known to the accessibility of this program; once is enough.
    static void install();
    // The number by which a cell is named in events.
    static int childOf(const QModelIndex& index);

    void* interface_cast(QAccessible::InterfaceType type) override;
    int childCount() const override;
    QAccessibleInterface* child(int index) const override;
    QAccessibleInterface* childAt(int x, int y) const override;
    QAccessibleInterface* focusChild() const override;
    int indexOfChild(const QAccessibleInterface* child) const override;

    QAccessibleInterface* caption() const override { return nullptr; }
    QAccessibleInterface* summary() const override { return nullptr; }
    QAccessibleInterface* cellAt(int row, int column) const override;
    int selectedCellCount() const override;
    QList<QAccessibleInterface*> selectedCells() const override;
    QString columnDescription(int column) const override;
    QString rowDescription(int row) const override;
    int selectedColumnCount() const override { return 0; }
    int selectedRowCount() const override;
    int columnCount() const override;
    int rowCount() const override;
    QList<int> selectedColumns() const override { return {}; }
    QList<int> selectedRows() const override;
    bool isColumnSelected(int column) const override;
    bool isRowSelected(int row) const override;
    bool selectRow(int row) override;
    bool selectColumn(int column) override;
    bool unselectRow(int row) override;
    bool unselectColumn(int column) override;
    void modelChange(QAccessibleTableModelChangeEvent* event) override;

private:
    QAbstractItemView* control() const;
    void dropCells();

    mutable QHash<std::pair<int, int>, QAccessible::Id> m_cells; // by row and column
};

} // namespace tessel
