#pragma once

#include <QStringList>

namespace vasclip::vasctl {

/// What is wrong with the command and its verb; "" for one that is known. Told before the home is looked at.
[[nodiscard]] QString StrangeCommand(const QStringList& command);

/// Of the options that were given, the first that means nothing to the command; "" if all of them do. Left
/// unsaid, somebody would think that it was heeded.
/// @param command  the words of the command line without its options
[[nodiscard]] QString StrangeOption(const QStringList& command, const QStringList& given);

} // namespace vasclip::vasctl
