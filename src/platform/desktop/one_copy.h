#pragma once

#include "platform/files/file_lock.h"

#include <QString>

namespace vasclip::desktop {

/// Stands for this copy of the program on one home, as long as it lives. A copy that was killed stands no
/// more: the system itself takes its lock back. Where the system has names for all its programs (a mutex on Windows), one is
/// taken as well, for a home whose disk takes no mark or keeps no locks.
class OneCopy
{
public:
    /// @param home  native directory
    explicit OneCopy(const QString& home);

    ~OneCopy();
    OneCopy(const OneCopy&) = delete;
    OneCopy& operator=(const OneCopy&) = delete;

    /// False if another copy was there first. A home that takes no mark of this one, since it may not be written,
    /// keeps nobody out but by the system's name.
    [[nodiscard]] bool IsFirst() const { return !m_lock.HeldByOther() && !m_nameTaken; }
    /// Number of the process that was there first; 0 if this one is, or nothing tells.
    [[nodiscard]] qint64 OtherProcess() const { return m_other; }

private:
    void TakeName(const QString& home); ///< sets m_nameTaken where another copy has it

    files::FileLock m_lock;
    qintptr m_name = 0;
    bool m_nameTaken = false;
    qint64 m_other = 0;
};

} // namespace vasclip::desktop
