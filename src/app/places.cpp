#include "app/places.h"

#include "platform/desktop/desktop.h"

#include <QCoreApplication>

namespace vasclip::app {

using namespace Qt::Literals::StringLiterals;

shell::SystemPlaces Places(const files::Disk& disk)
{
    constexpr int kVistaMajor = 6;
    shell::SystemPlaces places;
    places.systemDirectory = desktop::SystemDirectory();
    places.windowsDirectory = desktop::WindowsDirectory();
    places.executableDir = disk.ToDrivePath(QCoreApplication::applicationDirPath()).value_or(u"C:"_s) + u'\\';
    places.isVista = desktop::ReadSystemVersion().major == kVistaMajor;
    return places;
}

} // namespace vasclip::app
