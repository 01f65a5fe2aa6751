// CRC-32 in three steps, over a table that is built for a polynomial.
#pragma once

#include <QByteArrayView>

#include <array>
#include <cstdint>

namespace tessel {

class CRC32 {
public:
    // Fills the table and returns `value` unchanged.
    std::uint32_t CRC32_Build(std::uint32_t polynomial, std::uint32_t value);
    // Runs the bytes through the table.
    std::uint32_t CRC32_Update(QByteArrayView text, std::uint32_t crc) const;
    // The bitwise complement.
    static std::int32_t CRC32_Finish(std::int32_t crc) { return ~crc; }

private:
    std::array<std::uint32_t, 256> m_table{};
};

} // namespace tessel
