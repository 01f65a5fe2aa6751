// Text and bytes: the wire and all data files hold one byte a character.
#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>
#include <QStringView>

namespace tessel {

// Windows-1252, with the five codes that it leaves unassigned standing for themselves, so that all
// 256 codes come back as they went. A character without a code becomes "?".
QByteArray toBytes(QStringView text);
QString toText(QByteArrayView bytes);

// The code of one character, "?" when it has none.
char toByte(char16_t character);

// Writes the characters of `bytes` to `out`, which has room for as many.
void toText(QByteArrayView bytes, char16_t* out);

} // namespace tessel
