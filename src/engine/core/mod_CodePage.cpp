#include "engine/core/mod_CodePage.h"

#include <array>

namespace tessel {

namespace {

// Codes 0x80 to 0x9F; all others equal their character.
constexpr std::array<char16_t, 32> kUpperControls{
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

constexpr std::array<char16_t, 256> makeTable() {
    std::array<char16_t, 256> table{};
    for (std::size_t code = 0; code < table.size(); ++code) {
        table[code] = code >= 0x80 && code < 0xA0 ? kUpperControls[code - 0x80] : static_cast<char16_t>(code);
    }
    return table;
}

constexpr std::array<char16_t, 256> kCharacters = makeTable();

} // namespace

char toByte(char16_t character) {
    if (character < 0x80 || (character >= 0xA0 && character <= 0xFF)) {
        return static_cast<char>(character);
    }
    for (std::size_t i = 0; i < kUpperControls.size(); ++i) {
        if (kUpperControls[i] == character) {
            return static_cast<char>(0x80 + i);
        }
    }
    return '?';
}

QByteArray toBytes(QStringView text) {
    QByteArray bytes(text.size(), Qt::Uninitialized);
    char* out = bytes.data();
    for (const QChar character : text) {
        *out++ = toByte(character.unicode());
    }
    // A character outside the basic plane is one character, not two.
    if (bytes.contains('?')) {
        char* const begin = bytes.data();
        char* kept = begin;
        for (qsizetype i = 0; i < text.size(); ++i) {
            const bool secondHalf = text[i].isLowSurrogate() && i > 0 && text[i - 1].isHighSurrogate();
            if (!secondHalf) {
                *kept++ = begin[i];
            }
        }
        bytes.truncate(kept - begin);
    }
    return bytes;
}

void toText(QByteArrayView bytes, char16_t* out) {
    for (const char byte : bytes) {
        *out++ = kCharacters[static_cast<unsigned char>(byte)];
    }
}

QString toText(QByteArrayView bytes) {
    QString text(bytes.size(), Qt::Uninitialized);
    toText(bytes, reinterpret_cast<char16_t*>(text.data()));
    return text;
}

} // namespace tessel
