#pragma once

#include "forms/ports.h"
#include "store/data_source.h"

#include <QChar>

namespace vasclip::databook {

/// Abandoned: the user gave up at the question of a device error; nothing was changed.
enum class RecordOutcome { Done, Blank, TooLong, Duplicate, NotFound, Itself, UnknownType, Abandoned };

/// How an operation on a record ended. `message` tells people what to do; it is empty when all went well.
struct RecordResult
{
    RecordOutcome outcome = RecordOutcome::Done;
    QString message = {};
    explicit operator bool() const { return outcome == RecordOutcome::Done; }
};

// What the screens and vasctl do to comps. `databook` is a table-type source of COMPS. Each operation is one
// transaction: it happens whole or not at all, whatever is thrown on the way. Addresses are trimmed; keys are
// upper case. Done, the source stands on the record (after a deletion on none).

/// The key of an address: trimmed and upper-cased, not padded.
[[nodiscard]] QString KeyOf(const QString& address);

/// A new comp: a pending sale, loaded today.
/// @param type  F, C, S, R, L, M or a blank, in any case
/// @throws RuntimeError for what the central error block does not handle
[[nodiscard]] RecordResult AddRecord(const forms::Ports& ports, store::DataSource& databook,
                                     const QString& address, QChar type, int addressCase);

/// Deletes the record. Its picture files stay where they are: they go through the trashcan or not at all.
[[nodiscard]] RecordResult DeleteRecord(const forms::Ports& ports, store::DataSource& databook,
                                        const QString& address);

/// A second record with every field of the first but key, address and photos: FRONT and PHOTOS are a single
/// blank.
[[nodiscard]] RecordResult CopyRecord(const forms::Ports& ports, store::DataSource& databook,
                                      const QString& address, const QString& newAddress);

/// Gives a record another address. Its photos stay its own, as their names don't depend on it.
[[nodiscard]] RecordResult RenameRecord(const forms::Ports& ports, store::DataSource& databook,
                                        const QString& address, const QString& newAddress);

} // namespace vasclip::databook
