#include "controls/list/ReportAccess.h"

#include "controls/list/ReportView.h"

namespace tessel {

namespace {

// A place in the table, not a record: whoever stands there now answers.
class CellAccess : public QAccessibleInterface, public QAccessibleTableCellInterface {
public:
    CellAccess(QAbstractItemView* control, int row, int column)
        : m_control(control), m_row(row), m_column(column) {}

    bool isValid() const override { return m_control != nullptr && index().isValid(); }
    QObject* object() const override { return nullptr; }
    QWindow* window() const override { return parent() != nullptr ? parent()->window() : nullptr; }
    QAccessibleInterface* childAt(int, int) const override { return nullptr; }
    QAccessibleInterface* parent() const override {
        return QAccessible::queryAccessibleInterface(m_control.data());
    }
    QAccessibleInterface* child(int) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface*) const override { return -1; }
    void setText(QAccessible::Text, const QString&) override {}
    QAccessible::Role role() const override { return QAccessible::Cell; }

    QString text(QAccessible::Text kind) const override {
        switch (kind) {
        case QAccessible::Name:
            return index().data(Qt::AccessibleTextRole).toString();
        case QAccessible::Description:
            return index().data(Qt::AccessibleDescriptionRole).toString();
        default:
            return {};
        }
    }
    QRect rect() const override {
        if (!isValid()) {
            return {};
        }
        const QRect cell = m_control->visualRect(index());
        return {m_control->viewport()->mapToGlobal(cell.topLeft()), cell.size()};
    }
    QAccessible::State state() const override {
        QAccessible::State state;
        if (!isValid()) {
            state.invalid = true;
            return state;
        }
        state.selectable = true;
        state.focusable = true;
        state.selected = isSelected();
        state.focused = m_control->hasFocus() && m_control->currentIndex() == index();
        state.offscreen = !m_control->viewport()->rect().intersects(m_control->visualRect(index()));
        return state;
    }
    void* interface_cast(QAccessible::InterfaceType type) override {
        return type == QAccessible::TableCellInterface ? static_cast<QAccessibleTableCellInterface*>(this)
                                                       : nullptr;
    }

    bool isSelected() const override { return isValid() && m_control->selectionModel()->isSelected(index()); }
    QList<QAccessibleInterface*> columnHeaderCells() const override { return {}; }
    QList<QAccessibleInterface*> rowHeaderCells() const override { return {}; }
    int columnIndex() const override { return m_column; }
    int rowIndex() const override { return m_row; }
    int columnExtent() const override { return 1; }
    int rowExtent() const override { return 1; }
    QAccessibleInterface* table() const override { return parent(); }

private:
    QModelIndex index() const { return m_control->model()->index(m_row, m_column); }

    QPointer<QAbstractItemView> m_control;
    int m_row;
    int m_column;
};

QAccessibleInterface* makeAccess(const QString& className, QObject* object) {
    if (className != QLatin1String(ReportView::staticMetaObject.className())) {
        return nullptr;
    }
    auto* control = qobject_cast<ReportView*>(object);
    return control != nullptr ? new ReportAccess(control) : nullptr;
}

} // namespace

ReportAccess::ReportAccess(QAbstractItemView* control) : QAccessibleWidget(control, QAccessible::Table) {}

ReportAccess::~ReportAccess() {
    dropCells();
}

void ReportAccess::install() {
    [[maybe_unused]] static const bool once = [] {
        QAccessible::installFactory(makeAccess);
        return true;
    }();
}

int ReportAccess::childOf(const QModelIndex& index) {
    return index.row() * index.model()->columnCount() + index.column();
}

QAbstractItemView* ReportAccess::control() const {
    return static_cast<QAbstractItemView*>(object());
}

void* ReportAccess::interface_cast(QAccessible::InterfaceType type) {
    return type == QAccessible::TableInterface ? static_cast<QAccessibleTableInterface*>(this)
                                               : QAccessibleWidget::interface_cast(type);
}

int ReportAccess::childCount() const {
    return rowCount() * columnCount();
}

QAccessibleInterface* ReportAccess::child(int index) const {
    if (index < 0 || index >= childCount()) {
        return nullptr;
    }
    const std::pair place(index / columnCount(), index % columnCount());
    const auto known = m_cells.constFind(place);
    if (known != m_cells.constEnd()) {
        return QAccessible::accessibleInterface(*known);
    }
    auto* cell = new CellAccess(control(), place.first, place.second);
    m_cells.insert(place, QAccessible::registerAccessibleInterface(cell));
    return cell;
}

QAccessibleInterface* ReportAccess::childAt(int x, int y) const {
    const QPoint pos = control()->viewport()->mapFromGlobal(QPoint(x, y));
    const QModelIndex index =
        control()->viewport()->rect().contains(pos) ? control()->indexAt(pos) : QModelIndex();
    return index.isValid() ? child(childOf(index)) : nullptr;
}

QAccessibleInterface* ReportAccess::focusChild() const {
    const QModelIndex index = control()->currentIndex();
    return index.isValid() && control()->hasFocus() ? child(childOf(index)) : nullptr;
}

int ReportAccess::indexOfChild(const QAccessibleInterface* child) const {
    auto* asked = const_cast<QAccessibleInterface*>(child);
    const auto* cell = asked != nullptr ? asked->tableCellInterface() : nullptr;
    return cell != nullptr ? cell->rowIndex() * columnCount() + cell->columnIndex() : -1;
}

QAccessibleInterface* ReportAccess::cellAt(int row, int column) const {
    return row >= 0 && column >= 0 && column < columnCount() ? child(row * columnCount() + column) : nullptr;
}

int ReportAccess::selectedCellCount() const {
    return selectedRowCount() * columnCount();
}

QList<QAccessibleInterface*> ReportAccess::selectedCells() const {
    QList<QAccessibleInterface*> cells;
    for (const int row : selectedRows()) {
        for (int column = 0; column < columnCount(); ++column) {
            cells.append(cellAt(row, column));
        }
    }
    return cells;
}

QString ReportAccess::columnDescription(int column) const {
    return control()->model()->headerData(column, Qt::Horizontal, Qt::AccessibleTextRole).toString();
}

QString ReportAccess::rowDescription(int row) const {
    Q_UNUSED(row)
    return {};
}

int ReportAccess::selectedRowCount() const {
    return static_cast<int>(selectedRows().size());
}

int ReportAccess::columnCount() const {
    return control()->model()->columnCount();
}

int ReportAccess::rowCount() const {
    return control()->model()->rowCount();
}

QList<int> ReportAccess::selectedRows() const {
    QList<int> rows;
    for (const QModelIndex& index : control()->selectionModel()->selectedRows()) {
        rows.append(index.row());
    }
    return rows;
}

bool ReportAccess::isColumnSelected(int column) const {
    Q_UNUSED(column)
    return false;
}

bool ReportAccess::isRowSelected(int row) const {
    return control()->selectionModel()->isRowSelected(row);
}

bool ReportAccess::selectRow(int row) {
    const QModelIndex index = control()->model()->index(row, 0);
    if (index.isValid()) {
        control()->setCurrentIndex(index);
    }
    return index.isValid();
}

bool ReportAccess::selectColumn(int column) {
    Q_UNUSED(column)
    return false;
}

bool ReportAccess::unselectRow(int row) {
    Q_UNUSED(row)
    return false;
}

bool ReportAccess::unselectColumn(int column) {
    Q_UNUSED(column)
    return false;
}

void ReportAccess::modelChange(QAccessibleTableModelChangeEvent* event) {
    if (event->modelChangeType() != QAccessibleTableModelChangeEvent::DataChanged) {
        dropCells();
    }
}

void ReportAccess::dropCells() {
    for (const QAccessible::Id id : std::as_const(m_cells)) {
        QAccessible::deleteAccessibleInterface(id);
    }
    m_cells.clear();
}

} // namespace tessel
