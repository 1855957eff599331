#pragma once

#include <QByteArray>

namespace vasclip::engine::jet {

/// Masks bytes, or takes the mask off them, with the key stream that starts afresh at the first one.
void Mask(char* data, qsizetype size, const QByteArray& key);

} // namespace vasclip::engine::jet
