#include "engine/core/mod_FileTools.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

#include <algorithm>
#include <filesystem>

namespace tessel {

namespace {
constexpr QFileDevice::Permissions kOwnFile = QFileDevice::ReadOwner | QFileDevice::WriteOwner;
constexpr QFileDevice::Permissions kOwnFolder = kOwnFile | QFileDevice::ExeOwner;
constexpr int kMostKept = 1000;

// `begin`: where to begin in a file of this size.
template <typename Begin>
bool readFrom(const QString& path, Begin begin, qint64 maxBytes, QByteArray& bytes) {
    // A pipe or a device of that name would keep a reader waiting.
    if (!FileExists(path)) {
        return false;
    }
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly) || !file.seek(begin(file.size()))) {
        return false;
    }
    bytes = file.read(maxBytes);
    return file.error() == QFileDevice::NoError;
}
} // namespace

bool FolderExists(const QString& path) {
    return !path.isEmpty() && QFileInfo(path).isDir();
}

bool FileExists(const QString& path) {
    return !path.isEmpty() && QFileInfo(path).isFile();
}

bool MakeFolder(const QString& path) {
    if (path.isEmpty()) {
        return false;
    }
    if (FolderExists(path)) {
        return true;
    }
    const QDir folder(path);
    const QString above = QFileInfo(QDir::cleanPath(folder.absolutePath())).path();
    return QDir().mkpath(above) && QDir().mkdir(QDir::cleanPath(folder.absolutePath()), kOwnFolder);
}

bool DeleteFile(const QString& path) {
    return FileExists(path) && QFile::remove(path);
}

bool renameFile(const QString& path, const QString& newPath) {
    std::error_code error;
    std::filesystem::rename(path.toStdU16String(), newPath.toStdU16String(), error);
    return !error;
}

bool readWholeFile(const QString& path, qint64 maxBytes, QByteArray& bytes) {
    return QFileInfo(path).size() <= maxBytes && readFileStart(path, maxBytes, bytes);
}

bool readFileStart(const QString& path, qint64 maxBytes, QByteArray& bytes) {
    return readFrom(
        path, [](qint64) { return qint64{0}; }, maxBytes, bytes);
}

bool readFileEnd(const QString& path, qint64 maxBytes, QByteArray& bytes) {
    return readFrom(
        path, [maxBytes](qint64 size) { return std::max<qint64>(0, size - maxBytes); }, maxBytes, bytes);
}

bool replaceFile(const QString& path, const QByteArray& bytes) {
    // Somebody may have cleared the folder away while the station runs.
    MakeFolder(QFileInfo(path).path());
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly)) {
        return false;
    }
    file.setPermissions(kOwnFile);
    // What fails at the commit's own flush goes unnoticed there, and an empty file takes the place of
    // the good one.
    if (file.write(bytes) != bytes.size() || !file.flush()) {
        file.cancelWriting();
    }
    return file.commit();
}

QString nameForDamaged(const QString& path) {
    for (int number = 1; number <= kMostKept; ++number) {
        QString name = path + QLatin1String(".damaged") + (number == 1 ? QString() : QString::number(number));
        const QFileInfo taken(name);
        if (!taken.exists() && !taken.isSymLink()) {
            return name;
        }
    }
    return {};
}

QString putAside(const QString& path) {
    const QString name = nameForDamaged(path);
    return !name.isEmpty() && QFile::rename(path, name) ? QFileInfo(name).fileName() : QString();
}

bool appendToFile(const QString& path, const QByteArray& bytes, qint64 maxBytes) {
    if (QFileInfo::exists(path) && !FileExists(path)) {
        return false;
    }
    QFile file(path);
    const bool made = !file.exists();
    if (!file.open(QIODevice::WriteOnly | QIODevice::Append) || file.size() >= maxBytes) {
        return false;
    }
    if (made) {
        file.setPermissions(kOwnFile);
    }
    const qint64 before = file.size();
    const bool added = file.write(bytes) == bytes.size() && file.flush();
    // A part of a line would run into the next one. The file must forget what it could not write
    // first, or its end writes it.
    if (!added) {
        file.close();
        QFile::resize(path, before);
    }
    return added;
}

} // namespace tessel
