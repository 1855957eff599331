#include "kelforms/core/forms_program.h"

#include "formsbook/mapping.h"
#include "kelforms/core/comps.h"
#include "platform/text/runtime_error.h"
#include "sample_home.h"

#include <gtest/gtest.h>

#include <random>

using namespace Qt::Literals::StringLiterals;
using namespace kelforms;
using kelforms::test::SampleHome;
using vasclip::RuntimeError;

namespace {

const QString kSystem = u"KEL|System"_s;
const QString kQuery = u"KEL|Query"_s;
const QString kSmith = u"KEL|SMITH.RPT"_s;

class Program : public testing::Test
{
protected:
    SampleHome m_home;
    vasclip::files::Disk m_disk{m_home.Path()};
    Reports m_reports;
    FormsProgram m_program{m_reports, m_disk, u"C:\\APPRAISE\\KEL.INI"_s};

    Report& OpenSmith(const QJsonObject& cells = {})
    {
        return m_reports.Open(m_home.MakeReport(u"smith"_s, u"UA5"_s, cells));
    }

    QString Refusal(const std::function<void()>& step)
    {
        try {
            step();
        } catch (const RuntimeError& refusal) {
            EXPECT_EQ(refusal.Number(), 285);
            return refusal.Description();
        }
        return {};
    }
};

TEST_F(Program, NoneUntilAReportIsOpen)
{
    EXPECT_EQ(m_program.Request(kQuery, u"ActiveReports"_s), u"none"_s);
    EXPECT_EQ(m_program.Request(kSystem, u"Address"_s), u""_s);
    EXPECT_EQ(m_program.Request(kSystem, u"SC_1"_s), u"MACRO(GETREQUEST$(\"SC_1\"))"_s);
    EXPECT_EQ(Refusal([this] { static_cast<void>(m_program.Request(kSmith, u"ListForms"_s)); }),
              u"No report named SMITH.RPT is open"_s);
}

TEST_F(Program, ActiveReportsEndInACommaAndTheActiveOneIsFirst)
{
    OpenSmith();
    EXPECT_EQ(m_program.Request(kQuery, u"ActiveReports"_s), u"SMITH.RPT,"_s);
    m_reports.Open(m_home.MakeReport(u"jones"_s, u"CN2"_s));
    EXPECT_EQ(m_program.Request(kQuery, u"activereports"_s), u"JONES.RPT,SMITH.RPT,"_s);
    m_reports.Activate(u"smith.rpt"_s);
    EXPECT_EQ(m_program.Request(kQuery, u"ActiveReports"_s), u"SMITH.RPT,JONES.RPT,"_s);
    m_reports.Close(u"SMITH.RPT"_s);
    EXPECT_EQ(m_program.Request(kQuery, u"ActiveReports"_s), u"JONES.RPT,"_s);
    EXPECT_THROW(m_reports.Open(m_home.File(u"jones.json"_s)), RuntimeError);
}

TEST_F(Program, AConversationIsTakenAboutItselfAndOpenReports)
{
    for (const QString& topic : {kSystem, kQuery, u"kel|QUERY"_s})
        EXPECT_TRUE(m_program.Takes(topic)) << qPrintable(topic);
    for (const QString& topic : {kSmith, u"KEL"_s, u"KEL|"_s, u"Excel|System"_s, u"System"_s})
        EXPECT_FALSE(m_program.Takes(topic)) << qPrintable(topic);
    OpenSmith();
    EXPECT_TRUE(m_program.Takes(kSmith));
    EXPECT_TRUE(m_program.Takes(u"Kel|smith.rpt"_s));
    EXPECT_FALSE(m_program.Takes(u"KEL|JONES.RPT"_s));
}

TEST_F(Program, FormsAndUser)
{
    m_reports.Open(m_home.MakeReportOf(u"smith"_s, {u"UA5"_s, u"SUBPHOTO"_s, u"COMPPH1"_s}, {}));
    EXPECT_EQ(m_program.Request(u"Kel|SMITH.RPT"_s, u"ListForms"_s), u"UA5,SUBPHOTO,COMPPH1,"_s);
    EXPECT_FALSE(m_program.Request(u"kel|smith.rpt"_s, u"UserID"_s).isEmpty());
}

TEST_F(Program, PokesAreTrimmedAndReadBack)
{
    OpenSmith();
    m_program.Poke(kSmith, u"UA5|44|3"_s, u"  1.2 Mi. NW "_s);
    EXPECT_EQ(m_program.Request(kSmith, u"ua5|44|3"_s), u"1.2 Mi. NW"_s);
    m_program.Poke(kSmith, u"UA5|UA5|6|1"_s, u"AB 12"_s);
    EXPECT_EQ(m_program.Request(kSmith, u"UA5|6|1"_s), u"AB 12"_s);
    m_program.Poke(kSmith, u"UA5|44|3"_s, u""_s);
    EXPECT_EQ(m_program.Request(kSmith, u"UA5|44|3"_s), u""_s);
}

TEST_F(Program, EveryMappedCellOfEveryFormTakesAPoke)
{
    int n = 0;
    for (const QString& code : {u"UA5"_s, u"CN2"_s, u"MUL"_s, u"LAR"_s, u"MFH"_s, u"2055"_s, u"ERS"_s}) {
        Report& report = m_reports.Open(m_home.MakeReport(u"r"_s + code, code));
        for (const auto& row : vasclip::formsbook::MappingRows(code)) {
            for (int place = 0; place < (row.comp == u"10"_s ? 1 : 3); ++place) {
                const QString item = u"%1|%2|%3"_s.arg(row.formName, row.row)
                                         .arg(row.cell.toInt() + place * row.offset.toInt());
                const QString text = u"text %1"_s.arg(++n);
                m_program.Poke(u"KEL|"_s + report.Name(), item, text);
                ASSERT_EQ(m_program.Request(u"KEL|"_s + report.Name(), item), text);
            }
        }
    }
}

TEST_F(Program, PokesThatHaveNoPlaceAreRefused)
{
    m_reports.Open(m_home.MakeReportOf(u"smith"_s, {u"UA5"_s, u"SUBPHOTO"_s, u"GENPH07"_s}, {}));
    const auto poke = [this](const QString& topic, const QString& item) {
        return Refusal([&] { m_program.Poke(topic, item, u"x"_s); });
    };
    EXPECT_EQ(poke(kSmith, u"COMP46|5|3"_s), u"The report SMITH.RPT has no page COMP46"_s);
    EXPECT_EQ(poke(kSmith, u"UA5|900|1"_s), u"The page UA5 has no cell 1 in row 900"_s);
    EXPECT_EQ(poke(kSystem, u"UA5|3|1"_s), u"Values go to a report, not to KEL|System"_s);
    EXPECT_EQ(poke(u"KEL|OTHER.RPT"_s, u"UA5|3|1"_s), u"No report named OTHER.RPT is open"_s);
    EXPECT_TRUE(poke(u"EXCEL|Sheet1"_s, u"UA5|3|1"_s).startsWith(u"\"EXCEL|Sheet1\" is not a topic"_s));
    EXPECT_TRUE(poke(kSmith, u"nonsense"_s).startsWith(u"\"nonsense\" is no item"_s));
    EXPECT_EQ(poke(kSmith, u"GENPH07|"_s), u""_s);
    EXPECT_TRUE(m_reports.Active()->Cells().isEmpty());
    EXPECT_FALSE(m_reports.Active()->Modified());
}

TEST_F(Program, PagesThatTheReportHasNotAreReadAsEmpty)
{
    m_reports.Open(m_home.MakeReportOf(u"smith"_s, {u"UA5"_s}, {}));
    EXPECT_EQ(m_program.Request(kSmith, u"ALTCMP13|5|3"_s), u""_s);
    EXPECT_EQ(Refusal([this] { static_cast<void>(m_program.Request(kSmith, u"NOPAGE|5|3"_s)); }),
              u"There is no page NOPAGE for the form UA5"_s);
}

TEST_F(Program, AFormThatTheBookDoesNotKnowTakesAnyCell)
{
    m_reports.Open(m_home.MakeReportOf(u"smith"_s, {u"ZZTOP"_s, u"SUBPHOTO"_s}, {}));
    m_program.Poke(kSmith, u"ZZTOP|9|9"_s, u"x"_s);
    EXPECT_EQ(m_program.Request(kSmith, u"ZZTOP|9|9"_s), u"x"_s);
    EXPECT_EQ(m_program.Request(kQuery, u"ActiveReports"_s), u"SMITH.RPT,"_s);
}

TEST_F(Program, SubjectAndCaptionsAsVariables)
{
    OpenSmith({{u"UA5|3|1"_s, u"7 Elm St"_s},
               {u"UA5|4|1"_s, u"Dover"_s},
               {u"UA5|4|2"_s, u"NH"_s},
               {u"UA5|4|3"_s, u"03820"_s}});
    EXPECT_EQ(m_program.Request(kSystem, u"Address"_s), u"7 Elm St"_s);
    EXPECT_EQ(m_program.Request(kSystem, u"City"_s), u"Dover"_s);
    EXPECT_EQ(m_program.Request(kSystem, u"State"_s), u"NH"_s);
    EXPECT_EQ(m_program.Request(kSystem, u"Zip"_s), u"03820"_s);
    m_program.Poke(kSmith, u"COMP46|5|5"_s, u"5 Oak Ave"_s);
    EXPECT_EQ(m_program.Request(kSystem, u"SC_5"_s), u"5 Oak Ave"_s);
    for (const QString& name : {u"SC_4"_s, u"LC_1"_s, u"RC_9"_s, u"SC_10"_s, u"SC_x"_s, u"Whatever"_s})
        EXPECT_EQ(m_program.Request(kSystem, name), u"MACRO(GETREQUEST$(\"%1\"))"_s.arg(name));
}

TEST_F(Program, ImagesAreSetListedAndCleared)
{
    Report& smith =
        m_reports.Open(m_home.MakeReportOf(u"smith"_s, {u"UA5"_s, u"SUBPHOTO"_s, u"COMPPH1"_s}, {}));
    const QString path = u"C:\\\\VASCLIPS\\\\JPG\\\\12345678.jpg"_s;
    m_program.Execute(kSmith, u"[RunMacro( SetImage \"CMP_1_3X5\", \"%1\" ) ]\r"_s.arg(path));
    m_program.Execute(kSystem, u"[RunMacro( SetRequest \"IMAGES\",  GetImages$(1))]"_s);
    EXPECT_EQ(
        m_program.Request(kSystem, u"IMAGES"_s),
        u"SUB_1_3X5|;SUB_2_3X5|;SUB_3_3X5|;CMP_1_3X5|C:\\VASCLIPS\\JPG\\12345678.jpg;CMP_2_3X5|;CMP_3_3X5|;"_s);
    m_program.Execute(kSystem, u"[RunMacro( SetImage \"CMP_1_3X5\", \"\" ) ]\r"_s);
    EXPECT_TRUE(smith.Images().isEmpty());
    EXPECT_EQ(Refusal([this] { m_program.Execute(kSystem, u"[RunMacro( SetImage \"CMP_1_\", \"\" ) ]\r"_s); }),
              u"The report SMITH.RPT has no image object \"CMP_1_\""_s);
    EXPECT_EQ(
        Refusal([this] { m_program.Execute(kSystem, u"[RunMacro( SetImage \"CMP_4_3X5\", \"\" ) ]\r"_s); }),
        u"The report SMITH.RPT has no image object \"CMP_4_3X5\""_s);
    EXPECT_EQ(Refusal([this] {
                  m_program.Execute(kSystem,
                                    u"[RunMacro( SetImage \"CMP_1_3X5\", \"C:\\\\GONE.JPG\" ) ]\r"_s);
              }),
              u"There is no picture C:\\GONE.JPG"_s);
}

TEST_F(Program, SwapExchangesTwoWholeColumns)
{
    Report& smith = OpenSmith();
    const auto* form = vasclip::formsbook::FindForm(u"UA5"_s);
    const auto item = [&](const auto& section, qsizetype i, size_t place, const QString& page) {
        return u"%1|%2|%3"_s.arg(page).arg(section.lines[i].row).arg(section.lines[i].comps[place]);
    };
    const auto* main = smith.Layout(u"UA5"_s);
    const auto* extra = smith.Layout(u"COMP46"_s);
    ASSERT_TRUE(form && main && extra);
    const auto& first = main->sections[1];
    const auto& second = extra->sections[0];
    for (qsizetype i = 0; i < first.lines.size(); ++i) {
        m_program.Poke(kSmith, item(first, i, 0, u"UA5"_s), u"one %1"_s.arg(i));
        m_program.Poke(kSmith, item(first, i, 1, u"UA5"_s), u"two %1"_s.arg(i));
        m_program.Poke(kSmith, item(second, i, 2, u"COMP46"_s), u"six %1"_s.arg(i));
    }
    const int adjust = first.lines[7].adjusts[0];
    const int adjustRow = first.lines[7].row;
    m_program.Poke(kSmith, u"UA5|%1|%2"_s.arg(adjustRow).arg(adjust), u"-500"_s);
    m_program.Execute(kSmith,
                      u"[RunMacro( SetImage \"CMP_1_3X5\", \"C:\\\\VASCLIPS\\\\JPG\\\\Other.jpg\" ) ]\r"_s);
    m_program.Execute(
        kSmith, u"[RunMacro( SetRequest \"LASTCOMPTYPE\",\"SALES COMPARABLES\"\r\nSWAPCOMPS 2,7\r\n)]\r"_s);
    for (qsizetype i = 0; i < first.lines.size(); ++i) {
        EXPECT_EQ(m_program.Request(kSmith, item(first, i, 0, u"UA5"_s)), u"six %1"_s.arg(i));
        EXPECT_EQ(m_program.Request(kSmith, item(first, i, 1, u"UA5"_s)), u"two %1"_s.arg(i));
        EXPECT_EQ(m_program.Request(kSmith, item(second, i, 2, u"COMP46"_s)), u"one %1"_s.arg(i));
    }
    EXPECT_EQ(m_program.Request(kSmith, u"UA5|%1|%2"_s.arg(adjustRow).arg(adjust)), u""_s);
    EXPECT_EQ(
        m_program.Request(kSmith, u"COMP46|%1|%2"_s.arg(second.lines[7].row).arg(second.lines[7].adjusts[2])),
        u"-500"_s);
    EXPECT_EQ(smith.Image(u"CMP_6_3X5"_s), u"C:\\VASCLIPS\\JPG\\Other.jpg"_s);
    EXPECT_EQ(smith.Image(u"CMP_1_3X5"_s), u""_s);
    EXPECT_EQ(m_program.Request(kSystem, u"LastCompType"_s), u"SALES COMPARABLES"_s);
}

TEST_F(Program, AMacroThatCannotBeDoneWholeDoesNothing)
{
    m_reports.Open(m_home.MakeReportOf(u"smith"_s, {u"UA5"_s, u"SUBPHOTO"_s}, {}));
    const auto swap = [this](const QString& numbers) {
        return Refusal([&] {
            m_program.Execute(
                kSmith,
                u"[RunMacro( SetRequest \"LASTCOMPTYPE\",\"X\"\r\nSWAPCOMPS %1\r\n)]\r"_s.arg(numbers));
        });
    };
    EXPECT_EQ(swap(u"2,5"_s), u"The report SMITH.RPT has no page for comparable 4"_s);
    EXPECT_TRUE(swap(u"1,2"_s).startsWith(u"SWAPCOMPS takes numbers from 2 to 10"_s));
    EXPECT_TRUE(swap(u"2,11"_s).startsWith(u"SWAPCOMPS takes numbers from 2 to 10"_s));
    EXPECT_TRUE(swap(u"2"_s).startsWith(u"SWAPCOMPS takes two numbers"_s));
    EXPECT_TRUE(swap(u"2,99999999999999"_s).startsWith(u"SWAPCOMPS takes numbers from 2 to 10"_s));
    EXPECT_EQ(m_program.Request(kSystem, u"LASTCOMPTYPE"_s), u"MACRO(GETREQUEST$(\"LASTCOMPTYPE\"))"_s);
    EXPECT_EQ(Refusal([this] { m_program.Execute(kSystem, u"[RunMacro(Format \"C:\")]"_s); }),
              u"\"FORMAT\" is no statement (character 11)"_s);
    EXPECT_EQ(Refusal([this] { m_program.Execute(kSystem, u"[RunMacro(SetRequest \"A\", Shell$(ls))]"_s); }),
              u"\"SHELL$\" is no function (character 27)"_s);
}

TEST_F(Program, VariablesAreTheProgramsAndLeaveAReportAsItIs)
{
    Report& smith = OpenSmith({{u"UA5|3|1"_s, u"7 Elm St"_s}});
    m_program.Execute(kSmith, u"[RunMacro( SetRequest \"Mine\", \"1\")]"_s);
    m_program.Execute(kSystem, u"[RunMacro( SetRequest \"IMAGES\",  GetImages$(1))]"_s);
    m_program.Execute(kSystem, u"[RunMacro(ADDPLUS.BAS)]\r"_s);
    EXPECT_FALSE(smith.Modified());
    EXPECT_FALSE(smith.ToJson().contains("Mine"));
    m_reports.Open(m_home.MakeReport(u"jones"_s, u"CN2"_s));
    EXPECT_EQ(m_program.Request(kSystem, u"mine"_s), u"1"_s) << "another report is in front";
    m_reports.Close(u"JONES.RPT"_s);
    m_reports.Close(u"SMITH.RPT"_s);
    EXPECT_EQ(m_program.Request(kSystem, u"MINE"_s), u"1"_s);
}

TEST_F(Program, HabitsOfOtherFormsPrograms)
{
    const auto with = [this](Habits habits) {
        return FormsProgram(m_reports, m_disk, u"C:\\APPRAISE\\KEL.INI"_s, habits);
    };
    FormsProgram blank = with({.blankForNone = true});
    EXPECT_EQ(blank.Request(kQuery, u"ActiveReports"_s), QString());
    FormsProgram null = with({.noValue = Habits::NoValue::Null});
    FormsProgram tail = with({.noValue = Habits::NoValue::Tail});
    FormsProgram bare = with({.bareLists = true});
    EXPECT_EQ(bare.Request(kQuery, u"ActiveReports"_s), u"none"_s);
    m_reports.Open(m_home.MakeReportOf(u"smith"_s, {u"UA5"_s, u"SUBPHOTO"_s}, {{u"UA5|3|1"_s, u"7 Elm St"_s}}));
    EXPECT_EQ(bare.Request(kQuery, u"ActiveReports"_s), u"SMITH.RPT"_s);
    EXPECT_EQ(bare.Request(kSmith, u"ListForms"_s), u"UA5,SUBPHOTO"_s);
    EXPECT_EQ(blank.Request(kQuery, u"ActiveReports"_s), u"SMITH.RPT,"_s);
    for (const QString& name : {u"SC_1"_s, u"City"_s, u"Whatever"_s}) {
        EXPECT_EQ(null.Request(kSystem, name), u"NULL"_s) << name.toStdString();
        EXPECT_EQ(tail.Request(kSystem, name), u"ERAL)"_s) << name.toStdString();
    }
    EXPECT_EQ(null.Request(kSystem, u"Address"_s), u"7 Elm St"_s);
}

TEST_F(Program, CompForm)
{
    OpenSmith();
    m_program.Execute(kQuery, u"[RUNMACRO(SetRequest \"LastCompType\", \"Sales Comparables\")]"_s);
    m_program.Execute(kQuery,
                      u"[RUNMACRO(InitEnvironment \"C:\\\\VAS2000\\\\test.rpt\"\nSetRequest \"RQ_CompForm\", "
                      "CompT$(Listings))]"_s);
    EXPECT_EQ(m_program.Request(kQuery, u"RQ_CompForm"_s), u"LIST13"_s);
}

TEST_F(Program, CompFormTakesTheKindsOfCompsAndNothingElse)
{
    OpenSmith();
    const auto form = [this](const QString& kind) {
        const QString refusal = Refusal([&] {
            m_program.Execute(kQuery, u"[RUNMACRO(SetRequest \"RQ_CompForm\", CompT$(%1))]"_s.arg(kind));
        });
        return refusal.isEmpty() ? m_program.Request(kQuery, u"RQ_CompForm"_s) : refusal;
    };
    for (const auto& [kind, page] : {std::pair(u"Sales Comparables"_s, u"UA5"_s), {u"SALE"_s, u"UA5"_s},
                                     {u"\"Comps\""_s, u"UA5"_s}, {u" alt "_s, u"ALTCMP13"_s},
                                     {u"Alternate Comparables"_s, u"ALTCMP13"_s}, {u"LIST"_s, u"LIST13"_s},
                                     {u"Listings"_s, u"LIST13"_s}, {u"rentals"_s, u"RENT1"_s}})
        EXPECT_EQ(form(kind), page) << kind.toStdString();
    for (const QString& kind : {u""_s, u"1"_s, u"Photos"_s, u"Salesman"_s, u"Sales of boats"_s, u"Rent,Sale"_s,
                                u"\"Rent"_s, u"\"\""_s})
        EXPECT_EQ(form(kind), u"COMPT$ takes a kind of comps: Sales, Alternates, Listings or Rentals (character 37)"_s)
            << kind.toStdString();
}

TEST_F(Program, ImagesAreListedForEveryPageAndForNothingElse)
{
    Report& smith = OpenSmith();
    const auto ask = [this](const QString& pages) {
        return Refusal([&] {
            m_program.Execute(kSystem, u"[RunMacro( SetRequest \"IMAGES\",  GetImages$(%1))]"_s.arg(pages));
        });
    };
    for (const QString& pages : {u""_s, u"0"_s, u"2"_s, u"-1"_s, u"01"_s, u"1 1"_s, u"\"1\""_s, u"all"_s,
                                 u"99999999999999999999"_s})
        EXPECT_EQ(ask(pages), u"GETIMAGES$ takes 1, for every page (character 34)"_s) << pages.toStdString();
    EXPECT_EQ(m_program.Request(kSystem, u"IMAGES"_s), u"MACRO(GETREQUEST$(\"IMAGES\"))"_s) << "a refused macro leaves nothing behind";
    EXPECT_EQ(ask(u" 1 "_s), QString());
    EXPECT_EQ(m_program.Request(kSystem, u"IMAGES"_s).count(u';'), smith.Objects().size());
    EXPECT_TRUE(Refusal([this] {
                    m_program.Execute(kSystem, u"[RunMacro(SWAPCOMPS GetImages$(1),2)]"_s);
                }).startsWith(u"SWAPCOMPS takes numbers"_s));
}

TEST_F(Program, GeneralViewsAndTheAddendumTakeTexts)
{
    Report& smith = OpenSmith();
    for (int page = 1; page <= 12; ++page) {
        for (int place = 1; place <= 3; ++place) {
            const QString row = u"GENPH%1|%2|"_s.arg(page, 2, 10, QLatin1Char('0')).arg(place);
            m_program.Poke(kSmith, row + u'1', u"KITCHEN %1"_s.arg(page * 3 + place));
            m_program.Poke(kSmith, row + u'2', u"7 Elm St"_s);
            EXPECT_EQ(m_program.Request(kSmith, row + u'1'), u"KITCHEN %1"_s.arg(page * 3 + place));
        }
    }
    EXPECT_EQ(Refusal([this] { m_program.Poke(kSmith, u"GENPH01|4|1"_s, u"x"_s); }),
              u"The page GENPH01 has no cell 1 in row 4"_s);
    m_program.Poke(kSmith, u"ADDENDUM|1|1"_s, u"The kitchen was renewed."_s);
    m_program.Poke(kSmith, u"addendum|20|1"_s, u"The end."_s);
    EXPECT_EQ(m_program.Request(kSmith, u"ADDENDUM|1|1"_s), u"The kitchen was renewed."_s);
    EXPECT_EQ(Refusal([this] { m_program.Poke(kSmith, u"ADDENDUM|21|1"_s, u"x"_s); }),
              u"The page ADDENDUM has no cell 1 in row 21"_s);
    EXPECT_EQ(smith.Cells().size(), 74);
}

/// What comes over the link may be anything: each is done or refused in words, and what was there stays readable.
TEST_F(Program, SurvivesNoise)
{
    OpenSmith({{u"UA5|3|1"_s, u"7 Elm St"_s}});
    const QStringList seeds = {
        u"[RunMacro( SetRequest \"LASTCOMPTYPE\",\"SALES COMPARABLES\"\r\nSWAPCOMPS 4,2\r\n)]\r"_s,
        u"[RunMacro( SetRequest \"IMAGES\",  GetImages$(1))]"_s,
        u"[RunMacro( SetImage \"CMP_1_3X5\", \"C:\\\\VASCLIPS\\\\JPG\\\\12345678.jpg\" ) ]\r"_s,
        u"[RUNMACRO(InitEnvironment \"C:\\\\VAS2000\\\\test.rpt\"\nSetRequest \"RQ_CompForm\", CompT$(Listings))]"_s,
        u"[RunMacro(recalc.bas)]\r"_s,
        u"KEL|SMITH.RPT"_s,
        u"UA5|UA5|44|3"_s,
        u"GENPH01|1|2"_s,
        u"SC_5"_s,
        u"ActiveReports"_s,
    };
    std::mt19937 random(2006);
    const auto below = [&random](qsizetype limit) {
        return static_cast<qsizetype>(random() % static_cast<unsigned>(limit));
    };
    const auto noise = [&] {
        QString text = seeds[below(seeds.size())];
        for (qsizetype changes = below(5); changes > 0 && !text.isEmpty(); --changes) {
            const qsizetype at = below(text.size());
            switch (below(4)) {
            case 0:
                text.remove(at, 1 + below(6));
                break;
            case 1:
                text.insert(at, text.mid(below(text.size()), below(12)));
                break;
            case 2:
                text[at] = QChar(static_cast<char16_t>(random()));
                break;
            default:
                text[at] = QChar(static_cast<char16_t>(32 + below(95)));
            }
        }
        return text;
    };
    int done = 0;
    for (int i = 0; i < 12'000; ++i) {
        const QString topic = below(4) == 0 ? noise() : below(2) == 0 ? kSmith : kSystem;
        const QString refusal = Refusal([&] {
            if (i % 3 == 0)
                m_program.Execute(topic, noise());
            else if (i % 3 == 1)
                static_cast<void>(m_program.Request(topic, noise()));
            else
                m_program.Poke(topic, noise(), noise());
            ++done;
        });
    }
    EXPECT_GT(done, 500);
    EXPECT_LT(done, 11'500);
    const QByteArray json = m_reports.Active()->ToJson();
    EXPECT_EQ(Report::FromJson(json, u"again"_s).ToJson(), json) << "what it holds can be saved and read again";
}

TEST_F(Program, OnlyScriptsOfItsDirectoryRun)
{
    OpenSmith();
    for (const QString& name :
         {u"ADDPLUS.BAS"_s, u"recalc.bas"_s, u"RECALC.BAS"_s, u"refresh.bas"_s, u"CITYPLUS.BAS"_s})
        EXPECT_EQ(Refusal([&] { m_program.Execute(kSystem, u"[RunMacro(%1)]\r"_s.arg(name)); }), u""_s);
    EXPECT_EQ(Refusal([this] { m_program.Execute(kSystem, u"[RunMacro(format.bas)]\r"_s); }),
              u"There is no script format.bas in C:\\KEL\\"_s);
    EXPECT_EQ(Refusal([this] { m_program.Execute(kSystem, u"[RunMacro(..\\APPRAISE\\KEL.INI)]\r"_s); }),
              u"There is no script ..\\APPRAISE\\KEL.INI in C:\\KEL\\"_s);
    m_home.Write(u"drive_c/KEL/broken.bas"_s, "Repaint\r\nOh dear\r\n");
    EXPECT_TRUE(Refusal([this] {
                    m_program.Execute(kSystem, u"[RunMacro(broken.bas)]\r"_s);
                }).startsWith(u"Script broken.bas: Line 2: "_s));
}

TEST_F(Program, RecalculateFillsItsOwnLinesAndNoOthers)
{
    Report& smith = OpenSmith();
    const auto& grid = smith.Layout(u"UA5"_s)->sections[1];
    QMap<QString, QString> sent;
    for (const auto& line : grid.lines) {
        if (line.field.isEmpty())
            continue;
        const QString value = line.field == u"PRICEFLD"_s ? u"$185,000"_s
                              : line.field == u"GLA"_s    ? u"1,850 sf"_s
                                                          : u"value of "_s + line.field;
        const QString item = u"UA5|%1|%2"_s.arg(line.row).arg(line.comps[1]);
        m_program.Poke(kSmith, item, value);
        sent.insert(item, value);
    }
    m_program.Poke(kSmith, u"UA5|%1|%2"_s.arg(grid.lines[7].row).arg(grid.lines[7].adjusts[1]), u"+6,000"_s);
    m_program.Poke(kSmith, u"UA5|%1|%2"_s.arg(grid.lines[8].row).arg(grid.lines[8].adjusts[1]), u"(1,500)"_s);
    EXPECT_EQ(grid.lines[7].adjusts[1] > 0 && grid.lines[8].adjusts[1] > 0, true);
    m_program.Execute(kSystem, u"[RunMacro(recalc.bas)]\r"_s);
    for (auto it = sent.cbegin(); it != sent.cend(); ++it)
        EXPECT_EQ(m_program.Request(kSmith, it.key()), it.value());
    const auto total = [&](qsizetype fromEnd, size_t place) {
        const auto& line = grid.lines[grid.lines.size() - fromEnd];
        return m_program.Request(kSmith, u"UA5|%1|%2"_s.arg(line.row).arg(line.comps[place]));
    };
    EXPECT_EQ(total(3, 1), u"+4,500"_s);
    EXPECT_EQ(total(2, 1), u"$189,500"_s);
    EXPECT_EQ(total(1, 1), u"$102.43"_s);
    EXPECT_EQ(total(3, 0), u""_s);
    m_program.Poke(kSmith, u"UA5|45|5"_s, u"unknown"_s);
    m_program.Execute(kSystem, u"[RunMacro(recalc.bas)]\r"_s);
    EXPECT_EQ(total(2, 1), u""_s);
}

} // namespace
