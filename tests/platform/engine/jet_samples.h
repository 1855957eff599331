#pragma once

#include "platform/engine/home.h"

#include <QCryptographicHash>
#include <QFile>

namespace vasclip::engine {

/// The directory of genuine files with what independent readers see in them; "" where it isn't there.
/// VASCLIP_JET_SAMPLES names it, else it lies beside the source.
inline QString JetSamples()
{
    const QString directory = qEnvironmentVariable("VASCLIP_JET_SAMPLES", u"" VASCLIP_JET_SAMPLES_DEFAULT ""_s);
    return QDir(directory).exists(u"testV2000.mdb"_s) ? directory : QString();
}

inline QByteArray BytesOf(const QString& native)
{
    QFile file(native);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace vasclip::engine
