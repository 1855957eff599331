#pragma once

#include "platform/conduit/patience.h"

#include <QString>
#include <QStringList>

namespace vasclip::conduit {

/// The oldest Wine that has been seen to carry the exchange.
inline constexpr int kLeastWine = 8;

/// The path of Wine's loader; what is asked for, where that is a path or none is found.
[[nodiscard]] QString FindWine(const QString& asked);
/// @throws RuntimeError 298 if it can't be run, does not tell its version, or that is below kLeastWine
/// @param patience  is called while Wine takes its time; may be nullptr
void RequireWine(const QString& program, Patience* patience);

/// vasclip-bridge.exe: what is asked for, else beside this program, else in the lib directory beside its own.
[[nodiscard]] QString FindBridge(const QString& asked);
/// @throws RuntimeError 298 if it is not there
void RequireBridge(const QString& path);

/// @throws RuntimeError 298 if one is named and no Wine lives there: it would be made, and no forms program be found in it
void RequirePrefix(const QString& prefix);
/// "NAME=value", for a Wine that says to people only what they can use.
[[nodiscard]] QStringList WineEnvironment(const QString& prefix);

} // namespace vasclip::conduit
