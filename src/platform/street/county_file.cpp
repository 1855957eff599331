#include "platform/street/county_file.h"

#include "platform/street/cell_codec.h"
#include "platform/street/cell_grid.h"
#include "platform/street/county_meta.h"

#include <sqlite3.h>

using namespace Qt::StringLiterals;

namespace vasclip::street {

namespace {

/// Puts a statement back when a question is answered.
class Asked
{
public:
    explicit Asked(sqlite3_stmt* statement)
        : m_statement(statement)
    {}
    ~Asked() { sqlite3_reset(m_statement); }
    Asked(const Asked&) = delete;
    Asked& operator=(const Asked&) = delete;

private:
    sqlite3_stmt* m_statement;
};

QByteArrayView ColumnBytes(sqlite3_stmt* row, int column)
{
    const auto* bytes = static_cast<const char*>(sqlite3_column_blob(row, column));
    return {bytes, bytes ? sqlite3_column_bytes(row, column) : 0};
}

QString DamagedCell(quint32 id)
{
    return u"cell %1 is damaged"_s.arg(id);
}

} // namespace

std::unique_ptr<CountyFile> CountyFile::Open(const QString& path, QString& problem)
{
    std::unique_ptr<CountyFile> county(new CountyFile);
    county->m_file = OpenSql(path, FileKind::County, problem);
    if (!county->m_file || !ReadMeta(county->Handle(), county->m_info, problem))
        return {};
    county->m_touching = PrepareSql(county->Handle(), "SELECT id FROM cells WHERE id BETWEEN ? AND ?", problem);
    county->m_cell = PrepareSql(county->Handle(), "SELECT bytes FROM cells WHERE id = ?", problem);
    if (!county->m_touching || !county->m_cell)
        return {};
    return county;
}

bool CountyFile::CellsTouching(const Extent& extent, Level level, std::vector<quint32>& ids,
                               QString& problem) const
{
    const std::lock_guard lock(m_guard);
    sqlite3_stmt* const touching = m_touching.get();
    for (const grid::Run& run : grid::Touching(level, extent)) {
        const Asked asked(touching);
        sqlite3_bind_int64(touching, 1, run.first);
        sqlite3_bind_int64(touching, 2, run.last);
        int step = SQLITE_ROW;
        while ((step = sqlite3_step(touching)) == SQLITE_ROW)
            ids.push_back(static_cast<quint32>(sqlite3_column_int64(touching, 0)));
        if (step != SQLITE_DONE) {
            problem = SqlProblem(Handle());
            return false;
        }
    }
    return true;
}

std::shared_ptr<const Cell> CountyFile::ReadCell(quint32 id, QString& problem) const
{
    QByteArray bytes;
    {
        const std::lock_guard lock(m_guard);
        const Asked asked(m_cell.get());
        sqlite3_bind_int64(m_cell.get(), 1, id);
        const int step = sqlite3_step(m_cell.get());
        if (step == SQLITE_DONE)
            return {};
        if (step != SQLITE_ROW) {
            problem = SqlProblem(Handle());
            return {};
        }
        bytes = ColumnBytes(m_cell.get(), 0).toByteArray();
    }
    // Decoded outside of the lock: several threads draw.
    std::shared_ptr<const Cell> cell = DecodeCell(bytes, id);
    if (!cell)
        problem = DamagedCell(id);
    return cell;
}

const LookupReader& CountyFile::Lookup() const
{
    std::call_once(m_lookupOnce, [this] { m_lookup = std::make_unique<const LookupReader>(Handle()); });
    return *m_lookup;
}

bool CountyFile::ReadsWhole(QString& problem) const
{
    const SqlStatement check = PrepareSql(Handle(), "PRAGMA integrity_check(1)", problem);
    if (!check || sqlite3_step(check.get()) != SQLITE_ROW) {
        problem = SqlProblem(Handle());
        return false;
    }
    if (ColumnText(check.get(), 0) != u"ok"_s) {
        problem = u"the file is damaged"_s;
        return false;
    }
    const SqlStatement all = PrepareSql(Handle(), "SELECT id, bytes FROM cells", problem);
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
        problem = SqlProblem(Handle());
    return step == SQLITE_DONE;
}

} // namespace vasclip::street
