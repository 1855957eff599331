#pragma once

#include "platform/files/disk.h"
#include "store/data_source.h"
#include "store/record.h"
#include "upkeep/archive_journal.h"

#include <optional>

namespace vasclip::upkeep {

/// Where the pictures of an archive are: a directory beside its file.
[[nodiscard]] QString ArchivePictures(const QString& file);

/// The pictures of records on their way into an archive.
class ArchivedPictures
{
public:
    /// @param file  the archive
    ArchivedPictures(const files::Disk& disk, const QString& photoDir, const QString& file);

    /// Stems of the record's pictures that are in the photo directory. @param missing  takes those that the archive
    /// lacks too
    [[nodiscard]] QStringList StemsOf(const store::Record& record, QStringList& missing) const;
    /// Where each of them is and goes.
    [[nodiscard]] QList<ArchivedFile> FilesOf(const QStringList& stems) const;
    /// Copies them into the archive's directory.
    /// @param archive  its table
    /// @param there    the record of it that gives way
    /// @return the name of a picture of which the archive has another one that has to stay, "" when all are copied
    /// @throws RuntimeError of the disk
    [[nodiscard]] QString Copy(const QStringList& stems, const store::DataSource& archive,
                               const std::optional<store::Record>& there) const;
    /// The picture of the front view, null if there is none. @throws RuntimeError of the disk
    [[nodiscard]] QByteArray FrontOf(const store::Record& record) const;

private:
    [[nodiscard]] QString Here(const QString& stem) const;
    [[nodiscard]] QString There(const QString& stem) const;
    [[nodiscard]] static bool MayReplace(const QString& stem, const store::DataSource& archive,
                                         const std::optional<store::Record>& there);

    const files::Disk& m_disk;
    QString m_photoDir, m_directory;
};

} // namespace vasclip::upkeep
