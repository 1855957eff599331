#pragma once

#include <QString>
#include <QStringList>

namespace vasclip::conduit {

/// The oldest Wine that has been seen to carry the exchange.
inline constexpr int kLeastWine = 8;

/// The path of Wine's loader; what is asked for, where that is a path or none is found.
[[nodiscard]] QString FindWine(const QString& asked);
/// @throws RuntimeError 298 if it can't be run, does not tell its version, or that is below kLeastWine
void RequireWine(const QString& program);

/// vasclip-bridge.exe: what is asked for, else beside this program, else in the lib directory beside its own.
[[nodiscard]] QString FindBridge(const QString& asked);
/// @throws RuntimeError 298 if it is not there
void RequireBridge(const QString& path);

/// "NAME=value", for a Wine that says to people only what they can use.
[[nodiscard]] QStringList WineEnvironment(const QString& prefix);

} // namespace vasclip::conduit
