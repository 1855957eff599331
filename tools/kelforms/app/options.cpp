#include "kelforms/app/options.h"

#include "platform/conduit/socket_path.h"
#include "platform/files/disk.h"

#include <QCommandLineParser>

#include <cstdio>
#include <cstring>

using namespace Qt::Literals::StringLiterals;

namespace kelforms {

namespace {

const QCommandLineOption kHeadless(u"headless"_s, u"Serve the link without a window."_s);
const QCommandLineOption kHome(u"home"_s, u"The home whose drives and KEL.INI are used."_s, u"DIR"_s);
const QCommandLineOption kSocket(u"socket"_s, u"Listen at PATH; the home's own address otherwise."_s,
                                 u"PATH"_s);
const QCommandLineOption kIni(u"ini"_s, u"Drive path of KEL.INI."_s, u"PATH"_s);
const QCommandLineOption kSaveOnExit(u"save-on-exit"_s, u"Save changed reports when the program ends."_s);
const QCommandLineOption kLog(u"log"_s, u"Write every exchange into FILE, one JSON object a line."_s,
                              u"FILE"_s);
const QCommandLineOption kDark(u"dark"_s, u"Start with the dark look."_s);
const QCommandLineOption kPage(u"page"_s, u"Show the page CODE first."_s, u"CODE"_s);
const QCommandLineOption kScreenshot(u"screenshot"_s, u"Save a picture of the window and end."_s, u"FILE"_s);
const QCommandLineOption
    kTourDir(u"tour-dir"_s,
             u"Save DIR/kelforms-N.png whenever DIR/shoot appears (it is then taken away) or "
             "on SIGUSR1."_s,
             u"DIR"_s);
const QCommandLineOption kDelay(u"delay"_s, u"Fault: answer MS milliseconds late."_s, u"MS"_s);
const QCommandLineOption kGarbage(u"garbage-after"_s, u"Fault: garbage after N answers."_s, u"N"_s);
const QCommandLineOption kDie(u"die-after"_s, u"Fault: half an answer after N answers, then the end."_s,
                              u"N"_s);
const QCommandLineOption kNever(u"never-answer"_s, u"Fault: listen and be silent."_s);
const QCommandLineOption kBareLists(u"bare-lists"_s, u"Habit: lists end without their last comma."_s);
const QCommandLineOption kBlankForNone(u"blank-for-none"_s,
                                       u"Habit: with no report open the list of reports is blank, not \"none\"."_s);
const QCommandLineOption kNoValue(u"no-value"_s,
                                  u"Habit: what a variable without a value is answered with: echo, null or eral."_s,
                                  u"WORD"_s, u"echo"_s);

/// Complains and returns false for another word.
bool ReadHabits(const QCommandLineParser& parser, Habits& habits)
{
    habits.bareLists = parser.isSet(kBareLists);
    habits.blankForNone = parser.isSet(kBlankForNone);
    const QString word = parser.value(kNoValue);
    if (word == u"null"_s)
        habits.noValue = Habits::NoValue::Null;
    else if (word == u"eral"_s)
        habits.noValue = Habits::NoValue::Tail;
    else if (word != u"echo"_s) {
        std::fprintf(stderr, "kelforms: --no-value takes echo, null or eral, not \"%s\"\n", qPrintable(word));
        return false;
    }
    return true;
}

/// A count from 0; complains and returns false for anything else.
bool ReadCount(const QCommandLineParser& parser, const QCommandLineOption& option, int& into)
{
    if (!parser.isSet(option))
        return true;
    bool fine = false;
    const int value = parser.value(option).toInt(&fine);
    if (!fine || value < 0) {
        std::fprintf(stderr, "kelforms: --%s takes a whole number from 0, not \"%s\"\n",
                     qPrintable(option.names().constFirst()), qPrintable(parser.value(option)));
        return false;
    }
    into = value;
    return true;
}

} // namespace

std::optional<Options> ReadOptions(const QStringList& arguments, int& exitCode)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(
        u"Opens appraisal reports, shows their pages, and answers other programs on the link."_s);
    const QCommandLineOption help = parser.addHelpOption();
    const QCommandLineOption version = parser.addVersionOption();
    parser.addOptions({kHeadless, kHome, kSocket, kIni, kSaveOnExit, kLog, kDark, kPage, kScreenshot,
                       kTourDir, kDelay, kGarbage, kDie, kNever,
                       kBareLists, kBlankForNone, kNoValue});
    parser.addPositionalArgument(u"report"_s, u"Report files to open, by a path of the system or of a drive of the home; the first is the active one."_s,
                                 u"[report...]"_s);
    exitCode = 2;
    if (!parser.parse(arguments)) {
        std::fprintf(stderr, "kelforms: %s\n", qPrintable(parser.errorText()));
        return std::nullopt;
    }
    if (parser.isSet(help) || parser.isSet(version)) {
        std::fputs(parser.isSet(help) ? qPrintable(parser.helpText()) : "kelforms 1.0\n", stdout);
        exitCode = 0;
        return std::nullopt;
    }
    Options options;
    options.headless = parser.isSet(kHeadless);
    options.saveOnExit = parser.isSet(kSaveOnExit);
    options.dark = parser.isSet(kDark);
    options.home = parser.isSet(kHome) ? parser.value(kHome) : vasclip::files::DefaultHome();
    options.socketPath =
        parser.isSet(kSocket) ? parser.value(kSocket) : vasclip::conduit::DefaultSocketPath(options.home);
    options.iniFile = parser.value(kIni);
    options.logFile = parser.value(kLog);
    options.page = parser.value(kPage).toUpper();
    options.screenshot = parser.value(kScreenshot);
    options.tourDir = parser.value(kTourDir);
    options.reports = parser.positionalArguments();
    options.faults.neverAnswer = parser.isSet(kNever);
    if (!ReadHabits(parser, options.habits) || !ReadCount(parser, kDelay, options.faults.delayMs) ||
        !ReadCount(parser, kGarbage, options.faults.garbageAfter) ||
        !ReadCount(parser, kDie, options.faults.dieAfter))
        return std::nullopt;
    exitCode = 0;
    return options;
}

bool WantsNoWindow(int argc, char** argv)
{
    for (int i = 1; i < argc; ++i) {
        for (const char* word : {"--headless", "--help", "-h", "--version", "-v", "--help-all"}) {
            if (std::strcmp(argv[i], word) == 0)
                return true;
        }
    }
    return false;
}

} // namespace kelforms
