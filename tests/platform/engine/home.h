#pragma once

#include "platform/engine/database.h"
#include "platform/engine/errors.h"
#include "support/own_drive.h"
#include "support/standing_time.h"

#include <QDir>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <memory>

namespace vasclip::engine {

using namespace Qt::StringLiterals;

/// A home of its own for one test, with an engine on it.
struct Home
{
    Home()
        : disk(tests::WithOwnDrive(directory.path()))
        , engine(disk, time)
    {}

    [[nodiscard]] QString Native(const QString& name) const
    {
        return directory.path() + u"/drive_c/"_s + name;
    }

    QTemporaryDir directory;
    files::Disk disk;
    tests::StandingTime time;
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
    table.name = u"COMPS"_s;
    table.fields = {TextField(u"CENTRALKEY"_s, 35),
                    TextField(u"CITY"_s, 20),
                    TextField(u"SELLINGPR"_s, 10, SortsAs::Number),
                    TextField(u"SALEDATE"_s, 10, SortsAs::Date),
                    TextField(u"GLA"_s, 7, SortsAs::Number),
                    TypedField(u"PHOTOS"_s, FieldType::Memo),
                    TypedField(u"FRONTPHOTO"_s, FieldType::LongBinary)};
    table.indexes = {{u"Centralkey"_s, {u"CENTRALKEY"_s}, true, true}};
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
    const auto table = database->OpenRecordset(u"COMPS"_s, RecordsetType::Table);
    Transaction together(*database);
    for (const Comp& comp : comps) {
        table->AddNew();
        table->SetValue(u"CENTRALKEY"_s, comp.key);
        const std::pair<QString, QString> rest[] = {{u"CITY"_s, comp.city},
                                                    {u"SELLINGPR"_s, comp.price},
                                                    {u"SALEDATE"_s, comp.date},
                                                    {u"GLA"_s, comp.gla}};
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
        values.append(value.isValid() ? value.toString() : u"NULL"_s);
    }
    return values;
}

} // namespace vasclip::engine
