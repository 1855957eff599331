#include "upkeep/report_table.h"

#include "platform/engine/errors.h"
#include "platform/engine/sql_name.h"
#include "store/bulk_rows.h"
#include "store/fields.h"
#include "store/schema.h"
#include "store/store.h"
#include "upkeep/export_statement.h"

#include <algorithm>

namespace vasclip::upkeep {

using namespace Qt::StringLiterals;

namespace {

const QString kTable = u"COMPS"_s;

/// The engine's SELECT for a layout. What a Databook of an older layout lacks is blank on paper, as in its records.
QString SelectText(const ReportLayout& layout, const engine::FieldList& held)
{
    const auto isHeld = [&held](const QString& name) {
        return std::ranges::any_of(held, [&](const engine::Field& field) {
            return field.name.compare(name, Qt::CaseInsensitive) == 0;
        });
    };
    QStringList columns, order;
    for (const LabelledField& field : layout.Fields())
        columns.append(field.field);
    for (const QString& always : {QString(fields::CENTRALKEY), QString(fields::ADDRESS)})
        if (!columns.contains(always))
            columns.append(always);
    // The groups stand first, each in the direction that a sort of its field asks for.
    QList<SortKey> keys;
    for (const Group& group : layout.groups)
        keys.append({.field = group.field});
    for (const SortKey& key : layout.sort) {
        const auto known = std::ranges::find(keys, key.field, &SortKey::field);
        if (known == keys.end())
            keys.append(key);
        else if (known - keys.begin() < layout.groups.size())
            known->down = key.down;
    }
    columns.removeIf([&](const QString& name) { return !isHeld(name); });
    keys.removeIf([&](const SortKey& key) { return !isHeld(key.field); });
    for (const SortKey& key : std::as_const(keys))
        order.append(key.field + (key.down ? u" DESC"_s : QString()));
    const QString select = u"SELECT "_s + columns.join(u", "_s) + u" FROM ["_s + kTable + u']';
    return order.isEmpty() ? select : select + u" ORDER BY "_s + order.join(u", "_s);
}

/// Is it no fault of the file? Somebody else prints from it, or the disk is in the way.
bool IsOfTheMoment(const RuntimeError& failure)
{
    switch (failure.Number()) {
    case error::kCouldNotUpdateLocked:
    case error::kCouldNotReadLocked:
    case error::kTableLocked:
    case error::kExclusivelyLocked:
    case error::kInUseByOthers:
    case error::kWaitGivenUp:
    case error::kDiskFull:
    case error::kDeviceIo:
        return true;
    default:
        return false;
    }
}

/// The report database, open for writing and rid of its table; nothing for one that can't be had so.
std::shared_ptr<engine::Database> OpenWithoutTable(engine::Engine& engine, const QString& file)
{
    try {
        store::DropTheTable(engine, file, kTable);
        return engine.OpenDatabase(file);
    } catch (const RuntimeError& failure) {
        if (IsOfTheMoment(failure))
            throw;
        return nullptr;
    }
}

/// It is scratch: one that is damaged, write-protected or of another kind is made anew.
std::shared_ptr<engine::Database> OpenScratch(engine::Engine& engine, const QString& file)
{
    const files::Disk& disk = engine.Disk();
    if (disk.Found(file, files::ReadOnly | files::Hidden)) {
        if (auto open = OpenWithoutTable(engine, file))
            return open;
        disk.SetAttr(file, files::Normal);
        disk.Kill(file);
    }
    store::MakeDatabase(engine, file);
    if (auto open = OpenWithoutTable(engine, file))
        return open;
    throw RuntimeError(error::kPathFileAccess,
                       u"%1, which reports are printed from, can't be written. Get the rights to its directory"_s.arg(file));
}

} // namespace

ReportFiles SelectReportFiles(int chosen)
{
    switch (chosen) {
    case 0:
        return {u"brief.rpt"_s, u"Report_Brief.mdb"_s};
    case 1:
        return {u"medium.rpt"_s, u"Report_Medium.mdb"_s};
    case 2:
        return {u"detail.rpt"_s, u"Report_Detail.mdb"_s};
    default:
        return {u"brief.rpt"_s, u"Report_NonDesc.mdb"_s};
    }
}

qint64 FillReport(engine::Engine& engine, const QString& file, const QString& databook, const QString& table,
                  const QString& search)
{
    // From the report's side, so that the Databook is only read: nobody who stores into it is in the way.
    const auto report = OpenScratch(engine, file);
    const QString copy = u"SELECT * INTO ["_s + kTable + u"] FROM "_s + engine::Bracketed(databook) + u'.' +
                         engine::Bracketed(table) + u' ';
    const qint64 rows = store::CopyRows(*report, {Narrows(search) ? copy + u"WHERE "_s + search : copy});
    report->Close();
    return rows;
}

ReportTable::ReportTable(engine::Engine& engine, const QString& file, const ReportLayout& layout)
    : m_database(engine.OpenDatabase(file, engine::OpenMode::ReadOnly))
    , m_rows(std::make_unique<store::Rows>(*m_database, SelectText(layout, m_database->Table(kTable).fields)))
{}

ReportTable::~ReportTable()
{
    m_rows.reset();
    m_database->Close();
}

RecordFeed ReportTable::Feed() const
{
    return {m_rows->Count(), [rows = m_rows.get()](qint64 place) { return rows->At(place); }};
}

} // namespace vasclip::upkeep
