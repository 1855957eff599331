#pragma once

#include "upkeep/archive_records.h"

#include "support/databook_home.h"

namespace vasclip::upkeep {

using namespace Qt::Literals::StringLiterals;

/// A Databook with its pictures, and an archive that is empty at first.
class ArchiveHome : public tests::DatabookHome
{
protected:
    store::DataSource source{engine, u"datDatabook"_s};
    common::Globals globals;
    const QString archive = u"C:\\ARCHIVE\\OLD.MDB"_s;
    const QString pictures = u"C:\\ARCHIVE\\OLD_JPG\\"_s;
    SaleRange range{u"01/01/1990"_s, u"12/31/1999"_s};
    Duplicates duplicates = Duplicates::Overwrite;

    void SetUp() override
    {
        DatabookHome::SetUp();
        globals.G_PhotoDir = u"C:\\JPG\\"_s;
        disk.MkDir(u"C:\\JPG"_s);
        disk.MkDir(u"C:\\ARCHIVE"_s);
        store::MakeDatabase(engine, archive);
    }
    void Comp(const QString& name, const QString& sale, const QString& stem = {}, const QString& notes = {})
    {
        Values values{{key, name.leftJustified(35)}, {u"SALEDATE"_s, sale}, {u"NOTES"_s, notes}};
        if (!stem.isEmpty()) {
            values.append({u"PHOTOS"_s, u"FRONT VIEW|%1\r\nREAR VIEW|%1R\r\n"_s.arg(stem)});
            disk.WriteWhole(u"C:\\JPG\\%1.jpg"_s.arg(stem), QByteArray("front of ") + name.toLatin1());
            disk.WriteWhole(u"C:\\JPG\\%1R.jpg"_s.arg(stem), QByteArray("rear of ") + name.toLatin1());
        }
        AddRow(values);
    }
    void InArchive(const QString& name, const QString& notes)
    {
        const auto database = engine.OpenDatabase(archive);
        const auto rows = database->OpenRecordset(table, engine::RecordsetType::Table);
        rows->AddNew();
        rows->SetValue(key, name.leftJustified(35));
        rows->SetValue(u"NOTES"_s, notes);
        rows->Update();
    }
    [[nodiscard]] ArchiveWork Work()
    {
        return {ports, source, globals, disk, archive, table, range, duplicates};
    }
    Archived Run(const ArchiveStep& step = [](qint64, qint64, const Archived&) { return true; })
    {
        Bind(source);
        return CopyArchiveData(Work(), step);
    }
    /// NOTES by key.
    [[nodiscard]] QMap<QString, QString> In(const QString& file)
    {
        QMap<QString, QString> notes;
        const auto rows = engine.OpenDatabase(file)->OpenRecordset(table, engine::RecordsetType::Table);
        for (; !rows->Eof(); rows->MoveNext())
            notes.insert(rows->Value(key).toString().trimmed(), rows->Value(u"NOTES"_s).toString().trimmed());
        return notes;
    }
    [[nodiscard]] QStringList Here() { return In(path).keys(); }
    [[nodiscard]] QStringList There() { return In(archive).keys(); }
};

} // namespace vasclip::upkeep
