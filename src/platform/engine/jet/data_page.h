#pragma once

#include "platform/engine/jet/page_file.h"

#include <optional>

namespace vasclip::engine::jet {

/// A page that holds rows.
class DataPage
{
public:
    /// @throws Damaged if the page holds no rows
    DataPage(PageFile& file, quint32 number);

    [[nodiscard]] quint32 Owner() const { return Bytes(m_page).U32(4); }
    [[nodiscard]] int Rows() const { return m_rows; }
    /// Its place with its marks. @throws Damaged for one that is not there
    [[nodiscard]] quint16 Entry(int row) const;
    /// Its bytes, whatever its marks; they live as long as the page. @throws Damaged
    [[nodiscard]] Bytes Row(int row) const;
    [[nodiscard]] const QByteArray& Page() const { return m_page; }

private:
    const Format& m_format;
    QByteArray m_page;
    int m_rows = 0;
};

/// A row and the page that it lies on.
struct RowBytes
{
    QByteArray page;
    Bytes bytes;
};

/// The row at a place, whoever owns its page. @throws Damaged
[[nodiscard]] RowBytes ReadRowAt(PageFile& file, RowPointer place);
/// The row of a table at its home place, looked for where it was moved to.
/// @param owner  the page of the table's definition
/// @return nothing for one that was deleted. @throws Damaged
[[nodiscard]] std::optional<RowBytes> ReadTableRow(PageFile& file, RowPointer home, quint32 owner);

} // namespace vasclip::engine::jet
