// What keys and the mouse do to a list.
#include "controls/list/ReportView.h"

#include "controls/list/ReportText.h"

#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QHelpEvent>
#include <QToolTip>

#include <algorithm>
#include <utility>

namespace tessel {

QModelIndex ReportView::moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) {
    Q_UNUSED(modifiers)
    const int rows = m_rows.count();
    if (rows <= 0 || m_order->columnCount() == 0) {
        return {};
    }
    const QModelIndex current = currentIndex();
    if (!current.isValid()) {
        return m_order->index(action == MoveEnd ? rows - 1 : 0, 0);
    }
    const int page = std::max(0, viewport()->height() - scrollStep());
    const auto rowAtTop = [this](int y) {
        return rowAt(std::clamp(y, 0, m_rows.total() - 1) - verticalOffset());
    };
    int row = current.row();
    switch (action) {
    case MoveUp:
    case MovePrevious:
        --row;
        break;
    case MoveDown:
    case MoveNext:
        ++row;
        break;
    case MoveHome:
        row = 0;
        break;
    case MoveEnd:
        row = rows - 1;
        break;
    case MovePageUp:
        row = std::min(row - 1, rowAtTop(m_rows.top(row) - page));
        break;
    case MovePageDown:
        row = std::max(row + 1, rowAtTop(m_rows.top(row) + page));
        break;
    default:
        break;
    }
    return m_order->index(std::clamp(row, 0, rows - 1), current.column());
}

void ReportView::setSelection(const QRect& rect, QItemSelectionModel::SelectionFlags command) {
    const QModelIndex index = indexAt(rect.bottomRight());
    if (index.isValid()) {
        selectionModel()->select(index, command);
    }
}

// The selected row is the current row, always: no key and no click parts them.
QItemSelectionModel::SelectionFlags ReportView::selectionCommand(const QModelIndex& index,
                                                                 const QEvent* event) const {
    Q_UNUSED(event)
    return index.isValid() ? QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows
                           : QItemSelectionModel::NoUpdate;
}

void ReportView::hover(int row) {
    if (row == m_hovered) {
        return;
    }
    for (const int changed : {std::exchange(m_hovered, row), row}) {
        if (changed >= 0 && changed < m_rows.count()) {
            viewport()->update(rowRect(changed));
        }
    }
}

bool ReportView::viewportEvent(QEvent* event) {
    switch (event->type()) {
    case QEvent::HoverEnter:
    case QEvent::HoverMove:
        hover(rowAt(static_cast<QHoverEvent*>(event)->position().toPoint().y()));
        break;
    case QEvent::HoverLeave:
        hover(-1);
        break;
    case QEvent::ToolTip: {
        const auto* help = static_cast<QHelpEvent*>(event);
        if (!showTip(help->pos(), help->globalPos())) {
            QToolTip::hideText();
            event->ignore();
        }
        return true;
    }
    default:
        break;
    }
    return QAbstractItemView::viewportEvent(event);
}

bool ReportView::showTip(const QPoint& pos, const QPoint& globalPos) {
    const QModelIndex index = indexAt(pos);
    if (!index.isValid()) {
        return false;
    }
    QString tip = m_order->record(index.row())->tip(m_order->column(index.column()).item);
    if (tip.isEmpty()) {
        tip = hiddenText(index, pos);
    }
    if (tip.isEmpty()) {
        return false;
    }
    QToolTip::showText(globalPos, plainTip(tip), viewport(), visualRect(index));
    return true;
}

// The base class would make the first row current on any focus: a click into the list would then
// open that row's contents before those of the row that was clicked.
void ReportView::focusInEvent(QFocusEvent* event) {
    if (currentIndex().isValid()) {
        QAbstractItemView::focusInEvent(event);
    } else {
        QAbstractScrollArea::focusInEvent(event); // NOLINT(bugprone-parent-virtual-call): on purpose
    }
    viewport()->update();
    update(); // the frame, too
}

void ReportView::focusOutEvent(QFocusEvent* event) {
    QAbstractItemView::focusOutEvent(event);
    update();
}

void ReportView::keyPressEvent(QKeyEvent* event) {
    const ReportRecordPtr current = currentRecord();
    const bool plain = (event->modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (enter && (!plain || !current)) {
        event->ignore();
    } else if (enter) {
        event->accept();
        if (!event->isAutoRepeat()) {
            emit recordActivated(current);
        }
    } else if (event->key() == Qt::Key_F10 && event->modifiers() == Qt::ShiftModifier) {
        event->accept();
        requestMenuAtCurrent();
    } else if (event->matches(QKeySequence::Copy)) {
        event->accept();
        if (current) {
            QApplication::clipboard()->setText(copied(*current));
        }
    } else {
        QAbstractItemView::keyPressEvent(event);
    }
}

void ReportView::mousePressEvent(QMouseEvent* event) {
    m_pressedAt = event->position().toPoint();
    const int row = rowAt(m_pressedAt.y());
    m_pressed = row >= 0 ? m_order->record(row) : nullptr;
    QAbstractItemView::mousePressEvent(event);
}

// The row of the first click counts: rows may have moved under the mouse between the two, and the
// base class would take the second as a click on whatever came there.
void ReportView::mouseDoubleClickEvent(QMouseEvent* event) {
    const QPoint pos = event->position().toPoint();
    ReportRecordPtr meant = std::exchange(m_pressed, nullptr);
    if (!meant || (pos - m_pressedAt).manhattanLength() > QApplication::startDragDistance()) {
        const int row = rowAt(pos.y());
        meant = row >= 0 ? m_order->record(row) : nullptr;
    }
    if (event->button() == Qt::LeftButton && meant && meant->row() >= 0) {
        emit recordActivated(meant);
    }
}

void ReportView::contextMenuEvent(QContextMenuEvent* event) {
    event->accept();
    if (event->reason() == QContextMenuEvent::Keyboard) {
        requestMenuAtCurrent();
        return;
    }
    const int row = rowAt(event->pos().y());
    if (row >= 0) {
        select(row);
        emit recordMenuRequested(m_order->record(row), event->globalPos());
    }
}

void ReportView::requestMenuAtCurrent() {
    const ReportRecordPtr current = currentRecord();
    if (!current) {
        return;
    }
    scrollTo(currentIndex());
    const QRect row = rowRect(currentIndex().row());
    const QPoint below(row.left() + scrollStep(), std::min(row.bottom(), viewport()->height() - 1));
    emit recordMenuRequested(current, viewport()->mapToGlobal(below));
}

} // namespace tessel
