#include "map/map_icons.h"

#include "map/picture_names.h"
#include "platform/picture/picture.h"

namespace vasclip::map {

void ShowBitmap(const MapDesk& desk, forms::PictureBox& box, const QString& name)
{
    const QString path = BitmapPath(desk.globals.arrowsDir, name);
    try {
        box.SetPicture(desk.disk.FileExists(path) ? picture::Load(desk.disk, path) : QImage());
    } catch (const RuntimeError&) {
        box.SetPicture({}); // a damaged one is none
    }
}

} // namespace vasclip::map
