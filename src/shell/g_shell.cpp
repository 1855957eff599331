#include "shell/g_shell.h"

#include "platform/desktop/desktop.h"

#include <QLatin1StringView>

#include <algorithm>
#include <array>

namespace vasclip::shell {

using namespace Qt::Literals::StringLiterals;

namespace {

struct Row
{
    int result;
    QLatin1StringView text;
};

constexpr std::array kRows{
    Row{0, "Out of memory"_L1},
    Row{2, "File not found"_L1},
    Row{3, "Path not found"_L1},
    Row{5, "Path/file access error"_L1},
    Row{8, "Out of memory"_L1},
    Row{11, "The executable file is invalid or corrupt"_L1},
    Row{26, "A sharing violation occurred."_L1},
    Row{27, "This file type does not have a valid file association."_L1},
    Row{28, "The file could not be opened due to time out. Please try again in a moment."_L1},
    Row{29,
        "The file could not be opened because the DDE transaction failed. Please try again in a moment."_L1},
    Row{30,
        "The file could not be opened because the target application is busy. Please try again in a moment."_L1},
    Row{31, "No application is associated with this file type."_L1},
    Row{32, "The specified dynamic-link library was not found."_L1},
};

} // namespace

QString ShellErrorText(int result)
{
    const auto row =
        std::find_if(kRows.begin(), kRows.end(), [&](const Row& r) { return r.result == result; });
    if (row != kRows.end())
        return row->text;
    return u"An error occurred occurred whilst trying to open or print the selected file."_s;
}

bool GShell(const files::Disk& disk, forms::Prompter& prompter, const QString& verb, const QString& file,
            const QString& parameters, const QString& directory)
{
    const int result = desktop::ShellOpen(disk, verb, file, parameters, directory);
    if (result > 32)
        return true;
    prompter.Info({}, ShellErrorText(result));
    return false;
}

} // namespace vasclip::shell
