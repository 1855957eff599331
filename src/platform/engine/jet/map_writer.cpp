#include "platform/engine/jet/map_writer.h"

#include <algorithm>

namespace vasclip::engine::jet {

namespace {

constexpr int kBitmap = 64;              ///< bytes of a map that lies in its row
constexpr quint32 kPagesInline = kBitmap * 8;
constexpr int kMapRow = 5 + kBitmap;
constexpr int kReferences = 17;
constexpr std::size_t kMapsOnPage = 57;
constexpr int kPageBits = kJet4.pageSize - kJet4.bitmapHead; ///< bytes
constexpr quint32 kPagesOnPage = static_cast<quint32>(kPageBits) * 8;
constexpr quint32 kWidestFreeMap = 14'000; ///< pages of a file whose free ones still stand in a row

QByteArray InlineMap(quint32 first, const QByteArray& bits)
{
    QByteArray row(5, '\0');
    qToLittleEndian(first, row.data() + 1);
    return row + bits;
}

QByteArray BitmapPage(const QByteArray& bits)
{
    QByteArray page(kJet4.bitmapHead, '\0');
    page[0] = static_cast<char>(kBitmapPage);
    page[1] = 1;
    return page + bits;
}

} // namespace

RowPointer MapWriter::TakeOn(MapPage& page)
{
    page.maps.emplace_back();
    return {page.page, static_cast<quint8>(page.maps.size() - 1)};
}

std::vector<RowPointer> MapWriter::Take(int maps)
{
    const bool fresh = m_maps.size() == 1 || m_maps.back().maps.size() + static_cast<std::size_t>(maps) > kMapsOnPage;
    std::vector<RowPointer> places;
    for (int i = 0; i < maps; ++i) {
        // One table can have more maps than a page has room for.
        if ((i == 0 && fresh) || m_maps.back().maps.size() == kMapsOnPage)
            m_maps.push_back({m_pages.Take(), {}});
        places.push_back(TakeOn(m_maps.back()));
    }
    return places;
}

void MapWriter::Set(RowPointer place, PageSet pages)
{
    const auto found = std::find_if(m_maps.begin(), m_maps.end(),
                                    [&](const MapPage& page) { return page.page == place.page; });
    found->maps[place.row] = std::move(pages);
}

QByteArray MapWriter::Encoded(const PageSet& pages)
{
    if (pages.Empty() || pages.Last() < kPagesInline)
        return InlineMap(0, pages.Bits(0, kBitmap));
    const quint32 first = pages.First() / 8 * 8;
    if (pages.Last() - first < kPagesInline)
        return InlineMap(first, pages.Bits(first, kBitmap));
    QByteArray row(kMapRow, '\0');
    row[0] = 1;
    for (int part = 0; part < kReferences; ++part) {
        const quint32 begin = static_cast<quint32>(part) * kPagesOnPage;
        const QByteArray bits = pages.Bits(begin, kPageBits);
        if (bits.count('\0') == bits.size())
            continue;
        const quint32 page = m_pages.Take();
        m_pages.Write(page, BitmapPage(bits));
        qToLittleEndian(page, row.data() + 1 + 4 * part);
    }
    return row;
}

void MapWriter::Finish()
{
    for (const MapPage& page : m_maps) {
        PageBuilder builder(0);
        for (const PageSet& pages : page.maps)
            builder.Add(Encoded(pages));
        m_pages.Write(page.page, builder.Bytes());
    }
}

void MapWriter::WriteFreeMap(quint32 number)
{
    PageSet free;
    for (const quint32 page : m_pages.Free())
        free.Add(page);
    PageBuilder builder(1);
    // Pages behind the end of the file are free too.
    const auto withRest = [&](quint32 begin, int bytes) {
        QByteArray bits = free.Bits(begin, bytes);
        for (quint32 page = std::max(begin, m_pages.Pages()); page < begin + static_cast<quint32>(bytes) * 8; ++page) {
            const auto at = static_cast<qsizetype>((page - begin) / 8);
            bits[at] = static_cast<char>(bits[at] | 1 << (page - begin) % 8);
        }
        return bits;
    };
    if (m_pages.Pages() <= kWidestFreeMap) {
        constexpr quint32 kStep = 32; // pages in four bytes
        const auto bytes = static_cast<int>(std::max<quint32>(kBitmap, m_pages.Pages() / kStep * 4 + 4));
        builder.Add(InlineMap(0, withRest(0, bytes)));
        builder.Add(InlineMap(0, QByteArray(bytes, '\0')));
    } else {
        // Its own pages lie behind all others, and are in use.
        const quint32 parts = std::min<quint32>(kReferences, m_pages.Pages() / kPagesOnPage + 1);
        std::vector<quint32> places;
        for (quint32 part = 0; part < parts; ++part)
            places.push_back(m_pages.Take());
        QByteArray row(kMapRow, '\0');
        row[0] = 1;
        for (quint32 part = 0; part < parts; ++part) {
            m_pages.Write(places[part], BitmapPage(withRest(part * kPagesOnPage, kPageBits)));
            qToLittleEndian(places[part], row.data() + 1 + 4 * part);
        }
        builder.Add(row);
        builder.Add(InlineMap(0, QByteArray(kBitmap, '\0')));
    }
    m_pages.Write(number, builder.Bytes());
}

} // namespace vasclip::engine::jet
