#include "platform/engine/jet/table.h"

#include "platform/engine/jet/column_value.h"
#include "platform/engine/jet/long_value.h"
#include "platform/engine/jet/usage_map.h"
#include "platform/text/counted.h"

#include <algorithm>

namespace vasclip::engine::jet {

using namespace Qt::Literals::StringLiterals;

namespace {

const text::Counted kPagesBeyond{u"of its pages lies"_s, u"of its pages lie"_s};

/// The index as the engine knows one; without fields if a column of it is not shown.
IndexDef IndexOf(const Index& index, const Definition& table, const TableDef& def)
{
    IndexDef shown{index.name, {}, index.primary, index.unique || index.primary};
    for (const KeyColumn& key : index.columns) {
        const Column* column = table.ColumnOf(key.number);
        const bool known = column && std::any_of(def.fields.begin(), def.fields.end(), [&](const Field& field) {
                               return field.name == column->name;
                           });
        if (!known)
            return {};
        shown.fields.append(column->name);
    }
    return shown;
}

} // namespace

Table::Table(std::shared_ptr<PageFile> file, std::shared_ptr<Findings> findings, const QString& name, quint32 page)
    : m_file(std::move(file))
    , m_findings(std::move(findings))
    , m_definition(ReadDefinition(*m_file, page))
{
    m_def.name = name;
    for (qsizetype i = 0; i < m_definition.columns.size(); ++i) {
        const Column& column = m_definition.columns[i];
        const auto field = FieldOf(column, m_file->Shape());
        if (!field) {
            m_findings->Add(name, {}, column.name,
                            u"is of kind %1, which can not be read"_s.arg(static_cast<int>(column.type)));
            continue;
        }
        m_def.fields.append(*field);
        m_columns.push_back(i);
    }
    for (const Index& index : std::as_const(m_definition.indexes)) {
        const IndexDef shown = IndexOf(index, m_definition, m_def);
        if (!index.relation && !shown.fields.isEmpty())
            m_def.indexes.append(shown);
    }
}

bool Table::OwnsPage(quint32 page)
{
    const QByteArray bytes = m_file->Page(page);
    return Bytes(bytes).U8(0) == kDataPage && Bytes(bytes).U32(4) == m_definition.page;
}

std::vector<quint32> Table::Pages()
{
    try {
        qint64 beyond = 0;
        auto pages = ReadUsageMap(*m_file, m_definition.owned, &beyond);
        if (beyond > 0)
            m_findings->Add(m_def.name, {}, {},
                            kPagesBeyond(beyond) + u" behind the end of the file, which was cut short"_s);
        return pages;
    } catch (const Damaged& damage) {
        m_findings->Add(m_def.name, {}, {},
                        u"the map of its pages can not be read (%1), so all pages were looked at"_s.arg(
                            damage.Description()));
    }
    std::vector<quint32> pages;
    for (quint32 page = 1; page < m_file->Pages(); ++page) {
        if (OwnsPage(page))
            pages.push_back(page);
    }
    return pages;
}

void Table::ForEach(const std::function<bool(const FoundRow&)>& sink)
{
    for (const quint32 page : Pages()) {
        if (!ForEachOn(page, sink))
            return;
    }
}

bool Table::ForEachOn(quint32 number, const std::function<bool(const FoundRow&)>& sink)
{
    int rows = 0;
    try {
        if (!OwnsPage(number)) {
            m_findings->Add(m_def.name, {number, 0}, {}, u"the page is not one of this table any more"_s);
            return true;
        }
        rows = DataPage(*m_file, number).Rows();
    } catch (const Damaged& damage) {
        m_findings->Add(m_def.name, {number, 0}, {}, damage.Description());
        return true;
    }
    for (int row = 0; row < rows && row <= 0xFF; ++row) {
        const auto found = Find({number, static_cast<quint8>(row)});
        if (found && !sink(*found))
            return false;
    }
    return true;
}

std::optional<FoundRow> Table::Find(RowPointer home)
{
    try {
        const auto bytes = ReadTableRow(*m_file, home, m_definition.page);
        if (bytes)
            return FoundRow{home, bytes->page, Row(m_file->Shape(), m_definition, bytes->bytes)};
    } catch (const Damaged& damage) {
        m_findings->Add(m_def.name, home, {}, damage.Description());
    }
    return std::nullopt;
}

QVariant Table::Value(const FoundRow& row, int field)
{
    const Column& column = ColumnOf(field);
    try {
        if (column.type == ColumnType::Boolean)
            return !row.row.IsNull(column);
        const auto bytes = row.row.Value(column);
        return bytes ? ValueOf(*m_file, column, *bytes) : QVariant();
    } catch (const Damaged& damage) {
        m_findings->Add(m_def.name, row.home, column.name, damage.Description());
        return {};
    }
}

QVariant Table::SizeOf(const FoundRow& row, int field)
{
    const Column& column = ColumnOf(field);
    try {
        const auto bytes = row.row.Value(column);
        return bytes ? QVariant::fromValue<qlonglong>(LongValueSize(*bytes)) : QVariant();
    } catch (const Damaged& damage) {
        m_findings->Add(m_def.name, row.home, column.name, damage.Description());
        return {};
    }
}

std::unique_ptr<LongReader> Table::LongOf(const FoundRow& row, int field)
{
    const Column& column = ColumnOf(field);
    try {
        const auto bytes = row.row.Value(column);
        auto reader = bytes ? std::make_unique<LongReader>(*m_file, *bytes) : nullptr;
        if (reader)
            reader->NeedWhole();
        return reader;
    } catch (const Damaged& damage) {
        m_findings->Add(m_def.name, row.home, column.name, damage.Description());
        return nullptr;
    }
}

} // namespace vasclip::engine::jet
