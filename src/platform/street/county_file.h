#pragma once

#include "platform/street/cell.h"
#include "platform/street/county_info.h"
#include "platform/street/lookup_reader.h"
#include "platform/street/sql.h"

#include <memory>
#include <mutex>
#include <vector>

namespace vasclip::street {

/// A county's file, open for reading. Any thread may ask.
class CountyFile
{
public:
    /// @param path  native
    /// @return null with the reason in `problem`
    [[nodiscard]] static std::unique_ptr<CountyFile> Open(const QString& path, QString& problem);

    [[nodiscard]] const CountyInfo& Info() const { return m_info; }
    [[nodiscard]] sqlite3* Handle() const { return m_file.get(); }
    /// Numbers of the cells of a level that touch `extent`, ascending.
    /// @return false with the reason in `problem`
    [[nodiscard]] bool CellsTouching(const Extent& extent, Level level, std::vector<quint32>& ids,
                                     QString& problem) const;
    /// A cell, decoded; null where the file has none of this number, and then `problem` is empty, or where it
    /// can't be read.
    [[nodiscard]] std::shared_ptr<const Cell> ReadCell(quint32 id, QString& problem) const;
    /// The tables by which addresses are found, opened when they are first asked for.
    [[nodiscard]] const LookupReader& Lookup() const;
    /// Reads all there is. @return false with what is wrong in `problem`
    [[nodiscard]] bool ReadsWhole(QString& problem) const;

private:
    CountyFile() = default;

    CountyInfo m_info;
    SqlFile m_file;
    mutable std::mutex m_guard; ///< over the statements
    SqlStatement m_touching;
    SqlStatement m_cell;
    mutable std::once_flag m_lookupOnce;
    mutable std::unique_ptr<const LookupReader> m_lookup;
};

} // namespace vasclip::street
