#pragma once

#include <QString>

namespace vasclip::engine {

/// Number of this process.
[[nodiscard]] qint64 OwnProcess();
/// A text that differs between two processes that had the same number one after the other; "" if unknown.
[[nodiscard]] QString StartMark(qint64 process);
/// Is there a process of that number, and if `startMark` is known, is it still the same one?
[[nodiscard]] bool IsAlive(qint64 process, const QString& startMark);

/// Forces the content of a file to the disk. @return false if that failed
[[nodiscard]] bool FlushFile(const QString& nativePath);
/// When the names that a directory has now are forced to the disk.
enum class NamesFlushed { AtOnce, Later };
/// Renames a file over another one in one step. @return false if that failed
[[nodiscard]] bool RenameOver(const QString& from, const QString& to, NamesFlushed when = NamesFlushed::AtOnce);
/// What RenameOver left for later, for all files of a directory at once.
void FlushNames(const QString& nativeDirectory);

} // namespace vasclip::engine
