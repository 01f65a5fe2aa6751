#include "controls/look/PaintKit.h"

#include "controls/list/ReportColors.h"
#include "controls/list/ReportText.h"
#include "controls/look/Tokens.h"

#include <QFontMetrics>
#include <QPainter>
#include <QStyle>
#include <QTextOption>

#include <algorithm>
#include <cmath>
#include <utility>

namespace tessel {

namespace {

constexpr int kLines = 4000;
constexpr int kWrappedTexts = 200; // a few screens full
constexpr int kInks = 1000;

} // namespace

PaintKit::PaintKit() : m_lines(kLines), m_wrapped(kWrappedTexts) {
    setFont(QFont());
}

void PaintKit::setFont(const QFont& font) {
    m_plain.font = m_small.font = m_bold.font = m_strong.font = font;
    m_small.font.setPointSizeF(std::max(look::kLeastPoints, font.pointSizeF() * look::kSmaller));
    m_bold.font.setBold(true);
    m_strong.font.setWeight(std::max<QFont::Weight>(QFont::DemiBold, font.weight()));
    for (Sized* const sized : {&m_plain, &m_small, &m_bold, &m_strong}) {
        sized->height = 0;
    }
    m_scale = 0;
    m_digits = {};
    m_lines.clear();
    m_wrapped.clear();
    m_pictures.clear();
}

void PaintKit::setPalette(const QPalette& palette) {
    m_palette = palette;
    m_inks.clear();
    m_pictures.clear();
}

void PaintKit::setIconProvider(ReportIconProvider provider) {
    m_icons = std::move(provider);
    m_pictures.clear();
}

const PaintKit::Sized& PaintKit::sized(Face face) const {
    switch (face) {
    case Face::Small:
        return m_small;
    case Face::Bold:
        return m_bold;
    case Face::Strong:
        return m_strong;
    case Face::Plain:
        break;
    }
    return m_plain;
}

const QFont& PaintKit::font(Face face) const {
    return sized(face).font;
}

int PaintKit::lineHeight(Face face) const {
    const Sized& asked = sized(face);
    if (asked.height == 0) {
        asked.height = QFontMetrics(asked.font).height();
    }
    return asked.height;
}

int PaintKit::iconSize() const {
    const int height = lineHeight(Face::Plain);
    return height >= 30 ? 32 : height >= 23 ? 24 : 16;
}

int PaintKit::px(int units) const {
    if (m_scale == 0) {
        QFont meant = m_plain.font;
        meant.setPointSize(look::kMeantFor);
        m_scale = static_cast<double>(lineHeight(Face::Plain)) / QFontMetrics(meant).height();
    }
    return qRound(units * m_scale);
}

QColor PaintKit::ink(const QColor& text, const QColor& back) {
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

QColor PaintKit::outline(const QColor& color, const QColor& back) const {
    return readableOn(color, back, m_palette.color(QPalette::Text), look::kPartContrast);
}

QColor PaintKit::rowBack(const QColor& base, const RowState& state) const {
    const QColor accent = m_palette.color(QPalette::Highlight);
    if (state.selected) {
        return blend(base, accent, state.focused ? look::kSelectedFocused : look::kSelected);
    }
    const QColor rest = state.own ? blend(base, accent, look::kOwnRow) : base;
    return state.hovered ? blend(rest, accent, look::kHover) : rest;
}

void PaintKit::paintBox(QPainter& painter, const QRectF& box, double corner, const QColor& line,
                        const QBrush& back) {
    // Two areas are painted many times as fast as one with a round line about it.
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(line);
    painter.drawRoundedRect(box, corner + 0.5, corner + 0.5);
    painter.setBrush(back);
    painter.drawRoundedRect(box.adjusted(1, 1, -1, -1), corner - 0.5, corner - 0.5);
    painter.setRenderHint(QPainter::Antialiasing, false);
}

void PaintKit::paintSelectionBar(QPainter& painter, const QRect& row, const RowState& state) const {
    if (state.selected) {
        const QColor accent = m_palette.color(QPalette::Highlight);
        painter.fillRect(
            QRect(row.left(), row.top(), px(look::kSelectionBar), row.height()),
            state.focused ? accent
                          : blend(rowBack(m_palette.color(QPalette::Base), state), accent, look::kUnfocused));
    }
}

void PaintKit::paintIcon(QPainter& painter, int icon, const QRect& room) {
    const double ratio = painter.device()->devicePixelRatioF();
    if (ratio != m_pictureRatio) {
        m_pictureRatio = ratio;
        m_pictures.clear();
    }
    const std::pair key(icon, room.width());
    auto picture = m_pictures.constFind(key);
    if (picture == m_pictures.constEnd()) {
        const bool enabled = m_palette.currentColorGroup() != QPalette::Disabled;
        const QPixmap made =
            m_icons ? m_icons(icon).pixmap(room.size(), ratio, enabled ? QIcon::Normal : QIcon::Disabled)
                    : QPixmap();
        picture = m_pictures.insert(key, made);
    }
    if (!picture->isNull()) {
        // An icon that has no picture of this size comes smaller.
        const QSize size = picture->deviceIndependentSize().toSize();
        painter.drawPixmap(QStyle::alignedRect(Qt::LeftToRight, Qt::AlignCenter, size, room), *picture);
    }
}

int PaintKit::paintLine(QPainter& painter, const QString& text, const QRect& room, Qt::Alignment alignment,
                        Face face) {
    if (text.isEmpty() || room.width() <= 0) {
        return 0;
    }
    const Line& line = lineFor(singleLine(text), room.width(), face);
    double x = room.left();
    if (alignment & Qt::AlignRight) {
        x += room.width() - line.width;
    } else if (alignment & Qt::AlignHCenter) {
        x += (room.width() - line.width) / 2;
    }
    painter.setFont(font(face));
    const int top = room.top() + (room.height() - lineHeight(face)) / 2; // whole pixels: sharp letters
    painter.drawStaticText(QPointF(x, top), line.text);
    return static_cast<int>(std::ceil(line.width));
}

const PaintKit::Digits& PaintKit::digits() const {
    if (m_digits.widest == 0) {
        const QFontMetrics metrics(m_small.font);
        for (char16_t digit = u'0'; digit <= u'9'; ++digit) {
            const int width = metrics.horizontalAdvance(QChar(digit));
            m_digits.even = m_digits.even && (m_digits.widest == 0 || width == m_digits.widest);
            m_digits.widest = std::max(m_digits.widest, width);
        }
    }
    return m_digits;
}

int PaintKit::digitsWidth(QStringView text) const {
    const QFontMetrics metrics(m_small.font);
    if (digits().even) {
        return metrics.horizontalAdvance(text.toString());
    }
    int width = 0;
    for (const QChar c : text) {
        width += c.isDigit() ? digits().widest : metrics.horizontalAdvance(c);
    }
    return width;
}

int PaintKit::paintDigits(QPainter& painter, QStringView text, const QRect& room, Qt::Alignment alignment) {
    const int width = digitsWidth(text);
    int left = alignment & Qt::AlignRight ? room.right() + 1 - width : room.left();
    if (digits().even) {
        // A pixel more than it needs, so that rounding never cuts it.
        paintLine(painter, text.toString(), {left, room.top(), width + 1, room.height()}, Qt::AlignLeft,
                  Face::Small);
        return width;
    }
    const QFontMetrics metrics(m_small.font);
    painter.setFont(m_small.font);
    for (const QChar c : text) {
        const int cell = c.isDigit() ? digits().widest : metrics.horizontalAdvance(c);
        painter.drawText(QRect(left, room.top(), cell, room.height()), Qt::AlignCenter, QString(c));
        left += cell;
    }
    return width;
}

// Shaping a text costs ten times as much as drawing it, and most texts stay.
const PaintKit::Line& PaintKit::lineFor(const QString& text, int width, Face face) {
    const LineKey key{text, width, face};
    if (const Line* kept = m_lines.object(key); kept != nullptr) {
        return *kept;
    }
    auto* line = new Line;
    line->text.setTextFormat(Qt::PlainText);
    line->text.setPerformanceHint(QStaticText::AggressiveCaching);
    QTextOption option;
    option.setWrapMode(QTextOption::NoWrap);
    option.setTextDirection(Qt::LayoutDirectionAuto);
    line->text.setTextOption(option);
    line->text.setText(QFontMetrics(font(face)).elidedText(text, Qt::ElideRight, width));
    line->text.prepare({}, font(face));
    line->width = line->text.size().width();
    m_lines.insert(key, line);
    return *line; // NOLINT(clang-analyzer-cplusplus.NewDelete): one entry always has room
}

const WrappedText& PaintKit::wrapped(const QString& text, int width, int mostLines) {
    const std::pair key(text, width);
    if (const WrappedText* kept = m_wrapped.object(key); kept != nullptr) {
        return *kept;
    }
    auto* made = new WrappedText(text, m_plain.font, width, mostLines);
    m_wrapped.insert(key, made);
    return *made; // NOLINT(clang-analyzer-cplusplus.NewDelete): one entry always has room
}

} // namespace tessel
