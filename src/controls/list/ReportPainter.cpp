#include "controls/list/ReportPainter.h"

#include "controls/list/ReportColors.h"
#include "controls/list/ReportText.h"
#include "controls/look/Tokens.h"

#include <QFontMetrics>
#include <QPainter>
#include <QStyle>

#include <algorithm>
#include <utility>

namespace tessel {

namespace {

using Face = PaintKit::Face;

QColor colorOf(Argb argb) {
    return QColor::fromRgba(argb);
}

Face faceOf(const ReportColumn& column) {
    return column.form == CellForm::Name ? Face::Strong : Face::Plain;
}

struct AgedText {
    QString text;
    QStringView age; // without the mark between the two
};

AgedText parted(const ReportColumn& column, const ReportRecord& record) {
    const QString& whole = itemOf(record, column.item).text;
    const int length = column.ageLength ? column.ageLength(record) : 0;
    if (length <= 0 || length > whole.size()) {
        return {whole, {}};
    }
    QStringView age = QStringView(whole).right(length);
    while (!age.isEmpty() && (age.front() == u':' || age.front().isSpace())) {
        age = age.sliced(1);
    }
    return {whole.left(whole.size() - length), age};
}

} // namespace

void ReportPainter::setSpans(std::vector<Span> spans, int firstText) {
    m_spans = std::move(spans);
    m_firstText = firstText;
}

int ReportPainter::rowHeight(Lines lines) const {
    // Letters of another family may be higher than the units that they stand for.
    const int first = std::max({m_kit.px(look::kRow), m_kit.lineHeight(Face::Strong) + look::kSpace,
                                m_kit.iconSize() + look::kSpace});
    const int status =
        lines.status ? std::max(m_kit.px(look::kStatusLine), m_kit.lineHeight(Face::Plain)) : 0;
    const int preview =
        lines.preview ? std::max(m_kit.px(look::kNoteLine), m_kit.lineHeight(Face::Small)) : 0;
    return first + status + preview;
}

QColor ReportPainter::quiet(const QColor& back) {
    return m_kit.ink(blend(back, m_kit.palette().color(QPalette::Text), look::kQuiet), back);
}

void ReportPainter::paint(QPainter& painter, const Row& row) {
    const QColor base = m_kit.palette().color(QPalette::Base);
    const QColor back = m_kit.rowBack(base, row.state);
    painter.fillRect(row.rect, back);
    painter.fillRect(QRect(row.rect.left(), row.rect.bottom(), row.rect.width(), 1),
                     blend(back, m_kit.palette().color(QPalette::Text), look::kSeparator));
    for (const Span& span : m_spans) {
        switch (span.column->form) {
        case CellForm::State:
            paintState(painter, span, row, back);
            break;
        case CellForm::Aged:
            paintAged(painter, span, row, back);
            break;
        default:
            paintCell(painter, reaching(span, *row.record), lineOf(span, row),
                      itemOf(*row.record, span.column->item), back);
            break;
        }
    }
    if (row.lines.preview && !m_spans.empty()) {
        painter.setPen(quiet(back));
        m_kit.paintLine(painter, row.record->preview, previewRoom(row),
                        m_spans.front().alignment & Qt::AlignRight ? Qt::AlignRight : Qt::AlignLeft,
                        Face::Small);
    }
    m_kit.paintSelectionBar(painter, row.rect.adjusted(0, 0, 0, -1), row.state);
}

QString ReportPainter::hiddenText(const Row& row, const QPoint& pos) const {
    const auto hidden = [](const QString& text, const QFont& font, int room) {
        const QString line = singleLine(text);
        return line.size() != text.size() || QFontMetrics(font).horizontalAdvance(line) > room ? text
                                                                                               : QString();
    };
    if (row.lines.preview && pos.y() >= previewRoom(row).top()) {
        return hidden(row.record->preview, m_kit.font(Face::Small), previewRoom(row).width());
    }
    for (const Span& own : m_spans) {
        const Span span = reaching(own, *row.record);
        const QRect line = lineOf(span, row);
        const QRect cell(span.left, line.top(), span.width, line.height());
        if (!cell.contains(pos) || (span.below && !row.lines.status)) {
            continue;
        }
        const ReportItem& item = itemOf(*row.record, span.column->item);
        int room = rooms(span, line, item).text.width();
        if (span.column->form != CellForm::Aged) {
            return hidden(item.text, m_kit.font(faceOf(*span.column)), room);
        }
        const AgedText aged = parted(*span.column, *row.record);
        room -= aged.age.isEmpty() ? 0 : m_kit.digitsWidth(aged.age) + look::kSpace;
        return hidden(aged.text, m_kit.font(Face::Plain), room).isEmpty() ? QString() : item.text;
    }
    return {};
}

// --- places ------------------------------------------------------------------------------------

ReportPainter::CellRooms ReportPainter::rooms(const Span& span, const QRect& line,
                                              const ReportItem& item) const {
    CellRooms rooms;
    const QRect cell(span.left, line.top(), span.width, line.height());
    rooms.block = cell.adjusted(look::kTight, look::kTight, -look::kTight, -look::kTight);
    rooms.text = cell.adjusted(look::kSpace, 0, -look::kSpace, 0);
    if (item.icon >= 0) {
        const QSize size(m_kit.iconSize(), m_kit.iconSize());
        const QRect around = rooms.text.width() < m_kit.iconSize() ? cell : rooms.text;
        const bool right = span.alignment & Qt::AlignRight;
        const Qt::Alignment side = item.text.isEmpty() && (span.alignment & Qt::AlignHCenter)
                                       ? Qt::AlignHCenter
                                       : (right ? Qt::AlignRight : Qt::AlignLeft);
        rooms.icon = QStyle::alignedRect(Qt::LeftToRight, side | Qt::AlignVCenter, size, around);
        const int taken = m_kit.iconSize() + look::kSpace;
        rooms.text.adjust(right ? 0 : taken, 0, right ? -taken : 0, 0);
    }
    return rooms;
}

ReportPainter::Span ReportPainter::reaching(const Span& span, const ReportRecord& record) const {
    Span wide = span;
    if (span.column->form == CellForm::Name) {
        for (const Span& badge : m_spans) {
            const bool after = badge.left == span.left + span.width;
            if (badge.column->form == CellForm::Badge && itemOf(record, badge.column->item).icon < 0 &&
                (after || badge.left + badge.width == span.left)) {
                wide.width += badge.width;
                wide.left = std::min(wide.left, badge.left);
            }
        }
    }
    return wide;
}

QRect ReportPainter::lineOf(const Span& span, const Row& row) const {
    return span.below ? statusLine(row.rect) : firstLine(row.rect);
}

QRect ReportPainter::firstLine(const QRect& row) const {
    return {row.left(), row.top(), row.width(), rowHeight({})};
}

// What stands under the name moves up into the room that the first line leaves at its foot.
QRect ReportPainter::statusLine(const QRect& row) const {
    const int foot = (rowHeight({}) - m_kit.lineHeight(Face::Strong)) / 2;
    return {row.left(), firstLine(row).bottom() + 1 - foot, row.width(),
            rowHeight({true, false}) - rowHeight({})};
}

QRect ReportPainter::previewRoom(const Row& row) const {
    int left = row.rect.right();
    int right = row.rect.left();
    for (auto i = static_cast<std::size_t>(m_firstText); i < m_spans.size(); ++i) {
        left = std::min(left, m_spans[i].left);
        right = std::max(right, m_spans[i].left + m_spans[i].width);
    }
    left = std::max(left, row.rect.left()) + look::kSpace;
    right = std::min(right, row.rect.right() + 1) - look::kSpace;
    const QRect above = statusLine(row.rect);
    return {left, row.lines.status ? above.bottom() + 1 : above.top(), right - left,
            rowHeight({false, true}) - rowHeight({})};
}

// --- cells -------------------------------------------------------------------------------------

void ReportPainter::paintState(QPainter& painter, const Span& span, const Row& row, const QColor& back) {
    const ReportItem& item = itemOf(*row.record, span.column->item);
    const bool mirrored = span.alignment & Qt::AlignRight;
    const QRect cell(span.left, row.rect.top(), span.width, row.rect.height() - 1);
    const auto placed = [&](int left, int width, const QRect& line) {
        const int x = mirrored ? cell.right() + 1 - left - width : cell.left() + left;
        return QRect(x, line.top(), width, line.height());
    };
    const int bar = m_kit.px(look::kSelectionBar);
    const QRect strip = placed(bar, m_kit.px(look::kStrip), cell);
    if (item.backColor != kNoColor) {
        const QColor color = colorOf(item.backColor);
        painter.fillRect(strip, m_kit.outline(color, back));
        painter.fillRect(strip.adjusted(1, 1, -1, -1), color);
    }
    if (!item.text.isEmpty()) {
        // The mark of the own row.
        const QColor under = item.backColor != kNoColor ? colorOf(item.backColor) : back;
        const int width = std::max(2, m_kit.px(2));
        painter.fillRect(QRect(strip.center().x() - (width - 1) / 2, strip.top() + look::kTight, width,
                               strip.height() - look::kSpace),
                         textOn(under));
    }
    if (item.icon >= 0) {
        const int side = m_kit.px(look::kStateIcon);
        const QRect line = firstLine(row.rect);
        const int left = bar + m_kit.px(look::kStrip) + m_kit.px(look::kTight);
        m_kit.paintIcon(
            painter, item.icon,
            QStyle::alignedRect(Qt::LeftToRight, Qt::AlignCenter, {side, side}, placed(left, side, line)));
    }
}

void ReportPainter::paintAged(QPainter& painter, const Span& span, const Row& row, const QColor& back) {
    const ReportItem& item = itemOf(*row.record, span.column->item);
    if (item.text.isEmpty() || (span.below && !row.lines.status)) {
        return;
    }
    QRect room = rooms(span, lineOf(span, row), item).text;
    const bool right = span.alignment & Qt::AlignRight;
    const AgedText aged = parted(*span.column, *row.record);
    if (!aged.age.isEmpty()) {
        painter.setPen(quiet(back));
        const int taken =
            m_kit.paintDigits(painter, aged.age, room, right ? Qt::AlignLeft : Qt::AlignRight) + look::kSpace;
        room.adjust(right ? taken : 0, 0, right ? 0 : -taken, 0);
    }
    painter.setPen(m_kit.ink(
        item.foreColor == kNoColor ? m_kit.palette().color(QPalette::Text) : colorOf(item.foreColor), back));
    m_kit.paintLine(painter, aged.text, room, span.alignment, Face::Plain);
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
        PaintKit::paintBox(painter, room.block, look::kRounding,
                           blend(under, m_kit.palette().color(QPalette::Text), look::kSelectedFocused),
                           under);
    }
    if (item.icon >= 0) {
        m_kit.paintIcon(painter, item.icon, room.icon);
    }
    if (!item.text.isEmpty() && room.text.width() > 0) {
        painter.setPen(item.foreColor == kNoColor ? m_kit.ink(text, under)
                                                  : m_kit.ink(colorOf(item.foreColor), under));
        m_kit.paintLine(painter, item.text, room.text, span.alignment, faceOf(*span.column));
    }
}

} // namespace tessel
