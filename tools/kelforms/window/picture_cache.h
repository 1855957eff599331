#pragma once

#include "platform/files/disk.h"

#include <QCache>
#include <QPixmap>
#include <QSize>
#include <QString>

namespace kelforms {

/// Pictures of the report, scaled for the screen. A file that has changed is read again.
class PictureCache
{
public:
    explicit PictureCache(const vasclip::files::Disk& disk);

    /// @param path  drive path
    /// @param room  what it has to fit into, in device pixels
    /// @return a null picture if there is no such file or it is no picture
    [[nodiscard]] QPixmap Fetch(const QString& path, const QSize& room);

private:
    const vasclip::files::Disk& m_disk;
    QCache<QString, QPixmap> m_pictures;
};

} // namespace kelforms
