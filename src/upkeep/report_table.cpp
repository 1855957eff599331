#include "upkeep/report_table.h"

#include "platform/engine/sql_name.h"
#include "platform/text/runtime_error.h"
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

/// The engine's SELECT for a layout.
QString SelectText(const ReportLayout& layout)
{
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
    for (const SortKey& key : std::as_const(keys))
        order.append(key.field + (key.down ? u" DESC"_s : QString()));
    const QString select = u"SELECT "_s + columns.join(u", "_s) + u" FROM ["_s + kTable + u']';
    return order.isEmpty() ? select : select + u" ORDER BY "_s + order.join(u", "_s);
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
    if (!engine.Disk().Found(file))
        store::MakeDatabase(engine, file);
    try {
        store::DropTheTable(engine, file, kTable);
    } catch (const RuntimeError& failure) {
        if (failure.Number() != error::kTableNotFound)
            throw;
    }
    const QString copy = u"SELECT * INTO "_s + engine::Bracketed(file) + u".["_s + kTable + u"] FROM ["_s + table + u"] "_s;
    const auto open = engine.OpenDatabase(databook);
    const qint64 rows = store::CopyRows(*open, {Narrows(search) ? copy + u"WHERE "_s + search : copy});
    open->Close();
    return rows;
}

ReportTable::ReportTable(engine::Engine& engine, const QString& file, const ReportLayout& layout)
    : m_database(engine.OpenDatabase(file, engine::OpenMode::ReadOnly))
    , m_rows(std::make_unique<store::Rows>(*m_database, SelectText(layout)))
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
