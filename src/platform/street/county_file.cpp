#include "platform/street/county_file.h"

#include "platform/street/cell_codec.h"
#include "platform/street/cell_grid.h"
#include "platform/street/county_meta.h"
#include "platform/street/sql.h"

#include <sqlite3.h>

#include <array>

using namespace Qt::StringLiterals;

namespace vasclip::street {

namespace {

QByteArrayView ColumnBytes(sqlite3_stmt* row, int column)
{
    const auto* bytes = static_cast<const char*>(sqlite3_column_blob(row, column));
    return {bytes, bytes ? sqlite3_column_bytes(row, column) : 0};
}

QString Damaged()
{
    return u"the file is damaged"_s;
}

QString DamagedCell(quint32 id)
{
    return u"cell %1 is damaged"_s.arg(id);
}

} // namespace

std::unique_ptr<CountyFile> CountyFile::Open(const QString& path, QString& problem)
{
    std::unique_ptr<CountyFile> county(new CountyFile);
    county->m_path = path;
    county->m_file = TableFile::Open(path, FileKind::County, problem);
    if (!county->m_file || !ReadMeta(*county->m_file, county->m_info, problem))
        return {};
    county->m_cells = county->m_file->Table("cells");
    if (county->m_cells == 0) {
        problem = Damaged();
        return {};
    }
    return county;
}

bool CountyFile::CellsTouching(const Extent& extent, Level level, std::vector<quint32>& ids,
                               QString& problem) const
{
    for (const grid::Run& run : grid::Touching(level, extent)) {
        if (!m_file->Numbers(m_cells, run.first, run.last, ids)) {
            problem = Damaged();
            return false;
        }
    }
    return true;
}

std::shared_ptr<const Cell> CountyFile::ReadCell(quint32 id, QString& problem) const
{
    QByteArray bytes;
    const TableFile::Read read = m_file->Blob(m_cells, id, bytes);
    if (read == TableFile::Read::None)
        return {};
    std::shared_ptr<const Cell> cell = read == TableFile::Read::Done ? DecodeCell(bytes, id) : nullptr;
    if (!cell)
        problem = DamagedCell(id);
    return cell;
}

const LookupReader& CountyFile::Lookup() const
{
    std::call_once(m_lookupOnce, [this] {
        const quint32 tables[] = {m_file->Table("lookup_streets"), m_file->Table("lookup_pieces"),
                                  m_file->Table("lookup_facts")};
        m_lookup = std::make_unique<const LookupReader>(
            [file = m_file.get(), tables = std::to_array(tables)](LookupTable table, quint32 number) {
                QByteArray bytes; // a damaged row is as if missing
                (void)file->Blob(tables.at(static_cast<std::size_t>(table)), number, bytes);
                return bytes;
            });
    });
    return *m_lookup;
}

bool CountyFile::ReadsWhole(QString& problem) const
{
    const SqlFile file = OpenSql(m_path, FileKind::County, problem);
    if (!file)
        return false;
    const SqlStatement check = PrepareSql(file.get(), "PRAGMA integrity_check(1)", problem);
    if (!check || sqlite3_step(check.get()) != SQLITE_ROW) {
        problem = SqlProblem(file.get());
        return false;
    }
    if (ColumnText(check.get(), 0) != u"ok"_s) {
        problem = Damaged();
        return false;
    }
    const SqlStatement all = PrepareSql(file.get(), "SELECT id, bytes FROM cells", problem);
    if (!all)
        return false;
    int step = SQLITE_ROW;
    while ((step = sqlite3_step(all.get())) == SQLITE_ROW) {
        const auto id = static_cast<quint32>(sqlite3_column_int64(all.get(), 0));
        if (!DecodeCell(ColumnBytes(all.get(), 1), id)) {
            problem = DamagedCell(id);
            return false;
        }
    }
    if (step != SQLITE_DONE)
        problem = SqlProblem(file.get());
    return step == SQLITE_DONE;
}

} // namespace vasclip::street
