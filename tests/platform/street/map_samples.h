#pragma once

#include <QDir>
#include <QFile>
#include <QString>

namespace vasclip::street::test {

using namespace Qt::StringLiterals;

/// A file of the street data that is shared by all who build; "" where it isn't there.
/// VASCLIP_MAPDATA names its directory, else it lies beside the source.
inline QString MapSample(const QString& name)
{
    const QString directory = qEnvironmentVariable("VASCLIP_MAPDATA", u"" VASCLIP_MAPDATA_DEFAULT ""_s);
    const QString path = QDir(directory).filePath(name);
    return QFile::exists(path) ? path : QString();
}

} // namespace vasclip::street::test
