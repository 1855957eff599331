#include "platform/picture/whole.h"

#include <QtEndian>

#include <cstdlib>
#include <cstring>

namespace vasclip::picture {

namespace {

constexpr unsigned char kMark = 0xFF;
constexpr unsigned char kStartOfImage = 0xD8;
constexpr unsigned char kEndOfImage = 0xD9;
constexpr unsigned char kStartOfScan = 0xDA;

/// Markers that stand alone, without a length: restarts, temporary use, and the stuffed zero.
bool StandsAlone(unsigned char marker)
{
    return marker == 0x00 || marker == 0x01 || (marker >= 0xD0 && marker <= 0xD7);
}

} // namespace

bool IsJpeg(QByteArrayView bytes)
{
    return bytes.size() >= 3 && bytes.startsWith("\xFF\xD8\xFF");
}

bool IsWholeJpeg(QByteArrayView bytes)
{
    const auto* at = reinterpret_cast<const unsigned char*>(bytes.data());
    const auto* const end = at + bytes.size();
    bool inScan = false;
    while (at < end) {
        const auto* mark =
            static_cast<const unsigned char*>(std::memchr(at, kMark, static_cast<std::size_t>(end - at)));
        if (!mark)
            return false;
        at = mark;
        while (at < end && *at == kMark)
            ++at;
        if (at == end)
            return false;
        const unsigned char marker = *at++;
        if (marker == kEndOfImage)
            return inScan;
        if (marker == kStartOfImage || StandsAlone(marker))
            continue;
        if (end - at < 2)
            return false;
        const auto length = static_cast<std::ptrdiff_t>(at[0] << 8 | at[1]);
        if (length < 2 || length > end - at)
            return false;
        at += length;
        inScan = inScan || marker == kStartOfScan;
    }
    return false;
}

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
