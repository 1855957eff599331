#pragma once

#include <QDir>
#include <QFile>

namespace vasclip::tests {

/// The directory of genuine Access files with what independent readers see in them; "" where it isn't there.
/// VASCLIP_JET_SAMPLES names it, else it lies beside the source.
inline QString GenuineFiles()
{
    using namespace Qt::StringLiterals;
    const QString directory = qEnvironmentVariable("VASCLIP_JET_SAMPLES", u"" VASCLIP_SOURCE_DIR "/../shared/mdb"_s);
    return QDir(directory).exists(u"testV2000.mdb"_s) ? directory : QString();
}

/// Copies one of them to where it may be written, also where its original may not.
inline bool CopyGenuineFile(const QString& name, const QString& to)
{
    return QFile::copy(GenuineFiles() + QLatin1Char('/') + name, to) &&
           QFile::setPermissions(to, QFile::ReadOwner | QFile::WriteOwner);
}

} // namespace vasclip::tests
