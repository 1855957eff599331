#pragma once

#include "platform/engine/database.h"
#include "platform/files/disk.h"
#include "store/schema.h"
#include "store/store.h"
#include "support/own_drive.h"
#include "support/scripted_ports.h"
#include "support/standing_time.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace vasclip::tests {

using namespace Qt::StringLiterals;

/// A home of its own with an empty Databook at C:\DATABOOK.MDB.
class DatabookHome : public testing::Test
{
protected:
    QTemporaryDir dir;
    files::Disk disk{WithOwnDrive(dir.path())};
    engine::Engine engine{disk, tests::SomeTime()};
    TestPorts doubles;
    forms::Ports ports = doubles.Get();
    const QString path = u"C:\\DATABOOK.MDB"_s;
    const QString table = u"COMPS"_s;
    const QString key = u"CENTRALKEY"_s;

    void SetUp() override { store::MakeDatabase(engine, path); }

    using Values = QList<std::pair<QString, QString>>;

    /// Adds rows with the given fields, texts as they are.
    void AddRows(const QList<Values>& added)
    {
        const auto database = engine.OpenDatabase(path);
        engine::Transaction all(*database);
        const auto rows = database->OpenRecordset(table, engine::RecordsetType::Table);
        for (const Values& values : added) {
            rows->AddNew();
            for (const auto& [field, value] : values)
                rows->SetValue(field, value);
            rows->Update();
        }
        rows->Close();
        all.Commit();
    }
    void AddRow(const Values& values) { AddRows({values}); }
    /// Adds comps by their keys alone, padded as the Databook stores them.
    void AddComps(const QStringList& keys)
    {
        QList<Values> added;
        for (const QString& name : keys)
            added.append(Values{{key, name.leftJustified(35)}, {u"ADDRESS"_s, name.leftJustified(35)}});
        AddRows(added);
    }
    void Bind(store::DataSource& source)
    {
        store::Connect2mdb(ports, source, path, table, store::SourceKind::Table);
    }
};

} // namespace vasclip::tests
