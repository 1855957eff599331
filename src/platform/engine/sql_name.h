#pragma once

#include <QString>

namespace vasclip::engine {

using namespace Qt::StringLiterals;

/// A name or a path as a statement has it, between brackets; one that it holds itself is doubled.
[[nodiscard]] inline QString Bracketed(QString name)
{
    return u'[' + name.replace(u"]"_s, u"]]"_s) + u']';
}

} // namespace vasclip::engine
