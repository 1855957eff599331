#pragma once

#include "support/unix.h"

#include <cerrno>

/// A disk that keeps no locks, as that of a share may be: FileLock asks the system by one call, and this stands in its place. One
/// file of a test program includes it; on Windows the call is another one, and such tests begin with VASCLIP_NEEDS_UNIX.
namespace vasclip::tests {

enum class Locks { Kept, GivenToAll, Refused };

inline Locks& LocksOfTheDisk()
{
    static Locks locks = Locks::Kept;
    return locks;
}

/// Lies for as long as it lives.
class LyingDisk
{
public:
    explicit LyingDisk(Locks locks) { LocksOfTheDisk() = locks; }
    ~LyingDisk() { LocksOfTheDisk() = Locks::Kept; }
    LyingDisk(const LyingDisk&) = delete;
    LyingDisk& operator=(const LyingDisk&) = delete;
};

} // namespace vasclip::tests

#ifdef Q_OS_UNIX

#include <sys/file.h>
#include <sys/syscall.h>

extern "C" int flock(int file, int operation) noexcept
{
    using vasclip::tests::Locks;
    const Locks locks = vasclip::tests::LocksOfTheDisk();
    if (locks == Locks::GivenToAll)
        return 0;
    if (locks == Locks::Refused) {
        errno = ENOLCK;
        return -1;
    }
    return static_cast<int>(syscall(SYS_flock, file, operation));
}

#endif
