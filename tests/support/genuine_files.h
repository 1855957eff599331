#pragma once

#include <QDir>

namespace vasclip::tests {

/// The directory of genuine Access files with what independent readers see in them; "" where it isn't there.
/// VASCLIP_JET_SAMPLES names it, else it lies beside the source.
inline QString GenuineFiles()
{
    using namespace Qt::StringLiterals;
    const QString directory = qEnvironmentVariable("VASCLIP_JET_SAMPLES", u"" VASCLIP_SOURCE_DIR "/../shared/mdb"_s);
    return QDir(directory).exists(u"testV2000.mdb"_s) ? directory : QString();
}

} // namespace vasclip::tests
