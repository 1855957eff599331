#pragma once

#include "platform/engine/jet/new_table.h"

#include <QVariant>

namespace vasclip::engine::jet {

/// The bytes of one value of a column of fixed or variable length that is not a long one.
/// @throws 3163 too long, 6 too large
[[nodiscard]] QByteArray StoredValue(const NewColumn& column, const QVariant& value);

/// The bytes of a row. @throws 3047 more than a page holds
/// @param values  one for each column, stored; a null array stands for Null, and a Yes/No column holds Yes if it
///                has one that is not
[[nodiscard]] QByteArray StoredRow(const NewTable& table, const QList<QByteArray>& values);

/// A value that was stored, empty but not Null.
[[nodiscard]] inline QByteArray NotNull(QByteArray stored)
{
    return stored.isNull() ? QByteArray("") : stored;
}

} // namespace vasclip::engine::jet
