#pragma once

#include "upkeep/transfer_desk.h"

namespace vasclip::upkeep {

/// Pictures that were put into the rows of a table.
struct InsertedImages
{
    int in = 0;
    int without = 0;   ///< records that have no front view
    QStringList notIn; ///< "KEY: why" of each picture that could not be read
    bool stopped = false;
};

/// Puts the front picture of each record into its row, and makes PHOTOS name that picture alone, so that the row can
/// be taken apart elsewhere. A picture that can't be read leaves its row as it is.
/// @param file  that nobody else has open; what was done before an error or a stop is taken back
/// @throws RuntimeError of the engine
InsertedImages InsertImages(const TransferDesk& desk, const QString& file, const QString& table, const WorkStep& step);
/// The older form: PHOTOS stays as it is.
InsertedImages InsertImages2(const TransferDesk& desk, const QString& file, const QString& table, const WorkStep& step);

} // namespace vasclip::upkeep
