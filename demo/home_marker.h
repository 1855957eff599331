#pragma once

#include <QString>

namespace vasclip::demo {

/// What the marker file of a home, "demo-home.txt", tells of it.
enum class HomeState {
    Empty,      ///< no home yet: the directory is missing or empty
    Foreign,    ///< other files, which are nobody's to overwrite
    Unfinished, ///< a run was interrupted
    Complete
};

[[nodiscard]] HomeState StateOfHome(const QString& directory);

/// Writes the marker: first as unfinished, when all is done as complete.
/// @throws RuntimeError 75
void MarkHome(const QString& directory, HomeState state, int comps);

/// Takes away what an earlier run made: drive C and the marker's claim that it is complete.
/// @throws RuntimeError 75
void ClearHome(const QString& directory);

} // namespace vasclip::demo
