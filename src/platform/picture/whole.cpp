#include "platform/picture/whole.h"

#include <QtEndian>

#include <cstdlib>

namespace vasclip::picture {

bool IsBmp(QByteArrayView bytes)
{
    return bytes.size() >= 30 && bytes.startsWith("BM");
}

bool IsWholeBmp(QByteArrayView bytes)
{
    constexpr qsizetype kFirstData = 10;
    constexpr qsizetype kHeader = 14;
    constexpr qint64 kOldHeaderLength = 12;
    constexpr qint32 kUncompressed = 0;
    constexpr qint32 kBitFields = 3;
    if (!IsBmp(bytes) || bytes.size() < 34)
        return false;
    const auto* data = bytes.data();
    const auto number = [data](qsizetype at) { return qint64(qFromLittleEndian<qint32>(data + at)); };
    const auto small = [data](qsizetype at) { return qint64(qFromLittleEndian<quint16>(data + at)); };
    const bool old = number(kHeader) == kOldHeaderLength;
    const qint64 width = old ? small(18) : number(18);
    const qint64 height = old ? small(20) : std::llabs(number(22)); // negative: the top row comes first
    const qint64 bits = small(old ? 24 : 28);
    const qint64 compression = old ? kUncompressed : number(30);
    if (compression != kUncompressed && compression != kBitFields)
        return true;
    constexpr qint64 kLongest = 1'000'000; // keeps the product below in range
    if (width <= 0 || width > kLongest || height > kLongest || bits > 64)
        return false;
    const qint64 row = (width * bits + 31) / 32 * 4;
    return row * height <= bytes.size() - number(kFirstData);
}

} // namespace vasclip::picture
