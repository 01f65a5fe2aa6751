// Files and folders of the station's own data.
#pragma once

#include <QByteArray>
#include <QString>

namespace tessel {

bool FolderExists(const QString& path);
bool FileExists(const QString& path);
// Makes a folder with those above it if it is missing, readable by its user alone. False when there
// is none afterwards.
bool MakeFolder(const QString& path);
bool DeleteFile(const QString& path);
// Gives a file another name, in the place of the file that has it. False when nothing was changed.
bool renameFile(const QString& path, const QString& newPath);

// The whole file. False when it is no readable file or larger than `maxBytes`.
bool readWholeFile(const QString& path, qint64 maxBytes, QByteArray& bytes);

// The first `maxBytes` of a file, or all of a smaller one. False when it is no readable file.
bool readFileStart(const QString& path, qint64 maxBytes, QByteArray& bytes);

// The last `maxBytes` of a file, or all of a smaller one. False when it is no readable file.
bool readFileEnd(const QString& path, qint64 maxBytes, QByteArray& bytes);

// Puts `bytes` in the place of the file, readable by its user alone. A crash or a full disk leaves
// the old file or the new one, never a part. False when the old one stands.
bool replaceFile(const QString& path, const QByteArray& bytes);

// A free name beside the file for what cannot be read of it: NAME.damaged, NAME.damaged2 and so on.
// Empty when all are taken.
QString nameForDamaged(const QString& path);
// Gives a file such a name, so that nothing is written in its place. The new name without its folder;
// empty when the file stands where it was.
QString putAside(const QString& path);

// Adds to the end of a file, which is made if it is missing. False when nothing was added, also when
// the file has `maxBytes` or more.
bool appendToFile(const QString& path, const QByteArray& bytes, qint64 maxBytes);

} // namespace tessel
