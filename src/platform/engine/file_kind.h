#pragma once

#include <QString>

namespace vasclip::engine {

/// The mark of this engine in the header of its files ("VASC").
inline constexpr quint32 kApplicationId = 0x56415343;

/// Looks at a database file before SQLite opens it. Must not be used on a file that this process has open: on
/// POSIX systems closing any handle of a file drops all its locks.
/// @param nativePath  the file; `shown` is its drive path for messages
/// @throws 3024 not there, 3051 no right to read it, 3343 not a database of this engine (the description says
/// what it
///         is), 3049 cut short
void CheckFileKind(const QString& nativePath, const QString& shown);

} // namespace vasclip::engine
