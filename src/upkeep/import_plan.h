#pragma once

#include "upkeep/transfer_desk.h"

#include <QHash>
#include <QSet>

namespace vasclip::upkeep {

/// A row of the source that does not come in.
struct RefusedRow
{
    QString table;    ///< "" for a list
    qint64 place = 0; ///< of the row in the table, from 1; of a list the number of its line
    QString key;      ///< "" where it tells none
    QString why;
    QString field = {}; ///< the Databook's, where one is at fault
};
/// What such a row is called: "COMPS row 7, 12 OAK ST", "Line 7".
[[nodiscard]] QString NameOf(const RefusedRow& row);

/// What an import of a table would do to the Databook, worked out from the keys alone.
struct ImportPlan
{
    QStringList columns;     ///< that both tables have, but for the picture inside a row
    QStringList leftBehind;  ///< columns that the Databook does not have
    QStringList otherKind;   ///< columns that hold bytes where the Databook holds text, or text for a picture; left behind
    QStringList values;      ///< what a statement reads of each of these
    QStringList shortened;   ///< columns whose texts lose the blanks behind them, as those may be too many
    QString condition;       ///< rows that have a key and fit into the Databook's fields
    qint64 rows = 0;         ///< of the source
    QStringList newKeys;     ///< of the rows that come in, as stored
    QList<RefusedRow> refused;
    QHash<qint64, qsizetype> refusedAt; ///< place among the refused ones, by that in the source, from 0
    QSet<qint64> there;             ///< places of those whose key the Databook has
    bool hasPictures = false; ///< the source has the field
    bool stopped = false;     ///< by the step; nothing else counts then
};

/// A step that nobody looks at.
inline bool NeverStops(qint64 /*done*/, qint64 /*of*/, const QString& /*words*/)
{
    return true;
}

/// A key as the engine tells two rows apart: in one case, without blanks behind it.
[[nodiscard]] QString KeyMark(const QString& key);

/// The fields of a row without the picture inside it, which is taken out on the way.
[[nodiscard]] QStringList removeEmbeddedImages(const QStringList& columns);

/// Those of some keys that the Databook has, as KeyMark has them; there may be others among them. @throws RuntimeError of the engine
[[nodiscard]] QSet<QString> KeysThere(const store::DataSource& databook, const QString& table, const QStringList& keys);

/// What of a source could not be read, a line each. Only who has read it knows. Nothing for one that is whole.
[[nodiscard]] QStringList DamageIn(engine::Database& source);
/// Words for it, with a blank before them; "" for none.
[[nodiscard]] QString DamageWords(const QStringList& damage);

/// @throws RuntimeError 3027 where nothing can come into the Databook, in words
void NeedWritableDatabook(const TransferDesk& desk);

/// The refused row of a place in the source, from 0; nullptr for one that comes in.
[[nodiscard]] const RefusedRow* RefusedAt(const ImportPlan& plan, qint64 place);

/// @param step  told while keys are read
/// @throws RuntimeError 3078 for a table that is not there, 3265 for one without keys
[[nodiscard]] ImportPlan PlanImport(const TransferDesk& desk, engine::Database& source, const QString& table,
                                    const WorkStep& step = NeverStops);

} // namespace vasclip::upkeep
