// Lines of values as spreadsheets read them.
#pragma once

#include <QByteArray>
#include <QStringList>

namespace tessel {

// One line with its end, CR LF, in UTF-8. A value with a comma, a quote or a line end stands in quotes,
// a quote in it twice, as RFC 4180 has it.
QByteArray csvLine(const QStringList& values);

} // namespace tessel
