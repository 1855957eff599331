#pragma once

#include "common/globals.h"
#include "platform/files/disk.h"

#include <QHash>

#include <functional>

namespace vasclip::photos {

/// What is known of a picture's content.
enum class Known {
    New,
    Here,      ///< in the capture directory
    Filed,     ///< in the photo store, and a record names it
    InTrash,   ///< in the trash directory: filed or thrown away
};

struct WhereKnown
{
    Known known = Known::New;
    QString path;   ///< of the file that holds the same
    QString record; ///< key of the record, for Filed
};

/// Tells by content whether a picture has come in before. Files are compared by length first, and by sum only
/// where the lengths are equal.
class KnownPictures
{
public:
    /// @param recordOf  key of the record that names a stem of the photo store, "" if none does; may be empty
    KnownPictures(const files::Disk& disk, const common::Globals& globals,
                  std::function<QString(const QString& stem)> recordOf);

    /// @param step  called while files are read; false stops, and the picture counts as new
    /// @throws as ContentSum for the picture itself; what can't be read beside it is passed over
    [[nodiscard]] WhereKnown Look(const QString& path, const std::function<bool()>& step = {});

private:
    struct Place
    {
        Known known;
        QString path;
    };
    void Index(Known known, const QString& directory);
    [[nodiscard]] QByteArray SumOf(const QString& path, const std::function<bool()>& step);

    const files::Disk& m_disk;
    std::function<QString(const QString& stem)> m_recordOf;
    QHash<qint64, QList<Place>> m_byLength;
    QHash<QString, QByteArray> m_sums;
};

} // namespace vasclip::photos
