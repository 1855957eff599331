#pragma once

#include "platform/files/native.h"

#include <QString>

namespace vasclip::files {

/// Throws the number and the words of a failed call.
/// @param path    the drive path, for the words
/// @param denied  number for missing rights: 70 where content is written or copied, 75 elsewhere
[[noreturn]] void ThrowFailure(native::Failure failure, const QString& path, int denied);

/// Throws with the usual words of a number, the path, and what more there is to say.
[[noreturn]] void ThrowNumber(int number, const QString& path, const QString& detail = QString());

} // namespace vasclip::files
