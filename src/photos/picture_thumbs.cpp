#include "photos/picture_thumbs.h"

#include "platform/picture/facts.h"
#include "platform/picture/picture.h"

#include <cstdlib>

namespace vasclip::photos {

namespace {

/// Without the black bars that a camera puts beside a small picture of another shape.
QImage InShape(const QImage& image, QSize full)
{
    if (full.isEmpty() || image.isNull())
        return image;
    QSize inside = full.scaled(image.size(), Qt::KeepAspectRatio);
    if (std::abs(inside.width() - image.width()) <= 1 && std::abs(inside.height() - image.height()) <= 1)
        return image;
    QRect part(QPoint(), inside);
    part.moveCenter(image.rect().center());
    return image.copy(part);
}

} // namespace

std::optional<Thumb> PictureThumbs::Embedded(const QString& path) const
{
    const picture::SmallPicture small = picture::EmbeddedThumbnail(m_disk, path);
    if (small.image.isNull())
        return std::nullopt;
    const QSize full = small.ofWhole.isEmpty() ? picture::Describe(m_disk, path).size : small.ofWhole;
    return Thumb{InShape(small.image, full), full};
}

Thumb PictureThumbs::Reduced(const QString& path, int longerSide, const std::function<bool()>& cancelled) const
{
    picture::Limits limits;
    limits.cancelled = cancelled;
    const QImage image = picture::Load(m_disk, path, longerSide, limits);
    const QSize full = picture::Describe(m_disk, path).size;
    return {image, full.isEmpty() ? image.size() : full};
}

} // namespace vasclip::photos
