#pragma once

#include "upkeep/left_list.h"
#include "upkeep/placed_file.h"
#include "upkeep/transfer_desk.h"

namespace vasclip::upkeep {

/// A picture on its way into the photo directory.
struct PlacedPicture
{
    QString file;    ///< native, under its name to be
    QString waiting; ///< native, as it is written
    QString kept;    ///< native, the copy of the one whose place it takes; "" where there is none
    FileMark mark;
};

/// By which the Databook tells whether the rows that the pictures belong to were stored.
struct Proof
{
    QString key;       ///< of a record
    QByteArray values; ///< sum of what it holds then; "" for one that was not there before
};

/// The sum of a record's values, as a proof has it; "" for a record that is not there.
[[nodiscard]] QByteArray SumOf(const store::DataSource& databook, const QString& key);

/// Which pictures are being placed for rows that are not stored yet, in a file beside the Databook. It is there from
/// before the first of them gets its name until after the commit, so that what a kill left half done is undone when
/// that Databook is opened again.
class PictureJournal
{
public:
    explicit PictureJournal(const TransferDesk& desk);

    /// @throws RuntimeError 75 where an earlier one of this process stands, as Disk::WriteWhole
    void Write(const QList<PlacedPicture>& pictures, const QList<Proof>& proofs);
    void Remove() { m_list.Remove(); }

    /// Undoes what processes that are no more have left of the Databook: where their rows were not stored, a picture that
    /// no record names goes, and one that gave way is back. What somebody has put under a name since stays.
    /// Never throws: what can't be read or undone now waits for the next time.
    static void Replay(const TransferDesk& desk);

private:
    LeftList m_list;
};

} // namespace vasclip::upkeep
