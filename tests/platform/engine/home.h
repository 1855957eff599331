#pragma once

#include "platform/engine/database.h"
#include "platform/engine/errors.h"

#include <QDir>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <memory>

namespace vasclip::engine {

/// A home of its own for one test, with an engine on it.
struct Home
{
    Home()
        : disk(directory.path())
        , engine(disk)
    {}

    [[nodiscard]] QString Native(const QString& name) const
    {
        return directory.path() + QStringLiteral("/drive_c/") + name;
    }

    QTemporaryDir directory;
    files::Disk disk;
    Engine engine;
};

inline Field TextField(const QString& name, int size, SortsAs sorts = SortsAs::Text)
{
    Field field;
    field.name = name;
    field.size = size;
    field.sortsAs = sorts;
    return field;
}

inline Field TypedField(const QString& name, FieldType type)
{
    Field field;
    field.name = name;
    field.type = type;
    return field;
}

/// A small COMPS table.
inline TableDef SmallComps()
{
    TableDef table;
    table.name = QStringLiteral("COMPS");
    table.fields = {TextField(QStringLiteral("CENTRALKEY"), 35),
                    TextField(QStringLiteral("CITY"), 20),
                    TextField(QStringLiteral("SELLINGPR"), 10, SortsAs::Number),
                    TextField(QStringLiteral("SALEDATE"), 10, SortsAs::Date),
                    TextField(QStringLiteral("GLA"), 7, SortsAs::Number),
                    TypedField(QStringLiteral("PHOTOS"), FieldType::Memo),
                    TypedField(QStringLiteral("FRONTPHOTO"), FieldType::LongBinary)};
    table.indexes = {{QStringLiteral("Centralkey"), {QStringLiteral("CENTRALKEY")}, true, true}};
    return table;
}

struct Comp
{
    QString key, city, price, date, gla;
};

/// Makes C:\NAME with a COMPS table of these records.
inline std::shared_ptr<Database> MakeComps(Engine& engine, const QString& path, const QList<Comp>& comps)
{
    auto database = engine.CreateDatabase(path);
    database->CreateTable(SmallComps());
    const auto table = database->OpenRecordset(QStringLiteral("COMPS"), RecordsetType::Table);
    Transaction together(*database);
    for (const Comp& comp : comps) {
        table->AddNew();
        table->SetValue(QStringLiteral("CENTRALKEY"), comp.key);
        const std::pair<QString, QString> rest[] = {{QStringLiteral("CITY"), comp.city},
                                                    {QStringLiteral("SELLINGPR"), comp.price},
                                                    {QStringLiteral("SALEDATE"), comp.date},
                                                    {QStringLiteral("GLA"), comp.gla}};
        for (const auto& [field, value] : rest) {
            if (!value.isNull())
                table->SetValue(field, value);
        }
        table->Update();
    }
    together.Commit();
    return database;
}

/// The number of the error that `action` throws, 0 without one; its description through `text`.
template <class Action>
int ErrorOf(Action&& action, QString* text = nullptr)
{
    try {
        action();
    } catch (const RuntimeError& error) {
        if (text)
            *text = error.Description();
        return error.Number();
    }
    return 0;
}

/// The texts of one field, from the first record to the last.
inline QStringList Column(Recordset& recordset, const QString& field)
{
    QStringList values;
    for (recordset.MoveFirst(); !recordset.Eof(); recordset.MoveNext()) {
        const QVariant value = recordset.Value(field);
        values.append(value.isValid() ? value.toString() : QStringLiteral("NULL"));
    }
    return values;
}

} // namespace vasclip::engine
