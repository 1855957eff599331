#pragma once

#include "photos/thumb_source.h"
#include "platform/files/disk.h"

namespace vasclip::photos {

/// Thumbnails of the picture files on a disk, which outlives it.
class PictureThumbs : public ThumbSource
{
public:
    explicit PictureThumbs(const files::Disk& disk)
        : m_disk(disk)
    {}
    [[nodiscard]] std::optional<Thumb> Embedded(const QString& path) const override;
    [[nodiscard]] Thumb Reduced(const QString& path, int longerSide,
                                const std::function<bool()>& cancelled) const override;

private:
    const files::Disk& m_disk;
};

} // namespace vasclip::photos
