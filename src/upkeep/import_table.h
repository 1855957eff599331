#pragma once

#include "upkeep/embedded_images.h"
#include "upkeep/import_plan.h"
#include "upkeep/list_source.h"

namespace vasclip::upkeep {

struct ImportOrder
{
    QString source; ///< drive path of the database file
    QString table;  ///< in it
    bool pictures = false;
    /// The list that the source was made of, which it lives as long as; nullptr for a database.
    std::shared_ptr<const ListSource> list = nullptr;

    [[nodiscard]] const QString& Name() const { return list ? list->Original() : source; } ///< what people call the source
};
/// An order for the rows of a list.
[[nodiscard]] ImportOrder OrderOf(std::shared_ptr<const ListSource> list);

struct ImportResult
{
    bool done = false; ///< false: the Databook is as it was
    bool stopped = false;
    QString source, table;
    qint64 rows = 0;     ///< of the source
    qint64 appended = 0;
    qint64 there = 0; ///< rows that stayed out, as the Databook has a record of their key
    QList<RefusedRow> refused; ///< these too, but for those whose record came while the rows did
    QStringList leftBehind; ///< columns that the Databook does not have
    QStringList otherKind;  ///< columns whose values the Databook's fields can't hold
    qint64 blanksFirst = 0;  ///< records that came in with a key that begins with a blank
    qint64 picturesLeft = 0; ///< inside rows, where none were wanted
    SavedImages pictures;
    QStringList damage; ///< what of the source could not be read, a line each
};

/// Appends the rows of a table to the Databook, in one transaction; a row whose key is there already stays out. The
/// source is read and never written: the pictures inside its rows go to the photo directory first, and the rows come
/// in without them.
/// @throws RuntimeError of disk and engine; the Databook is then as it was
ImportResult ImportTable(const TransferDesk& desk, const ImportOrder& order, const WorkStep& step);

/// The statement of an append. @param condition  the plan's, or a narrower one
[[nodiscard]] QString AppendStatement(const TransferDesk& desk, const ImportOrder& order, const ImportPlan& plan,
                                      const QString& condition);

/// The end message: how many came in, how many stayed out, what became of the pictures.
[[nodiscard]] QString WordsOf(const ImportResult& result);
[[nodiscard]] QString WordsOf(const SavedImages& pictures); ///< with a blank before them, "" for none
/// A line for each row and picture that stayed out.
[[nodiscard]] QStringList AccountOf(const ImportResult& result);

} // namespace vasclip::upkeep
