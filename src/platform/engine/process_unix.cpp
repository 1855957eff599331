#include "platform/engine/process.h"

#include <QByteArray>
#include <QFile>
#include <QFileInfo>

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <fcntl.h>
#include <unistd.h>

namespace vasclip::engine {

using namespace Qt::Literals::StringLiterals;

namespace {

bool Flush(const QString& path, int flags)
{
    const int file = ::open(QFile::encodeName(path).constData(), flags | O_CLOEXEC);
    if (file < 0)
        return false;
    const bool done = ::fsync(file) == 0;
    ::close(file);
    return done;
}

} // namespace

qint64 OwnProcess()
{
    return ::getpid();
}

QString StartMark(qint64 process)
{
    QFile file(u"/proc/%1/stat"_s.arg(process));
    if (!file.open(QIODevice::ReadOnly))
        return {};
    const QByteArray line = file.readAll();
    // The command may hold blanks and parentheses; the start time is the 20th word behind it.
    const QList<QByteArray> words = line.mid(line.lastIndexOf(')') + 2).split(' ');
    constexpr qsizetype kStartTime = 19;
    return words.size() > kStartTime ? QString::fromLatin1(words[kStartTime]) : QString();
}

bool IsAlive(qint64 process, const QString& startMark)
{
    if (process <= 0)
        return false;
    if (::kill(static_cast<pid_t>(process), 0) != 0 && errno == ESRCH)
        return false;
    const QString present = StartMark(process);
    return startMark.isEmpty() || present.isEmpty() || present == startMark;
}

bool FlushFile(const QString& nativePath)
{
    return Flush(nativePath, O_RDONLY);
}

bool RenameOver(const QString& from, const QString& to, NamesFlushed when)
{
    if (std::rename(QFile::encodeName(from).constData(), QFile::encodeName(to).constData()) != 0)
        return false;
    if (when == NamesFlushed::AtOnce)
        FlushNames(QFileInfo(to).absolutePath());
    return true;
}

void FlushNames(const QString& nativeDirectory)
{
    // The directory's own entries must be on the disk too; a file system that cannot do that is no failure.
    static_cast<void>(Flush(nativeDirectory, O_RDONLY | O_DIRECTORY));
}

} // namespace vasclip::engine
