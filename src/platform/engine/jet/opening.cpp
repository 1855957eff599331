#include "platform/engine/jet/opening.h"

#include "platform/engine/errors.h"

#include <algorithm>

namespace vasclip::engine::jet {

using namespace Qt::Literals::StringLiterals;

void Opening::NeedOpen() const
{
    if (!file)
        throw RuntimeError(error::kClosed, u"The database %1 is closed"_s.arg(path));
}

TableRows* Opening::Find(const QString& name)
{
    NeedOpen();
    const auto known = m_tables.constFind(name.toUpper());
    if (known != m_tables.constEnd())
        return known->get();
    const auto entry =
        std::find_if(catalogue.tables.begin(), catalogue.tables.end(), [&](const Catalogue::Entry& table) {
            return table.name.compare(name, Qt::CaseInsensitive) == 0;
        });
    if (entry == catalogue.tables.end())
        return nullptr;
    try {
        auto table = std::make_unique<Table>(file, findings, entry->name, entry->page);
        return m_tables.insert(name.toUpper(), std::make_shared<TableRows>(std::move(table)))->get();
    } catch (const Damaged& damage) {
        findings->Add(entry->name, {}, {}, damage.Description());
        throw RuntimeError(error::kCorruptDatabase,
                           u"The table '%1' of %2 can not be read: %3. Restore the file from a backup"_s.arg(
                               entry->name, path, damage.Description()));
    }
}

TableRows& Opening::Need(const QString& name)
{
    if (TableRows* const table = Find(name))
        return *table;
    const auto same = [&](const QString& other) { return other.compare(name, Qt::CaseInsensitive) == 0; };
    for (const Catalogue::Entry& linked : std::as_const(catalogue.linked)) {
        if (same(linked.name))
            throw RuntimeError(error::kTableUnknown,
                               u"The table '%1' lies in another file, %2. Open that one instead"_s.arg(
                                   linked.name, linked.elsewhere.isEmpty() ? u"on a server"_s : linked.elsewhere));
    }
    if (std::any_of(catalogue.queries.begin(), catalogue.queries.end(), same))
        throw RuntimeError(error::kTableUnknown,
                           u"'%1' is a saved query of %2, which is not run here. Select from its tables instead"_s.arg(
                               name, path));
    if (!findings->Empty())
        throw RuntimeError(error::kCorruptDatabase,
                           u"%1 is damaged, and a table '%2' is not among those that can be read: %3. Restore the file from a backup"_s.arg(
                               path, name, findings->Lines().first()));
    throw RuntimeError(error::kTableUnknown,
                       u"There is no table '%1' in %2. Make sure that its name is spelled correctly"_s.arg(name, path));
}

void Opening::Close()
{
    m_tables.clear();
    file.reset();
}

QString Opening::WhyReadOnly() const
{
    return u"Can not update: %1 is an Access database, which is read here and never written. Convert it to a "
           "Vasclip database to change its records"_s.arg(path);
}

} // namespace vasclip::engine::jet
