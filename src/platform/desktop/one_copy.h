#pragma once

#include "platform/files/file_lock.h"

#include <QString>

namespace vasclip::desktop {

/// Stands for this copy of the program on one home, as long as it lives. A copy that was killed stands no
/// more: the system itself takes its lock back.
class OneCopy
{
public:
    /// @param home  native directory
    explicit OneCopy(const QString& home);

    /// False if another copy was there first. A home that takes no mark of this one, since it may not be written,
    /// keeps nobody out.
    [[nodiscard]] bool IsFirst() const { return !m_lock.HeldByOther(); }
    /// Number of the process that was there first; 0 if this one is, or nothing tells.
    [[nodiscard]] qint64 OtherProcess() const { return m_other; }

private:
    files::FileLock m_lock;
    qint64 m_other = 0;
};

} // namespace vasclip::desktop
