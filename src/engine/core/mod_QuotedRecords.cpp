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

} // namespace

QuotedRecords readQuotedRecords(QByteArrayView bytes, qsizetype mostRecords) {
    QuotedRecords file;
    // A file that was damaged may begin with a record.
    const qsizetype first = bytes.startsWith('"') ? 0 : bytes.indexOf('\n') + 1;
    const qsizetype count = std::min(mostRecords, countOf(bytes.first(first)));
    qsizetype at = first;
    while (file.records.size() < count) {
        const qsizetype open = bytes.indexOf('"', at);
        if (open < 0) {
            break;
        }
        const qsizetype close = bytes.indexOf('"', open + 1);
        if (close < 0) {
            file.unclosed = bytes.sliced(open).toByteArray();
            break;
        }
        file.records += toText(bytes.sliced(open + 1, close - open - 1));
        at = close + 1;
    }
    return file;
}

void keepUnclosed(const QString& path, const QByteArray& unclosed, cErrorLog& log) {
    if (unclosed.isEmpty()) {
        return;
    }
    constexpr int kMostCopies = 9;
    QString copy = path + QLatin1String(".damaged");
    for (int number = 2; FileExists(copy) && number <= kMostCopies; ++number) {
        copy = path + QStringLiteral(".damaged%1").arg(number);
    }
    const bool kept = replaceFile(copy, unclosed);
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
