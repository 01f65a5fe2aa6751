#include "engine/network/mod_Encode.h"

#include "engine/network/mod_CRC32.h"

#include <cstdint>
#include <vector>

namespace tessel {

namespace {

constexpr std::uint32_t kPolynomial = 0xEDB88320U;
constexpr std::uint32_t kStartValue = 0xFFFFFFFFU;
constexpr std::uint32_t kFixedState = 0x2545F491U;
// Longer than any datagram; a longer body gets the mask anew from there.
constexpr std::size_t kMaskBytes = 1U << 16U;

std::int32_t keyChecksum() {
    const QByteArray key = QByteArray("t") + "7" + "Qm4" + "v2K";
    CRC32 crc;
    const std::uint32_t start = crc.CRC32_Build(kPolynomial, kStartValue);
    return CRC32::CRC32_Finish(static_cast<std::int32_t>(crc.CRC32_Update(key, start)));
}

std::vector<char> makeMask() {
    std::uint32_t state = kFixedState ^ static_cast<std::uint32_t>(keyChecksum());
    std::vector<char> mask(kMaskBytes);
    for (char& byte : mask) {
        state ^= state << 13U;
        state ^= state >> 17U;
        state ^= state << 5U;
        byte = static_cast<char>(state >> 24U);
    }
    return mask;
}

} // namespace

QByteArray EncodeBody(QByteArrayView body) {
    static const std::vector<char> mask = makeMask();
    QByteArray out(body.size(), Qt::Uninitialized);
    const auto size = static_cast<std::size_t>(body.size());
    char* to = out.data();
    const char* from = body.data();
    for (std::size_t block = 0; block < size; block += kMaskBytes) {
        const std::size_t length = std::min(kMaskBytes, size - block);
        const char* const key = mask.data();
        for (std::size_t i = 0; i < length; ++i) {
            to[block + i] = static_cast<char>(from[block + i] ^ key[i]);
        }
    }
    return out;
}

} // namespace tessel
