#include "map/map_icons.h"

#include "map/picture_names.h"
#include "platform/picture/picture.h"
#include "platform/street/draw/mark.h"

namespace vasclip::map {

namespace {

constexpr double kRatio = 3; ///< of pixels to 1/96 inch, for a screen of any density

/// A drawing of ours has no ground, unlike the bitmap that was made of it.
QImage ReadBitmap(const MapDesk& desk, const QString& name)
{
    const QString path = BitmapPath(desk.globals.arrowsDir, name);
    if (!desk.disk.FileExists(path))
        return {};
    const auto mark = street::draw::ReadMark(name);
    return mark && street::draw::IsOwnBitmap(desk.disk.ToNative(path)) ? street::draw::DrawMark(*mark, kRatio, false)
                                                                        : picture::Load(desk.disk, path);
}

} // namespace

void ShowBitmap(const MapDesk& desk, forms::PictureBox& box, const QString& name)
{
    try {
        box.SetPicture(ReadBitmap(desk, name));
    } catch (const RuntimeError&) {
        box.SetPicture({}); // a damaged one is none
    }
}

} // namespace vasclip::map
