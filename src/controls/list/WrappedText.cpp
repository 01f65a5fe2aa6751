#include "controls/list/WrappedText.h"

#include "controls/list/ReportText.h"

#include <QFontMetrics>
#include <QPainter>
#include <QTextLayout>
#include <QTextOption>

#include <algorithm>
#include <cmath>

namespace tessel {

namespace {

// No letter is narrower, so no line holds more of them: the rest is not even looked at.
constexpr int kNarrowestLetter = 2; // pixels
constexpr QChar kEllipsis(0x2026);

QTextOption optionFor(Qt::LayoutDirection direction, QTextOption::WrapMode wrap) {
    QTextOption option;
    option.setTextDirection(direction);
    option.setWrapMode(wrap);
    return option;
}

} // namespace

WrappedText::WrappedText(const QString& text, const QFont& font, int width, int mostLines)
    : m_font(font), m_lineHeight(QFontMetrics(font).height()) {
    width = std::max(width, 1);
    const qsizetype worthwhile = static_cast<qsizetype>(mostLines) * (width / kNarrowestLetter + 1);
    const QString shown = plainLines(text, static_cast<int>(worthwhile));
    m_cut = text.size() > worthwhile;
    const QStringList paragraphs = shown.split(u'\n');
    for (auto at = paragraphs.cbegin(); at != paragraphs.cend() && lineCount() < mostLines; ++at) {
        const QString& paragraph = *at;
        const Qt::LayoutDirection direction = paragraph.isRightToLeft() ? Qt::RightToLeft : Qt::LeftToRight;
        if (paragraph.isEmpty()) {
            add({}, direction, width);
            continue;
        }
        QTextLayout layout(paragraph, font);
        layout.setTextOption(optionFor(direction, QTextOption::WrapAtWordBoundaryOrAnywhere));
        layout.beginLayout();
        for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
            line.setLineWidth(width);
            const QString rest = paragraph.mid(line.textStart());
            const bool last = lineCount() == mostLines - 1;
            const bool others = at + 1 != paragraphs.cend();
            m_cut = m_cut || (last && (others || rest.size() > line.textLength()));
            add(last ? (others ? rest + kEllipsis : rest) : rest.left(line.textLength()), direction, width);
            if (last) {
                break;
            }
        }
        layout.endLayout();
    }
}

void WrappedText::add(const QString& text, Qt::LayoutDirection direction, int width) {
    Line line;
    line.text.setTextFormat(Qt::PlainText);
    line.text.setPerformanceHint(QStaticText::AggressiveCaching);
    line.text.setTextOption(optionFor(direction, QTextOption::NoWrap));
    QString trimmed = text;
    while (trimmed.endsWith(u' ')) {
        trimmed.chop(1);
    }
    line.text.setText(QFontMetrics(m_font).elidedText(trimmed, Qt::ElideRight, width));
    line.text.prepare({}, m_font);
    const double taken = line.text.size().width();
    m_widest = std::max(m_widest, static_cast<int>(std::ceil(taken)));
    line.x = direction == Qt::RightToLeft ? width - taken : 0;
    m_lines.push_back(std::move(line));
}

void WrappedText::paint(QPainter& painter, QPoint topLeft, int mostLines) const {
    painter.setFont(m_font);
    double y = topLeft.y();
    for (int i = 0; i < std::min(mostLines, lineCount()); ++i, y += m_lineHeight) {
        const Line& line = m_lines[static_cast<std::size_t>(i)];
        painter.drawStaticText(QPointF(topLeft.x() + line.x, y), line.text);
    }
}

} // namespace tessel
