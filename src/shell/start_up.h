#pragma once

#include "shell/ini_location.h"

#include <functional>

namespace vasclip::shell {

/// The program's own command line, after the options that begin with "--" have been taken off it.
struct StartUpOptions
{
    QString commandLine;
    std::function<bool()> previousInstance; ///< is another copy running? null: no
    SystemPlaces places;
    QString version; ///< major.minor.revision
    /// The caption of the first window of a class; null: there is none.
    std::function<QString(const QString& windowClass)> findWindowCaption = {};
    bool homeIsReadOnly = false; ///< nothing of the home can be written: it is for looking and sending
};

/// Takes the program's own switches off its arguments; options that begin with "--" stay, each with its value.
/// "/NO LOAD" is one switch of two arguments, wherever it stands.
/// @return what was taken, in its order
[[nodiscard]] QStringList TakeSwitches(QStringList& arguments);

/// The switches, read from the whole line upper-cased.
struct Switches
{
    explicit Switches(const QString& commandLine);
    bool debug;      ///< the line is "/D" exactly
    bool trace;      ///< the line contains "/D": a box per step
    bool silent;     ///< "/S": no message pump; with trace only steps without .JPG or .BMP in their detail
    bool pumpAlways; ///< "/2"
    bool noLoad;     ///< "/NOLOAD" or "/NO LOAD": the user's grid layout is not loaded
};

} // namespace vasclip::shell
