#pragma once

#include <QString>

namespace vasclip::engine {

/// A name or a path as a statement has it, between brackets; one that it holds itself is doubled.
[[nodiscard]] inline QString Bracketed(QString name)
{
    return u'[' + name.replace(u']', QStringLiteral("]]")) + u']';
}

} // namespace vasclip::engine
