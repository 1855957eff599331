#pragma once

#include "store/data_source.h"
#include "upkeep/left_list.h"
#include "upkeep/placed_file.h"

namespace vasclip::upkeep {

/// A picture on its way into an archive's directory.
struct ArchivedFile
{
    QString here, there; ///< native
    FileMark mark;       ///< of the one here
    bool fresh = true;   ///< the archive has none of that name yet
};

/// Which record is being archived with which pictures, in a list beside the Databook. It is there from before the first of
/// them is copied until they are deleted here, so that what a kill left half done is undone, or ended where the record
/// has gone, when that Databook is opened again.
class ArchiveJournal
{
public:
    /// @param archive, table  that records go to
    ArchiveJournal(const store::DataSource& databook, const QString& archive, const QString& table);

    /// @throws RuntimeError as Disk::WriteWhole
    void Begin(const QString& key, const QList<ArchivedFile>& pictures);
    void Moved() { m_moved = true; } ///< the record is in the archive
    /// Takes the copies back of a record that stayed. What can't be taken back now waits for Replay. Never throws.
    void End();

    /// Settles what processes that are no more have left: of a record that is still here the copies go that no record of
    /// the archive names, of one that has gone the pictures here that no record names and that the archive has. Never
    /// throws: what can't be read or deleted now waits for the next time.
    static void Replay(const store::DataSource& databook);

private:
    const store::DataSource& m_databook;
    QString m_archive, m_table;
    LeftList m_list;
    QJsonObject m_content;
    bool m_moved = false;
};

} // namespace vasclip::upkeep
