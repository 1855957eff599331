#pragma once

#include <QLibrary>

namespace vasclip::tests {

/// Is this Windows another system's? What Wine does not do as Windows does is left out of a test then.
inline bool UnderWine()
{
#ifdef Q_OS_WIN
    return QLibrary(QStringLiteral("ntdll")).resolve("wine_get_version") != nullptr;
#else
    return false;
#endif
}

} // namespace vasclip::tests
