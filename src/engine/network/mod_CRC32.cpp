#include "engine/network/mod_CRC32.h"

namespace tessel {

std::uint32_t CRC32::CRC32_Build(std::uint32_t polynomial, std::uint32_t value) {
    for (std::uint32_t i = 0; i < m_table.size(); ++i) {
        std::uint32_t entry = i;
        for (int step = 0; step < 8; ++step) {
            entry = (entry & 1U) != 0 ? (entry >> 1U) ^ polynomial : entry >> 1U;
        }
        m_table[i] = entry;
    }
    return value;
}

std::uint32_t CRC32::CRC32_Update(QByteArrayView text, std::uint32_t crc) const {
    for (const char byte : text) {
        crc = (crc >> 8U) ^ m_table[(crc & 0xFFU) ^ static_cast<unsigned char>(byte)];
    }
    return crc;
}

} // namespace tessel
