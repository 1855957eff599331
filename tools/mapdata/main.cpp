#include "mapdata/commands.h"
#include "mapdata/import.h"
#include "mapdata/stop.h"

#include <QCommandLineParser>
#include <QCoreApplication>

#include <cstdio>

namespace {

using namespace Qt::StringLiterals;
using namespace vasclip::mapdata;

constexpr char kUsageWords[] =
    R"(vasclip-mapdata import SOURCE... --to DIR [--county NAME] [--state ST] [--source WORDS] [--date DATE]
                       [--account FILE] [--beside] [--stop-with-input]
vasclip-mapdata list DIR [--json]
vasclip-mapdata verify DIR
vasclip-mapdata remove DIR COUNTY
vasclip-mapdata use DIR
vasclip-mapdata discard DIR

A SOURCE is a file, a zipped file or a directory of them: TIGER/Line shapefiles (ADDRFEAT, EDGES, FACES, PLACE,
AREAWATER, ZCTA), OpenStreetMap (.osm.pbf, .osm), address points (CSV, GeoJSON, shapefile). The county comes from a
TIGER/Line file's name; other sources need --county. With --beside the new maps wait beside those in use until 'use' takes
them or 'discard' deletes them.
)";

void PrintCounts(const char* head, const QMap<QString, qint64>& counts)
{
    for (auto at = counts.cbegin(); at != counts.cend(); ++at)
        std::printf("%s %lld %s\n", head, static_cast<long long>(at.value()), at.key().toUtf8().constData());
}

int RunImport(const ImportOptions& options, const QString& file)
{
    Account account;
    QString problem;
    if (!account.Open(file, problem)) {
        TellProblem(problem);
        return kFailed;
    }
    const Outcome outcome = Import(options, account, problem);
    PrintCounts("taken", account.Taken());
    PrintCounts("remark", account.Remarks());
    PrintCounts("left", account.LeftOut());
    for (const QString& note : account.Notes())
        std::printf("note %s\n", note.toUtf8().constData());
    if (outcome == Outcome::Stopped)
        problem = u"it was stopped; the maps are as they were"_s;
    if (outcome != Outcome::Done)
        account.Note(problem);
    if (!account.Close())
        TellProblem(u"the account could not be written to its end: %1"_s.arg(file));
    if (outcome == Outcome::Done)
        return kDone;
    TellProblem(problem);
    return outcome == Outcome::Stopped ? kStopped : kFailed;
}

int Usage(const QString& fault)
{
    TellProblem(fault);
    std::fputs(kUsageWords, stderr);
    return kUsage;
}

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication app(argc, argv);
    QCommandLineParser parser;
    const QCommandLineOption to(u"to"_s, {}, u"dir"_s);
    const QCommandLineOption county(u"county"_s, {}, u"name"_s);
    const QCommandLineOption state(u"state"_s, {}, u"letters"_s);
    const QCommandLineOption source(u"source"_s, {}, u"words"_s);
    const QCommandLineOption date(u"date"_s, {}, u"date"_s);
    const QCommandLineOption account(u"account"_s, {}, u"file"_s);
    const QCommandLineOption beside(u"beside"_s);
    const QCommandLineOption json(u"json"_s);
    const QCommandLineOption stopWithInput(u"stop-with-input"_s);
    const QCommandLineOption help(u"help"_s);
    parser.addOptions({to, county, state, source, date, account, beside, json, stopWithInput, help});
    if (!parser.parse(app.arguments()))
        return Usage(parser.errorText());
    if (parser.isSet(help)) {
        std::fputs(kUsageWords, stdout);
        return kDone;
    }
    StopOnSignals();
    if (parser.isSet(stopWithInput))
        StopWithInput();
    QStringList words = parser.positionalArguments();
    const QString command = words.isEmpty() ? QString() : words.takeFirst();
    if (command == u"import") {
        if (words.isEmpty() || !parser.isSet(to))
            return Usage(u"import needs a source, and the directory of the maps by --to"_s);
        return RunImport({words, parser.value(to), parser.value(county), parser.value(state), parser.value(source),
                          parser.value(date), parser.isSet(beside)},
                         parser.value(account));
    }
    if (command == u"list" && words.size() == 1)
        return List(words[0], parser.isSet(json));
    if (command == u"verify" && words.size() == 1)
        return Verify(words[0]);
    if (command == u"remove" && words.size() == 2)
        return Remove(words[0], words[1]);
    if (command == u"use" && words.size() == 1)
        return Use(words[0]);
    if (command == u"discard" && words.size() == 1)
        return Discard(words[0]);
    return Usage(command.isEmpty() ? u"there is no command"_s : u"the command is unknown or lacks a word: %1"_s.arg(command));
}
