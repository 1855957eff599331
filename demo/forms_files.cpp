#include "demo/forms_files.h"

#include "formsbook/kel_ini.h"
#include "formsbook/mapping.h"
#include "formsbook/scripts.h"
#include "store/schema.h"

#include <QJsonDocument>

using namespace Qt::Literals::StringLiterals;

namespace vasclip::demo {
namespace {

const formsbook::KelPlaces& Kel()
{
    static const formsbook::KelPlaces places;
    return places;
}

void MakeMapping(engine::Engine& engine, const QString& path)
{
    store::MakeDatabase(engine, path);
    const std::shared_ptr<engine::Database> database = engine.OpenDatabase(path, engine::OpenMode::Exclusive);
    engine::Transaction all(*database);
    const std::unique_ptr<engine::Recordset> table =
        database->OpenRecordset(u"Comp2Kel"_s, engine::RecordsetType::Table);
    using Row = formsbook::MappingRow;
    struct Column
    {
        QString Row::*member;
        int field;
    };
    const QList<Column> columns{{&Row::formType, table->FieldIndex(u"FORMTYPE"_s)},
                                {&Row::formName, table->FieldIndex(u"FORMNAME"_s)},
                                {&Row::fieldName, table->FieldIndex(u"FIELDNAME"_s)},
                                {&Row::row, table->FieldIndex(u"ROW"_s)},
                                {&Row::cell, table->FieldIndex(u"CELL"_s)},
                                {&Row::compType, table->FieldIndex(u"COMPTYPE"_s)},
                                {&Row::comp, table->FieldIndex(u"COMP"_s)},
                                {&Row::offset, table->FieldIndex(u"OFFSET"_s)},
                                {&Row::preEval, table->FieldIndex(u"PREEVAL"_s)},
                                {&Row::trueFalse, table->FieldIndex(u"TRUEFALSE"_s)}};
    for (const Row& row : formsbook::MappingRows()) {
        table->AddNew();
        for (const Column& column : columns)
            table->SetValue(column.field, row.*column.member);
        table->Update();
    }
    table->Close();
    all.Commit();
    database->Close();
}

/// The stand-in's "executable": what the version test and the launch look for.
void MakeProgram(const files::Disk& disk)
{
    disk.WriteWhole(Kel().appDir + u"Kel.exe"_s,
                    "The forms program of this home is kelforms; this file marks its place.\r\n");
    disk.WriteWhole(Kel().appDir + u"Kel.exe.version"_s, "7.21.0.0\r\n");
}

void WriteReport(const files::Disk& disk, const QJsonObject& report)
{
    disk.WriteWhole(Kel().dataDir + report.value("name"_L1).toString(), QJsonDocument(report).toJson());
}

} // namespace

QStringList FormsDirectories()
{
    return {Kel().appDir, Kel().dataDir, Kel().privateDir};
}

void MakeFormsFiles(engine::Engine& engine, const QList<Comp>& comps, const FormsPlaces& places)
{
    const files::Disk& disk = engine.Disk();
    disk.WriteWhole(places.iniDirectory + u"KEL.INI"_s, formsbook::KelIniText(Kel()).toLatin1());
    for (const formsbook::ScriptFile& script : formsbook::Scripts())
        disk.WriteWhole(Kel().appDir + script.name, script.text.toLatin1());
    MakeProgram(disk);
    MakeMapping(engine, places.userDirectory + u"Comp2Kel.mdb"_s);
    WriteReport(disk, BigReport(comps, places.photoDirectory));
    WriteReport(disk, FullReport(comps, places.photoDirectory));
    WriteReport(disk, SmallReport(comps, places.photoDirectory));
}

} // namespace vasclip::demo
