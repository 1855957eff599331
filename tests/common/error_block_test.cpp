#include "common/error_block.h"

#include "common/given_up.h"
#include "support/scripted_ports.h"

#include <gtest/gtest.h>

#include <QRegularExpression>

using namespace Qt::Literals::StringLiterals;

namespace vasclip::common {
namespace {

using forms::Answer;
using tests::ShownBox;
using tests::TestPorts;

TEST(RoutineScope, HoldsTwentyCharactersAndGivesTheCallersNameBack)
{
    EXPECT_EQ(RoutineScope::Current(), QString(20, u' '));
    const RoutineScope outer("DropComp");
    EXPECT_EQ(RoutineScope::Current(), u"DropComp            "_s);
    {
        const RoutineScope inner("ARoutineWithAVeryLongName");
        EXPECT_EQ(RoutineScope::Current(), u"ARoutineWithAVeryLon"_s);
    }
    EXPECT_EQ(RoutineScope::Current(), u"DropComp            "_s);
}

struct ActionRow
{
    const char* name;
    int number;
    Answer answer;
    ErrorAction action;
};

class FileErrorsTest : public testing::TestWithParam<ActionRow>
{};

TEST_P(FileErrorsTest, AsksAndClassifies)
{
    TestPorts ports;
    ports.prompter.Answer(GetParam().answer);
    const RoutineScope scope("SaveGrid");
    EXPECT_EQ(FileErrors(ports.prompter, RuntimeError(GetParam().number, u"Disk full"_s)), GetParam().action);
    const ShownBox wanted{forms::Buttons::AbortRetryIgnore, forms::Icon::None, u"Error"_s,
                          u"Disk full.\r\nError # %1 in module SaveGrid."_s.arg(GetParam().number)};
    ASSERT_EQ(ports.prompter.Boxes().size(), 1U);
    EXPECT_EQ(ports.prompter.Boxes()[0], wanted);
}

const ActionRow kActions[] = {
    {"device_io_retry", 57, Answer::Retry, ErrorAction::Retry},
    {"disk_full_retry", 61, Answer::Retry, ErrorAction::Retry},
    {"disk_full_ok", 61, Answer::Ok, ErrorAction::Retry},
    {"disk_full_ignore", 61, Answer::Ignore, ErrorAction::Skip},
    {"disk_full_abort", 61, Answer::Abort, ErrorAction::Abandon},
    {"disk_full_cancel", 61, Answer::Cancel, ErrorAction::Abandon},
    {"disk_full_yes", 61, Answer::Yes, ErrorAction::Raise},
    {"unavailable_ignore", 68, Answer::Ignore, ErrorAction::Skip},
    {"not_ready_abort", 71, Answer::Abort, ErrorAction::Abandon},
};

INSTANTIATE_TEST_SUITE_P(Rows, FileErrorsTest, testing::ValuesIn(kActions),
                         [](const auto& info) { return std::string(info.param.name); });

TEST(FileErrors, RaisesAllOthersWithoutABox)
{
    TestPorts ports;
    for (const int number : {5, 9, 13, 52, 53, 58, 70, 75, 76, 91, 3021, 3022, 3197})
        EXPECT_EQ(FileErrors(ports.prompter, RuntimeError(number, u"x"_s)), ErrorAction::Raise) << number;
    EXPECT_TRUE(ports.prompter.Boxes().empty());
}

TEST(FileErrors, ALostConnectionAndAWaitThatWasGivenUpEndNothing)
{
    constexpr int kConnectionLost = 3151, kWaitGivenUp = 3059;
    for (const int number : {kConnectionLost, kWaitGivenUp}) {
        TestPorts ports;
        const RuntimeError failure(number, u"The server did not answer in time"_s);
        EXPECT_EQ(FileErrors(ports.prompter, failure), ErrorAction::Raise) << "a step is not repeated unasked";
        ReportError(ports.prompter, failure);
        ASSERT_EQ(ports.prompter.Boxes().size(), 1U);
        EXPECT_TRUE(ports.prompter.Boxes()[0].text.startsWith(u"The server did not answer in time."_s));
    }
}

TEST(FileErrors, ALockedRecordEndsTheProgramWithItsMessage)
{
    TestPorts ports;
    EXPECT_THROW((void)FileErrors(ports.prompter, RuntimeError(3218, u"locked"_s)), forms::EndOfProgram);
    const ShownBox wanted{
        forms::Buttons::Ok, forms::Icon::None, QString(),
        u"The databases may be corrupt.  Please run the rebuild programs. (Double Click on the "
        "icons) and restart Vasclip Manager."_s};
    EXPECT_EQ(ports.prompter.Last(), wanted);
}

TEST(Guarded, AReadThatIsKeptWaitingIsTriedAgainAndEndsNothing)
{
    TestPorts ports;
    ports.prompter.Answer(Answer::Retry);
    int tries = 0;
    EXPECT_TRUE(Guarded(ports.prompter, [&] {
        if (++tries < 2)
            throw RuntimeError(3187, u"Could not read; A has it"_s);
    }));
    const ShownBox wanted{forms::Buttons::RetryCancel, forms::Icon::Exclamation, u"Vasclip"_s,
                          u"Could not read; A has it."_s};
    EXPECT_EQ(ports.prompter.Last(), wanted);

    // What is given up is logged and not told twice; the next failure has its box again.
    ports.prompter.Answer(Answer::Cancel);
    const auto giveUp = [&] {
        try {
            Guarded(ports.prompter, [] { throw RuntimeError(3187, u"B has it"_s); });
        } catch (const RuntimeError& failure) {
            ReportError(ports.prompter, failure);
        }
    };
    giveUp();
    EXPECT_EQ(ports.prompter.Boxes().size(), 2U);
    EXPECT_EQ(ports.prompter.logged.size(), 1);
    // Nor is it asked about again by the routines around the one that asked.
    const RoutineScope scope{"Outer"};
    ports.prompter.Answer(Answer::Cancel);
    EXPECT_THROW(Guarded(ports.prompter,
                         [&] { Guarded(ports.prompter, [] { throw RuntimeError(3187, u"C has it"_s); }); }),
                 RuntimeError);
    EXPECT_EQ(ports.prompter.Boxes().size(), 3U);
    EXPECT_TRUE(TakeGivenUp());
    ReportError(ports.prompter, RuntimeError(3187, u"B has it"_s));
    EXPECT_EQ(ports.prompter.Boxes().size(), 4U);
}

TEST(Guarded, RetriesTheStepUntilItSucceeds)
{
    TestPorts ports;
    ports.prompter.Answer(Answer::Retry);
    ports.prompter.Answer(Answer::Retry);
    int tries = 0;
    EXPECT_TRUE(Guarded(ports.prompter, [&] {
        if (++tries < 3)
            throw RuntimeError(error::kDiskFull, u"Disk full"_s);
    }));
    EXPECT_EQ(tries, 3);
}

TEST(Guarded, SkipsLeavesOrRaises)
{
    TestPorts ports;
    const auto fail = [](int number) { return [number] { throw RuntimeError(number, u"x"_s); }; };
    ports.prompter.Answer(Answer::Ignore);
    EXPECT_TRUE(Guarded(ports.prompter, fail(error::kDiskFull)));
    ports.prompter.Answer(Answer::Abort);
    EXPECT_FALSE(Guarded(ports.prompter, fail(error::kDiskFull)));
    EXPECT_THROW((void)Guarded(ports.prompter, fail(error::kNoCurrentRecord)), RuntimeError);
}

void FailInside(int number)
{
    const RoutineScope scope("FormatPictureNow");
    throw RuntimeError(number, u"Disk full"_s);
}

TEST(Guarded, NamesTheRoutineThatTheErrorCameFrom)
{
    TestPorts ports;
    ports.prompter.AnswerAlways(Answer::Ignore);
    const RoutineScope scope("DropComp");
    EXPECT_TRUE(Guarded(ports.prompter, [] { FailInside(61); }));
    EXPECT_EQ(ports.prompter.Last().text, u"Disk full.\r\nError # 61 in module FormatPictureNow."_s);
    {
        const RoutineScope next("SendBulk");
    }
    EXPECT_EQ(RoutineScope::Current(), u"DropComp            "_s);
    EXPECT_TRUE(Guarded(ports.prompter, [] { throw RuntimeError(61, u"Disk full"_s); }));
    EXPECT_EQ(ports.prompter.Last().text, u"Disk full.\r\nError # 61 in module DropComp."_s);
}

TEST(ReportError, ShowsAndLogsWithTheRoutine)
{
    TestPorts ports;
    try {
        const RoutineScope scope("DropComp");
        FailInside(3021);
    } catch (const RuntimeError& failure) {
        ReportError(ports.prompter, failure);
    }
    const ShownBox wanted{forms::Buttons::Ok, forms::Icon::Critical, u"Error"_s,
                          u"Disk full.\r\nError # 3021 in module FormatPictureNow."_s};
    EXPECT_EQ(ports.prompter.Last(), wanted);
    const QStringList& lines = ports.prompter.logged;
    ASSERT_EQ(lines.size(), 1);
    static const QRegularExpression whole(
        u"^Disk full\\. Error # 3021 in module FormatPictureNow\\.$"_s);
    EXPECT_TRUE(whole.match(lines[0]).hasMatch()) << lines[0].toStdString();
    EXPECT_FALSE(lines[0].contains(u'\n'));
    ReportError(ports.prompter, RuntimeError(5, u"Bad call"_s));
    EXPECT_EQ(lines.size(), 2);
    EXPECT_EQ(ports.prompter.Last().text, u"Bad call.\r\nError # 5 in module ."_s);
}

} // namespace
} // namespace vasclip::common
