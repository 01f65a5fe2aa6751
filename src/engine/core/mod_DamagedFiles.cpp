#include "engine/core/mod_DamagedFiles.h"

#include "engine/core/mod_Definitions.h"
#include "engine/core/mod_FileTools.h"
#include "engine/core/mod_Folders.h"
#include "engine/core/mod_Limits.h"

#include <QFileInfo>
#include <QStringList>

namespace tessel {

namespace {

// A settings file of another encoding is full of zeros. In a list anything may stand.
bool isDamaged(const QString& path, bool settings) {
    QByteArray bytes;
    return QFileInfo::exists(path) &&
           (!readFileStart(path, settings ? static_cast<qint64>(kMaxIniBytes) : 1, bytes) ||
            (settings && bytes.contains('\0')));
}

} // namespace

QString PutAsideDamagedFiles(const Folders& folders) {
    QStringList kept;
    QStringList stay;
    const auto look = [&](const QString& file, bool settings) {
        const QString path = folders.dataFile(file);
        if (isDamaged(path, settings)) {
            const QString keptAs = putAside(path);
            (keptAs.isEmpty() ? stay : kept) += keptAs.isEmpty() ? file : keptAs;
        }
    };
    for (const QString& file : {kNetFile, kStatusFile, kSharedFile, kGroupsFile}) {
        look(file, true);
    }
    for (const QString& list : {kSnippetFile, kInboxFile, kRecentsFile}) {
        look(list, false);
        look(list + kJournalEnding, false);
    }
    QStringList told;
    if (!kept.isEmpty()) {
        told += QLatin1String("Could not be read, kept as ") + kept.join(QLatin1String(", "));
    }
    if (!stay.isEmpty()) {
        told += QLatin1String("Cannot be read: ") + stay.join(QLatin1String(", "));
    }
    return told.join(QLatin1String("; "));
}

} // namespace tessel
