// Names with accents, apostrophes, quotes and 300 characters, from the terminal to the report and back.

#include "faults/fault_home.h"

namespace vasclip::tests {

using namespace Qt::Literals::StringLiterals;

namespace {

using Names = FaultHome;

TEST_F(Names, AccentsAndQuotesReachTheReportAsTheyAre)
{
    const QString names[] = {u"12 O'Brien Ct"_s, u"7 Calle Peña Ñandú"_s, u"9 \"Rue de l'Été\""_s,
                             u"3 Straße ø #4;--"_s, u"5 {a|b} %1 ?*[x]"_s};
    ASSERT_TRUE(StartForms({}));
    for (const QString& name : names) {
        SCOPED_TRACE(name.toStdString());
        const Timed added = Vasctl(
            {u"records"_s, u"add"_s, name, u"--set"_s, u"ADDRESS="_s + name, u"--set"_s, u"CITY=Cañón's"_s});
        ASSERT_EQ(added.code, kDone) << added.Story();
        EXPECT_EQ(home.Vasctl({u"records"_s, u"show"_s, name.toLower()}).Object()[u"ADDRESS"_s].toString(),
                  name);
        const Timed dropped = Vasctl({u"--yes"_s, u"drop"_s, name, u"--on"_s, u"txtComp:3"_s});
        EXPECT_EQ(dropped.code, kDone) << dropped.Story();
        EXPECT_EQ(home.Cell(3, u"ADDRESS"_s), name);
        EXPECT_EQ(Vasctl({u"--yes"_s, u"records"_s, u"delete"_s, name}).code, kDone);
        EXPECT_EQ(Vasctl({u"records"_s, u"find"_s, name}).code, kNotFound);
    }
}

TEST_F(Names, AQuoteInAConditionIsASyntaxErrorWithItsPlace)
{
    const Timed run = Vasctl({u"records"_s, u"list"_s, u"--where"_s, u"CITY = 'O'Neil'; DROP TABLE COMPS"_s});
    EXPECT_EQ(run.code, kUsage) << run.Story();
    EXPECT_TRUE(run.Says(u"Syntax error at position"_s) && run.Says(u"3075"_s)) << run.Story();
    ExpectWhole(u"a statement behind a quote"_s);
}

TEST_F(Names, ThreeHundredCharactersAreRefusedWithTheirLimit)
{
    const QString name(300, u'Ä');
    ASSERT_TRUE(StartForms({}));
    struct Row
    {
        QStringList command;
        int code;
        QString words;
    };
    const QString limit = u"has 300 characters; the Databook holds at most 35. Shorten it and try again."_s;
    for (const Row& row :
         {Row{{u"records"_s, u"add"_s, name}, kUsage, limit},
          Row{{u"records"_s, u"copy"_s, FirstKey(), name}, kUsage, limit},
          Row{{u"records"_s, u"rename"_s, FirstKey(), name}, kUsage, limit},
          Row{{u"records"_s, u"add"_s, u"1 New Rd"_s, u"--set"_s, u"CITY="_s + name},
              kUsage,
              u"the value has 300"_s},
          Row{{u"records"_s, u"show"_s, name}, kNotFound, u"There is no record"_s},
          Row{{u"drop"_s, name, u"--on"_s, u"txtComp:3"_s}, kNotFound, u"There is no record"_s},
          Row{{u"settings"_s, u"get"_s, name}, kNotFound, u"There is no setting"_s}}) {
        const Timed run = Vasctl(row.command);
        EXPECT_EQ(run.code, row.code) << run.Story();
        EXPECT_TRUE(run.Says(row.words)) << run.Story();
    }
    ExpectWhole(u"names of 300 characters"_s);
    const Timed cell = Vasctl({u"report"_s, u"cells"_s, name});
    EXPECT_EQ(cell.code, kFailed) << cell.Story();
    EXPECT_TRUE(cell.Says(u"is no item: FORM|ROW|CELL is wanted"_s)) << cell.Story();
    EXPECT_EQ(Vasctl({u"report"_s, u"status"_s}).code, kDone) << "and the forms program goes on";
}

TEST_F(Names, ReportsAndDirectoriesMayHaveThemToo)
{
    const QString report = u"PEÑA O'HARA "_s + QString(100, u'x') + u".RPT"_s;
    QByteArray content = Bytes(home.Native(u"KEL/DATA/OAKST114.RPT"_s));
    content.replace("\"OAKST114.RPT\"", '"' + report.toUtf8() + '"');
    ASSERT_TRUE(Write(home.Native(u"KEL/DATA/"_s + report), content));
    ASSERT_TRUE(StartForms({}, {u"C:\\KEL\\DATA\\"_s + report}));
    const Ended status = home.Vasctl({u"report"_s, u"status"_s});
    EXPECT_EQ(status.code, kDone) << status.err.toStdString();
    EXPECT_EQ(status.Object()[u"report"_s].toString().toUpper().toStdString(),
              report.toUpper().toStdString());
    const QString key = FirstKey();
    EXPECT_EQ(Vasctl({u"--yes"_s, u"drop"_s, key, u"--on"_s, u"txtComp:3"_s}).code, kDone);
    EXPECT_EQ(home.Cell(3, u"ADDRESS"_s).toUpper(), key);

    const QString directory = u"C:\\Databook's Cañón "_s + QString(150, u'd');
    ASSERT_TRUE(QDir().mkpath(home.Native(directory.mid(3))));
    ASSERT_TRUE(QFile::copy(Databook(), home.Native(directory.mid(3) + u"/DATABOOK.MDB"_s)));
    EXPECT_EQ(Vasctl({u"settings"_s, u"set"_s, u"DATADIR"_s, directory}).code, kDone);
    EXPECT_EQ(Vasctl({u"records"_s, u"add"_s, u"1 New Rd"_s}).code, kDone);
    EXPECT_EQ(Vasctl({u"records"_s, u"find"_s, u"1 New Rd"_s}).code, kDone);
}

} // namespace
} // namespace vasclip::tests
