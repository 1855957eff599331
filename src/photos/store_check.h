#pragma once

#include "platform/files/disk.h"
#include "store/data_source.h"

#include <QString>
#include <QStringList>

#include <functional>

namespace vasclip::photos {

/// A photo that a record names and that can't be shown.
struct LostPhoto
{
    QString key, view, stem;
    QString why; ///< empty if the file is not there
};

/// What the records say against what lies in `PHOTODIR`.
struct StoreCheck
{
    int records = 0; ///< that name photos
    int photos = 0;  ///< named by them
    QList<LostPhoto> lost;
    QStringList unnamed; ///< names of picture files that no record names
};

/// Reads the photos of all records and the photo directory.
/// @param goOn  asked now and then with the number of records read; false ends the check early. May be empty
/// @throws RuntimeError as the engine and Disk::Dir
[[nodiscard]] StoreCheck CheckStore(const store::DataSource& databook, const files::Disk& disk,
                                    const QString& photoDir,
                                    const std::function<bool(int records)>& goOn = {});

/// CheckStore that decodes every named file as well; what can't be decoded is lost with its reason.
[[nodiscard]] StoreCheck VerifyStore(const store::DataSource& databook, const files::Disk& disk,
                                     const QString& photoDir,
                                     const std::function<bool(int records)>& goOn = {});

} // namespace vasclip::photos
