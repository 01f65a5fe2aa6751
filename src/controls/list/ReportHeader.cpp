#include "controls/list/ReportHeader.h"

#include "controls/list/ReportColors.h"

#include <QPaintEvent>
#include <QPainter>
#include <QPainterPath>

#include <QScopedValueRollback>

#include <algorithm>
#include <utility>

namespace tessel {

namespace {

constexpr int kMargin = 8;
constexpr int kMargins = 2 * kMargin; // of a cell; they do not grow with the font
constexpr int kArrowWidth = 7;
constexpr int kLeastSection = 16;
constexpr int kLeastStretch = 48;

QColor faint(const QPalette& palette, double share) {
    return blend(palette.color(QPalette::Base), palette.color(QPalette::Text), share);
}

void drawArrow(QPainter& painter, const QPointF& center, bool up) {
    const double half = kArrowWidth / 2.0;
    const double dy = up ? -half / 2 : half / 2;
    QPainterPath path(center + QPointF(-half, -dy));
    path.lineTo(center + QPointF(0, dy));
    path.lineTo(center + QPointF(half, -dy));
    painter.drawPath(path);
}

} // namespace

ReportHeader::ReportHeader(QWidget* parent) : QHeaderView(Qt::Horizontal, parent) {
    setMinimumSectionSize(kLeastSection);
    setHighlightSections(false);
    setSectionsClickable(false);
    setStretchLastSection(false);
    setFocusPolicy(Qt::NoFocus);
    connect(this, &QHeaderView::sectionResized, this,
            [this](int section, int, int width) { noteDrag(section, width); });
}

void ReportHeader::setColumns(std::vector<ReportColumn> columns) {
    m_columns = std::move(columns);
    m_shown.clear();
    for (std::size_t i = 0; i < m_columns.size(); ++i) {
        if (m_columns[i].visible) {
            m_shown.push_back(i);
        }
    }
}

const ReportColumn& ReportHeader::shown(int section) const {
    return m_columns[m_shown[static_cast<std::size_t>(section)]];
}

void ReportHeader::fit(int room, double scale) {
    if (m_fitting) {
        return;
    }
    const QScopedValueRollback quiet(m_fitting, true);
    m_scale = scale;
    const int stretch = stretching();
    for (int section = 0; section < count(); ++section) {
        setSectionResizeMode(section, section == stretch ? Fixed : Interactive);
        if (section != stretch) {
            const int width = scaled(shown(section).width);
            resizeSection(section, width);
            room -= width;
        }
    }
    if (stretch >= 0) {
        resizeSection(stretch, std::max(scaled(std::max(kLeastStretch, shown(stretch).width / 2)), room));
    }
}

int ReportHeader::scaled(int width) const {
    return std::max(kLeastSection, kMargins + qRound((width - kMargins) * m_scale));
}

int ReportHeader::stretching() const {
    for (int section = 0; section < count(); ++section) {
        if (shown(section).stretch) {
            return section;
        }
    }
    return count() - 1;
}

void ReportHeader::noteDrag(int section, int width) {
    if (!m_fitting && static_cast<std::size_t>(section) < m_shown.size()) {
        m_columns[m_shown[static_cast<std::size_t>(section)]].width =
            kMargins + qRound((width - kMargins) / m_scale);
        emit widthDragged();
    }
}

void ReportHeader::showSort(const std::vector<SortKey>& keys) {
    int sorted = -1;
    for (int section = 0; section < count() && !keys.empty(); ++section) {
        if (shown(section).item == keys.front().item) {
            sorted = section;
            break;
        }
    }
    setSortIndicatorShown(sectionsClickable() && sorted >= 0);
    if (sorted >= 0) {
        setSortIndicator(sorted, keys.front().ascending ? Qt::AscendingOrder : Qt::DescendingOrder);
    }
}

void ReportHeader::paintEvent(QPaintEvent* event) {
    QPainter(viewport()).fillRect(event->rect(), faint(palette(), 0.04));
    QHeaderView::paintEvent(event);
    QPainter painter(viewport());
    painter.setPen(faint(palette(), 0.18));
    painter.drawLine(0, viewport()->height() - 1, viewport()->width(), viewport()->height() - 1);
}

void ReportHeader::paintSection(QPainter* painter, const QRect& rect, int section) const {
    painter->save();
    const bool hovered = sectionsClickable() && viewport()->underMouse() &&
                         rect.contains(viewport()->mapFromGlobal(QCursor::pos()));
    painter->fillRect(rect, faint(palette(), hovered ? 0.09 : 0.04));

    painter->setPen(faint(palette(), 0.14));
    const int edge = isRightToLeft() ? rect.left() : rect.right();
    painter->drawLine(edge, rect.top() + 5, edge, rect.bottom() - 5);

    QRect room = rect.adjusted(kMargin, 0, -kMargin, -1);
    const QColor ink = faint(palette(), 0.72);
    if (isSortIndicatorShown() && sortIndicatorSection() == section && room.width() > 2 * kArrowWidth) {
        painter->setRenderHint(QPainter::Antialiasing);
        painter->setPen(QPen(ink, 1.4));
        const int x = isRightToLeft() ? room.left() + kArrowWidth / 2 : room.right() - kArrowWidth / 2;
        drawArrow(*painter, QPointF(x, room.center().y() + 0.5), sortIndicatorOrder() == Qt::AscendingOrder);
        room.adjust(isRightToLeft() ? kArrowWidth + 4 : 0, 0, isRightToLeft() ? 0 : -kArrowWidth - 4, 0);
    }
    const auto given =
        model()->headerData(section, orientation(), Qt::TextAlignmentRole).value<Qt::Alignment>();
    const auto alignment = QStyle::visualAlignment(layoutDirection(), given | Qt::AlignVCenter);
    const QString caption = model()->headerData(section, orientation(), Qt::DisplayRole).toString();
    painter->setPen(ink);
    painter->drawText(room, static_cast<int>(alignment | Qt::AlignAbsolute) | Qt::TextSingleLine,
                      fontMetrics().elidedText(caption, Qt::ElideRight, room.width()));
    painter->restore();
}

QSize ReportHeader::sectionSizeFromContents(int) const {
    return {kLeastSection, fontMetrics().height() + 10};
}

} // namespace tessel
