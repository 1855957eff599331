#pragma once

#include <QString>

namespace vasclip::mapdata {

/// What the program answers to its caller.
enum ExitCode {
    kDone = 0,
    kFailed = 1, ///< nothing was changed, or verify found a fault
    kUsage = 2,
    kNoMap = 3, ///< there is no such map, or no maps at all
    kStopped = 4 ///< by its caller; nothing was changed
};

/// One line a map: county, state, streets, houses, source, date, bytes, and its ground, with tabs between.
int List(const QString& directory, bool json);
int Verify(const QString& directory);
int Remove(const QString& directory, const QString& county);
int Use(const QString& directory); ///< the maps that wait beside those in use
int Discard(const QString& directory); ///< deletes those

/// Says what went wrong on the error output.
void TellProblem(const QString& problem);

} // namespace vasclip::mapdata
