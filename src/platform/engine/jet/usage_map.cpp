#include "platform/engine/jet/usage_map.h"

#include "platform/engine/jet/data_page.h"

namespace vasclip::engine::jet {

using namespace Qt::Literals::StringLiterals;

namespace {

void AddBits(const Bytes& bits, quint32 first, quint32 pages, std::vector<quint32>& into, qint64& beyond)
{
    for (qsizetype i = 0; i < bits.Size(); ++i) {
        const quint8 byte = bits.U8(i);
        for (quint32 bit = 0; byte >> bit != 0; ++bit) {
            const quint64 page = quint64(first) + static_cast<quint64>(i) * 8 + bit;
            if ((byte >> bit & 1) == 0)
                continue;
            if (page < pages)
                into.push_back(static_cast<quint32>(page));
            else
                ++beyond;
        }
    }
}

} // namespace

std::vector<quint32> ReadUsageMap(PageFile& file, RowPointer map, qint64* beyond)
{
    std::vector<quint32> pages;
    qint64 lost = 0;
    const auto done = [&] {
        if (beyond)
            *beyond = lost;
        return pages;
    };
    const RowBytes row = ReadRowAt(file, map);
    const Format& format = file.Shape();
    if (row.bytes.U8(0) == 0) {
        AddBits(row.bytes.Part(5, row.bytes.Size() - 5), row.bytes.U32(1), file.Pages(), pages, lost);
        return done();
    }
    if (row.bytes.U8(0) != 1)
        throw Damaged(u"a map of pages is of an unknown kind"_s);
    const auto perPage = static_cast<quint32>(format.pageSize - format.bitmapHead) * 8;
    for (qsizetype at = 1, part = 0; at + 4 <= row.bytes.Size(); at += 4, ++part) {
        const quint32 number = row.bytes.U32(at);
        const quint64 first = static_cast<quint64>(part) * perPage;
        if (number == 0)
            continue;
        const QByteArray page = file.Page(number);
        const Bytes bytes(page);
        if (bytes.U8(0) != kBitmapPage)
            throw Damaged(u"page %1 is no map of pages"_s.arg(number));
        AddBits(bytes.Part(format.bitmapHead, bytes.Size() - format.bitmapHead), static_cast<quint32>(first),
                file.Pages(), pages, lost);
    }
    return done();
}

} // namespace vasclip::engine::jet
