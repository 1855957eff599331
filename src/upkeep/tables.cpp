#include "upkeep/tables.h"

#include "platform/engine/health.h"
#include "platform/text/runtime_error.h"
#include "platform/text/text.h"
#include "store/messages.h"
#include "store/record.h"
#include "store/store.h"
#include "upkeep/list_file.h"
#include "upkeep/target_file.h"

#include <algorithm>
#include <functional>

namespace vasclip::upkeep {

using namespace Qt::StringLiterals;

namespace {

const QString kDamaged = u"%1 is damaged, and not all of it can be read: %2"_s;

} // namespace

bool IsSystemTable(const QString& name)
{
    return text::Folded(name).startsWith("MSYS"_L1);
}

QStringList TablesOf(engine::Engine& engine, const QString& file, QString* damage)
{
    const auto database = engine.OpenDatabase(file, engine::OpenMode::ReadOnly);
    QStringList tables = database->TableNames();
    if (damage)
        *damage = engine::DamageOf(*database);
    database->Close();
    tables.removeIf([](const QString& name) {
        return text::Trim(name).isEmpty() || IsSystemTable(name);
    });
    return tables;
}

namespace {

QString Fill(const files::Disk& disk, const QString& file, forms::ListBox& list, const QString& selected,
             const std::function<QStringList()>& read)
{
    QStringList names;
    QString why;
    try {
        if (IsThere(disk, file))
            names = read();
    } catch (const RuntimeError& failure) {
        why = failure.Description();
    }
    list.SetItems(names);
    if (!names.isEmpty())
        list.SetListIndex(std::max(list.IndexOf(selected), 0));
    return why;
}

} // namespace

QString ListTheTables(engine::Engine& engine, const QString& file, forms::ListBox& list, const QString& selected)
{
    QString damage;
    const QString why = Fill(engine.Disk(), file, list, selected, [&] { return TablesOf(engine, file, &damage); });
    return why.isEmpty() ? DamagedFileWords(file, damage) : why;
}

QString ListTheSheets(const files::Disk& disk, const QString& file, forms::ListBox& list, const QString& selected)
{
    return Fill(disk, file, list, selected, [&] { return SheetsOf(disk, file); });
}

QString DamagedFileWords(const QString& file, const QString& damage)
{
    return damage.isEmpty() ? QString() : kDamaged.arg(file, damage);
}

qint64 CountOf(engine::Engine& engine, const QString& file, const QString& table, QString* damage)
{
    const auto database = engine.OpenDatabase(file, engine::OpenMode::ReadOnly);
    const qint64 count = store::CountRows(*database, table);
    if (damage)
        *damage = engine::DamageOf(*database);
    database->Close();
    return count;
}

void DeleteTable(engine::Engine& engine, const QString& file, const QString& table)
{
    store::DropTheTable(engine, file, table);
}

void AddKeyIndex(engine::Engine& engine, const QString& file, const QString& table)
{
    const auto database = engine.OpenDatabase(file);
    const engine::TableDef definition = database->Table(table);
    database->Close();
    const auto named = [](const auto& one) { return one.name.compare(store::kKeyIndex, Qt::CaseInsensitive) == 0; };
    if (std::ranges::none_of(definition.indexes, named) && std::ranges::any_of(definition.fields, named))
        store::CreateIndex(engine, file, table);
}

} // namespace vasclip::upkeep
