#include "databook/delete_records.h"

#include "common/error_block.h"
#include "common/progress.h"
#include "databook/messages.h"
#include "databook/records.h"
#include "platform/text/text.h"
#include "store/fields.h"
#include "store/messages.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace vasclip::databook {

using common::RoutineScope;

namespace {

constexpr qsizetype kNamed = 10;
const QString kKeyField = fields::CENTRALKEY;

QString Listed(QStringList lines)
{
    const qsizetype more = lines.size() - kNamed;
    if (more > 0) {
        lines.resize(kNamed);
        lines.append(kAndMoreRecords.arg(more));
    }
    return lines.join(QLatin1Char('\n'));
}

qsizetype KeyFieldOf(const forms::Grid& grid)
{
    return grid.Source() == nullptr ? -1 : grid.Source()->FieldNames().indexOf(kKeyField);
}

QString KeyIn(const forms::Grid& grid, qsizetype field, qint64 row)
{
    return field < 0 ? QString() : text::Trim(grid.Source()->Row(row).value(field));
}

/// What came of it. Stopped: by the user; another Databook may be open by then, since the queue turned.
struct Tally
{
    qsizetype deleted = 0;
    QStringList failed, pictures;
    bool stopped = false;
};

void DeleteOne(const RecordWork& work, const QString& key, Tally& tally)
{
    try {
        const RecordResult result =
            DeleteRecord(work.ports, work.databook, key, {work.disk, work.globals.G_PhotoDir});
        if (result || result.outcome == RecordOutcome::NotFound)
            ++tally.deleted;
        else
            tally.failed.append(key + u": "_s + result.message);
        if (result && !result.message.isEmpty())
            tally.pictures.append(result.message);
    } catch (const RuntimeError& failure) {
        tally.failed.append(key + u": "_s + failure.Description());
    }
}

QString Told(const Tally& tally, qsizetype wanted, bool other)
{
    if (tally.deleted == wanted && !other)
        return wanted == 1 ? kOneDeleted : kManyDeleted.arg(wanted);
    const QString& told = other ? kOtherDatabook : tally.stopped ? kDeletionStopped : kSomeDeleted;
    return told.arg(tally.deleted).arg(wanted);
}

} // namespace

QStringList SelectedKeys(const forms::Grid& grid)
{
    QStringList keys;
    const qsizetype field = KeyFieldOf(grid);
    for (const forms::RowSpan& span : grid.Selected())
        for (qint64 row = span.first; row <= span.last; ++row)
            if (const QString key = KeyIn(grid, field, row); !key.isEmpty())
                keys.append(key);
    return keys;
}

QString KeyBeside(const forms::Grid& grid)
{
    if (grid.Row() < 0)
        return {};
    QList<forms::RowSpan> going = grid.Selected();
    going.append({grid.Row(), grid.Row()});
    const auto spanOf = [&going](qint64 row) {
        return std::ranges::find_if(
            going, [row](const forms::RowSpan& span) { return span.first <= row && row <= span.last; });
    };
    qint64 row = grid.Row();
    for (auto span = spanOf(row); span != going.end(); span = spanOf(row))
        row = span->last + 1;
    if (row >= grid.RowCount()) {
        row = grid.Row();
        for (auto span = spanOf(row); span != going.end(); span = spanOf(row))
            row = span->first - 1;
    }
    return row < 0 ? QString() : KeyIn(grid, KeyFieldOf(grid), row);
}

void CompDeleteRecords(const RecordWork& work, const QStringList& keys, const QString& beside)
{
    const RoutineScope scope{"CompDeleteRecord"};
    if (!work.ports.prompter.YesNo(store::kPlainTitle,
                                   kDeleteManyQuestion.arg(keys.size()).arg(Listed(keys))))
        return;
    const QString databook = work.databook.DatabaseName();
    const auto same = [&] { return work.databook.Bound() && work.databook.DatabaseName() == databook; };
    Tally tally;
    {
        common::Progress progress(work.status, work.ports.pump, static_cast<int>(keys.size()));
        for (const QString& key : keys) {
            tally.stopped = !progress.Step(kDeletingRecord.arg(key));
            if (tally.stopped || !same())
                break;
            DeleteOne(work, key, tally);
        }
    }
    if (!work.databook.Bound()) // the program closes
        return;
    const bool other = !same();
    if (!other && work.showRecord && tally.deleted > 0)
        work.showRecord(beside);
    work.status.lblmsg.Show(Told(tally, keys.size(), other),
                            tally.failed.isEmpty() && !other ? forms::Colour::Blue : forms::Colour::Red);
    if (!tally.failed.isEmpty())
        work.ports.prompter.Box(store::kPlainTitle, kNotDeleted.arg(Listed(tally.failed)));
    if (!tally.pictures.isEmpty())
        work.ports.prompter.Box(store::kPlainTitle, Listed(tally.pictures));
}

} // namespace vasclip::databook
