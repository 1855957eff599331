#pragma once

#include "platform/engine/jet/new_table.h"

#include <QVariant>

#include <optional>

namespace vasclip::engine::jet {

/// The key of a text in the order of old English files; nothing for one whose order is not known.
[[nodiscard]] std::optional<QByteArray> TextKey(const QString& text);

/// The key of a value, with its flag; nothing for a text whose order is not known. @param value  Null if invalid
[[nodiscard]] std::optional<QByteArray> IndexKey(ColumnType type, const QVariant& value);

/// The key as a descending column has it.
[[nodiscard]] QByteArray Descending(const QByteArray& key, ColumnType type);

} // namespace vasclip::engine::jet
