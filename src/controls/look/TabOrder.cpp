#include "controls/look/TabOrder.h"

#include <QFormLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QScrollArea>
#include <QSplitter>
#include <QStackedWidget>
#include <QTabBar>
#include <QTabWidget>

#include <algorithm>
#include <tuple>
#include <vector>

namespace tessel {

namespace {

using Widgets = std::vector<QWidget*>;

void collect(QWidget& widget, Widgets& found);

// Grids hold their items in the order in which these were added.
std::vector<QLayoutItem*> itemsOf(QLayout& layout) {
    std::vector<std::tuple<int, int, QLayoutItem*>> placed;
    for (int index = 0; index < layout.count(); ++index) {
        int row = 0;
        int column = index;
        if (const auto* const grid = qobject_cast<const QGridLayout*>(&layout)) {
            int rows = 0;
            int columns = 0;
            grid->getItemPosition(index, &row, &column, &rows, &columns);
        } else if (const auto* const form = qobject_cast<const QFormLayout*>(&layout)) {
            QFormLayout::ItemRole role = QFormLayout::LabelRole;
            form->getItemPosition(index, &row, &role);
            column = role;
        }
        placed.emplace_back(row, column, layout.itemAt(index));
    }
    std::ranges::sort(placed);
    std::vector<QLayoutItem*> items;
    items.reserve(placed.size());
    for (const auto& [row, column, item] : placed) {
        items.push_back(item);
    }
    return items;
}

void collect(QLayout& layout, Widgets& found) {
    for (QLayoutItem* const item : itemsOf(layout)) {
        if (item->widget() != nullptr) {
            collect(*item->widget(), found);
        } else if (item->layout() != nullptr) {
            collect(*item->layout(), found);
        }
    }
}

void collect(QWidget& widget, Widgets& found) {
    // What hands the keyboard to a part of itself must stay before that part: Tab from the last part would
    // come back to it.
    const QWidget* const proxy = widget.focusProxy();
    if (proxy == nullptr ? widget.focusPolicy() != Qt::NoFocus : widget.isAncestorOf(proxy)) {
        found.push_back(&widget);
    }
    if (auto* const tabs = qobject_cast<QTabWidget*>(&widget)) {
        collect(*tabs->tabBar(), found);
        for (int page = 0; page < tabs->count(); ++page) {
            collect(*tabs->widget(page), found);
        }
    } else if (const auto* const area = qobject_cast<const QScrollArea*>(&widget)) {
        if (area->widget() != nullptr) {
            collect(*area->widget(), found);
        }
    } else if (const auto* const panes = qobject_cast<const QSplitter*>(&widget)) {
        for (int pane = 0; pane < panes->count(); ++pane) {
            collect(*panes->widget(pane), found);
        }
    } else if (widget.layout() != nullptr) {
        collect(*widget.layout(), found);
    }
}

} // namespace

void tabAsLaidOut(QWidget& part) {
    Widgets found;
    collect(part, found);
    for (std::size_t next = 1; next < found.size(); ++next) {
        QWidget::setTabOrder(found[next - 1], found[next]);
    }
}

} // namespace tessel
