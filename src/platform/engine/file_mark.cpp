#include "platform/engine/file_mark.h"

#include <QDateTime>
#include <QFileInfo>

namespace vasclip::engine {

FileMark FileMark::Of(const QString& native)
{
    const QFileInfo info(native);
    return info.isFile() ? FileMark{info.size(), info.lastModified().toMSecsSinceEpoch()} : FileMark{};
}

} // namespace vasclip::engine
