#include "platform/files/file_address.h"

#include "platform/files/native.h"

#include <QUrl>

namespace vasclip::files {

QByteArray FileAddress(const QString& path)
{
    const QString whole = native::SystemPath(path);
    return (whole.startsWith(u'/') ? "file://" : "file:///") + QUrl::toPercentEncoding(whole, "/:");
}

} // namespace vasclip::files
