#pragma once

#include "forms/ports.h"
#include "platform/files/disk.h"
#include "store/data_source.h"

#include <QChar>

namespace vasclip::databook {

/// Abandoned: the user gave up at the question of a device error; nothing was changed.
enum class RecordOutcome {
    Done,
    Blank,
    Invalid,
    TooLong,
    Duplicate,
    NotFound,
    Itself,
    UnknownType,
    Abandoned
};

/// How an operation on a record ended. `message` tells people what to do; it is empty when all went well.
struct RecordResult
{
    RecordOutcome outcome = RecordOutcome::Done;
    QString message = {};
    explicit operator bool() const { return outcome == RecordOutcome::Done; }
};

// What the screens and vasctl do to comps. `databook` is a table-type source of COMPS. Each operation is one
// transaction: it happens whole or not at all, whatever is thrown on the way. Addresses are trimmed and have
// no control characters, which nobody could see in a key; keys are upper case. Done, the source stands on the
// record (after a deletion on none).

/// The key of an address: trimmed and upper-cased, not padded.
[[nodiscard]] QString KeyOf(const QString& address);

/// A new comp: a pending sale, loaded today.
/// @param type  F, C, S, R, L, M or a blank, in any case
/// @throws RuntimeError for what the central error block does not handle
[[nodiscard]] RecordResult AddRecord(const forms::Ports& ports, store::DataSource& databook,
                                     const QString& address, QChar type, int addressCase);

/// Where the pictures of the records lie.
struct PictureStore
{
    const files::Disk& disk;
    QString photoDir;
};

/// Deletes the record and then the picture files that it names. They go for good, without a copy in the
/// trashcan: that is for pictures of the capture directory. No picture goes before the record's deletion is
/// written, so the caller must not hold a transaction.
/// @return Done also when pictures could not be deleted; the message then names them
[[nodiscard]] RecordResult DeleteRecord(const forms::Ports& ports, store::DataSource& databook,
                                        const QString& address, const PictureStore& pictures);

/// A second record with every field of the first but key, address and photos: FRONT and PHOTOS are a single
/// blank.
[[nodiscard]] RecordResult CopyRecord(const forms::Ports& ports, store::DataSource& databook,
                                      const QString& address, const QString& newAddress);

/// Gives a record another address. Its photos stay its own, as their names don't depend on it.
[[nodiscard]] RecordResult RenameRecord(const forms::Ports& ports, store::DataSource& databook,
                                        const QString& address, const QString& newAddress);

} // namespace vasclip::databook
