#pragma once

#include <QImage>
#include <QSize>
#include <QString>

#include <functional>
#include <optional>

namespace vasclip::photos {

/// A small picture of a file, upright, and the pixels that the file itself has.
struct Thumb
{
    QImage image;
    QSize fullSize;
};

/// What thumbnails are made from. Called from several worker threads at once.
class ThumbSource
{
public:
    virtual ~ThumbSource() = default;
    /// The picture that the camera has put into the head of the file; nullopt for a file without one, and for
    /// a file that can't be read. Only the head is read.
    [[nodiscard]] virtual std::optional<Thumb> Embedded(const QString& path) const = 0;
    /// The file decoded at a reduced size.
    /// @param cancelled  asked now and then; true gives up
    /// @throws RuntimeError for a file that is no picture, and for one that was given up
    [[nodiscard]] virtual Thumb Reduced(const QString& path, int longerSide,
                                        const std::function<bool()>& cancelled) const = 0;
};

} // namespace vasclip::photos
