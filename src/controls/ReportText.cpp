#include "controls/ReportText.h"

#include <QTextDocument>

#include <algorithm>

namespace tessel {

namespace {

bool breaksLine(QChar c) {
    return c.category() == QChar::Other_Control || c == QChar::LineSeparator ||
           c == QChar::ParagraphSeparator;
}

QString cut(const QString& text, int maxChars) {
    if (text.size() <= maxChars) {
        return text;
    }
    const auto end = text.at(maxChars - 1).isHighSurrogate() ? maxChars - 1 : maxChars;
    return text.left(end) + QChar(0x2026);
}

} // namespace

QString singleLine(const QString& text, int maxChars) {
    QString line = cut(text, maxChars);
    if (std::any_of(line.cbegin(), line.cend(), breaksLine)) {
        std::replace_if(line.begin(), line.end(), breaksLine, QChar(u' '));
    }
    return line;
}

QString plainTip(const QString& text) {
    QString tip = cut(text, kTipChars);
    std::replace_if(
        tip.begin(), tip.end(), [](QChar c) { return c != u'\n' && breaksLine(c); }, QChar(u' '));
    return Qt::convertFromPlainText(tip, Qt::WhiteSpaceNormal);
}

} // namespace tessel
