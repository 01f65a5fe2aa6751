#include "controls/list/ReportHeader.h"

#include "controls/list/ReportColors.h"
#include "controls/look/Tokens.h"

#include <QHelpEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QPainterPath>
#include <QToolTip>

#include <QScopedValueRollback>

#include <algorithm>
#include <numeric>
#include <utility>

namespace tessel {

namespace {

constexpr int kMargin = look::kSpace;
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

void ReportHeader::fit(int room, double scale, bool stacked) {
    if (m_fitting) {
        return;
    }
    const QScopedValueRollback quiet(m_fitting, true);
    m_scale = scale;
    std::vector<int> widths = wanted(room, stacked);
    const int over = std::accumulate(widths.begin(), widths.end(), -room);
    if (over > 0) {
        squeeze(widths, over);
    }
    const int stretch = stretching();
    for (int section = 0; section < count(); ++section) {
        const ReportColumn& column = shown(section);
        const bool fixed = section == stretch || column.share > 0 || column.form == CellForm::State ||
                           column.form == CellForm::Badge;
        setSectionResizeMode(section, fixed ? Fixed : Interactive);
        setSectionHidden(section, stacked && column.form == CellForm::Aged);
        if (!isSectionHidden(section)) {
            resizeSection(section, widths[static_cast<std::size_t>(section)]);
        }
    }
}

std::vector<int> ReportHeader::wanted(int room, bool stacked) const {
    std::vector<int> widths(static_cast<std::size_t>(count()), 0);
    const int stretch = stretching();
    int shares = 0;
    for (int section = 0; section < count(); ++section) {
        const ReportColumn& column = shown(section);
        if (stacked && column.form == CellForm::Aged) {
            continue;
        }
        if (column.share > 0) {
            shares += column.share;
        } else if (section != stretch) {
            int& width = widths[static_cast<std::size_t>(section)];
            // A slot holds no text: it grows as it is.
            width = column.form == CellForm::State ? qRound(column.width * m_scale) : scaled(column.width);
            if (stacked && column.form == CellForm::Badge) {
                width = std::min(width, column.width); // the name needs the room
            }
            room -= width;
        }
    }
    if (stretch >= 0) {
        widths[static_cast<std::size_t>(stretch)] =
            std::max(scaled(std::max(kLeastStretch, shown(stretch).width / 2)), room);
    }
    for (int section = 0; section < count() && shares > 0; ++section) {
        const ReportColumn& column = shown(section);
        if (column.share > 0 && !(stacked && column.form == CellForm::Aged)) {
            const int most = column.most > 0 && !stacked ? scaled(column.most) : room;
            widths[static_cast<std::size_t>(section)] = std::clamp(room * column.share / shares, 0, most);
        }
    }
    return widths;
}

// The stretching column gives first, then all in proportion to what they can give.
void ReportHeader::squeeze(std::vector<int>& widths, int over) const {
    const auto give = [&](auto section, int by) {
        widths[static_cast<std::size_t>(section)] -= by;
        over -= by;
    };
    if (const int stretch = stretching(); stretch >= 0) {
        give(stretch, std::clamp(widths[static_cast<std::size_t>(stretch)] - kLeastStretch, 0, over));
    }
    int room = 0;
    for (const int width : widths) {
        room += std::max(0, width - kLeastSection);
    }
    const int asked = over;
    for (std::size_t section = 0; section < widths.size() && over > 0; ++section) {
        const int most = std::max(0, widths[section] - kLeastSection);
        const auto part =
            static_cast<int>((static_cast<qint64>(most) * asked + room - 1) / std::max(1, room));
        give(section, std::min({most, part, over}));
    }
}

bool ReportHeader::isState(int section) const {
    return section >= 0 && section < count() && shown(section).form == CellForm::State;
}

int ReportHeader::scaled(int width) const {
    return std::max(kLeastSection, kMargins + qRound((width - kMargins) * m_scale));
}

int ReportHeader::stretching() const {
    if (std::ranges::any_of(m_columns, [](const ReportColumn& column) { return column.share > 0; })) {
        return -1;
    }
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
    QPainter(viewport()).fillRect(event->rect(), faint(palette(), look::kHeaderTint));
    QHeaderView::paintEvent(event);
    QPainter painter(viewport());
    painter.setPen(faint(palette(), look::kHeaderTint + look::kSelected));
    painter.drawLine(0, viewport()->height() - 1, viewport()->width(), viewport()->height() - 1);
}

void ReportHeader::paintSection(QPainter* painter, const QRect& rect, int section) const {
    painter->save();
    const bool hovered = sectionsClickable() && viewport()->underMouse() &&
                         rect.contains(viewport()->mapFromGlobal(QCursor::pos()));
    painter->fillRect(rect, faint(palette(), hovered ? look::kHeaderTint + look::kHover : look::kHeaderTint));
    const QColor back = faint(palette(), look::kHeaderTint);
    const QColor ink = readableOn(faint(palette(), look::kQuiet), back, palette().color(QPalette::Text));
    if (isState(section)) {
        paintStateMark(*painter, rect, ink);
        painter->restore();
        return;
    }
    if (sectionResizeMode(section) == Interactive) {
        painter->setPen(faint(palette(), look::kHeaderTint + look::kSelected)); // where one drags
        const int edge = isRightToLeft() ? rect.left() : rect.right();
        painter->drawLine(edge, rect.top() + look::kTight, edge, rect.bottom() - look::kTight);
    }
    QRect room = rect.adjusted(kMargin, 0, -kMargin, -1);
    if (isSortIndicatorShown() && sortIndicatorSection() == section && room.width() > 2 * kArrowWidth) {
        painter->setRenderHint(QPainter::Antialiasing);
        painter->setPen(QPen(ink, look::kStroke));
        const int x = isRightToLeft() ? room.left() + kArrowWidth / 2 : room.right() - kArrowWidth / 2;
        drawArrow(*painter, QPointF(x, room.center().y() + 0.5), sortIndicatorOrder() == Qt::AscendingOrder);
        room.adjust(isRightToLeft() ? kArrowWidth + 4 : 0, 0, isRightToLeft() ? 0 : -kArrowWidth - 4, 0);
    }
    const auto given =
        model()->headerData(section, orientation(), Qt::TextAlignmentRole).value<Qt::Alignment>();
    const auto alignment = QStyle::visualAlignment(layoutDirection(), given | Qt::AlignVCenter);
    const QString caption = model()->headerData(section, orientation(), Qt::DisplayRole).toString();
    if (shown(section).form == CellForm::Badge && fontMetrics().horizontalAdvance(caption) > room.width()) {
        painter->restore();
        return; // a letter of it says nothing
    }
    painter->setPen(ink);
    painter->drawText(room, static_cast<int>(alignment | Qt::AlignAbsolute) | Qt::TextSingleLine,
                      fontMetrics().elidedText(caption, Qt::ElideRight, room.width()));
    painter->restore();
}

// A funnel: here the list is narrowed to those who are free.
void ReportHeader::paintStateMark(QPainter& painter, const QRect& section, const QColor& ink) const {
    const double side = fontMetrics().height() * 0.32;
    const QPointF at = QRectF(section).center() + QPointF(section.width() * 0.15, 0);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(m_stateFiltered ? palette().color(QPalette::Highlight) : ink, look::kStroke,
                        Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.setBrush(m_stateFiltered ? QBrush(palette().color(QPalette::Highlight)) : QBrush(Qt::NoBrush));
    painter.drawPolygon(QPolygonF{at + QPointF(-side, -side), at + QPointF(side, -side),
                                  at + QPointF(side * 0.25, 0), at + QPointF(side * 0.25, side),
                                  at + QPointF(-side * 0.25, side * 0.6), at + QPointF(-side * 0.25, 0)});
}

void ReportHeader::setStateFiltered(bool filtered) {
    m_stateFiltered = filtered;
    viewport()->update();
}

bool ReportHeader::viewportEvent(QEvent* event) {
    if (event->type() == QEvent::ToolTip) {
        const auto* const help = static_cast<QHelpEvent*>(event);
        if (isState(logicalIndexAt(help->pos()))) {
            QToolTip::showText(help->globalPos(),
                               tr("Show only those who are free, occupied or not to be disturbed"),
                               viewport());
            return true;
        }
    }
    return QHeaderView::viewportEvent(event);
}

void ReportHeader::mouseReleaseEvent(QMouseEvent* event) {
    QHeaderView::mouseReleaseEvent(event);
    const int section = logicalIndexAt(event->position().toPoint());
    if (event->button() == Qt::LeftButton && isState(section)) {
        emit stateClicked(viewport()->mapToGlobal(QPoint(sectionViewportPosition(section), height())));
    }
}

QSize ReportHeader::sectionSizeFromContents(int) const {
    return {kLeastSection, std::max(qRound(look::kHeader * m_scale), fontMetrics().height() + look::kTight)};
}

} // namespace tessel
