#include "upkeep/rehearsal.h"

#include "platform/text/runtime_error.h"
#include "platform/text/text.h"
#include "store/bulk_rows.h"
#include "store/change.h"
#include "store/fields.h"
#include "store/record.h"
#include "store/transaction.h"
#include "upkeep/address_twins.h"

#include <algorithm>

namespace vasclip::upkeep {

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype kNamed = 500;
const QString kImportWords = u"Import from %1"_s;
const QString kChangeWords = u"Import into %1"_s;

QString ColumnList(const QStringList& columns)
{
    return u'[' + columns.join(u"], ["_s) + u']';
}

QString InList(const QStringList& keys)
{
    QStringList quoted;
    for (const QString& key : keys)
        quoted.append(u'\'' + QString(key).replace(u'\'', u"''"_s) + u'\'');
    return quoted.join(u',');
}

/// What a person sees of a value: blanks around it do not count.
QString Shown(const store::Record& record, const QString& field)
{
    return record.Has(field) ? text::Trim(record.Value(field).toString()) : QString();
}

bool IsKey(const QString& field)
{
    return field.compare(fields::CENTRALKEY, Qt::CaseInsensitive) == 0;
}

} // namespace

Rehearsal::Rehearsal(const TransferDesk& desk, const ImportOrder& order)
    : m_desk(desk)
    , m_order(order)
    , m_source(desk.Engine().OpenDatabase(order.source, engine::OpenMode::ReadOnly))
    , m_plan(PlanImport(desk, *m_source, order.table))
    , m_theirs(std::make_unique<store::Rows>(
          *m_source, u"SELECT "_s + ColumnList(m_plan.columns) + u" FROM ["_s + order.table + u']'))
{
    Sort();
    FindTwins();
    AddRefusedLines();
    if (!order.pictures || !m_plan.hasPictures)
        return;
    const QList<RowPicture> pictures = LookAtPictures(desk, *m_source, order.table);
    for (RehearsedRow& row : m_rows)
        row.picture = pictures.value(row.place, RowPicture::None);
}

Rehearsal::~Rehearsal()
{
    m_theirs.reset();
    m_source->Close();
}

/// New and refused rows as the plan has them; those whose key is there are compared.
void Rehearsal::Sort()
{
    QList<qsizetype> met;
    for (qint64 at = 0; at < m_theirs->Count(); ++at) {
        RehearsedRow row;
        row.place = at;
        row.why = m_plan.reasons.value(at);
        const auto record = m_theirs->At(at);
        row.key = record ? Shown(*record, fields::CENTRALKEY) : QString();
        row.kind = row.why.isEmpty() ? RowKind::New : RowKind::Refused;
        row.choice = row.why.isEmpty() ? RowChoice::Add : RowChoice::KeepMine;
        if (m_plan.there.contains(at)) {
            row.kind = RowKind::Changed;
            row.mine = row.key;
            row.why.clear();
            met.append(m_rows.size());
        }
        m_rows.append(row);
    }
    Compare(met);
}

void Rehearsal::AddRefusedLines()
{
    for (const RefusedLine& line : m_order.list ? m_order.list->Refused() : QList<RefusedLine>()) {
        RehearsedRow row;
        row.place = -1;
        row.key = NameOf(line);
        row.kind = RowKind::Refused;
        row.why = line.why;
        m_rows.append(row);
    }
}

void Rehearsal::Compare(const QList<qsizetype>& rows)
{
    for (qsizetype from = 0; from < rows.size(); from += kNamed) {
        QHash<QString, store::Record> mine;
        QStringList keys;
        for (qsizetype i = from; i < std::min(from + kNamed, rows.size()); ++i)
            keys.append(m_rows.at(rows.at(i)).key);
        const store::Rows found = store::ReadRows(
            m_desk.databook, u"SELECT %1 FROM [%2] WHERE %3 IN (%4)"_s.arg(ColumnList(m_plan.columns), m_desk.globals.G_Table,
                                                                          fields::CENTRALKEY, InList(keys)));
        for (qint64 at = 0; at < found.Count(); ++at)
            if (const auto record = found.At(at))
                mine.insert(KeyMark(record->Value(fields::CENTRALKEY).toString()), *record);
        for (qsizetype i = from; i < std::min(from + kNamed, rows.size()); ++i) {
            RehearsedRow& row = m_rows[rows.at(i)];
            const auto theirs = m_theirs->At(row.place);
            const auto known = mine.constFind(KeyMark(row.key));
            if (!theirs || known == mine.cend())
                continue;
            row.differences = static_cast<int>(std::ranges::count_if(m_plan.columns, [&](const QString& field) {
                return !IsKey(field) && Shown(*theirs, field) != Shown(*known, field);
            }));
            row.kind = row.differences == 0 ? RowKind::Same : RowKind::Changed;
        }
    }
}

void Rehearsal::FindTwins()
{
    AddressTwins twins;
    for (const RehearsedRow& row : std::as_const(m_rows)) {
        const auto theirs = row.kind == RowKind::New ? m_theirs->At(row.place) : std::nullopt;
        if (!theirs)
            continue;
        const QString address = Shown(*theirs, fields::ADDRESS);
        twins.Want(row.key, address.isEmpty() ? row.key : address, Shown(*theirs, fields::CITY));
    }
    const QHash<QString, QString> found = twins.Find(m_desk);
    for (RehearsedRow& row : m_rows) {
        if (row.kind != RowKind::New || !found.contains(row.key))
            continue;
        row.kind = RowKind::Twin;
        row.choice = RowChoice::KeepMine;
        row.mine = found.value(row.key);
    }
}

qsizetype Rehearsal::Count(RowKind kind) const
{
    return std::ranges::count(m_rows, kind, &RehearsedRow::kind);
}

QList<FieldPair> Rehearsal::FieldsOf(const RehearsedRow& row, bool all) const
{
    QList<FieldPair> pairs;
    const auto theirs = row.place < 0 ? std::nullopt : m_theirs->At(row.place);
    if (!theirs)
        return pairs;
    const auto mine =
        row.mine.isEmpty() ? std::nullopt : store::ReadRecord(m_desk.databook, row.mine);
    for (const QString& field : m_plan.columns) {
        const FieldPair pair{field, mine ? Shown(*mine, field) : QString(), Shown(*theirs, field)};
        if (pair.mine != pair.theirs || (all && !pair.mine.isEmpty()))
            pairs.append(pair);
    }
    return pairs;
}

bool Rehearsal::Fits(RowKind kind, RowChoice choice)
{
    switch (kind) {
    case RowKind::New:
        return choice == RowChoice::Add || choice == RowChoice::KeepMine;
    case RowKind::Changed:
        return choice != RowChoice::Add;
    case RowKind::Twin:
        return true;
    case RowKind::Same:
    case RowKind::Refused:
        return choice == RowChoice::KeepMine;
    }
    return false;
}

void Rehearsal::Choose(qsizetype row, RowChoice choice)
{
    if (row >= 0 && row < m_rows.size() && Fits(m_rows.at(row).kind, choice))
        m_rows[row].choice = choice;
}

void Rehearsal::ChooseAll(RowKind kind, RowChoice choice)
{
    for (RehearsedRow& row : m_rows)
        if (row.kind == kind && Fits(kind, choice))
            row.choice = choice;
}

void Rehearsal::AddRows(RehearsalResult& result)
{
    QStringList keys;
    for (const RehearsedRow& row : std::as_const(m_rows))
        if (row.choice == RowChoice::Add)
            keys.append(row.key);
    for (qsizetype from = 0; from < keys.size(); from += kNamed) {
        const QStringList some = keys.mid(from, kNamed);
        const QString named = m_plan.condition + u" AND "_s + fields::CENTRALKEY + u" IN ("_s + InList(some) + u')';
        result.added += store::AppendRows(m_desk.databook,
                                          AppendStatement(m_desk.Databook(), m_desk.globals.G_Table, m_order.source,
                                                          m_order.table, m_plan.columns, named),
                                          some, kImportWords.arg(m_order.Name()));
    }
}

void Rehearsal::ChangeRow(const RehearsedRow& row, RehearsalResult& result)
{
    const auto theirs = m_theirs->At(row.place);
    const auto mine = store::ReadRecord(m_desk.databook, row.mine);
    if (!theirs || !mine)
        return; // gone meanwhile
    QList<std::pair<QString, QVariant>> values;
    for (const QString& field : std::as_const(m_plan.columns)) {
        const QString held = Shown(*mine, field);
        const QString comes = Shown(*theirs, field);
        const bool wanted = row.choice == RowChoice::TakeTheirs || (held.isEmpty() && !comes.isEmpty());
        if (!IsKey(field) && wanted && held != comes)
            values.append({field, theirs->Value(field)});
    }
    if (values.isEmpty())
        return;
    store::Change change(m_desk.databook, store::Change::OfKey{row.mine}, kChangeWords);
    for (const auto& [field, value] : std::as_const(values))
        change.Set(field, value);
    change.Store();
    ++result.changed;
}

bool Rehearsal::HasPhotos(const RehearsedRow& row) const
{
    const auto mine = store::ReadRecord(m_desk.databook, row.mine);
    return mine && !text::Trim(mine->Text(fields::PHOTOS)).isEmpty();
}

RehearsalResult Rehearsal::Carry(const WorkStep& step)
{
    RehearsalResult result;
    QSet<QString> taken;
    for (const RehearsedRow& row : std::as_const(m_rows))
        if (row.choice == RowChoice::Add || row.choice == RowChoice::TakeTheirs ||
            (row.choice == RowChoice::FillBlanks && !HasPhotos(row)))
            taken.insert(KeyMark(row.key));
    EmbeddedImages images(m_desk, *m_source, m_order.table);
    images.Only(taken);
    if (m_order.pictures && m_plan.hasPictures && !images.SaveEmbeddedImages(step)) {
        result.pictures = images.Result();
        result.stopped = true;
        return result;
    }
    store::Transaction whole(m_desk.databook);
    AddRows(result); // the queue does not turn meanwhile: nobody else may write into this transaction
    for (const RehearsedRow& row : std::as_const(m_rows))
        if (row.choice == RowChoice::TakeTheirs || row.choice == RowChoice::FillBlanks)
            ChangeRow(row, result);
    images.Place();
    result.pictures = images.Result();
    whole.Commit();
    result.done = true;
    return result;
}

} // namespace vasclip::upkeep
