#include "engine/core/mod_Csv.h"

#include <QTextStream>

namespace tessel {

QByteArray csvLine(const QStringList& values) {
    QByteArray line;
    QTextStream out(&line);
    QLatin1String separator;
    for (const QString& value : values) {
        const bool plain = !value.contains(u',') && !value.contains(u'"') && !value.contains(u'\n') &&
                           !value.contains(u'\r');
        out << separator;
        if (plain) {
            out << value;
        } else {
            out << '"' << QString(value).replace(u'"', QLatin1String("\"\"")) << '"';
        }
        separator = QLatin1String(",");
    }
    out << "\r\n";
    out.flush();
    return line;
}

} // namespace tessel
