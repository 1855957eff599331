#pragma once

#include "platform/street/cell.h"

#include <QByteArray>
#include <QByteArrayView>

#include <memory>

namespace vasclip::street {

/// A cell as it lies in its file: counts, then things one after another, each place as the step from the one before.
/// Compressed where that makes it shorter.
[[nodiscard]] QByteArray EncodeCell(const Cell& cell);

/// The cell of row `id`.
/// @return null for bytes that are no whole cell; never reads or takes more than they can stand for
[[nodiscard]] std::shared_ptr<const Cell> DecodeCell(QByteArrayView bytes, quint32 id);

/// Bytes that a decoded cell takes, for a limit.
[[nodiscard]] qsizetype BytesOf(const Cell& cell);

} // namespace vasclip::street
