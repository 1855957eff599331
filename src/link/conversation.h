#pragma once

#include "common/status.h"
#include "forms/ports.h"
#include "link/kel_pages.h"
#include "platform/conduit/conduit.h"

#include <functional>

namespace vasclip::link {

class Talk;

/// What talking with the forms program takes: the line, who waits meanwhile, and where it is told.
struct Conversation
{
    conduit::Conduit& txtDDE;
    forms::Ports ports;
    common::StatusDesk& status;
    /// Reads KEL.INI; see ReadsKelIni.
    IniReader kelIni;
    /// File version of an executable by its drive path, "" if it has none or is not there.
    std::function<QString(const QString& drivePath)> fileVersion;
    /// Step texts of a refresh for the log; may be empty.
    std::function<void(const QString& text)> log = {};
    /// Refuses a version of the forms program; empty: every version serves.
    std::function<bool(const QString& version)> versionServes = {};
    QString productVersion = {};
    Talk* talk = nullptr; ///< keeps the window alive while the forms program takes its time; none: nothing does
};

} // namespace vasclip::link
