#include "platform/engine/jet/file_writer.h"

#include "platform/engine/errors.h"

#include <algorithm>

namespace vasclip::engine::jet {

using namespace Qt::Literals::StringLiterals;

namespace {

/// The pages that are the same in every file are taken before any table is made.
PageWriter& WithFirstPages(PageWriter& pages)
{
    pages.Reserve(kFirstFreePage);
    return pages;
}

} // namespace

FileWriter::FileWriter(const QString& native, const QString& shown)
    : m_file(native, shown)
    , m_pages(m_file.Path(), shown)
    , m_maps(WithFirstPages(m_pages), kSystemMapsPage)
    , m_system(m_pages, m_maps)
{}

TableWriter& FileWriter::AddTable(const TableDef& table)
{
    if (Find(table.name))
        throw RuntimeError(error::kTableExists, u"The table '%1' already exists"_s.arg(table.name));
    m_tables.push_back(std::make_unique<TableWriter>(m_pages, m_maps, NewTableOf(table)));
    m_system.List(table.name, m_tables.back()->Page());
    return *m_tables.back();
}

TableWriter* FileWriter::Find(const QString& name)
{
    const auto found = std::find_if(m_tables.begin(), m_tables.end(), [&](const auto& table) {
        return table->Table().name.compare(name, Qt::CaseInsensitive) == 0;
    });
    return found == m_tables.end() ? nullptr : found->get();
}

void FileWriter::Finish(const QDateTime& now)
{
    for (const auto& table : m_tables)
        table->Finish();
    m_system.Finish(now);
    m_maps.Finish();
    m_maps.WriteFreeMap(kFreeMapsPage);
    m_pages.Write(0, HeaderPage());
    m_pages.Close();
    m_file.Finish();
}

QStringList FileWriter::Notes() const
{
    QStringList notes;
    for (const auto& table : m_tables)
        notes += table->Notes();
    return notes;
}

} // namespace vasclip::engine::jet
