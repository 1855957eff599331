#include "upkeep/export_table.h"

#include "platform/engine/genuine_file.h"
#include "platform/engine/new_file.h"
#include "platform/text/runtime_error.h"
#include "platform/text/text.h"
#include "store/bulk_rows.h"
#include "store/convert.h"
#include "store/fields.h"
#include "store/messages.h"
#include "store/record.h"
#include "store/store.h"
#include "upkeep/export_statement.h"
#include "upkeep/insert_images.h"
#include "upkeep/key_list.h"
#include "upkeep/tables.h"
#include "upkeep/target_file.h"

#include <QFile>
#include <QFileInfo>

#include <algorithm>

namespace vasclip::upkeep {

using namespace Qt::StringLiterals;

namespace {

/// Records that are copied between two turns of the queue, and those that one statement can name.
constexpr qint64 kSlice = 4000;
constexpr qint64 kNamed = 500;
const QString kAccessMark = u"-access"_s; ///< of the Access file that is made of the one that is worked on
const QString kLostTitle = u"Not Everything Stays"_s;
const QString kLost = u"The export writes %1 anew, and not all that is in it can be written again:\n\n%2\n\nYes exports and "
                      u"loses that, No leaves the file as it is. Another file name keeps both."_s;
const QString kAccess97 = u"the format of Access 97 (that of Access 2000 takes its place)"_s;
const QString kLooking = u"Reading what %1 holds"_s;
const QString kStaysVasclip = u"%1 was a Vasclip database and stays one; choose a name that is not there for an Access file"_s;
const QString kCopying = u"Copying record %1 of %2"_s;

class Copy
{
public:
    Copy(const TransferDesk& desk, const ExportOrder& order, const QString& working, const WorkStep& step)
        : m_desk(desk)
        , m_order(order)
        , m_working(working)
        , m_step(step)
        , m_sort(Narrows(order.search) ? SortOf(order.search) : QString())
    {}

    /// @return the rows, nothing after a stop
    std::optional<qint64> Run()
    {
        const auto target = m_desk.Engine().OpenDatabase(m_working);
        const std::shared_ptr<void> closed(nullptr, [&](void*) { target->Close(); });
        DropOld(*target);
        QStringList keys;
        if (Sliced())
            keys = Keys();
        if (keys.size() <= kSlice)
            return store::CopyRows(*target, {Statement(m_order.search)});
        return Slices(*target, keys);
    }

private:
    [[nodiscard]] QString Statement(const QString& search) const
    {
        return ExportStatement(m_working, m_order.table, m_desk.Databook(), m_desk.globals.G_Table, search);
    }

    void DropOld(engine::Database& target) const
    {
        if (target.TableNames().contains(m_order.table, Qt::CaseInsensitive))
            store::DropTheTable(m_desk.Engine(), m_working, m_order.table);
    }

    /// Slices go by the key, which needs an index to be found quickly.
    [[nodiscard]] bool Sliced() const
    {
        const engine::TableDef table = m_desk.databook.Database().Table(m_desk.globals.G_Table);
        return std::ranges::any_of(table.indexes, [](const engine::IndexDef& index) {
            return index.primary && index.fields.size() == 1 &&
                   index.fields.first().compare(fields::CENTRALKEY, Qt::CaseInsensitive) == 0;
        });
    }

    /// In the order of the search, else of the keys.
    [[nodiscard]] QStringList Keys() const
    {
        const QString found = u"SELECT "_s + fields::CENTRALKEY + u" FROM ["_s + m_desk.globals.G_Table + u']' +
                              (Narrows(m_order.search) ? u" WHERE "_s + m_order.search : QString()) +
                              (m_sort.isEmpty() ? u" ORDER BY "_s + fields::CENTRALKEY : QString());
        const store::Rows rows = store::ReadRows(m_desk.databook, found);
        if (rows.Count() <= kSlice)
            return {};
        QStringList keys;
        keys.reserve(rows.Count());
        for (qint64 at = 0; at < rows.Count(); ++at)
            if (const auto record = rows.At(at))
                keys.append(record->Value(fields::CENTRALKEY).toString());
        return keys;
    }

    /// Records from one key to another, that the search finds.
    [[nodiscard]] QStringList Range(const QStringList& keys) const
    {
        const QString range = fields::CENTRALKEY + u" BETWEEN "_s + InList({keys.first()}) + u" AND "_s +
                              InList({keys.last()}) + u" ORDER BY "_s + fields::CENTRALKEY;
        return {Statement(Narrows(m_order.search) ? u'(' + m_order.search + u") AND "_s + range : range)};
    }

    /// Records by name, which keeps the order of the search.
    [[nodiscard]] QStringList Named(const QStringList& keys) const
    {
        QStringList statements;
        for (qsizetype at = 0; at < keys.size(); at += kNamed)
            statements.append(
                Statement(fields::CENTRALKEY + u" IN ("_s + InList(keys.mid(at, kNamed)) + u')' + m_sort));
        return statements;
    }

    std::optional<qint64> Slices(engine::Database& target, const QStringList& keys)
    {
        qint64 stored = 0;
        for (qsizetype at = 0; at < keys.size(); at += kSlice) {
            if (!m_step(at, keys.size(), kCopying.arg(at + 1).arg(keys.size())))
                return std::nullopt;
            const QStringList some = keys.mid(at, kSlice);
            QStringList statements = m_sort.isEmpty() ? Range(some) : Named(some);
            for (qsizetype i = at == 0 ? 1 : 0; i < statements.size(); ++i) // the very first one makes the table
                statements[i] = u"INSERT INTO ["_s + m_order.table + u"] SELECT *"_s +
                                statements.at(i).mid(statements.at(i).indexOf(u" FROM ["_s));
            stored += store::CopyRows(target, statements);
        }
        return stored;
    }

    const TransferDesk& m_desk;
    const ExportOrder& m_order;
    QString m_working;
    const WorkStep& m_step;
    QString m_sort; ///< of the search, with a blank before it
};

/// What tells a file from itself after somebody stored into it; nothing for one that is not there.
QByteArray MarkOf(const files::Disk& disk, const QString& target)
{
    constexpr qint64 kHeader = 100; // holds the counter of changes
    const QString native = disk.ToNative(target);
    QFile file(native);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    const QFileInfo info(native);
    return QByteArray::number(info.size()) + ' ' + QByteArray::number(info.lastModified().toMSecsSinceEpoch()) + ' ' +
           file.read(kHeader);
}

enum class TargetKind { New, Vasclip, Access };

TargetKind KindOf(const files::Disk& disk, const QString& target)
{
    if (!disk.Found(target, files::ReadOnly | files::Hidden))
        return TargetKind::New;
    return engine::IsGenuineFile(disk, target) ? TargetKind::Access : TargetKind::Vasclip;
}

/// The file that is worked on: the target's copy, or an empty database. What of the target the copy has not is noted.
/// @return false after a stop
bool MakeWorking(const TransferDesk& desk, TargetKind kind, const QString& target, const QString& working,
                 ExportResult& result, const WorkStep& step)
{
    desk.Disk().Kill(working); // made empty; a database is made where nothing is
    switch (kind) {
    case TargetKind::Access: {
        const auto copied = store::ConvertDatabase(
            desk.Engine(), {.source = target, .target = working, .step = [&](const QString&, qint64 done, qint64 of) {
                                return step(done, of, kLooking.arg(target));
                            }});
        if (!copied)
            return false;
        result.notes = copied->notes;
        result.lost = copied->notTaken;
        const auto old = desk.Engine().OpenDatabase(target, engine::OpenMode::ReadOnly);
        if (engine::IsOfAccess97(*old))
            result.lost.prepend(kAccess97);
        old->Close();
        return true;
    }
    case TargetKind::Vasclip:
        desk.Engine().CopyDatabase(target, working);
        return true;
    case TargetKind::New:
        break;
    }
    CopyFromNewData(desk.Engine(), desk.Templates(), working);
    return true;
}

/// The target's indexes beside those of the exported table that the new file is without.
QStringList LostIndexes(engine::Engine& engine, const QString& target, const QString& made, const QString& exported)
{
    QStringList lost;
    const auto before = engine.OpenDatabase(target, engine::OpenMode::ReadOnly);
    const auto after = engine.OpenDatabase(made, engine::OpenMode::ReadOnly);
    for (const QString& name : before->TableNames()) {
        if (name.compare(exported, Qt::CaseInsensitive) == 0)
            continue;
        const QList<engine::IndexDef> left = after->Table(name).indexes;
        for (const engine::IndexDef& index : before->Table(name).indexes)
            if (std::ranges::find(left, index.name, &engine::IndexDef::name) == left.end())
                lost.append(u"the index %1 of the table %2"_s.arg(index.name, name));
    }
    before->Close();
    after->Close();
    return lost;
}

/// The target is written anew without these: may it? @return false, noted, if the user keeps it
bool MayLose(const TransferDesk& desk, const QString& target, const QStringList& things, ExportResult& result)
{
    result.declined = !things.isEmpty() &&
                      !desk.ports.prompter.YesNo(kLostTitle, kLost.arg(target, store::Listed(things, u"\n"_s)));
    return !result.declined;
}

/// A target of ours that a killed program left half stored is made whole first: that change is no one else's.
void Recover(engine::Engine& engine, TargetKind kind, const QString& target)
{
    if (kind == TargetKind::Vasclip)
        engine.OpenDatabase(target)->Close();
}

/// The file that was worked on becomes an Access file. @return false after a stop
bool MakeAccess(const TransferDesk& desk, const QString& working, ExportResult& result, const WorkStep& step)
{
    const QString made = working + kAccessMark;
    const auto converted = store::ConvertDatabase(
        desk.Engine(), {.source = working,
                        .target = made,
                        .to = engine::DatabaseKind::Access,
                        .step = [&](const QString& doing, qint64 done, qint64 of) { return step(done, of, doing); }});
    if (!converted)
        return false;
    for (const QString& note : converted->notes)
        if (!result.notes.contains(note)) // of the target's other tables it may have been told before
            result.notes.append(note);
    desk.Disk().Kill(working);
    desk.Disk().Name(made, working);
    return true;
}

/// All but the last step, in the file that is worked on.
void Make(const TransferDesk& desk, const ExportOrder& order, const QString& working, TargetKind kind,
          ExportResult& result, const WorkStep& step)
{
    result.stopped = !MakeWorking(desk, kind, order.target, working, result, step);
    if (result.stopped || !MayLose(desk, order.target, result.lost + result.notes, result))
        return;
    const std::optional<qint64> records = Copy(desk, order, working, step).Run();
    result.stopped = !records;
    if (result.stopped)
        return;
    result.records = *records;
    AddKeyIndex(desk.Engine(), working, order.table);
    if (order.pictures) {
        const InsertedImages images = InsertImages(desk, working, order.table, step);
        result.pictures = images.in;
        result.without = images.without;
        result.notIn = images.notIn;
        result.stopped = images.stopped;
    }
    if (!result.stopped && (kind == TargetKind::Access || (kind == TargetKind::New && order.access)))
        result.stopped = !MakeAccess(desk, working, result, step);
    if (kind == TargetKind::Access && !result.stopped) {
        const QStringList indexes = LostIndexes(desk.Engine(), order.target, working, order.table);
        if (!MayLose(desk, order.target, indexes, result))
            return; // else the notes of the conversion tell why they are not there
    }
    if (kind == TargetKind::Vasclip && order.access)
        result.notes.append(kStaysVasclip.arg(order.target));
}

} // namespace

ExportResult ExportTable(const TransferDesk& desk, const ExportOrder& order, const WorkStep& step)
{
    ExportResult result{.file = order.target, .table = order.table};
    const files::Disk& disk = desk.Disk();
    NeedWritable(disk, order.target);
    const TargetKind kind = KindOf(disk, order.target);
    Recover(desk.Engine(), kind, order.target);
    engine::NewFile file(disk.ToNative(order.target), order.target);
    const QString name = file.Path().mid(file.Path().lastIndexOf(u'/') + 1);
    const QString working = order.target.left(order.target.lastIndexOf(u'\\') + 1) + name;
    const QByteArray before = MarkOf(disk, order.target);
    try {
        Make(desk, order, working, kind, result, step);
    } catch (const RuntimeError& failure) {
        // The names of the files that are worked on tell nobody anything.
        throw RuntimeError(failure.Number(), QString(failure.Description())
                                                 .replace(working + kAccessMark, order.target, Qt::CaseInsensitive)
                                                 .replace(working, order.target, Qt::CaseInsensitive));
    }
    // Somebody may have opened the target meanwhile; to take its place would lose what he stores.
    if (result.stopped || result.declined ||
        RefusesLocked(desk.ports.prompter, desk.Engine(), kExportTo, order.target))
        return result;
    if (MarkOf(disk, order.target) != before)
        throw RuntimeError(error::kPathFileAccess,
                           u"Somebody stored into %1 while the export was made. The file is as they left it; export again"_s.arg(
                               order.target));
    file.Finish();
    result.written = true;
    return result;
}

} // namespace vasclip::upkeep
