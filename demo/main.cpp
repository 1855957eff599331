#include "demo/home.h"
#include "demo/market.h"
#include "platform/desktop/terminal.h"
#include "platform/text/runtime_error.h"

#include <QCommandLineParser>
#include <QCoreApplication>

#include <cstdio>

using namespace Qt::Literals::StringLiterals;

namespace {

void Say(const QString& line)
{
    std::fputs(qPrintable(line + u'\n'), stdout);
    std::fflush(stdout);
}

int Refuse(const QString& line)
{
    std::fputs(qPrintable(u"vasclip-demo: "_s + line + u'\n'), stderr);
    return 2;
}

} // namespace

/// Exit codes: 0 the home is complete, 1 it could not be made, 2 wrong arguments.
int main(int argc, char** argv)
{
    const vasclip::desktop::TerminalOutput terminal;
    const QCoreApplication program(argc, argv);
    QCommandLineParser parser;
    parser.setApplicationDescription(
        u"Makes a home to try Vasclip on: a Databook of a made-up town with photos, two reports, settings.\n"
        u"A home that is complete is left as it is."_s);
    const QCommandLineOption help = parser.addHelpOption();
    parser.addOption({u"home"_s, u"Directory of the home; made if it is missing."_s, u"DIR"_s});
    parser.addOption({u"comps"_s,
                      u"Records in the Databook, 6 to %1 (%2 unless told)."_s.arg(vasclip::demo::kMostComps)
                          .arg(vasclip::demo::kUsualComps),
                      u"N"_s, QString::number(vasclip::demo::kUsualComps)});
    parser.addOption({u"force"_s, u"Make a complete demo home anew; what was changed in it is lost."_s});
    if (!parser.parse(program.arguments()))
        return Refuse(parser.errorText());
    if (parser.isSet(help)) {
        Say(parser.helpText());
        return 0;
    }
    if (!parser.positionalArguments().isEmpty())
        return Refuse(
            u"'%1' means nothing here; see --help"_s.arg(parser.positionalArguments().constFirst()));
    vasclip::demo::HomeOptions options;
    options.directory = parser.value(u"home"_s);
    if (options.directory.isEmpty())
        return Refuse(u"name the home with --home DIR"_s);
    bool number = false;
    options.comps = parser.value(u"comps"_s).toInt(&number);
    if (!number || options.comps < 6 || options.comps > vasclip::demo::kMostComps)
        return Refuse(
            u"--comps must be a whole number from 6 to %1, not '%2'"_s.arg(vasclip::demo::kMostComps)
                .arg(parser.value(u"comps"_s)));
    options.force = parser.isSet(u"force"_s);

    try {
        vasclip::demo::MakeHome(options, Say);
        return 0;
    } catch (const vasclip::RuntimeError& error) {
        std::fputs(
            qPrintable(u"vasclip-demo: %1 (error %2).\n"_s.arg(error.Description()).arg(error.Number())),
            stderr);
        return 1;
    }
}
