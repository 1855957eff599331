#pragma once

#include <QString>

namespace vasclip::demo {

/// What the marker file of a home, "demo-home.txt", tells of it.
enum class HomeState {
    Empty,      ///< no home yet: the directory is missing or empty
    Foreign,    ///< other files, which are nobody's to overwrite
    Unfinished, ///< a run was interrupted
    Older,      ///< complete, but made by another recipe than this program's
    Complete
};

/// Raise it when a home holds something new or other, so that an older one is made anew.
inline constexpr int kHomeRecipe = 8;

[[nodiscard]] HomeState StateOfHome(const QString& directory);

/// Writes the marker: first as unfinished, when all is done as complete.
/// @throws RuntimeError 75
void MarkHome(const QString& directory, HomeState state, int comps);

/// A drive C that is a link leads to what the demo did not make: another home's Databook, or the machine's own C.
/// @throws RuntimeError 75
void RefuseLinkedDrive(const QString& directory);

/// Takes away what an earlier run made: drive C and the marker's claim that it is complete.
/// @throws RuntimeError 75
void ClearHome(const QString& directory);

/// Moves drive C of an older home aside, since somebody may have worked in it, and returns where to.
/// @throws RuntimeError 75
QString KeepOlderHome(const QString& directory);

} // namespace vasclip::demo
