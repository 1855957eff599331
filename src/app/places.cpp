#include "app/places.h"

#include "platform/desktop/desktop.h"
#include "shell/win_version.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>

namespace vasclip::app {

using namespace Qt::Literals::StringLiterals;

shell::SystemPlaces Places(const files::Disk& disk)
{
    shell::SystemPlaces places;
    places.systemDirectory = desktop::SystemDirectory();
    places.windowsDirectory = desktop::WindowsDirectory();
    places.executableDir = disk.ToDrivePath(QCoreApplication::applicationDirPath()).value_or(u"C:"_s) + u'\\';
    const shell::WinVersionName version = shell::GetWinVersionName(desktop::ReadSystemVersion());
    places.isVista = version.isVista;
    places.windowsName = version.name;
    return places;
}

bool IsDemoHome(const QString& home)
{
    const QFileInfo drive(home + u"/drive_c"_s); // a link would lead to what the demo did not make
    return QFile::exists(home + u"/demo-home.txt"_s) && drive.isDir() && !drive.isSymLink() && !drive.isJunction();
}

} // namespace vasclip::app
