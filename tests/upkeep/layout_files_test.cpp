#include "platform/text/call_errors.h"
#include "support/error_number.h"
#include "support/temp_home.h"
#include "upkeep/layout_files.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace vasclip::upkeep {
namespace {

class LayoutFiles : public testing::Test
{
protected:
    tests::TempHome home;
    common::Globals globals;

    void SetUp() override
    {
        globals.G_UserDir = u"C:\\VAS2000\\"_s;
        globals.applicationIni = u"C:\\VAS2000.INI"_s;
        home.MakeDirs(u"C:\\VAS2000"_s);
        home.Put(globals.applicationIni, "[PREFERENCES]\r\n");
    }
    void Own(const QString& name, const QByteArray& content)
    {
        home.Put(u"C:\\VAS2000\\REPORTS\\"_s + name, content);
    }
    [[nodiscard]] QString Words(const QString& name) { return OpenLayout(home.disk, globals, name).words; }
};

TEST_F(LayoutFiles, TheProgramsThreeAreWhole)
{
    const QList<LayoutEntry> entries = ListLayouts(home.disk, globals);
    ASSERT_EQ(entries.size(), 3);
    for (const LayoutEntry& entry : entries) {
        EXPECT_EQ(entry.wrong.toStdString(), "") << entry.name.toStdString();
        EXPECT_FALSE(entry.own);
    }
    EXPECT_EQ(Words(u"brief"_s), u"Brief"_s);
    EXPECT_EQ(Words(u"MEDIUM"_s), u"Regular"_s);
    EXPECT_EQ(Words(u"detail"_s), u"Extended"_s);
    EXPECT_FALSE(OpenLayout(home.disk, globals, u"brief"_s).HasPhotos());
    EXPECT_TRUE(OpenLayout(home.disk, globals, u"medium"_s).HasPhotos());
    EXPECT_TRUE(OpenLayout(home.disk, globals, u"detail"_s).HasPhotos());
}

TEST_F(LayoutFiles, TheUsersOwnComesFirst)
{
    Own(u"Brief.layout"_s, "layout \"My brief\"\ncolumn CITY\n");
    Own(u"lots.layout"_s, "column CITY\n");
    EXPECT_EQ(Words(u"brief"_s), u"My brief"_s);
    EXPECT_EQ(Words(u"Lots"_s), u"lots"_s);
    const QList<LayoutEntry> entries = ListLayouts(home.disk, globals);
    ASSERT_EQ(entries.size(), 4);
    EXPECT_TRUE(entries[0].own);
    EXPECT_EQ(entries[3].name, u"lots"_s);
}

TEST_F(LayoutFiles, OneThatIsWrongSaysItsFileLineAndColumn)
{
    Own(u"bad.layout"_s, "title \"x\"\ncolumn CITTY\n");
    const auto thrown = tests::ThrownBy([&] { return Words(u"bad"_s); });
    EXPECT_EQ(thrown.number, error::kInvalidCall);
    EXPECT_EQ(
        thrown.words,
        u"C:\\VAS2000\\REPORTS\\bad.layout, line 2, column 8: there is no field 'CITTY'. Did you mean CITY?"_s);
    const QList<LayoutEntry> entries = ListLayouts(home.disk, globals);
    ASSERT_EQ(entries.size(), 4);
    EXPECT_TRUE(entries[3].wrong.contains(u"line 2, column 8"_s));
}

TEST_F(LayoutFiles, EveryOneThatIsListedCanBeOpened)
{
    const QString longest(100, u'l');
    for (const QString& name : {u"my.report"_s, u"lots [2]; more"_s, longest})
        Own(name + u".layout"_s, "layout \"Own\"\ncolumn CITY\n");
    int own = 0;
    for (const LayoutEntry& entry : ListLayouts(home.disk, globals)) {
        EXPECT_EQ(entry.wrong, QString()) << entry.name.toStdString();
        own += entry.own && OpenLayout(home.disk, globals, entry.name).words == u"Own"_s ? 1 : 0;
    }
    EXPECT_EQ(own, 3);
    EXPECT_EQ(CopyLayout(home.disk, globals, u"My.Report"_s, u"mine"_s), u"C:\\VAS2000\\REPORTS\\mine.layout"_s);
    EXPECT_EQ(Words(u"mine"_s), u"Own"_s);
}

TEST_F(LayoutFiles, OneThatIsNotThereNamesThoseThatAre)
{
    Own(u"lots.layout"_s, "column CITY\n");
    for (const QString& name : {u"none"_s, u"..\\lots"_s, u"*"_s, u""_s}) {
        const auto thrown = tests::ThrownBy([&] { return Words(name); });
        EXPECT_EQ(thrown.number, error::kFileNotFound) << name.toStdString();
        EXPECT_TRUE(thrown.words.contains(u"brief, medium, detail, lots"_s));
    }
}

TEST_F(LayoutFiles, ACopyIsTheUsersOwnAndOverwritesNothing)
{
    EXPECT_EQ(CopyLayout(home.disk, globals, u"brief"_s, u"Mine"_s), u"C:\\VAS2000\\REPORTS\\mine.layout"_s);
    EXPECT_EQ(Words(u"mine"_s), u"Brief"_s);
    EXPECT_EQ(tests::NumberOf([&] { CopyLayout(home.disk, globals, u"detail"_s, u"mine"_s); }),
              error::kFileExists);
    EXPECT_EQ(tests::NumberOf([&] { CopyLayout(home.disk, globals, u"none"_s, u"other"_s); }),
              error::kFileNotFound);
    EXPECT_EQ(tests::NumberOf([&] { CopyLayout(home.disk, globals, u"brief"_s, u"..\\out"_s); }),
              error::kBadFileName);
}

TEST_F(LayoutFiles, PaperIsRememberedForEachLayout)
{
    const ReportLayout brief = OpenLayout(home.disk, globals, u"brief"_s),
                       detail = OpenLayout(home.disk, globals, u"detail"_s);
    EXPECT_EQ(SheetOf(home.disk, globals, brief), brief.sheet);
    paper::Sheet sheet = brief.sheet;
    sheet.name = u"a4"_s;
    sheet.landscape = false;
    EXPECT_TRUE(KeepSheet(home.disk, globals, brief, sheet));
    EXPECT_EQ(SheetOf(home.disk, globals, brief), sheet);
    EXPECT_EQ(SheetOf(home.disk, globals, detail), detail.sheet);
    home.Put(globals.applicationIni, "[REPORT PAPER]\r\nbrief=papyrus\r\n");
    EXPECT_EQ(SheetOf(home.disk, globals, brief), brief.sheet) << "what is no paper is not taken";
}

} // namespace
} // namespace vasclip::upkeep
