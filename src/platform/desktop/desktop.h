#pragma once

#include "platform/files/disk.h"

#include <QString>
#include <QStringList>

namespace vasclip::desktop {

/// The answers of `ShellOpen`; above 32 all went well.
enum ShellResult : int {
    kShellOutOfMemory = 0,
    kShellFileNotFound = 2,
    kShellPathNotFound = 3,
    kShellAccessDenied = 5,
    kShellBadProgram = 11,
    kShellNoAssociation = 31,
    kShellDone = 42,
};

/// Opens a file with the program that belongs to it, or starts it if it is a program; never waits for that to
/// end.
/// @param verb        "open" or "" (both the same), "print", "explore"; another verb has no association
/// @param file        drive path, or an address such as "https://..." or "mailto:..."
/// @param parameters  for a program, as on its command line; double quotes hold blanks together
/// @param directory   drive path in which a program starts; "" for its own
/// @return a `ShellResult`; the numbers up to 32 are those of the shell call
[[nodiscard]] int ShellOpen(const files::Disk& disk, const QString& verb, const QString& file,
                            const QString& parameters = {}, const QString& directory = {});

/// Starts a program that lives on by itself.
/// @param program    native path, or a name to be sought in the path
/// @param directory  native; "" for this program's
/// @return false if it could not be started
[[nodiscard]] bool StartProgram(const QString& program, const QStringList& arguments,
                                const QString& directory = {});

/// The version of an executable, "7.1.0.3"; "" if it has none. A file that carries none itself may have it in the first line
/// of `<file>.version` beside it, as the place marker of a made-up home does.
/// @param nativePath  as `Disk::ToNative` gives it
[[nodiscard]] QString FileVersion(const QString& nativePath);

/// Drive paths without a closing backslash: "C:\WINDOWS\SYSTEM32" and "C:\WINDOWS" where the system has none
/// of its own.
[[nodiscard]] QString SystemDirectory();
[[nodiscard]] QString WindowsDirectory();

/// The version record of the system.
struct SystemVersion
{
    int major = 0;
    int minor = 0;
    int build = 0;
    bool isNt = false;
    QString servicePack; ///< may hold any characters
};

/// @param elsewhere  the answer on systems that have no such record
[[nodiscard]] SystemVersion ReadSystemVersion(const SystemVersion& elsewhere = {6, 1, 7601, true, {}});

/// Caption, of at most 255 characters, of the first window of a class; "" without one, and on systems whose
/// windows have no classes.
[[nodiscard]] QString FindWindowCaption(const QString& windowClass);

/// False where a window would end the program, for want of a display or of a choice of what to draw on.
[[nodiscard]] bool CanShowWindows();

/// Stands while the application is made, which then goes by the system's choice of light and dark, frames of windows included.
/// Programs that are started later are told nothing. On systems where Qt does so by itself it does nothing.
class SystemColours
{
public:
    SystemColours();
    ~SystemColours();
    Q_DISABLE_COPY_MOVE(SystemColours)

private:
    bool m_told = false;
};

} // namespace vasclip::desktop
