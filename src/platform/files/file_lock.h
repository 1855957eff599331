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

    /// @param path    native; the file is made if it is missing and stays behind
    /// @param waitMs  0 tries once
    /// @return false if somebody else holds it, or the file cannot be made
    [[nodiscard]] bool Take(const QString& path, int waitMs);
    void Release();
    [[nodiscard]] bool IsHeld() const { return m_handle != -1; }

private:
    qintptr m_handle = -1;
};

} // namespace vasclip::files
