#include "demo/home_marker.h"

#include <QProcess>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace Qt::Literals::StringLiterals;

namespace vasclip::demo {
namespace {

struct ProgramRow
{
    const char* name;
    QStringList arguments; ///< "HOME" stands for a directory with a complete home
    int exitCode;
    QString says; ///< part of what it prints
};

class Program : public testing::TestWithParam<ProgramRow>
{};

TEST_P(Program, AnswersItsArguments)
{
    const QTemporaryDir home;
    MarkHome(home.path(), HomeState::Complete, 12);
    QStringList arguments;
    for (const QString& argument : GetParam().arguments)
        arguments.append(argument == "HOME"_L1 ? home.path() : argument);
    QProcess program;
    program.setProcessChannelMode(QProcess::MergedChannels);
    program.start(u"" DEMO_PROGRAM ""_s, arguments);
    ASSERT_TRUE(program.waitForFinished());
    EXPECT_EQ(program.exitCode(), GetParam().exitCode);
    const QString said = QString::fromUtf8(program.readAll());
    EXPECT_TRUE(said.contains(GetParam().says)) << said.toStdString();
}

INSTANTIATE_TEST_SUITE_P(
    Rows, Program,
    testing::Values(
        ProgramRow{"Help", {u"--help"_s}, 0, u"--comps"_s},
        ProgramRow{"Complete", {u"--home"_s, u"HOME"_s}, 0, u"nothing to do"_s},
        ProgramRow{"NoHome", {}, 2, u"name the home with --home DIR"_s},
        ProgramRow{"TooFew", {u"--home"_s, u"HOME"_s, u"--comps"_s, u"5"_s}, 2, u"from 6 to 5000, not '5'"_s},
        ProgramRow{"NoNumber", {u"--home"_s, u"HOME"_s, u"--comps"_s, u"many"_s}, 2, u"not 'many'"_s},
        ProgramRow{"UnknownOption", {u"--hoem"_s, u"HOME"_s}, 2, u"hoem"_s},
        ProgramRow{"StrayWord", {u"HOME"_s}, 2, u"means nothing here"_s},
        ProgramRow{"Unwritable", {u"--home"_s, u"/proc/vasclip-demo"_s}, 1, u"cannot be written"_s}),
    [](const auto& info) { return std::string(info.param.name); });

} // namespace
} // namespace vasclip::demo
