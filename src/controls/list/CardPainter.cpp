#include "controls/list/CardPainter.h"

#include "controls/list/ReportColors.h"
#include "controls/list/ReportOrder.h"
#include "controls/list/ReportText.h"
#include "controls/look/Tokens.h"

#include <QFontMetrics>
#include <QPainter>
#include <QStyle>

#include <algorithm>

namespace tessel {

namespace {

using Face = PaintKit::Face;

constexpr int kGapX = look::kSpace; // between the card and the list's edges
constexpr int kGapY = look::kTight; // half of what lies between two cards
constexpr int kPadding = look::kSpace;
constexpr int kTextIndent = look::kSpace;
constexpr int kTextAbove = look::kTight;
constexpr int kTextBelow = look::kSpace;
constexpr int kRule = look::kCardRule;
constexpr int kIconGap = look::kSpace;

QColor colorOf(Argb argb, const QColor& otherwise) {
    return argb == kNoColor ? otherwise : QColor::fromRgb(argb);
}

QRect cardIn(const QRect& room) {
    return room.adjusted(kGapX, kGapY, -kGapX, -kGapY);
}

} // namespace

const QString& CardPainter::textOf(const ReportRecord& record) const {
    return itemOf(record, m_items.text).text;
}

int CardPainter::textWidth(int width) const {
    const int margins = 2 * (kGapX + kPadding) + kTextIndent;
    // Lines that end clear of the border read better; a narrow list has no room to spare.
    const int clear = std::min(m_kit.lineHeight(Face::Plain), width / 12);
    return std::max(1, width - margins - clear);
}

int CardPainter::headHeight() const {
    return kPadding + std::max(m_kit.lineHeight(Face::Bold), m_kit.iconSize()) + kTextAbove;
}

int CardPainter::footHeight() const {
    return kRule + kTextAbove + m_kit.lineHeight(Face::Small) + kTextAbove;
}

int CardPainter::around(bool text) const {
    return 2 * kGapY + headHeight() + (text ? kTextAbove + kTextBelow : kTextAbove) + footHeight();
}

int CardPainter::height(const ReportRecord& record, int width) {
    const QString& text = textOf(record);
    const int lines =
        text.isEmpty() ? 0 : m_kit.wrapped(text, textWidth(width), look::kCardLines).lineCount();
    return around(lines > 0) + lines * m_kit.lineHeight(Face::Plain);
}

int CardPainter::likelyHeight(const ReportRecord& record, int width) const {
    const qsizetype perLine = std::max(1, 2 * textWidth(width) / std::max(1, m_kit.lineHeight(Face::Plain)));
    const qsizetype lines =
        std::min<qsizetype>((textOf(record).size() + perLine - 1) / perLine, look::kCardLines);
    return around(lines > 0) + static_cast<int>(lines) * m_kit.lineHeight(Face::Plain);
}

QRect CardPainter::seen(const QRect& part, const QRect& card) const {
    return QStyle::visualRect(m_rightToLeft ? Qt::RightToLeft : Qt::LeftToRight, card, part);
}

QRect CardPainter::headingRoom(const ReportRecord& record, const QRect& card) const {
    QRect room(card.left() + kPadding, card.top() + kPadding, card.width() - 2 * kPadding,
               headHeight() - kPadding - kTextAbove);
    if (itemOf(record, m_items.heading).icon >= 0) {
        room.setLeft(room.left() + m_kit.iconSize() + kIconGap);
    }
    return room;
}

QColor CardPainter::borderOf(const ReportRecord& record, const QColor& back) {
    const QColor plain = m_kit.palette().color(QPalette::Mid);
    const Argb own = itemOf(record, m_items.border).backColor;
    return own == kNoColor ? plain : m_kit.ink(colorOf(own, plain), back);
}

void CardPainter::paint(QPainter& painter, const ReportRecord& record, const QRect& room,
                        const RowState& state) {
    const QRect card = cardIn(room);
    const QColor back = m_kit.rowBack(m_kit.palette().color(QPalette::Base), state);
    PaintKit::paintBox(painter, card, look::kRounding, borderOf(record, back), back);
    m_kit.paintSelectionBar(painter, seen(card.adjusted(1, 2, 0, -2), card), state);

    paintHeading(painter, record, card, back);
    const QString& text = textOf(record);
    const int textRoom = room.height() - around(true);
    if (!text.isEmpty() && textRoom > 0) {
        painter.setPen(m_kit.ink(m_kit.palette().color(QPalette::Text), back));
        const int width = textWidth(room.width());
        const QRect part(card.left() + kPadding + kTextIndent, card.top() + headHeight() + kTextAbove, width,
                         textRoom);
        m_kit.wrapped(text, width, look::kCardLines)
            .paint(painter, seen(part, card).topLeft(), textRoom / m_kit.lineHeight(Face::Plain));
    }
    paintFoot(painter, record, card, back);
}

void CardPainter::paintHeading(QPainter& painter, const ReportRecord& record, const QRect& card,
                               const QColor& back) {
    const ReportItem& heading = itemOf(record, m_items.heading);
    const ReportItem& name = itemOf(record, m_items.headingName);
    const QColor plain = m_kit.palette().color(QPalette::Text);
    QRect room = headingRoom(record, card);
    if (heading.icon >= 0) {
        const QRect icon(card.left() + kPadding, room.top(), m_kit.iconSize(), room.height());
        m_kit.paintIcon(painter, heading.icon, seen(icon, card));
    }
    const Qt::Alignment side = m_rightToLeft ? Qt::AlignRight : Qt::AlignLeft;
    painter.setPen(m_kit.ink(colorOf(heading.foreColor, plain), back));
    const QString words = heading.text.trimmed();
    const int taken = m_kit.paintLine(painter, words, seen(room, card), side, Face::Bold);
    const bool blank = heading.text.endsWith(u' ');
    room.setLeft(room.left() + taken +
                 (blank ? QFontMetrics(m_kit.font(Face::Bold)).horizontalAdvance(u' ') : 0));
    painter.setPen(m_kit.ink(colorOf(name.foreColor, plain), back));
    m_kit.paintLine(painter, name.text, seen(room, card), side, Face::Bold);
}

void CardPainter::paintFoot(QPainter& painter, const ReportRecord& record, const QRect& card,
                            const QColor& back) {
    const QColor plain = m_kit.palette().color(QPalette::Text);
    const QColor accent = m_kit.palette().color(QPalette::Highlight);
    const int top = card.bottom() + 1 - footHeight();
    const QRect rule(card.left() + kPadding, top, card.width() - 2 * kPadding, 1);
    painter.fillRect(rule, blend(back, accent, look::kCardRuleInk));
    painter.fillRect(rule.translated(0, 1),
                     blend(back, Qt::white, isDark(back) ? look::kCardRuleLightDark : look::kCardRuleLight));

    const ReportItem& stamp = itemOf(record, m_items.stamp);
    painter.setPen(m_kit.ink(colorOf(stamp.foreColor, blend(back, plain, look::kQuiet)), back));
    const QRect room(rule.left() + kTextIndent, top + kRule + kTextAbove, rule.width() - kTextIndent,
                     m_kit.lineHeight(Face::Small));
    m_kit.paintLine(painter, stamp.text, seen(room, card), m_rightToLeft ? Qt::AlignRight : Qt::AlignLeft,
                    Face::Small);
}

QString CardPainter::hiddenText(const ReportRecord& record, const QRect& room, QPoint pos) {
    const QRect card = cardIn(room);
    if (pos.y() < card.top() + headHeight()) {
        const QString heading =
            itemOf(record, m_items.heading).text + itemOf(record, m_items.headingName).text;
        const QString shown = singleLine(heading);
        const int needed = QFontMetrics(m_kit.font(Face::Bold)).horizontalAdvance(shown);
        return shown.size() != heading.size() || needed > headingRoom(record, card).width() ? heading
                                                                                            : QString();
    }
    const QString& text = textOf(record);
    const bool cut =
        !text.isEmpty() && m_kit.wrapped(text, textWidth(room.width()), look::kCardLines).isCut();
    return cut && pos.y() < card.bottom() - footHeight() ? text : QString();
}

static QString joinedText(const ReportRecord& record, const CardItems& items, int text) {
    QStringList lines;
    for (const QString& line : {itemOf(record, items.heading).text + itemOf(record, items.headingName).text,
                                itemOf(record, text).text, itemOf(record, items.stamp).text}) {
        if (!line.isEmpty()) {
            lines.append(line);
        }
    }
    return lines.join(u'\n');
}

QString cardText(const ReportRecord& record, const CardItems& items) {
    return joinedText(record, items, items.text);
}

QString wholeCardText(const ReportRecord& record, const CardItems& items) {
    return joinedText(record, items, items.whole >= 0 ? items.whole : items.text);
}

} // namespace tessel
