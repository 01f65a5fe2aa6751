// The form of the list files: a count line, then records in double quotes, their values joined.
#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>
#include <QStringList>

#include <functional>

namespace tessel {

class cErrorLog;

struct QuotedRecords {
    QStringList records; // as they stand in the file: `splitRecord` or `plainRecord` comes next
    QByteArray unclosed; // of quotes that never close, what stands behind them
};

// Hands over the records of such a file in their order, at most as many as the count line says; one that
// is no number counts as many as there are. A record goes up to its closing quote, over line ends too; one
// that has lost it ends where the next line begins with a quote, and comes back with others of its kind.
QByteArray forEachQuotedRecord(QByteArrayView bytes, qsizetype mostRecords,
                               const std::function<void(QByteArrayView record)>& take);
// The same as text.
QuotedRecords readQuotedRecords(QByteArrayView bytes, qsizetype mostRecords);

// Puts what stands behind a quote that never closes into a file beside `path`, before the next save
// drops it. Nothing happens when there is nothing.
void keepUnclosed(const QString& path, const QByteArray& unclosed, cErrorLog& log);

// A double quote inside a record is written as ".|.", and comes back as a double quote.
QByteArray writeQuotedRecords(const QStringList& records);
QString plainRecord(const QString& record);

// Values as one record, and back. A `ValueMark` inside a value becomes a blank; a value that ends as a
// mark begins gets a blank behind it. Of a record with fewer values the missing ones are empty, of one
// with more those behind are left out.
QString joinRecord(QStringList values);
QStringList splitRecord(const QString& record, int count);

// A boolean as it stands in a record.
inline QString BooleanText(bool value) {
    return value ? QStringLiteral("-1") : QStringLiteral("0");
}

} // namespace tessel
