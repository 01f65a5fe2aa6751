#include "controls/list/ReportPainter.h"

#include "controls/list/ReportColors.h"
#include "controls/list/ReportText.h"

#include <QFontMetrics>
#include <QPainter>
#include <QStyle>

#include <algorithm>
#include <utility>

namespace tessel {

namespace {

using Face = PaintKit::Face;

constexpr int kMargin = 8;     // left and right of a text
constexpr int kRowPadding = 4; // above and below the lines of a row
constexpr int kBlockInset = 4; // clear of the bar that marks the selected row
constexpr int kGap = 6;        // between icon and text

QColor colorOf(Argb argb) {
    return QColor::fromRgba(argb);
}

} // namespace

void ReportPainter::setSpans(std::vector<Span> spans, int firstText) {
    m_spans = std::move(spans);
    m_firstText = firstText;
}

int ReportPainter::rowHeight(bool preview) const {
    return std::max(m_kit.lineHeight(Face::Plain), m_kit.iconSize()) + 2 * kRowPadding +
           (preview ? m_kit.lineHeight(Face::Small) + 1 : 0);
}

void ReportPainter::paint(QPainter& painter, const Row& row) {
    const QColor back = m_kit.rowBack(m_kit.palette().color(QPalette::Base), row.state);
    const QColor text = m_kit.palette().color(QPalette::Text);
    painter.fillRect(row.rect, back);
    const QRect line = firstLine(row);
    for (const Span& span : m_spans) {
        paintCell(painter, span, line, itemOf(*row.record, span.item), back);
    }
    if (row.preview && !m_spans.empty()) {
        painter.setPen(m_kit.ink(blend(back, text, 0.7), back));
        m_kit.paintLine(painter, row.record->preview, previewRoom(row),
                        m_spans.front().alignment & Qt::AlignRight ? Qt::AlignRight : Qt::AlignLeft,
                        Face::Small);
    }
    painter.setPen(blend(m_kit.palette().color(QPalette::Base), text, 0.07));
    painter.drawLine(row.rect.bottomLeft(), row.rect.bottomRight());
    m_kit.paintSelectionBar(painter, row.rect.adjusted(0, 0, 0, -1), row.state);
}

QString ReportPainter::hiddenText(const Row& row, const QPoint& pos) const {
    const auto hidden = [](const QString& text, const QFont& font, int room) {
        const QString line = singleLine(text);
        return line.size() != text.size() || QFontMetrics(font).horizontalAdvance(line) > room ? text
                                                                                               : QString();
    };
    const QRect line = firstLine(row);
    if (row.preview && pos.y() > line.bottom()) {
        return hidden(row.record->preview, m_kit.font(Face::Small), previewRoom(row).width());
    }
    for (const Span& span : m_spans) {
        if (pos.x() >= span.left && pos.x() < span.left + span.width) {
            const ReportItem& item = itemOf(*row.record, span.item);
            return hidden(item.text, m_kit.font(Face::Plain), rooms(span, line, item).text.width());
        }
    }
    return {};
}

ReportPainter::CellRooms ReportPainter::rooms(const Span& span, const QRect& line,
                                              const ReportItem& item) const {
    CellRooms rooms;
    const QRect cell(span.left, line.top(), span.width, line.height());
    rooms.block = cell.adjusted(kBlockInset, kBlockInset, -kBlockInset, -kBlockInset);
    rooms.text = cell.adjusted(kMargin, 0, -kMargin, 0);
    if (item.icon >= 0) {
        const QSize size(m_kit.iconSize(), m_kit.iconSize());
        const QRect around = rooms.text.width() < m_kit.iconSize() ? cell : rooms.text;
        const bool right = span.alignment & Qt::AlignRight;
        const Qt::Alignment side = item.text.isEmpty() && (span.alignment & Qt::AlignHCenter)
                                       ? Qt::AlignHCenter
                                       : (right ? Qt::AlignRight : Qt::AlignLeft);
        rooms.icon = QStyle::alignedRect(Qt::LeftToRight, side | Qt::AlignVCenter, size, around);
        rooms.text.adjust(right ? 0 : m_kit.iconSize() + kGap, 0, right ? -m_kit.iconSize() - kGap : 0, 0);
    }
    return rooms;
}

QRect ReportPainter::firstLine(const Row& row) const {
    return {row.rect.left(), row.rect.top(), row.rect.width(), rowHeight(false)};
}

QRect ReportPainter::previewRoom(const Row& row) const {
    int left = row.rect.right();
    int right = row.rect.left();
    for (auto i = static_cast<std::size_t>(m_firstText); i < m_spans.size(); ++i) {
        left = std::min(left, m_spans[i].left);
        right = std::max(right, m_spans[i].left + m_spans[i].width);
    }
    // Columns may reach beyond the window; a line of reading should not.
    left = std::max(left, row.rect.left()) + kMargin;
    right = std::min(right, row.rect.right() + 1) - kMargin;
    return {left, firstLine(row).bottom() - kRowPadding + 1, right - left, m_kit.lineHeight(Face::Small)};
}

void ReportPainter::paintCell(QPainter& painter, const Span& span, const QRect& line, const ReportItem& item,
                              const QColor& back) {
    if (item.text.isEmpty() && item.icon < 0 && item.backColor == kNoColor) {
        return;
    }
    const CellRooms room = rooms(span, line, item);
    QColor under = back;
    QColor text = m_kit.palette().color(QPalette::Text);
    if (item.backColor != kNoColor) {
        const QColor own = colorOf(item.backColor);
        under = blend(back, own, own.alphaF());
        text = textOn(under);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(blend(under, m_kit.palette().color(QPalette::Text), 0.2));
        painter.setBrush(under);
        painter.drawRoundedRect(QRectF(room.block).adjusted(0.5, 0.5, -0.5, -0.5), 3, 3);
        painter.setRenderHint(QPainter::Antialiasing, false);
    }
    if (item.icon >= 0) {
        m_kit.paintIcon(painter, item.icon, room.icon);
    }
    if (!item.text.isEmpty() && room.text.width() > 0) {
        painter.setPen(item.foreColor == kNoColor ? m_kit.ink(text, under)
                                                  : m_kit.ink(colorOf(item.foreColor), under));
        m_kit.paintLine(painter, item.text, room.text, span.alignment, Face::Plain);
    }
}

} // namespace tessel
