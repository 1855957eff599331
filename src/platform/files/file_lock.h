#pragma once

#include <QString>

namespace vasclip::files {

/// A lock that the system keeps on a file of its own, so that it goes with the process that held it, however
/// that ended. It holds against other processes and against other locks of this one.
class FileLock
{
public:
    FileLock() = default;
    ~FileLock();
    FileLock(const FileLock&) = delete;
    FileLock& operator=(const FileLock&) = delete;

    /// What becomes of the file when the lock is let go.
    enum class After { Stays, Goes };

    /// @param path    native; the file is made if it is missing. One that a killed process left is taken over.
    /// @param waitMs  0 tries once
    /// @return false if somebody else holds it, or the file cannot be made
    [[nodiscard]] bool Take(const QString& path, int waitMs, After after = After::Stays);
    void Release();
    [[nodiscard]] bool IsHeld() const { return m_handle != -1; }
    /// After a Take in vain: does somebody else hold it? False where there was no file to hold.
    [[nodiscard]] bool HeldByOther() const { return m_heldByOther; }
    /// After a Take in vain: is there a file, and the disk keeps no locks on it?
    [[nodiscard]] bool KeptNone() const { return m_keptNone; }

private:
    qintptr m_handle = -1;
    QString m_goes; ///< the file that goes with the lock
    bool m_heldByOther = false;
    bool m_keptNone = false;
};

} // namespace vasclip::files
