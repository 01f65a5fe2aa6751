#include "controls/look/SideTabs.h"

#include "controls/look/Tokens.h"

#include <QPainter>
#include <QStyleOption>

namespace tessel {

namespace {
constexpr int kGrid = look::kSpace;
} // namespace

SideTabBar::SideTabBar(QWidget* parent) : QTabBar(parent) {
    setDrawBase(false);
    setElideMode(Qt::ElideNone);
    setUsesScrollButtons(true);
    setExpanding(false);
}

QSize SideTabBar::tabSizeHint(int index) const {
    int width = 0;
    for (int tab = 0; tab < count(); ++tab) {
        width = std::max(width, fontMetrics().horizontalAdvance(tabText(tab)));
    }
    return isTabVisible(index) ? QSize(width + 4 * kGrid, fontMetrics().height() + 2 * kGrid) : QSize();
}

void SideTabBar::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    for (int tab = 0; tab < count(); ++tab) {
        const QRect place = tabRect(tab);
        if (!isTabVisible(tab) || place.isEmpty()) {
            continue;
        }
        const bool current = tab == currentIndex();
        if (current) {
            painter.fillRect(place, palette().color(QPalette::Base));
            painter.fillRect(QRect(place.topLeft(), QSize(look::kMark, place.height())),
                             palette().color(QPalette::Highlight));
        }
        const QPalette::ColorGroup group = isTabEnabled(tab) ? QPalette::Active : QPalette::Disabled;
        painter.setPen(palette().color(group, QPalette::WindowText));
        painter.drawText(place.adjusted(2 * kGrid, 0, -kGrid, 0), Qt::AlignVCenter | Qt::TextHideMnemonic,
                         tabText(tab));
        if (current && hasFocus()) {
            QStyleOptionFocusRect focus;
            focus.initFrom(this);
            focus.rect = place.adjusted(look::kMark + 2, 2, -2, -2);
            style()->drawPrimitive(QStyle::PE_FrameFocusRect, &focus, &painter, this);
        }
    }
}

SideTabs::SideTabs(QWidget* parent) : QTabWidget(parent) {
    setTabBar(new SideTabBar(this));
    setTabPosition(QTabWidget::West);
}

} // namespace tessel
