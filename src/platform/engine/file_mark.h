#pragma once

#include <QString>

namespace vasclip::engine {

/// What tells a file from another one of its name, and from itself after somebody wrote into it; a rename leaves it as it is.
struct FileMark
{
    qint64 bytes = -1; ///< -1: there is none
    qint64 changed = 0;

    [[nodiscard]] static FileMark Of(const QString& native);
    friend bool operator==(const FileMark&, const FileMark&) = default;
};

} // namespace vasclip::engine
