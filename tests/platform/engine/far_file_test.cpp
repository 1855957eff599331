#include "platform/engine/home.h"

#include <QFile>

namespace vasclip::engine {
namespace {

using namespace Qt::Literals::StringLiterals;

/// Where Windows takes no name without more ado, with what an address would take for its own.
QString FarDown(const Home& home)
{
    QString far = u"C:"_s;
    for (const QString& part : {QString(120, u'a') + u" #1%41"_s, QString(120, u'b'), u"Zdjęcia für Łódź"_s}) {
        far += u'\\' + part;
        home.disk.MkDir(far);
    }
    return far;
}

TEST(FarFiles, AreDatabasesAsOthersAre)
{
    Home home;
    const QString far = FarDown(home), path = far + u"\\DATABOOK.MDB"_s, other = far + u"\\Other.mdb"_s;
    ASSERT_GT(home.disk.ToNative(path).size(), 260);
    const auto database = MakeComps(home.engine, path, {{u"A1"_s, u"Salem"_s, {}, {}, {}}, {u"B2"_s, u"Dover"_s, {}, {}, {}}});
    EXPECT_EQ(home.engine.Users(path).size(), 1);
    EXPECT_TRUE(home.disk.FileExists(far + u"\\DATABOOK.LDB"_s));
    home.engine.CopyDatabase(path, other);
    // One transaction over both files, by their addresses.
    EXPECT_EQ(database->Execute(u"DELETE FROM COMPS WHERE CENTRALKEY = 'A1'"_s), 1);
    EXPECT_EQ(database->Execute(u"INSERT INTO COMPS SELECT * FROM [%1].[COMPS]"_s.arg(other)), 1);
    Transaction together(*database);
    EXPECT_EQ(database->Execute(u"INSERT INTO [%1].[COMPS] (CENTRALKEY) VALUES ('C3')"_s.arg(other)), 1);
    EXPECT_EQ(database->Execute(u"INSERT INTO COMPS (CENTRALKEY) VALUES ('C3')"_s), 1);
    together.Commit();
    EXPECT_EQ(database->OpenRecordset(u"COMPS"_s, RecordsetType::Table)->RecordCount(), 3);
    EXPECT_EQ(home.engine.OpenDatabase(other)->OpenRecordset(u"COMPS"_s, RecordsetType::Table)->RecordCount(), 3);
    database->Close();
    EXPECT_FALSE(home.disk.FileExists(far + u"\\DATABOOK.LDB"_s));
}

} // namespace
} // namespace vasclip::engine
