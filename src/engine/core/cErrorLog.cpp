#include "engine/core/cErrorLog.h"

#include "engine/core/cOwnState.h"
#include "engine/core/mod_CodePage.h"
#include "engine/core/mod_FileTools.h"
#include "engine/core/mod_Folders.h"
#include "engine/core/mod_Limits.h"
#include "engine/ports/cClock.h"
#include "records/mod_PlainText.h"

#include <QStringList>

namespace tessel {

namespace {
QString oneLine(const QString& text) {
    return withoutControls(text.left(kMaxLogArgument));
}
} // namespace

bool cErrorLog::LogEvent(const QString& source, const QString& message, const QString& code) {
    const QStringList items{m_clock.timeText(), oneLine(source),        oneLine(code),
                            oneLine(message),   m_clock.dateText(),     QString::fromLatin1(kVersion),
                            oneLine(m_own.SID), oneLine(m_own.location)};
    const QByteArray line = toBytes(items.join(QLatin1String(" ,"))) + '\n';
    return appendToFile(m_folders.dataFile(kErrorFile), line, static_cast<qint64>(kMaxErrorLogBytes));
}

} // namespace tessel
