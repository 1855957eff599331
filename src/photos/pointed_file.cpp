#include "photos/pointed_file.h"

#include "common/paths.h"
#include "platform/text/runtime_error.h"
#include "platform/text/text.h"

namespace vasclip::photos {

using namespace Qt::Literals::StringLiterals;

PointedFile PointAt(const files::Disk& disk, const QString& path)
{
    PointedFile pointed{.path = text::Trim(path)};
    if (pointed.path.isEmpty())
        return pointed;
    try {
        pointed.written = disk.FileDateTime(pointed.path);
        pointed.bytes = disk.FileLen(pointed.path);
    } catch (const RuntimeError&) {
        pointed.written = {};
    }
    return pointed;
}

QString WhyAnother(const files::Disk& disk, const PointedFile& pointed)
{
    if (pointed.path.isEmpty() || !pointed.written.isValid())
        return {};
    const PointedFile now = PointAt(disk, pointed.path);
    if (now == pointed)
        return {};
    const QString name = common::WholeFileName(pointed.path);
    return now.written.isValid()
               ? u"%1 is another picture now than the one you chose. Nothing was done."_s.arg(name)
               : u"%1 is no longer there. Nothing was done."_s.arg(name);
}

} // namespace vasclip::photos
