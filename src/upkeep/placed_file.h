#pragma once

#include <QString>

namespace vasclip::upkeep {

/// What tells a file from another one of its name; a rename leaves it as it is.
struct FileMark
{
    qint64 bytes = -1; ///< -1: there is none
    qint64 changed = 0;

    [[nodiscard]] static FileMark Of(const QString& native);
    friend bool operator==(const FileMark&, const FileMark&) = default;
};

/// Do two files hold the same? False where one can't be read.
[[nodiscard]] bool SameBytes(const QString& left, const QString& right);
/// Deletes a file, also one that is write-protected. @return false if it is still there
bool RemoveFile(const QString& native);

} // namespace vasclip::upkeep
