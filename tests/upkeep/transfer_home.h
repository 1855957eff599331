#pragma once

#include "store/record.h"
#include "support/databook_home.h"
#include "upkeep/transfer_desk.h"

#include <QFile>

namespace vasclip::upkeep {

using namespace Qt::StringLiterals;

/// A Databook of a few comps, with pictures in C:\JPG, and a directory for what goes out and comes in.
class TransferHome : public tests::DatabookHome
{
protected:
    common::Globals globals;
    store::DataSource databook{engine, u"datDatabook"_s};
    const QString target = u"C:\\EXPORT\\OUT.MDB"_s;
    QStringList steps; ///< words of the work's steps
    int stopAt = -1;   ///< the step that is answered with a stop

    TransferDesk Desk() { return {.databook = databook, .globals = globals, .ports = ports}; }
    WorkStep Step()
    {
        return [this](qint64, qint64, const QString& words) {
            steps.append(words);
            return stopAt < 0 || steps.size() <= stopAt;
        };
    }
    void SetUp() override
    {
        DatabookHome::SetUp();
        for (const QString& directory : {u"C:\\EXPORT"_s, u"C:\\JPG"_s, u"C:\\DATA"_s, u"C:\\USER"_s})
            disk.MkDir(directory);
        globals.G_Table = table;
        globals.G_DataDir = u"C:\\DATA\\"_s;
        globals.G_ProgramDir = u"C:\\DATA\\"_s;
        globals.G_UserDir = u"C:\\USER\\"_s;
        globals.G_PhotoDir = u"C:\\JPG\\"_s;
        globals.writeProtectPhotos = false;
    }
    void TearDown() override { databook.Close(); }
    void Fill()
    {
        AddRows({Comp(u"12 OAK ST"_s, u"ALDER"_s, u"FRONT VIEW|00000001\r\nREAR VIEW|00000002\r\n"_s),
                 Comp(u"14 OAK ST"_s, u"BIRCH"_s, u" "_s),
                 Comp(u"9 ELM ST"_s, u"ALDER"_s, u"front view |00000003\r\n"_s)});
        disk.WriteWhole(u"C:\\JPG\\00000001.jpg"_s, QByteArray(70000, 'a'));
        disk.WriteWhole(u"C:\\JPG\\00000003.jpg"_s, "elm");
        Bind(databook);
    }
    Values Comp(const QString& name, const QString& city, const QString& photos)
    {
        return {{key, name.leftJustified(35)}, {u"ADDRESS"_s, name}, {u"CITY"_s, city}, {u"PHOTOS"_s, photos}};
    }
    /// Keys of a table in its order.
    QStringList Keys(const QString& file, const QString& name)
    {
        const auto database = engine.OpenDatabase(file);
        store::Rows rows(*database, u"SELECT * FROM ["_s + name + u']');
        QStringList keys;
        while (const auto record = rows.Next())
            keys.append(record->Text(key));
        return keys;
    }
    QVariant Field(const QString& file, const QString& name, const QString& comp, const QString& field)
    {
        const auto database = engine.OpenDatabase(file);
        const auto rows = database->OpenRecordset(
            u"SELECT * FROM [%1] WHERE CENTRALKEY = '%2'"_s.arg(name, comp), engine::RecordsetType::Dynaset);
        return rows->Eof() ? QVariant(u"no such comp"_s) : rows->Value(field);
    }
    QByteArray Bytes(const QString& file) { return disk.FileExists(file) ? disk.ReadWhole(file) : QByteArray(); }
};

} // namespace vasclip::upkeep
