#include "engine/core/mod_QuotedRecords.h"

#include "engine/core/mod_CodePage.h"

namespace tessel {

namespace {
const QString kQuoteStandIn = QStringLiteral(".|.");
}

QStringList readQuotedRecords(QByteArrayView bytes, int mostRecords) {
    QStringList records;
    // The first line is the count; a file that was damaged there may begin with a record.
    qsizetype at = bytes.startsWith('"') ? 0 : bytes.indexOf('\n') + 1;
    while (records.size() < mostRecords) {
        const qsizetype open = bytes.indexOf('"', at);
        const qsizetype close = open < 0 ? -1 : bytes.indexOf('"', open + 1);
        if (close < 0) {
            break;
        }
        QString record = toText(bytes.sliced(open + 1, close - open - 1));
        if (record.contains(kQuoteStandIn)) {
            record.replace(kQuoteStandIn, QLatin1String("\""));
        }
        records += record;
        at = close + 1;
    }
    return records;
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

} // namespace tessel
