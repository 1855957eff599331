#include "platform/files/file_lock.h"

#include <QElapsedTimer>

#include <cerrno>

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

namespace vasclip::files {

FileLock::~FileLock()
{
    Release();
}

bool FileLock::Take(const QString& path, int waitMs)
{
    Release();
    const QByteArray name = path.toUtf8();
    const int handle = open(name.constData(), O_RDWR | O_CREAT | O_CLOEXEC, 0666);
    if (handle < 0)
        return false;
    QElapsedTimer waiting;
    waiting.start();
    useconds_t pause = 200;
    while (flock(handle, LOCK_EX | LOCK_NB) != 0) {
        if ((errno != EWOULDBLOCK && errno != EINTR) || waiting.elapsed() >= waitMs) {
            close(handle);
            return false;
        }
        usleep(pause);
        pause = pause < 5000 ? pause * 2 : 5000;
    }
    m_handle = handle;
    return true;
}

void FileLock::Release()
{
    if (m_handle != -1)
        close(int(m_handle));
    m_handle = -1;
}

} // namespace vasclip::files
