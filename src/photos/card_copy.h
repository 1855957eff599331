#pragma once

#include "common/globals.h"
#include "forms/ports.h"
#include "photos/known_pictures.h"

namespace vasclip::photos {

/// What copying from media works with.
struct CopyDesk
{
    forms::Ports ports;
    const files::Disk& disk;
    const common::Globals& globals;
    /// Key of the record that names a stem of the photo store, "" if none does; may be empty.
    std::function<QString(const QString& stem)> recordOf = {};
    /// Bytes that are free in a directory; the disk's answer unless it is set.
    std::function<qint64(const QString& directory)> freeBytes = {};
};

/// Told what is being done and how far it is, in bytes. @return false stops
using CopyStep = std::function<bool(const QString& doing, qint64 done, qint64 total)>;

/// What a copy came to.
struct CopyOutcome
{
    bool begun = false;   ///< it passed its questions and there was room
    bool stopped = false; ///< by the user, or because the medium went
    int copied = 0;
    int thereAlready = 0; ///< under the same name, with the same content
    int leftOut = 0;      ///< known pictures that the user did not want again
    QStringList left;     ///< a line for each picture that did not need to be copied, or should not: why
    QStringList failed;   ///< names that an error kept from being copied, and the user went on
    QStringList renamed;  ///< names here of files that no report could have named
    QStringList kept;     ///< copies in the trash of files that were replaced

    [[nodiscard]] QString Text(const QString& captureDir) const; ///< for the status line
};

/// Copies pictures into `CAPTUREDIR` under their own names, but for a "]" in one, which no report can name.
///
/// Asks first about pictures whose content has come in before, and looks whether there is room. A file of the
/// same name and another content is kept in the trash directory before it is replaced. Each copy is read back
/// before it takes its name; no source is ever changed. When the medium goes, asks whether to try again. An error
/// that the common error block does not handle is reported and stops the copy; what was copied is whole.
/// @throws RuntimeError for what it meets before the copy begins
CopyOutcome CopyFromMedia(const CopyDesk& desk, const QString& sourceDir, const QStringList& names,
                          const CopyStep& step);

/// Drive and directory of both are the same, whatever the case and the last backslash.
[[nodiscard]] bool IsCaptureDirectory(const common::Globals& globals, const QString& directory);

/// The start directory of a device word of the menu. LASTCOPY goes first where it is there.
[[nodiscard]] QString StartDirectory(const common::Globals& globals, const files::Disk& disk,
                                     const QString& word);

} // namespace vasclip::photos
