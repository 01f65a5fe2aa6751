#include "controls/ReportPainter.h"

#include "controls/ReportColors.h"
#include "controls/ReportText.h"

#include <QFontMetrics>
#include <QPainter>
#include <QStyle>
#include <QTextOption>

#include <algorithm>
#include <utility>

namespace tessel {

namespace {

constexpr int kMargin = 8;     // left and right of a text
constexpr int kRowPadding = 4; // above and below the lines of a row
constexpr int kBlockInset = 4; // clear of the bar that marks the selected row
constexpr int kGap = 6;        // between icon and text
constexpr int kLines = 4000;
constexpr int kInks = 1000;
constexpr double kSmaller = 0.88;

QColor colorOf(Argb argb) {
    return QColor::fromRgba(argb);
}

} // namespace

ReportPainter::ReportPainter() : m_lines(kLines) {
    setFont(QFont());
}

void ReportPainter::setFont(const QFont& font) {
    m_font = font;
    m_smallFont = font;
    m_smallFont.setPointSizeF(std::max(7.0, font.pointSizeF() * kSmaller));
    m_lineHeight = QFontMetrics(m_font).height();
    m_smallHeight = QFontMetrics(m_smallFont).height();
    m_iconSize = m_lineHeight >= 30 ? 32 : m_lineHeight >= 23 ? 24 : 16;
    m_lines.clear();
    m_pictures.clear();
}

void ReportPainter::setPalette(const QPalette& palette) {
    m_palette = palette;
    m_inks.clear();
    m_pictures.clear();
}

void ReportPainter::setIconProvider(ReportIconProvider provider) {
    m_icons = std::move(provider);
    m_pictures.clear();
}

void ReportPainter::setSpans(std::vector<Span> spans, int firstText) {
    m_spans = std::move(spans);
    m_firstText = firstText;
}

int ReportPainter::rowHeight(bool preview) const {
    return std::max(m_lineHeight, m_iconSize) + 2 * kRowPadding + (preview ? m_smallHeight + 1 : 0);
}

void ReportPainter::paint(QPainter& painter, const Row& row) {
    const QColor back = rowBack(row);
    const QColor text = m_palette.color(QPalette::Text);
    painter.fillRect(row.rect, back);
    const QRect line = firstLine(row);
    for (const Span& span : m_spans) {
        paintCell(painter, span, line, itemOf(*row.record, span.item), back);
    }
    if (row.preview && !m_spans.empty()) {
        painter.setPen(ink(blend(back, text, 0.7), back));
        paintText(painter, row.record->preview, previewRoom(row),
                  m_spans.front().alignment & Qt::AlignRight ? Qt::AlignRight : Qt::AlignLeft, true);
    }
    painter.setPen(blend(m_palette.color(QPalette::Base), text, 0.07));
    painter.drawLine(row.rect.bottomLeft(), row.rect.bottomRight());
    if (row.selected) {
        painter.fillRect(QRect(row.rect.left(), row.rect.top(), 3, row.rect.height() - 1),
                         row.focused ? m_palette.color(QPalette::Highlight)
                                     : blend(back, m_palette.color(QPalette::Highlight), 0.6));
    }
}

QString ReportPainter::hiddenText(const Row& row, const QPoint& pos) const {
    const auto hidden = [](const QString& text, const QFont& font, int room) {
        const QString line = singleLine(text);
        return line.size() != text.size() || QFontMetrics(font).horizontalAdvance(line) > room ? text
                                                                                               : QString();
    };
    const QRect line = firstLine(row);
    if (row.preview && pos.y() > line.bottom()) {
        return hidden(row.record->preview, m_smallFont, previewRoom(row).width());
    }
    for (const Span& span : m_spans) {
        if (pos.x() >= span.left && pos.x() < span.left + span.width) {
            const ReportItem& item = itemOf(*row.record, span.item);
            return hidden(item.text, m_font, rooms(span, line, item).text.width());
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
        const QSize size(m_iconSize, m_iconSize);
        const QRect around = rooms.text.width() < m_iconSize ? cell : rooms.text;
        const bool right = span.alignment & Qt::AlignRight;
        const Qt::Alignment side = item.text.isEmpty() && (span.alignment & Qt::AlignHCenter)
                                       ? Qt::AlignHCenter
                                       : (right ? Qt::AlignRight : Qt::AlignLeft);
        rooms.icon = QStyle::alignedRect(Qt::LeftToRight, side | Qt::AlignVCenter, size, around);
        rooms.text.adjust(right ? 0 : m_iconSize + kGap, 0, right ? -m_iconSize - kGap : 0, 0);
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
    return {left, firstLine(row).bottom() - kRowPadding + 1, right - left, m_smallHeight};
}

QColor ReportPainter::rowBack(const Row& row) const {
    const QColor base = m_palette.color(QPalette::Base);
    const QColor accent = m_palette.color(QPalette::Highlight);
    if (row.selected) {
        return blend(base, accent, row.focused ? 0.28 : 0.16);
    }
    return row.hovered ? blend(base, accent, 0.07) : base;
}

QColor ReportPainter::ink(const QColor& text, const QColor& back) {
    const quint64 key = static_cast<quint64>(text.rgb()) << 32U | back.rgb();
    const auto found = m_inks.constFind(key);
    if (found != m_inks.constEnd()) {
        return *found;
    }
    if (m_inks.size() >= kInks) {
        m_inks.clear();
    }
    return *m_inks.insert(key, readableOn(text, back, m_palette.color(QPalette::Text)));
}

void ReportPainter::paintCell(QPainter& painter, const Span& span, const QRect& line, const ReportItem& item,
                              const QColor& back) {
    if (item.text.isEmpty() && item.icon < 0 && item.backColor == kNoColor) {
        return;
    }
    const CellRooms room = rooms(span, line, item);
    QColor under = back;
    QColor text = m_palette.color(QPalette::Text);
    if (item.backColor != kNoColor) {
        const QColor own = colorOf(item.backColor);
        under = blend(back, own, own.alphaF());
        text = textOn(under);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(blend(under, m_palette.color(QPalette::Text), 0.2));
        painter.setBrush(under);
        painter.drawRoundedRect(QRectF(room.block).adjusted(0.5, 0.5, -0.5, -0.5), 3, 3);
        painter.setRenderHint(QPainter::Antialiasing, false);
    }
    if (item.icon >= 0) {
        paintIcon(painter, item.icon, room.icon);
    }
    if (!item.text.isEmpty() && room.text.width() > 0) {
        painter.setPen(item.foreColor == kNoColor ? ink(text, under) : ink(colorOf(item.foreColor), under));
        paintText(painter, item.text, room.text, span.alignment, false);
    }
}

void ReportPainter::paintIcon(QPainter& painter, int icon, const QRect& room) {
    const double ratio = painter.device()->devicePixelRatioF();
    if (ratio != m_pictureRatio) {
        m_pictureRatio = ratio;
        m_pictures.clear();
    }
    auto picture = m_pictures.constFind(icon);
    if (picture == m_pictures.constEnd()) {
        const bool enabled = m_palette.currentColorGroup() != QPalette::Disabled;
        const QPixmap made =
            m_icons ? m_icons(icon).pixmap(room.size(), ratio, enabled ? QIcon::Normal : QIcon::Disabled)
                    : QPixmap();
        picture = m_pictures.insert(icon, made);
    }
    if (!picture->isNull()) {
        // An icon that has no picture of this size comes smaller.
        const QSize size = picture->deviceIndependentSize().toSize();
        painter.drawPixmap(QStyle::alignedRect(Qt::LeftToRight, Qt::AlignCenter, size, room), *picture);
    }
}

void ReportPainter::paintText(QPainter& painter, const QString& text, const QRect& room,
                              Qt::Alignment alignment, bool small) {
    if (room.width() <= 0) {
        return;
    }
    const Line& line = lineFor(singleLine(text), room.width(), small);
    double x = room.left();
    if (alignment & Qt::AlignRight) {
        x += room.width() - line.width;
    } else if (alignment & Qt::AlignHCenter) {
        x += (room.width() - line.width) / 2;
    }
    const int height = small ? m_smallHeight : m_lineHeight;
    painter.setFont(small ? m_smallFont : m_font);
    painter.drawStaticText(QPointF(x, room.top() + (room.height() - height) / 2), line.text);
}

// Shaping a text costs ten times as much as drawing it, and most texts stay.
const ReportPainter::Line& ReportPainter::lineFor(const QString& text, int width, bool small) {
    const LineKey key{text, width, small};
    if (const Line* kept = m_lines.object(key); kept != nullptr) {
        return *kept;
    }
    const QFont& font = small ? m_smallFont : m_font;
    auto* line = new Line;
    line->text.setTextFormat(Qt::PlainText);
    line->text.setPerformanceHint(QStaticText::AggressiveCaching);
    QTextOption option;
    option.setWrapMode(QTextOption::NoWrap);
    option.setTextDirection(Qt::LayoutDirectionAuto);
    line->text.setTextOption(option);
    line->text.setText(QFontMetrics(font).elidedText(text, Qt::ElideRight, width));
    line->text.prepare({}, font);
    line->width = line->text.size().width();
    m_lines.insert(key, line);
    return *line;
}

} // namespace tessel
