// The form of the list files: a count line, then records in double quotes.
#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>
#include <QStringList>

namespace tessel {

// The records of such a file, at most `mostRecords`, in their order. A record goes up to its closing
// quote, over line ends too; one that was cut off is left out. The count line is not believed: what
// stands in the file is what there is.
QStringList readQuotedRecords(QByteArrayView bytes, int mostRecords);

// A double quote inside a record is written as ".|.", and comes back as a double quote.
QByteArray writeQuotedRecords(const QStringList& records);

} // namespace tessel
