#include "engine/core/mod_DesktopEntry.h"

#include "records/mod_PlainText.h"

namespace tessel {

// A double quote, backtick, dollar and backslash are escaped inside quotes, and the backslash once more
// as in every value; a per cent sign is doubled.
QString quotedForExec(const QString& word) {
    QString out;
    for (const QChar c : word) {
        if (c == u'%') {
            out += u'%';
        } else if (c == u'"' || c == u'`' || c == u'$') {
            out += QLatin1String("\\\\");
        } else if (c == u'\\') {
            out += QLatin1String("\\\\\\");
        }
        out += c;
    }
    return u'"' + out + u'"';
}

QString entryValue(const QString& text) {
    return withoutControls(text).replace(u'\\', QLatin1String("\\\\"));
}

} // namespace tessel
