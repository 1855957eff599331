#pragma once

#include "platform/paper/page.h"
#include "platform/paper/sheet.h"

#include <QImage>

class QPainter;

namespace vasclip::paper {

/// Where the pictures of pages come from, one at a time and as large as they are drawn.
class PictureSource
{
public:
    virtual ~PictureSource() = default;
    /// @return a null image where there is none that can be shown
    [[nodiscard]] virtual QImage Picture(const QString& name, QSize within) = 0;
};

/// What pictures are drawn at: dots an inch. More is not seen on paper and makes files large.
inline constexpr int kPictureDots = 200;

/// Paints a page on what has the size of its sheet.
/// @param scale  units of the painter in a twentieth of a point
void Paint(QPainter& painter, const Page& page, double scale, PictureSource& pictures);

/// The page as a picture, the paper white. @param dots  an inch
[[nodiscard]] QImage Picture(const Sheet& sheet, const Page& page, double dots, PictureSource& pictures);

} // namespace vasclip::paper
