// The scrambling of packet bodies.
#pragma once

#include <QByteArray>
#include <QByteArrayView>

namespace tessel {

// Scrambles or unscrambles: twice gives back what went in.
//
// Byte i of a body is XORed with byte i of a mask. The mask is the output of a xorshift generator
// (three shifts of 13, 17 and 5 bits; the top byte of each state) whose state is reset and then
// seeded with the CRC-32 of a fixed key of eight characters, so every station has the same mask, and
// it depends on the position alone. It is made once and kept.
QByteArray EncodeBody(QByteArrayView body);

} // namespace tessel
