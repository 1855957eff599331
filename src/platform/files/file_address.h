#pragma once

#include <QByteArray>
#include <QString>

namespace vasclip::files {

/// A native path as an address ("file:///home/a/b.mdb", "file:///%5C%5C%3F%5CC:%5Cb.mdb"), for libraries that open one. It holds the
/// path as native::SystemPath has it, so that a share is no host and no length is too long, and is free for options ("?mode=ro").
[[nodiscard]] QByteArray FileAddress(const QString& path);

} // namespace vasclip::files
