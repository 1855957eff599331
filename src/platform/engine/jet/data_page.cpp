#include "platform/engine/jet/data_page.h"

namespace vasclip::engine::jet {

using namespace Qt::Literals::StringLiterals;

DataPage::DataPage(PageFile& file, quint32 number)
    : m_format(file.Shape())
    , m_page(file.Page(number))
{
    const Bytes bytes(m_page);
    if (bytes.U8(0) != kDataPage)
        throw Damaged(u"page %1 holds no rows"_s.arg(number));
    m_rows = bytes.U16(m_format.rowCount);
    if (m_format.rowOffsets + 2 * m_rows > m_format.pageSize)
        throw Damaged(u"page %1 claims %2 rows"_s.arg(QString::number(number), QString::number(m_rows)));
}

quint16 DataPage::Entry(int row) const
{
    if (row < 0 || row >= m_rows)
        throw Damaged(u"a row is not there"_s);
    return Bytes(m_page).U16(m_format.rowOffsets + 2 * row);
}

Bytes DataPage::Row(int row) const
{
    const int start = Entry(row) & kRowStart;
    const int end = row == 0 ? m_format.pageSize : Entry(row - 1) & kRowStart;
    if (start < m_format.rowOffsets + 2 * m_rows || end < start)
        throw Damaged(u"the bounds of a row are wrong"_s);
    return Bytes(m_page).Part(start, end - start);
}

RowBytes ReadRowAt(PageFile& file, RowPointer place)
{
    const DataPage page(file, place.page);
    return {page.Page(), page.Row(place.row)};
}

std::optional<RowBytes> ReadTableRow(PageFile& file, RowPointer home, quint32 owner)
{
    constexpr int kMostMoves = 8;
    RowPointer place = home;
    for (int move = 0; move <= kMostMoves; ++move) {
        const DataPage page(file, place.page);
        if (page.Owner() != owner)
            throw Damaged(u"page %1 belongs to another table"_s.arg(place.page));
        const quint16 entry = page.Entry(place.row);
        if (move == 0 && (entry & kRowDeleted) != 0)
            return std::nullopt;
        const Bytes row = page.Row(place.row);
        if ((entry & kRowMoved) == 0)
            return RowBytes{page.Page(), row};
        place = RowPointer::Of(row.U32(0));
    }
    throw Damaged(u"a row was moved in a circle"_s);
}

} // namespace vasclip::engine::jet
