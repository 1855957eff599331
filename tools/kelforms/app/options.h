#pragma once

#include "kelforms/core/forms_program.h"
#include "platform/conduit/link_server.h"

#include <QString>
#include <QStringList>

#include <optional>

namespace kelforms {

/// The command line.
struct Options
{
    bool headless = false;
    bool saveOnExit = false;
    bool dark = false;
    QString home;
    QString socketPath;
    QString iniFile; ///< drive path of KEL.INI; "" looks in the usual places
    QString logFile;
    QString screenshot; ///< picture file to write once the window stands; the program then ends
    QString page;       ///< page to show first
    QString tourDir;
    QStringList reports;
    vasclip::conduit::LinkFaults faults;
    Habits habits;
};

/// @param exitCode  set when there is nothing to run: help and version were printed, or the line was wrong
/// @return nullopt then
[[nodiscard]] std::optional<Options> ReadOptions(const QStringList& arguments, int& exitCode);

/// True if the line asks for no window; looked at before there is an application.
[[nodiscard]] bool WantsNoWindow(int argc, char** argv);

} // namespace kelforms
