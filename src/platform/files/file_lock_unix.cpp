#include "platform/files/file_lock.h"

#include <QElapsedTimer>

#include <cerrno>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace vasclip::files {

namespace {

/// Where nothing may be written, a lock on the file that is there holds as well.
int OpenLockFile(const QByteArray& name)
{
    constexpr mode_t kForAll = 0666;
    const int handle = open(name.constData(), O_RDWR | O_CREAT | O_CLOEXEC, kForAll);
    return handle >= 0 || (errno != EROFS && errno != EACCES) ? handle
                                                              : open(name.constData(), O_RDONLY | O_CLOEXEC);
}

/// Does the name still lead to the open file? Its last holder may have taken it away.
bool IsStill(int handle, const QByteArray& name)
{
    struct stat open = {};
    struct stat named = {};
    return fstat(handle, &open) == 0 && stat(name.constData(), &named) == 0 && open.st_dev == named.st_dev &&
           open.st_ino == named.st_ino;
}

} // namespace

FileLock::~FileLock()
{
    Release();
}

bool FileLock::Take(const QString& path, int waitMs, After after)
{
    Release();
    m_heldByOther = m_keptNone = false;
    const QByteArray name = path.toUtf8();
    QElapsedTimer waiting;
    waiting.start();
    useconds_t pause = 200;
    for (;;) {
        const int handle = OpenLockFile(name);
        if (handle < 0)
            return false;
        while (flock(handle, LOCK_EX | LOCK_NB) != 0) {
            m_heldByOther = errno == EWOULDBLOCK;
            m_keptNone = !m_heldByOther && errno != EINTR;
            if (m_keptNone || waiting.elapsed() >= waitMs) {
                close(handle);
                return false;
            }
            usleep(pause);
            pause = pause < 5000 ? pause * 2 : 5000;
        }
        if (after == After::Stays || IsStill(handle, name)) {
            m_handle = handle;
            m_heldByOther = false;
            if (after == After::Goes)
                m_goes = path;
            return true;
        }
        close(handle);
    }
}

void FileLock::Release()
{
    if (m_handle == -1)
        return;
    if (!m_goes.isEmpty())
        unlink(m_goes.toUtf8().constData()); // before the lock goes: who waits for it sees that the file is gone
    close(int(m_handle));
    m_handle = -1;
    m_goes.clear();
}

} // namespace vasclip::files
