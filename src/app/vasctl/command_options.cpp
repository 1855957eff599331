#include "app/vasctl/command_options.h"

#include "app/vasctl/session.h"

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
    Row{"trash"_L1, "empty"_L1, "dir before"_L1},
    Row{"trash"_L1, ""_L1, "dir"_L1},
    Row{"drop"_L1, ""_L1, "on"_L1},
    Row{"transfer"_L1, ""_L1, "data pictures"_L1},
};

QStringList Words(QLatin1StringView text)
{
    return QString(text).split(u' ');
}

} // namespace

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

} // namespace vasclip::vasctl
