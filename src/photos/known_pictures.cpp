#include "photos/known_pictures.h"

#include "common/paths.h"
#include "photos/content.h"
#include "photos/trash.h"

namespace vasclip::photos {

KnownPictures::KnownPictures(const files::Disk& disk, const common::Globals& globals,
                             std::function<QString(const QString& stem)> recordOf)
    : m_disk(disk)
    , m_recordOf(std::move(recordOf))
{
    Index(Known::Here, common::CkRSlash(globals.G_CaptureDir));
    if (m_recordOf)
        Index(Known::Filed, common::CkRSlash(globals.G_PhotoDir));
    Index(Known::InTrash, TrashDirectory(globals.G_CaptureDir));
}

void KnownPictures::Index(Known known, const QString& directory)
{
    for (const QString& name : PictureNames(m_disk, directory, kTrashPatterns)) {
        try {
            m_byLength[m_disk.FileLen(directory + name)].append({known, directory + name});
        } catch (const RuntimeError&) {
            // It went while the directory was read.
        }
    }
}

QByteArray KnownPictures::SumOf(const QString& path, const std::function<bool()>& step)
{
    const auto kept = m_sums.constFind(path);
    if (kept != m_sums.constEnd())
        return *kept;
    QByteArray sum;
    try {
        sum = ContentSum(m_disk, path, step);
    } catch (const RuntimeError&) {
        return {};
    }
    if (!sum.isEmpty())
        m_sums.insert(path, sum);
    return sum;
}

WhereKnown KnownPictures::Look(const QString& path, const std::function<bool()>& step)
{
    const QList<Place> places = m_byLength.value(m_disk.FileLen(path));
    if (places.isEmpty())
        return {};
    const QByteArray sum = ContentSum(m_disk, path, step);
    for (const Place& place : places) {
        if (sum.isEmpty() || SumOf(place.path, step) != sum)
            continue;
        if (place.known != Known::Filed)
            return {place.known, place.path, {}};
        const QString record = m_recordOf(common::FileNameOnly(place.path));
        if (!record.isEmpty())
            return {Known::Filed, place.path, record};
    }
    return {};
}

} // namespace vasclip::photos
