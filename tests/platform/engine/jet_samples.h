#pragma once

#include "platform/engine/home.h"
#include "support/genuine_files.h"

#include <QCryptographicHash>
#include <QFile>

namespace vasclip::engine {

inline QString JetSamples()
{
    return tests::GenuineFiles();
}

inline QByteArray BytesOf(const QString& native)
{
    QFile file(native);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace vasclip::engine
