#pragma once

#include <QByteArray>
#include <QString>

#include <functional>
#include <optional>

namespace vasclip::files {

/// The letters of files that are not Unicode: a code page.
struct Letters
{
    std::function<QString(const QByteArray&)> read;
    std::function<std::optional<QByteArray>(const QString&)> write; ///< nullopt if it lacks one
    bool usual = false; ///< is what other programs of the system write a profile file in, and expect?
};

/// The five codes that Windows 1252 leaves open stand for themselves.
[[nodiscard]] QString FromWindows1252(const QByteArray& raw);
[[nodiscard]] const Letters& Windows1252();

/// Those of the system: on Windows the code page that its user has chosen, whatever this program takes for itself; elsewhere
/// Windows 1252.
[[nodiscard]] const Letters& SystemLetters();
/// A code page by its number, on Windows alone.
[[nodiscard]] Letters LettersOf(unsigned page);

} // namespace vasclip::files
