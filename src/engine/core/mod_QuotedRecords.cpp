#include "engine/core/mod_QuotedRecords.h"

#include "engine/core/cErrorLog.h"
#include "engine/core/mod_CodePage.h"
#include "engine/core/mod_Definitions.h"
#include "engine/core/mod_FileTools.h"

#include <algorithm>
#include <limits>

namespace tessel {

namespace {

const QString kQuoteStandIn = QStringLiteral(".|.");

// What the first line counts; the most there is for a line that counts nothing.
qsizetype countOf(QByteArrayView line) {
    bool ok = false;
    const int count = line.trimmed().toByteArray().toInt(&ok);
    return ok && count >= 0 ? count : std::numeric_limits<int>::max();
}

// Whether a quote behind an open one begins the next record instead of closing the first, which has lost
// its end: it stands at the beginning of a line, with more behind it.
bool beginsRecord(QByteArrayView bytes, qsizetype quote) {
    const char behind = quote + 1 < bytes.size() ? bytes[quote + 1] : '\n';
    return bytes[quote - 1] == '\n' && behind != '\r' && behind != '\n';
}

} // namespace

QByteArray forEachQuotedRecord(QByteArrayView bytes, qsizetype mostRecords,
                               const std::function<void(QByteArrayView record)>& take) {
    QByteArray unclosed;
    // A file that was damaged may begin with a record.
    const qsizetype first = bytes.startsWith('"') ? 0 : bytes.indexOf('\n') + 1;
    const qsizetype count = std::min(mostRecords, countOf(bytes.first(first)));
    qsizetype open = bytes.indexOf('"', first);
    for (qsizetype taken = 0; taken < count && open >= 0;) {
        const qsizetype close = bytes.indexOf('"', open + 1);
        if (close < 0) {
            return unclosed + bytes.sliced(open).toByteArray();
        }
        if (beginsRecord(bytes, close)) {
            unclosed += bytes.sliced(open, close - open).toByteArray();
            open = close;
            continue;
        }
        take(bytes.sliced(open + 1, close - open - 1));
        ++taken;
        open = bytes.indexOf('"', close + 1);
    }
    return unclosed;
}

QuotedRecords readQuotedRecords(QByteArrayView bytes, qsizetype mostRecords) {
    QuotedRecords file;
    file.unclosed = forEachQuotedRecord(bytes, mostRecords,
                                        [&file](QByteArrayView record) { file.records += toText(record); });
    return file;
}

void keepUnclosed(const QString& path, const QByteArray& unclosed, cErrorLog& log) {
    if (unclosed.isEmpty()) {
        return;
    }
    const QString copy = nameForDamaged(path);
    const bool kept = !copy.isEmpty() && replaceFile(copy, unclosed);
    log.LogEvent(QStringLiteral("Files"),
                 kept ? QStringLiteral("A record has no end, kept aside")
                      : QStringLiteral("A record has no end"),
                 kept ? copy.section(u'/', -1) : path.section(u'/', -1));
}

QByteArray writeQuotedRecords(const QStringList& records) {
    QByteArray bytes = QByteArray::number(records.size()) + "\r\n";
    for (const QString& record : records) {
        QString quoted = record;
        quoted.replace(u'"', kQuoteStandIn);
        bytes += '"' + toBytes(quoted) + "\"\r\n";
    }
    return bytes;
}

QString plainRecord(const QString& record) {
    QString plain = record;
    return plain.replace(kQuoteStandIn, QLatin1String("\""));
}

QString joinRecord(QStringList values) {
    const QStringView beginOfMark = QStringView(ValueMark).chopped(1);
    for (QString& value : values) {
        if (value.contains(ValueMark)) {
            value.replace(ValueMark, QLatin1String(" "));
        }
        if (value.endsWith(beginOfMark)) {
            value += u' ';
        }
    }
    return values.join(ValueMark);
}

QStringList splitRecord(const QString& record, int count) {
    QStringList values = plainRecord(record).split(ValueMark);
    if (values.size() != count && record.contains(kQuoteStandIn)) {
        // A value that ends in ".|" makes a stand-in of the mark's first dot.
        QStringList otherwise = record.split(ValueMark);
        if (otherwise.size() == count) {
            values = std::move(otherwise);
            for (QString& value : values) {
                value = plainRecord(value);
            }
        }
    }
    values.resize(count);
    return values;
}

} // namespace tessel
