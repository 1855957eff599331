#include "platform/desktop/version_beside.h"

#include <QFile>

namespace vasclip::desktop {

using namespace Qt::Literals::StringLiterals;

QString VersionBeside(const QString& nativePath)
{
    QFile beside(nativePath + u".version"_s);
    if (!QFile::exists(nativePath) || !beside.open(QIODevice::ReadOnly))
        return {};
    constexpr qint64 kLongestLine = 256;
    return QString::fromUtf8(beside.readLine(kLongestLine)).trimmed();
}

} // namespace vasclip::desktop
