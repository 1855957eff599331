#include "photos/store_check.h"

#include "common/paths.h"
#include "photos/photo_lists.h"
#include "platform/picture/picture.h"
#include "platform/text/runtime_error.h"
#include "platform/text/text.h"
#include "store/fields.h"
#include "store/record.h"

#include <QSet>

#include <optional>

namespace vasclip::photos {

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int kDecodedSide = 64; ///< all of the data is read at any size
constexpr int kRecordsBetweenTurns = 100;

enum class Depth { Names, Content };

/// Why a stored file can't be shown; nullopt if it can.
std::optional<QString> Fault(const files::Disk& disk, const QString& file, Depth depth)
{
    if (!disk.FileExists(file))
        return QString();
    if (depth == Depth::Names)
        return std::nullopt;
    try {
        (void)picture::Load(disk, file, kDecodedSide);
        return std::nullopt;
    } catch (const RuntimeError& failure) {
        return failure.Description();
    }
}

StoreCheck Check(const store::DataSource& databook, const files::Disk& disk, const QString& photoDir,
                 const std::function<bool(int)>& goOn, Depth depth)
{
    const QString directory = common::CkRSlash(photoDir);
    const store::Rows rows = store::ReadRows(
        databook, u"SELECT CENTRALKEY, PHOTOS FROM [%1] ORDER BY CENTRALKEY"_s.arg(databook.RecordSource()));
    StoreCheck check;
    QSet<QString> named;
    for (qint64 at = 0; at < rows.Count(); ++at) {
        if (goOn && at % kRecordsBetweenTurns == 0 && !goOn(static_cast<int>(at)))
            return check;
        const std::optional<store::Record> record = rows.At(at);
        if (!record)
            continue; // deleted meanwhile
        const QString key = record->Text(fields::CENTRALKEY);
        const QList<PhotoPair> photos = ParsePhotos(record->Value(fields::PHOTOS).toString());
        check.records += photos.isEmpty() ? 0 : 1;
        for (const auto& [view, listed] : photos) {
            const QString stem = text::Trim(listed);
            ++check.photos;
            named.insert(stem.toUpper());
            if (const auto fault = Fault(disk, directory + stem + u".jpg"_s, depth))
                check.lost.append({key, view, stem, *fault});
        }
    }
    for (const QString& name : disk.Dir(directory + u"*.jpg"_s))
        if (!named.contains(name.chopped(4).toUpper()))
            check.unnamed.append(name);
    return check;
}

} // namespace

StoreCheck CheckStore(const store::DataSource& databook, const files::Disk& disk, const QString& photoDir,
                      const std::function<bool(int)>& goOn)
{
    return Check(databook, disk, photoDir, goOn, Depth::Names);
}

StoreCheck VerifyStore(const store::DataSource& databook, const files::Disk& disk, const QString& photoDir,
                       const std::function<bool(int)>& goOn)
{
    return Check(databook, disk, photoDir, goOn, Depth::Content);
}

} // namespace vasclip::photos
