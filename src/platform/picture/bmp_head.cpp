#include "platform/picture/bmp_head.h"

#include <QtEndian>

#include <algorithm>

using namespace Qt::Literals::StringLiterals;

namespace vasclip::picture {

namespace {

constexpr qsizetype kFileHead = 14;
constexpr qint64 kFirstOs2 = 12;
constexpr qint64 kShortestOs2 = 16;
constexpr qint64 kWindows = 40;

template <class Number>
qint64 At(QByteArrayView bytes, qsizetype at)
{
    return at + qsizetype(sizeof(Number)) <= bytes.size() ? qint64(qFromLittleEndian<Number>(bytes.data() + at)) : 0;
}

template <class Number>
void Put(QByteArray& bytes, qsizetype at, qint64 value)
{
    qToLittleEndian<Number>(static_cast<Number>(value), bytes.data() + at);
}

} // namespace

QString BmpHead::CompressionName() const
{
    switch (method) {
    case 0:
    case 3: // which bits are which colour
        return u"None"_s;
    case 1:
    case 2:
    case 4: // of OS/2; no other is read
        return u"RLE"_s;
    default:
        return {};
    }
}

std::optional<BmpHead> ReadBmpHead(QByteArrayView bytes)
{
    BmpHead head{.length = At<quint32>(bytes, kFileHead), .firstData = At<quint32>(bytes, 10)};
    const bool first = head.length == kFirstOs2;
    if (!bytes.startsWith("BM") || (!first && head.length < kShortestOs2) ||
        bytes.size() < kFileHead + std::min(head.length, kWindows))
        return std::nullopt;
    head.width = first ? At<quint16>(bytes, 18) : At<qint32>(bytes, 18);
    head.height = first ? At<quint16>(bytes, 20) : At<qint32>(bytes, 22);
    head.bits = static_cast<int>(At<quint16>(bytes, first ? 24 : 28));
    if (head.length >= kShortestOs2 + 4)
        head.method = At<quint32>(bytes, 30);
    if (head.length >= kShortestOs2 + 20)
        head.colours = At<quint32>(bytes, 46);
    return head;
}

QByteArray AsWindowsBmp(const QByteArray& bytes)
{
    const auto head = ReadBmpHead(bytes);
    if (!head || head->length >= kWindows || head->method != 0)
        return bytes;
    const qint64 behind = kFileHead + head->length;
    const qint64 entry = head->length == kFirstOs2 ? 3 : 4;
    if (head->firstData < behind || head->firstData > bytes.size())
        return bytes;
    const qint64 room = (head->firstData - behind) / entry;
    const qint64 all = head->bits >= 1 && head->bits <= 8 ? qint64(1) << head->bits : 0;
    const qint64 colours = std::min(room, head->colours > 0 ? std::min(all, head->colours) : all);
    QByteArray windows(kFileHead + kWindows + colours * 4, '\0');
    windows[0] = 'B';
    windows[1] = 'M';
    Put<quint32>(windows, 2, windows.size() + bytes.size() - head->firstData);
    Put<quint32>(windows, 10, windows.size());
    Put<quint32>(windows, 14, kWindows);
    Put<qint32>(windows, 18, head->width);
    Put<qint32>(windows, 22, head->height);
    Put<quint16>(windows, 26, 1);
    Put<quint16>(windows, 28, head->bits);
    Put<quint32>(windows, 46, colours);
    for (qint64 i = 0; i < colours; ++i)
        std::copy_n(bytes.cbegin() + behind + i * entry, 3, windows.begin() + kFileHead + kWindows + i * 4);
    return windows + bytes.mid(head->firstData);
}

} // namespace vasclip::picture
