#include "engine/core/cErrorLog.h"

#include "engine/core/cOwnState.h"
#include "engine/core/mod_CodePage.h"
#include "engine/core/mod_FileTools.h"
#include "engine/core/mod_Folders.h"
#include "engine/core/mod_Limits.h"
#include "engine/ports/cClock.h"
#include "records/mod_PlainText.h"

#include <QFileInfo>
#include <QStringList>

#include <algorithm>

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
    const QString path = m_folders.dataFile(kErrorFile);
    constexpr auto kMost = static_cast<qint64>(kMaxLogBytes);
    if (FileExists(path) && QFileInfo(path).size() + line.size() > kMost) {
        renameFile(path, m_folders.dataFile(kOldErrorFile));
    }
    return appendToFile(path, line, kMost);
}

QStringList cErrorLog::lastLines(int count) const {
    QStringList lines;
    for (const QString& file : {kErrorFile, kOldErrorFile}) {
        constexpr qint64 kEnd = 1 << 20;
        QByteArray bytes;
        if (lines.size() >= count || !readFileEnd(m_folders.dataFile(file), kEnd, bytes)) {
            continue;
        }
        QStringList older = toText(bytes).split(u'\n', Qt::SkipEmptyParts);
        if (bytes.size() == kEnd && !older.isEmpty()) {
            older.removeFirst(); // it lacks its beginning
        }
        lines = older + lines;
    }
    return lines.mid(std::max<qsizetype>(0, lines.size() - count));
}

} // namespace tessel
