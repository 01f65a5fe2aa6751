#include "controls/list/ReportText.h"

#include "records/mod_PlainText.h"

#include <QTextDocument>

namespace tessel {

namespace {

QString cut(const QString& text, int maxChars) {
    if (text.size() <= maxChars) {
        return text;
    }
    const auto end = text.at(maxChars - 1).isHighSurrogate() ? maxChars - 1 : maxChars;
    return text.left(end) + QChar(0x2026);
}

} // namespace

QString singleLine(const QString& text, int maxChars) {
    return withoutControls(cut(text, maxChars));
}

QString plainLines(const QString& text, int maxChars) {
    QString lines = cut(text.trimmed(), maxChars);
    lines.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    for (QChar& c : lines) {
        if (c == u'\r' || c == QChar::LineSeparator || c == QChar::ParagraphSeparator) {
            c = u'\n';
        } else if (c != u'\n' && isControl(c)) {
            c = u' ';
        }
    }
    return lines;
}

QString plainTip(const QString& text) {
    return Qt::convertFromPlainText(plainLines(text, kTipChars), Qt::WhiteSpaceNormal);
}

} // namespace tessel
