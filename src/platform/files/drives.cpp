#include "platform/files/drives.h"

#include "platform/files/ini_text.h"
#include "platform/files/native.h"

#include <QDir>
#include <QFileInfo>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace vasclip::files {

QList<Drive> ReadDrives(const QString& home)
{
    return ReadDrives(home, native::MachineDrives());
}

QList<Drive> ReadDrives(const QString& home, QList<Drive> drives)
{
    const auto isMapped = [&drives](QChar letter) {
        return std::any_of(drives.cbegin(), drives.cend(), [&](const Drive& drive) { return drive.first == letter; });
    };
    const QString own = home + u"/drive_c"_s;
    if (QFileInfo(own).isDir())
        drives.removeIf([](const Drive& drive) { return drive.first == u'C'; });
    if (!isMapped(u'C'))
        drives.append({u'C', own});

    QByteArray content;
    if (native::ReadAll(home + u"/drives.ini"_s, content) == native::Failure::None) {
        const IniText ini(content);
        const QString section = u"DRIVES"_s;
        for (const QString& key : ini.Keys(section)) {
            const QChar letter = key.isEmpty() ? QChar() : key[0].toUpper();
            const bool isLetter = letter >= u'A' && letter <= u'Z' && (key.size() == 1 || key.mid(1) == u":");
            const QString directory = ini.Value(section, key).value_or(QString());
            if (isLetter && !directory.isEmpty() && !isMapped(letter))
                drives.append({letter, QDir::cleanPath(QDir(home).absoluteFilePath(directory))});
        }
    }
    std::sort(drives.begin(), drives.end(), [](const auto& a, const auto& b) {
        return a.first != b.first && (a.first == u'C' || (b.first != u'C' && a.first < b.first));
    });
    return drives;
}

} // namespace vasclip::files
