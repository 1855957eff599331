#pragma once

#include "platform/files/disk.h"

#include <chrono>
#include <functional>

namespace vasclip::files {

/// Reaches for a file or a directory in a thread, so that a disk that has to spin up, or a share that answers late, keeps
/// nobody standing still. Afterwards the caller finds it as quick as it will ever be. Whether it is there is not told.
/// For a file that this process has not opened: its closing would take the locks off that one.
/// @param patience  for the first answer; then `slow` is called, once
/// @param turn      called every few milliseconds while it takes longer
void Reach(const Disk& disk, const QString& path, std::chrono::milliseconds patience, const std::function<void()>& slow,
           const std::function<void()>& turn);

} // namespace vasclip::files
