#include "platform/files/reach.h"

#include <QDirIterator>
#include <QFile>
#include <QFileInfo>

#include <future>

namespace vasclip::files {

namespace {

constexpr std::chrono::milliseconds kBetweenTurns{30};

/// What an opening asks of the disk first: the names on the way, and the head of the file.
void Touch(const Disk& disk, const QString& path) noexcept
{
    try {
        const QString native = disk.ToNative(path);
        if (QFileInfo(native).isDir()) {
            static_cast<void>(QDirIterator(native).hasNext());
            return;
        }
        constexpr qint64 kHead = 4096;
        QFile file(native);
        if (file.open(QIODevice::ReadOnly))
            static_cast<void>(file.read(kHead));
    } catch (...) {
        // Who opens it is told.
    }
}

} // namespace

void Reach(const Disk& disk, const QString& path, std::chrono::milliseconds patience, const std::function<void()>& slow,
           const std::function<void()>& turn)
{
    const std::future<void> reached = std::async(std::launch::async, [&disk, &path] { Touch(disk, path); });
    if (reached.wait_for(patience) == std::future_status::ready)
        return;
    slow();
    while (reached.wait_for(kBetweenTurns) != std::future_status::ready)
        turn();
}

} // namespace vasclip::files
