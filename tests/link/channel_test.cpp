#include "link/kel_channel.h"

#include "common/error_block.h"
#include "link/reporter.h"
#include "platform/text/runtime_error.h"
#include "support/recording_conduit.h"
#include "support/scripted_ports.h"

#include <gtest/gtest.h>

namespace vasclip::link {
namespace {

using namespace Qt::Literals::StringLiterals;
using test::RecordingConduit;

class Channel : public testing::Test
{
protected:
    RecordingConduit conduit;
    LinkState state;
};

TEST_F(Channel, QueryActiveReports)
{
    conduit.Answer(u"KEL|Query"_s, u"ActiveReports"_s, u"SMITH,"_s);
    KelQueryActiveReports(conduit);
    EXPECT_EQ(conduit.Text(), u"SMITH,"_s);
    EXPECT_EQ(conduit.Take(), (QStringList{u"mode 0"_s, u"topic KEL|Query"_s, u"mode 2"_s,
                                           u"item ActiveReports"_s, u"request"_s, u"mode 0"_s}));
}

TEST_F(Channel, QueryOfAProgramThatIsNotRunningFindsNoReports)
{
    conduit.running = false;
    conduit.SetText(u"SMITH,"_s);
    EXPECT_NO_THROW(KelQueryActiveReports(conduit));
    EXPECT_EQ(conduit.Text(), u""_s);
}

TEST_F(Channel, OpenReportKeepsTheMixedCasePrefix)
{
    KelOpenReport(conduit, u"SMITH"_s);
    EXPECT_EQ(conduit.Take(), (QStringList{u"mode 0"_s, u"topic Kel|SMITH"_s, u"item UserID"_s, u"mode 2"_s,
                                           u"request"_s, u"mode 0"_s}));
}

TEST_F(Channel, ListForms)
{
    conduit.Answer(u"KEL|SMITH"_s, u"ListForms"_s, u"UA5,SUBPHOTO"_s);
    KelListForms(conduit, u"SMITH"_s);
    EXPECT_EQ(conduit.Text(), u"UA5,SUBPHOTO"_s);
    EXPECT_EQ(conduit.Take(), (QStringList{u"mode 0"_s, u"topic KEL|SMITH"_s, u"item ListForms"_s,
                                           u"mode 2"_s, u"request"_s, u"mode 0"_s}));
}

TEST_F(Channel, GetFieldInfo)
{
    conduit.Answer(u"KEL|SMITH"_s, u"UA5|5|3"_s, u"12 Oak"_s);
    EXPECT_EQ(KelGetFieldInfo(conduit, u"SMITH"_s, u"UA5|5|3"_s), u"12 Oak"_s);
    EXPECT_EQ(conduit.Take(), (QStringList{u"mode 0"_s, u"topic KEL|SMITH"_s, u"item UA5|5|3"_s, u"mode 2"_s,
                                           u"request"_s, u"mode 0"_s}));
}

TEST_F(Channel, GetFieldInfoOfABlankFormNameSendsNothing)
{
    EXPECT_EQ(KelGetFieldInfo(conduit, u"SMITH"_s, u"|5|3"_s), u""_s);
    EXPECT_EQ(KelGetFieldInfo(conduit, u"SMITH"_s, u"  "_s), u""_s);
    EXPECT_EQ(conduit.Take(), QStringList{});
}

TEST_F(Channel, RequestVar)
{
    conduit.Answer(u"KEL|System"_s, u"City"_s, u"Duluth"_s);
    EXPECT_EQ(KelRequestVar(conduit, state, u"City"_s), u"Duluth"_s);
    EXPECT_EQ(conduit.Take(), (QStringList{u"text NULL"_s, u"mode 0"_s, u"topic KEL|System"_s, u"mode 2"_s,
                                           u"item City"_s, u"request"_s, u"mode 0"_s}));
}

TEST_F(Channel, GlobalVarLeavesTheValueInText)
{
    conduit.Answer(u"KEL|System"_s, u"SC_1"_s, u"12 Oak"_s);
    EXPECT_EQ(KelRequestGlobalVar2(conduit, u"SC_1"_s), u""_s);
    EXPECT_EQ(conduit.Text(), u"12 Oak"_s);
}

TEST_F(Channel, NoAnswerIsClearedAtOnce)
{
    conduit.Answer(u"KEL|System"_s, u"City"_s, u"NULL"_s);
    EXPECT_EQ(KelRequestVar(conduit, state, u"City"_s), u""_s);
    conduit.log.clear();
    conduit.SetText(u"null"_s);
    LoopWhileNull(conduit, 3);
    EXPECT_EQ(conduit.Text(), u"null"_s); // exactly "NULL" only
}

TEST_F(Channel, ARetryLimitOnlyLooksMoreOften)
{
    conduit.SetText(u"NULL"_s);
    LoopWhileNull(conduit, 5);
    EXPECT_EQ(conduit.Text(), u""_s);
}

TEST_F(Channel, QueryGetImages)
{
    conduit.Answer(u"KEL|System"_s, u"IMAGES"_s, u"CMP_1_3X5|C:\\a.jpg;"_s);
    KelQueryGetImages(conduit);
    EXPECT_EQ(conduit.Text(), u"CMP_1_3X5|C:\\a.jpg;"_s);
    EXPECT_EQ(conduit.Take(), (QStringList{u"mode 0"_s, u"topic KEL|System"_s, u"mode 2"_s,
                                           u"execute [RunMacro( SetRequest \"IMAGES\",  GetImages$(1))]"_s,
                                           u"item IMAGES"_s, u"request"_s, u"mode 0"_s}));
}

TEST_F(Channel, SendScriptStandsUnquotedAndKeepsItsCarriageReturn)
{
    KelSendScript(conduit, u" recalc.bas "_s);
    EXPECT_EQ(conduit.Take(), (QStringList{u"mode 0"_s, u"topic KEL|System"_s, u"mode 2"_s,
                                           u"execute [RunMacro(recalc.bas)]\r"_s, u"mode 0"_s}));
}

TEST_F(Channel, SendPhotoKeepsTheTopicAndDoublesBackslashes)
{
    KelListForms(conduit, u"SMITH"_s);
    conduit.log.clear();
    KelSendPhoto2Object(conduit, u"CMP_1_3X5"_s, u"C:\\JPG\\A1.jpg"_s);
    EXPECT_EQ(conduit.Take(),
              (QStringList{u"mode 0"_s, u"mode 2"_s,
                           u"execute [RunMacro( SetImage \"CMP_1_3X5\", \"C:\\\\JPG\\\\A1.jpg\" ) ]\r"_s,
                           u"mode 0"_s}));
    EXPECT_EQ(conduit.LinkTopic(), u"KEL|SMITH"_s);
}

TEST_F(Channel, AnEmptyPathClearsTheObject)
{
    KelSendPhoto2Object(conduit, u"SUB_1_"_s, u""_s);
    EXPECT_EQ(conduit.commands, (QStringList{u"[RunMacro( SetImage \"SUB_1_\", \"\" ) ]\r"_s}));
}

TEST_F(Channel, ErrClearCompCountsTheSubject)
{
    ErrClearComp(conduit, 1, 3);
    EXPECT_EQ(conduit.Take(),
              (QStringList{u"mode 0"_s, u"mode 2"_s,
                           u"execute [RunMacro( SetRequest \"LASTCOMPTYPE\",\"SALES COMPARABLES\"\r\n"
                           "SWAPCOMPS 4,2\r\n)]\r"_s,
                           u"mode 0"_s}));
}

TEST_F(Channel, PokeTrimsBlanksAndStaysOpen)
{
    KelPokeText(conduit, u"KEL|SMITH"_s, u"URAR|14|2"_s, u" 1.2 Mi. NW "_s);
    EXPECT_EQ(conduit.Take(), (QStringList{u"mode 0"_s, u"topic KEL|SMITH"_s, u"mode 2"_s,
                                           u"item URAR|14|2"_s, u"text 1.2 Mi. NW"_s, u"poke"_s}));
    EXPECT_EQ(conduit.LinkMode(), 2);
}

TEST_F(Channel, TheExchangeAfterAPokeClosesItFirst)
{
    KelPokeText(conduit, u"KEL|SMITH"_s, u"URAR|14|2"_s, u"x"_s);
    conduit.log.clear();
    EXPECT_NO_THROW(KelRequestGlobalVar2(conduit, u"Zip"_s));
    EXPECT_EQ(conduit.Take().mid(0, 2), (QStringList{u"mode 0"_s, u"topic KEL|System"_s}));
}

struct ActiveRow
{
    const char* name;
    QString answer;
    bool active;
};
class Active : public testing::TestWithParam<ActiveRow>
{};
TEST_P(Active, SetsBothFlags)
{
    RecordingConduit conduit;
    LinkState state;
    state.linkActive = state.populateGate = !GetParam().active;
    conduit.Answer(u"KEL|Query"_s, u"ActiveReports"_s, GetParam().answer);
    EXPECT_EQ(KelIsActive(conduit, state), GetParam().active);
    EXPECT_EQ(state.linkActive, GetParam().active);
    EXPECT_EQ(state.populateGate, GetParam().active);
    EXPECT_EQ(conduit.log.first(), u"text "_s);
}
INSTANTIATE_TEST_SUITE_P(Rows, Active,
                         testing::Values(ActiveRow{"Report", u"SMITH,"_s, true},
                                         ActiveRow{"Blank", u"  "_s, false}, ActiveRow{"Empty", u""_s, false},
                                         ActiveRow{"None", u"none"_s, false},
                                         ActiveRow{"NoneInCapitals", u" NONE "_s, false},
                                         ActiveRow{"WithoutComma", u"SMITH"_s, true}),
                         [](const auto& row) { return row.param.name; });

TEST_F(Channel, IsActiveWithNobodyThere)
{
    conduit.running = false;
    state.linkActive = true;
    EXPECT_FALSE(KelIsActive(conduit, state));
    EXPECT_FALSE(state.linkActive);
}

TEST_F(Channel, IsActiveThatFailsClearsTheFlags)
{
    state.linkActive = state.populateGate = true;
    conduit.FailOnce(u"request"_s, error::kLinkTimeOut, u"No answer in time"_s);
    EXPECT_THROW(KelIsActive(conduit, state), RuntimeError);
    EXPECT_FALSE(state.linkActive);
    EXPECT_FALSE(state.populateGate);
}

TEST_F(Channel, ReconnectOpensTheActiveReport)
{
    conduit.Answer(u"KEL|Query"_s, u"ActiveReports"_s, u"SMITH,JONES,"_s);
    conduit.Answer(u"KEL|SMITH"_s, u"ListForms"_s, u"UA5,"_s);
    KelReconnect(conduit);
    EXPECT_EQ(conduit.Text(), u"UA5,"_s);
    EXPECT_TRUE(conduit.log.contains(u"topic Kel|SMITH"_s));
}

TEST_F(Channel, ReconnectLeavesAnOpenConversationAlone)
{
    KelPokeText(conduit, u"KEL|SMITH"_s, u"URAR|14|2"_s, u"x"_s);
    conduit.log.clear();
    KelReconnect(conduit);
    EXPECT_EQ(conduit.Take(), QStringList{});
}

TEST_F(Channel, ReconnectWithoutAReportIsNoFailure)
{
    conduit.FailOnce(u"topic Kel|"_s, error::kLinkBusy, u"No report of that name"_s);
    EXPECT_NO_THROW(KelReconnect(conduit));
    EXPECT_EQ(conduit.Text(), u""_s);
}

TEST_F(Channel, CompFormRunsOnOneConversation)
{
    conduit.Answer(u"KEL|Query"_s, u"RQ_CompForm"_s, u"URAR"_s);
    EXPECT_EQ(CompForm(conduit, u"C:\\VAS2000\\"_s, u"SALE"_s), u"URAR"_s);
    EXPECT_EQ(conduit.Take(),
              (QStringList{u"text "_s, u"topic KEL|Query"_s, u"mode 2"_s,
                           u"execute [RUNMACRO(SetRequest \"LastCompType\", \"Sales Comparables\")]"_s,
                           u"text "_s, u"mode 2"_s,
                           u"execute [RUNMACRO(InitEnvironment \"C:\\\\VAS2000\\\\test.rpt\"\n"
                           "SetRequest \"RQ_CompForm\", CompT$(SALE))]"_s,
                           u"text "_s, u"item RQ_CompForm"_s, u"mode 2"_s, u"request"_s}));
    EXPECT_EQ(conduit.LinkMode(), 2);
}

struct FailureRow
{
    const char* name;
    void (*exchange)(conduit::Conduit&);
    const char* routine;
};
class FailingExchange : public testing::TestWithParam<FailureRow>
{};
TEST_P(FailingExchange, ClosesAndIsReportedUnderItsName)
{
    RecordingConduit conduit;
    tests::TestPorts ports;
    conduit.FailOnce(u"mode 2"_s, error::kLinkBusy, u"Refused"_s);
    EXPECT_FALSE(Reported(ports.prompter, "Caller", [&] { GetParam().exchange(conduit); }));
    EXPECT_EQ(conduit.LinkMode(), 0);
    ASSERT_EQ(ports.prompter.Boxes().size(), 1U);
    EXPECT_EQ(ports.prompter.Last().text,
              u"Refused.\r\nError # 285 in module %1."_s.arg(QString::fromLatin1(GetParam().routine)));
}
INSTANTIATE_TEST_SUITE_P(
    Rows, FailingExchange,
    testing::Values(
        FailureRow{"Query", [](conduit::Conduit& c) { KelQueryActiveReports(c); }, "KelQueryActiveReport"},
        FailureRow{"Open", [](conduit::Conduit& c) { KelOpenReport(c, u"A"_s); }, "KelOpenReport"},
        FailureRow{"ListForms", [](conduit::Conduit& c) { KelListForms(c, u"A"_s); }, "KelListForms"},
        FailureRow{"Field", [](conduit::Conduit& c) { (void)KelGetFieldInfo(c, u"A"_s, u"B|1|2"_s); },
                   "KelGetFieldInfo"},
        FailureRow{"Variable", [](conduit::Conduit& c) { KelRequestGlobalVar2(c, u"Zip"_s); },
                   "KelRequestGlobalVar2"},
        FailureRow{"Images", [](conduit::Conduit& c) { KelQueryGetImages(c); }, "KelQueryGetImages"},
        FailureRow{"Script", [](conduit::Conduit& c) { KelSendScript(c, u"a.bas"_s); }, "KelSendScript"},
        FailureRow{"Photo", [](conduit::Conduit& c) { KelSendPhoto2Object(c, u"A"_s, {}); },
                   "KelSendPhoto2Object"},
        FailureRow{"Swap", [](conduit::Conduit& c) { ErrClearComp(c, 1, 2); }, "ErrClearComp"},
        FailureRow{"Poke", [](conduit::Conduit& c) { KelPokeText(c, u"KEL|A"_s, u"B|1|2"_s, {}); },
                   "KelPokeText"}),
    [](const auto& row) { return row.param.name; });

} // namespace
} // namespace vasclip::link
