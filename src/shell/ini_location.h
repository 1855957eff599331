#pragma once

#include "forms/ports.h"
#include "platform/files/disk.h"

#include <QString>

namespace vasclip::shell {

/// What the desktop tells about itself, as the ini location rule needs it. Directories are drive paths.
struct SystemPlaces
{
    QString systemDirectory;  ///< "C:\WINDOWS\SYSTEM32"
    QString windowsDirectory; ///< "C:\WINDOWS"
    QString executableDir;    ///< with a backslash
    bool isVista = false;     ///< as GetWinVersionName finds it
    QString windowsName = {}; ///< likewise
};

struct IniDirectory
{
    QString directory; ///< where ini files are looked for first, with a backslash
    QString preferred; ///< the APPRAISE directory, "" if it is not there
};

/// The APPRAISE directory of the system's drive if it exists, else the Windows directory (with a notice on
/// Vista), else the executable's directory.
[[nodiscard]] IniDirectory GetIniDir(const files::Disk& disk, forms::Prompter& prompter,
                                     const SystemPlaces& places);

enum class IniKind { Application, Appraisal };
enum class Silence { Ask, Silent };

/// The full path of an ini file, trimmed and upper-cased: in the ini directory, else in the Windows directory
/// if it exists only there, else (after the question, unless silent) the path in the ini directory all the
/// same.
/// @throws forms::EndOfProgram for any answer but Yes
[[nodiscard]] QString LocateIni(const files::Disk& disk, forms::Prompter& prompter, const QString& name,
                                IniKind kind, const QString& iniDir, const QString& windowsDir,
                                Silence silence);

} // namespace vasclip::shell
