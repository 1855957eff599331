// Rows whose values are longer, blanker or otherwise spelled than the Databook's fields have them.

#include "transfer_home.h"

#include "support/error_number.h"
#include "upkeep/import_table.h"
#include "upkeep/rehearsal.h"

namespace vasclip::upkeep {
namespace {

class ImportFit : public TransferHome
{
protected:
    const QString file = u"C:\\EXPORT\\THEIRS.MDB"_s;

    void SetUp() override
    {
        TransferHome::SetUp();
        Fill();
    }
    /// A file of another office with these columns beside the key.
    void Make(const engine::FieldList& fields, const QList<QVariantList>& rows)
    {
        const auto database = engine.CreateDatabase(file);
        engine::FieldList all{{.name = key, .type = engine::FieldType::Text, .size = 100}};
        all += fields;
        database->CreateTable({.name = table, .fields = all, .indexes = {}});
        const auto records = database->OpenRecordset(table, engine::RecordsetType::Table);
        for (const QVariantList& row : rows) {
            records->AddNew();
            for (int i = 0; i < row.size(); ++i)
                records->SetValue(i, row.at(i));
            records->Update();
        }
        records->Close();
        database->Close();
    }
    ImportResult Run() { return ImportTable(Desk(), {.source = file, .table = table, .pictures = false}, Step()); }
    int SizeOf(const QString& field)
    {
        const auto database = engine.OpenDatabase(path, engine::OpenMode::ReadOnly);
        for (const engine::Field& one : database->Table(table).fields)
            if (one.name == field)
                return one.size;
        return 0;
    }
};

TEST_F(ImportFit, ANumberThatIsLongerThanTheTextRefusesItsOwnRow)
{
    ASSERT_LT(SizeOf(u"ZIP"_s), 12);
    Make({{.name = u"ZIP"_s, .type = engine::FieldType::Double}},
         {{u"1 ASH ST"_s, 7.0}, {u"2 ASH ST"_s, 123456789012.0}, {u"3 ASH ST"_s, 8.0}});
    const ImportResult result = Run();
    EXPECT_EQ(result.appended, 2);
    ASSERT_EQ(result.refused.size(), 1);
    EXPECT_EQ(result.refused[0].key, u"2 ASH ST"_s);
    EXPECT_TRUE(result.refused[0].why.startsWith(u"ZIP holds 12 characters"_s)) << result.refused[0].why.toStdString();
}

TEST_F(ImportFit, BlanksBehindATextAreNoLength)
{
    Make({{.name = u"CITY"_s, .type = engine::FieldType::Text, .size = 200},
          {.name = u"ZIP"_s, .type = engine::FieldType::Memo}},
         {{u"1 ASH ST"_s.leftJustified(100), u"Cedar"_s.leftJustified(200), u"OR"_s.leftJustified(100)},
          {u"2 ASH ST"_s, QString(200, u'x'), u"OR"_s},
          {u"3 ASH ST"_s, u"Cedar"_s, QVariant()}});
    const ImportResult result = Run();
    EXPECT_EQ(result.appended, 2);
    EXPECT_EQ(AccountOf(result).size(), 1) << AccountOf(result).join(u"; "_s).toStdString();
    EXPECT_EQ(Field(path, table, u"1 ASH ST"_s, u"CITY"_s).toString(), u"Cedar"_s);
    EXPECT_EQ(Field(path, table, u"1 ASH ST"_s, u"ZIP"_s).toString(), u"OR"_s);
    EXPECT_EQ(Field(path, table, u"1 ASH ST"_s, key).toString().size(), 35) << "as the Databook has its keys";
    EXPECT_FALSE(Field(path, table, u"3 ASH ST"_s, u"ZIP"_s).isValid());
}

TEST_F(ImportFit, BlanksBehindATextDoNotStopARehearsal)
{
    Make({{.name = u"CITY"_s, .type = engine::FieldType::Text, .size = 200}},
         {{u"9 ELM ST"_s.leftJustified(100), u"Cedar"_s.leftJustified(200)}});
    Rehearsal rehearsal(Desk(), {.source = file, .table = table, .pictures = false});
    rehearsal.ChooseAll(RowKind::Changed, RowChoice::TakeTheirs);
    EXPECT_EQ(rehearsal.Carry(Step()).changed, 1);
    EXPECT_EQ(Field(path, table, u"9 ELM ST"_s, u"CITY"_s).toString(), u"Cedar"_s);
}

TEST_F(ImportFit, KeysAreToldApartAsTheDatabookDoes)
{
    Make({}, {{u"1 STRAßE ST"_s}, {u"1 STRASSE ST"_s}, {u"2 ÉLAN CT"_s}, {u"2 élan ct  "_s}});
    const ImportResult result = Run();
    EXPECT_EQ(result.appended, 3);
    EXPECT_EQ(AccountOf(result), QStringList{u"COMPS row 4, 2 élan ct: an earlier row of the file has the same key"_s});
}

TEST_F(ImportFit, AWriteProtectedDatabookIsNamedAsWhatItIs)
{
    Make({}, {{u"1 ASH ST"_s}});
    databook.Close();
    disk.SetAttr(path, files::ReadOnly);
    Bind(databook);
    const tests::Thrown thrown = tests::ThrownBy([&] { return Run(); });
    databook.Close();
    disk.SetAttr(path, files::Normal);
    EXPECT_EQ(thrown.number, error::kFileIsReadOnly);
    EXPECT_TRUE(thrown.words.contains(u"write-protected"_s)) << thrown.words.toStdString();
}

} // namespace
} // namespace vasclip::upkeep
