#include "platform/picture/pixel_facts.h"

#include "platform/picture/bmp_head.h"
#include "platform/picture/tiff.h"

#include <QIODevice>

#include <algorithm>
#include <utility>

using namespace Qt::Literals::StringLiterals;

namespace vasclip::picture {

namespace {

QByteArray ReadAt(QIODevice& device, qint64 at, qint64 length)
{
    return device.seek(at) ? device.read(length) : QByteArray();
}

void TakePng(Facts& facts, QByteArrayView head)
{
    constexpr qsizetype kBits = 24;
    constexpr qsizetype kKind = 25;
    if (head.size() <= kKind)
        return;
    static constexpr int kSamples[] = {1, 0, 3, 1, 2, 0, 4}; // grey, -, colours, palette, grey and alpha, -, and alpha
    const int kind = static_cast<uchar>(head[kKind]);
    if (kind < static_cast<int>(std::size(kSamples)) && kSamples[kind] > 0)
        facts.bitsPerPixel = static_cast<uchar>(head[kBits]) * kSamples[kind];
    facts.compression = u"Deflate"_s; // it knows no other
}

QString TiffCompression(quint32 code)
{
    static constexpr std::pair<quint32, const char*> kNames[] = {
        {1, "None"},     {2, "CCITT"},         {3, "CCITT Group 3"}, {4, "CCITT Group 4"}, {5, "LZW"},
        {6, "JPEG"},     {7, "JPEG"},          {8, "Deflate"},       {32773, "PackBits"},  {32946, "Deflate"},
        {34925, "LZMA"}, {50000, "Zstandard"}, {50001, "WebP"}};
    for (const auto& [known, name] : kNames)
        if (known == code)
            return QString::fromLatin1(name);
    return {};
}

/// The first directory tells of the first picture, which is the one that is shown.
void TakeTiff(Facts& facts, QIODevice& device)
{
    constexpr quint16 kBitsPerSample = 0x0102;
    constexpr quint16 kCompression = 0x0103;
    constexpr quint16 kSamplesPerPixel = 0x0115;
    constexpr qint64 kMostEntries = 1000;
    constexpr quint32 kMostSamples = 16;
    const QByteArray head = ReadAt(device, 0, kHeaderLength);
    const Tiff start(head);
    const auto directory = start.Number32(4);
    if (!start.Valid() || !directory)
        return;
    // The numbers of the directory in the file's own order of bytes.
    const QByteArray entries = head + ReadAt(device, *directory, 2 + kMostEntries * kEntryLength);
    const Tiff tiff(entries);
    quint32 samples = 1;
    quint32 bits = 1; // where nothing is told
    quint32 first = 1;
    tiff.ForEach(kHeaderLength, [&](const Entry& entry) {
        const quint32 value = entry.type == Short ? tiff.Number16(entry.at).value_or(0)
                                                  : tiff.Number32(entry.at).value_or(0);
        if (entry.tag == kSamplesPerPixel)
            samples = value;
        else if (entry.tag == kCompression)
            facts.compression = TiffCompression(value);
        if (entry.tag != kBitsPerSample || entry.type != Short)
            return;
        const quint32 count = std::min(entry.count, kMostSamples);
        const QByteArray list = count <= 2 ? QByteArray() : head + ReadAt(device, tiff.Number32(entry.at).value_or(0), count * 2);
        const Tiff behind(list);
        bits = 0;
        for (quint32 i = 0; i < count; ++i)
            bits += count <= 2 ? tiff.Number16(entry.at + i * 2).value_or(0)
                               : behind.Number16(kHeaderLength + i * 2).value_or(0);
        first = count;
    });
    if (first > 0)
        facts.bitsPerPixel = static_cast<int>(first < samples ? bits / first * std::min(samples, kMostSamples) : bits);
}

} // namespace

void TakePixelFacts(Facts& facts, QIODevice& device)
{
    constexpr qint64 kHead = 64;
    const QByteArray head = ReadAt(device, 0, kHead);
    if (const auto bitmap = ReadBmpHead(head)) {
        facts.bitsPerPixel = bitmap->bits;
        facts.compression = bitmap->CompressionName();
    } else if (head.startsWith("\x89PNG\r\n\x1a\n")) {
        TakePng(facts, head);
    } else if (facts.format == u"TIFF"_s) {
        TakeTiff(facts, device);
    }
}

} // namespace vasclip::picture
