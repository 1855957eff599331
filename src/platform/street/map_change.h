#pragma once

#include "platform/files/file_lock.h"
#include "platform/street/county_info.h"

#include <QString>
#include <QStringList>

#include <functional>
#include <vector>

namespace vasclip::street {

/// A change of the maps of a directory, by one program at a time. New counties are written beside the old ones, and
/// `Commit` replaces the index: before it nothing has changed, whatever happens, and after it all has.
class MapChange
{
public:
    /// @param directory  native; made where it is missing
    explicit MapChange(const QString& directory)
        : m_directory(directory)
    {}

    /// Where the index can't be read, the counties are taken from their own files, and `Notes` says so.
    /// @return false with the reason in `problem`
    [[nodiscard]] bool Begin(QString& problem);
    /// What was found wrong in the directory, a sentence each.
    [[nodiscard]] const QStringList& Notes() const { return m_notes; }
    /// The maps as they will be after `Commit`.
    [[nodiscard]] const std::vector<CountyRecord>& Counties() const { return m_counties; }

    /// A path for the file of a county, which no file has yet.
    [[nodiscard]] QString NewFile(const QString& county) const;
    /// Takes a file that was written under `NewFile`, in the place of a map of the same county.
    /// @return false with the reason in `problem`
    [[nodiscard]] bool Put(const QString& path, QString& problem);
    /// @return false where there is no such map
    [[nodiscard]] bool Remove(const QString& county);

    /// Replaces the index, then deletes what it no longer names; a file that can't be deleted waits for the next change.
    /// @return false with the reason in `problem`; the maps are then as they were
    [[nodiscard]] bool Commit(QString& problem);
    /// Leaves the maps as they are, and those as they will be beside them, until `UseMapsBeside` takes them or another
    /// change makes them old. @return false with the reason in `problem`
    [[nodiscard]] bool CommitBeside(QString& problem);
    /// Deletes the files that no index names.
    void Forget() const { Sweep(); }

private:
    void Recover();
    void Sweep(const std::vector<CountyRecord>& alsoUsed = {}) const;

    const QString m_directory;
    files::FileLock m_lock;
    QStringList m_notes;
    std::vector<CountyRecord> m_before; ///< as they are
    std::vector<CountyRecord> m_counties;
};

/// Does the directory have new maps beside those in use?
[[nodiscard]] bool HasMapsBeside(const QString& directory);
/// The counties that are other ones there.
[[nodiscard]] QStringList MapsBeside(const QString& directory);
/// The new maps are those in use from now on. @return false with the reason in `problem`; nothing was changed then
[[nodiscard]] bool UseMapsBeside(const QString& directory, QString& problem);
/// Deletes the new maps. @return false with the reason in `problem`
[[nodiscard]] bool DropMapsBeside(const QString& directory, QString& problem);

/// Why a county can't be called so; "" where it can.
[[nodiscard]] QString NameFault(const QString& county);

/// What is wrong with the maps of a directory, a sentence each that begins with the county's name.
/// @param progress  told how many of how many are read, and which is next; false stops
[[nodiscard]] QStringList VerifyMaps(const QString& directory,
                                     const std::function<bool(qint64, qint64, const QString&)>& progress = {});

} // namespace vasclip::street
