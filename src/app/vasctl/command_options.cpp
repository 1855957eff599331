#include "app/vasctl/command_options.h"

#include "app/vasctl/session.h"

#include <QRegularExpression>

#include <algorithm>
#include <array>

namespace vasclip::vasctl {

using namespace Qt::Literals::StringLiterals;

namespace {

/// Of every command: where it works and how questions are answered.
constexpr auto kCommon = "home socket time-limit json yes no answer"_L1;

struct Row
{
    QLatin1StringView command;
    QLatin1StringView verb; ///< "" for every other one
    QLatin1StringView options;
};
constexpr std::array kRows = {
    Row{"records"_L1, "list"_L1, "where sort limit"_L1},
    Row{"records"_L1, "add"_L1, "type set"_L1},
    Row{"records"_L1, "edit"_L1, "set"_L1},
    Row{"search"_L1, ""_L1, "city state zip county sort limit"_L1}, // and those of its fields
    Row{"find"_L1, ""_L1, "limit"_L1},
    Row{"cities"_L1, "add"_L1, "city state zip county"_L1},
    Row{"cities"_L1, "assign"_L1, "city state zip county"_L1},
    Row{"convert"_L1, ""_L1, "to"_L1},
    Row{"sql"_L1, ""_L1, "file"_L1},
    Row{"trash"_L1, "empty"_L1, "dir before"_L1},
    Row{"trash"_L1, ""_L1, "dir"_L1},
    Row{"drop"_L1, ""_L1, "on"_L1},
    Row{"transfer"_L1, ""_L1, "data pictures"_L1},
    Row{"map"_L1, "picture"_L1, "out"_L1},
    Row{"map"_L1, "export"_L1, "to"_L1},
    Row{"archive"_L1, ""_L1, "from to file ask"_L1},
    Row{"maintain"_L1, ""_L1, "date account"_L1},
    Row{"export"_L1, ""_L1, "file table to pictures where delimiter code-page"_L1},
    Row{"print"_L1, ""_L1, "layout list fields copy paper landscape portrait csv out where"_L1},
    Row{"import"_L1, ""_L1, "table pictures rehearse choose refused map preset delimiter code-page sheet headings dates decimal"_L1},
    Row{"mapdata"_L1, "import"_L1, "county state source date account beside"_L1},
};

struct CommandRow
{
    QLatin1StringView command;
    QLatin1StringView verbs; ///< "" for a command that takes none
};
constexpr std::array kCommands = {
    CommandRow{"records"_L1, "list find show add edit delete copy rename"_L1},
    CommandRow{"search"_L1, ""_L1},
    CommandRow{"find"_L1, ""_L1},
    CommandRow{"cities"_L1, "list add delete assign"_L1},
    CommandRow{"sql"_L1, ""_L1},
    CommandRow{"capture"_L1, "list copy"_L1},
    CommandRow{"trash"_L1, "list restore empty"_L1},
    CommandRow{"report"_L1, "status pages images cells"_L1},
    CommandRow{"refresh"_L1, ""_L1},
    CommandRow{"drop"_L1, ""_L1},
    CommandRow{"swap"_L1, ""_L1},
    CommandRow{"photos"_L1, "list file rename-view delete orphans verify"_L1},
    CommandRow{"transfer"_L1, "subject comps alternates listings rentals all"_L1},
    CommandRow{"layouts"_L1, "list show save use delete default"_L1},
    CommandRow{"settings"_L1, "list get set"_L1},
    CommandRow{"comments"_L1, "list key add delete"_L1},
    CommandRow{"map"_L1, "geocode reverse picture place proximity find anchor export"_L1},
    CommandRow{"mapdata"_L1, "import list verify diff use discard remove"_L1},
    CommandRow{"archive"_L1, ""_L1},
    CommandRow{"maintain"_L1, "recalc clear-anchors clear-photos land-size clean-keys clean-comments match-key proper-case "
                              "upper-case delete-by-sale delete-by-load"_L1},
    CommandRow{"export"_L1, ""_L1},
    CommandRow{"import"_L1, ""_L1},
    CommandRow{"doctor"_L1, ""_L1},
    CommandRow{"print"_L1, ""_L1},
    CommandRow{"databook"_L1, "copy"_L1},
    CommandRow{"convert"_L1, ""_L1},
};

/// Stands for the sign of a number, which the parser would take for an option.
constexpr QChar kMinus = u'\u2212';

QStringList Words(QLatin1StringView text)
{
    return QString(text).split(u' ');
}

} // namespace

QString StrangeCommand(const QStringList& command)
{
    const auto row = std::find_if(kCommands.begin(), kCommands.end(),
                                  [&](const CommandRow& one) { return command.value(0) == one.command; });
    if (row == kCommands.end())
        return command.isEmpty() ? u"No command given; 'vasctl --help' lists them."_s
                                 : u"'%1' is no command; 'vasctl --help' lists them."_s.arg(command[0]);
    const QStringList verbs = Words(row->verbs);
    if (row->verbs.isEmpty() || verbs.contains(command.value(1)))
        return {};
    return command.size() < 2 ? u"'vasctl %1' wants to know what to do: %2."_s.arg(command[0], verbs.join(u", "_s))
                              : u"'vasctl %1' can't '%2'; it knows %3."_s.arg(command[0], command[1],
                                                                              verbs.join(u", "_s));
}

QString WrongValue(const QCommandLineParser& options)
{
    static const QStringList several = Words("answer choose map set"_L1);
    static const QStringList wanted = Words("home socket file out csv refused account dir"_L1);
    for (const QString& name : options.optionNames()) {
        const QStringList values = options.values(name);
        if (values.size() > 1 && !several.contains(name))
            return u"--%1 is given twice, as '%2' and '%3'; it takes one value."_s.arg(name, values[0], values[1]);
        if (wanted.contains(name) && values.value(0).trimmed().isEmpty())
            return u"--%1 wants a value."_s.arg(name);
    }
    return {};
}

QString StrangeOption(const QStringList& command, const QStringList& given)
{
    QStringList known = Words(kCommon);
    const auto row = std::find_if(kRows.begin(), kRows.end(), [&](const Row& one) {
        return command.value(0) == one.command && (one.verb.isEmpty() || command.value(1) == one.verb);
    });
    if (row != kRows.end())
        known += Words(row->options);
    if (command.value(0) == "search"_L1)
        for (const QCommandLineOption& option : SearchOptions())
            known += option.names();
    const auto strange =
        std::find_if(given.begin(), given.end(), [&](const QString& name) { return !known.contains(name); });
    return strange == given.end() ? QString() : *strange;
}

QStringList WithSouthAndWest(QStringList arguments)
{
    static const QRegularExpression below(u"^-(?=\\.?\\d)"_s);
    if (arguments.contains(u"map"_s))
        for (QString& argument : arguments)
            argument.replace(below, QString(kMinus));
    return arguments;
}

QStringList CommandOf(const QCommandLineParser& options)
{
    QStringList command = options.positionalArguments();
    if (command.value(0) == "map"_L1)
        for (QString& word : command)
            if (word.startsWith(kMinus))
                word[0] = u'-';
    return command;
}

} // namespace vasclip::vasctl
