#include "controls/list/ReportText.h"

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

QString plainLines(const QString& text, int maxChars) {
    QString lines = cut(text.trimmed(), maxChars);
    lines.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    for (QChar& c : lines) {
        if (c == u'\r' || c == QChar::LineSeparator || c == QChar::ParagraphSeparator) {
            c = u'\n';
        } else if (c != u'\n' && breaksLine(c)) {
            c = u' ';
        }
    }
    return lines;
}

QString plainTip(const QString& text) {
    return Qt::convertFromPlainText(plainLines(text, kTipChars), Qt::WhiteSpaceNormal);
}

} // namespace tessel
