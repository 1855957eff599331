#pragma once

#include <QStringView>

namespace vasclip::street {

/// The number by which names are kept in files: 24 bits of their letters, which two names can share.
[[nodiscard]] inline quint32 NameNumber(QStringView name)
{
    quint32 hash = 2166136261u; // FNV-1a
    for (const QChar letter : name) {
        hash = (hash ^ (letter.unicode() & 0xffu)) * 16777619u;
        hash = (hash ^ static_cast<quint32>(letter.unicode() >> 8)) * 16777619u;
    }
    return (hash >> 24) ^ (hash & 0xffffffu);
}

} // namespace vasclip::street
