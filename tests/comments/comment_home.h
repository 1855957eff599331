#pragma once

#include "comments/comment_file.h"
#include "platform/engine/database.h"
#include "store/schema.h"
#include "store/store.h"
#include "support/error_number.h"
#include "support/scripted_ports.h"
#include "support/standing_time.h"
#include "support/temp_home.h"

#include <gtest/gtest.h>

namespace vasclip::tests {

using namespace Qt::Literals::StringLiterals;

/// A home with program, user and data directories and the templates.
class CommentHome : public testing::Test
{
protected:
    TempHome home;
    engine::Engine engine{home.disk, tests::SomeTime()};
    common::Globals globals;
    TestPorts doubles;
    forms::Ports ports = doubles.Get();
    const QString local = u"C:\\USER\\comments.mdb"_s;
    const QString shared = u"C:\\DATA\\comments.mdb"_s;

    void SetUp() override
    {
        globals.G_ProgramDir = u"C:\\VAS2000\\"_s;
        globals.G_UserDir = u"C:\\USER\\"_s;
        globals.G_DataDir = u"C:\\DATA\\"_s;
        globals.G_DataFile = u"DATABOOK.MDB"_s;
        globals.G_Table = u"COMPS"_s;
        globals.caps = u"1"_s;
        for (const auto& directory : {globals.G_ProgramDir, globals.G_UserDir, globals.G_DataDir})
            home.MakeDirs(directory.chopped(1));
        store::MakeDatabase(engine, globals.G_ProgramDir + u"NEWCMTS.MDB"_s);
        store::MakeDatabase(engine, globals.G_ProgramDir + u"NEWDATA.MDB"_s);
    }

    /// One column of a comment file, row by row from the first; Null as "-".
    QStringList Column(const QString& path, const QString& column)
    {
        const auto database = engine.OpenDatabase(path);
        const auto rows = database->OpenRecordset(u"COMPS"_s, engine::RecordsetType::Table);
        QStringList values;
        for (rows->MoveFirst(); !rows->Eof(); rows->MoveNext()) {
            const QVariant value = rows->Value(column);
            values.append(value.isValid() ? value.toString() : u"-"_s);
        }
        while (!values.isEmpty() && (values.last() == u"-"_s || values.last().isEmpty()))
            values.removeLast();
        return values;
    }

    /// Writes phrases into a column from the first row.
    void Fill(const QString& path, const QString& column, const QStringList& phrases)
    {
        const auto database = engine.OpenDatabase(path);
        engine::Transaction all(*database);
        const auto rows = database->OpenRecordset(u"COMPS"_s, engine::RecordsetType::Table);
        rows->MoveFirst();
        for (const QString& phrase : phrases) {
            rows->Edit();
            rows->SetValue(column, phrase);
            rows->Update();
            rows->MoveNext();
        }
        rows->Close();
        all.Commit();
    }
};

} // namespace vasclip::tests
