#pragma once

#include "common/globals.h"
#include "platform/files/disk.h"
#include "upkeep/report_layout.h"

namespace vasclip::upkeep {

/// Where users keep layouts of their own: drive path with a closing backslash.
[[nodiscard]] QString LayoutDirectory(const common::Globals& globals);

/// A layout that can be printed by its name.
struct LayoutEntry
{
    QString name; ///< in small letters
    QString words;
    bool own = false; ///< in the user's directory; it hides the program's of that name
    QString wrong;    ///< why it can't be used, "" if it can
};

/// The program's three and the user's own, by name. One that is wrong is listed with its reason.
[[nodiscard]] QList<LayoutEntry> ListLayouts(const files::Disk& disk, const common::Globals& globals);
/// As a list shows it: a copy has the words of the one that it comes from, and is told by its name.
[[nodiscard]] QString ShownName(const LayoutEntry& entry);

/// A layout by its name, of any case, the user's own first. @throws RuntimeError 53 for one that is not
/// there, with the names that are; 5 for one that is wrong, with its file, line and column
[[nodiscard]] ReportLayout OpenLayout(const files::Disk& disk, const common::Globals& globals,
                                      const QString& name);

/// Copies a layout of the program's into the user's directory, for editing. @return its drive path
/// @throws RuntimeError 53, 58 if there is a file of that name already, and those of Disk
QString CopyLayout(const files::Disk& disk, const common::Globals& globals, const QString& name,
                   const QString& newName);

/// The paper that was chosen last for a layout, its own until then.
[[nodiscard]] paper::Sheet SheetOf(const files::Disk& disk, const common::Globals& globals,
                                   const ReportLayout& layout);
/// @return false if it could not be kept
bool KeepSheet(const files::Disk& disk, const common::Globals& globals, const ReportLayout& layout,
               const paper::Sheet& sheet);

} // namespace vasclip::upkeep
