#include "upkeep/rehearsal.h"

#include "platform/text/text.h"
#include "store/fields.h"
#include "store/record.h"
#include "upkeep/address_twins.h"
#include "upkeep/key_list.h"
#include "upkeep/rehearsed_fields.h"

#include <algorithm>

namespace vasclip::upkeep {

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype kNamed = 500;
constexpr qint64 kBetweenSteps = 256; ///< rows
const QString kReading = u"Reading the records of the file"_s;
const QString kComparing = u"Comparing with the Databook"_s;
const QString kBlanksFirst = u"its key begins with a blank: no look-up finds such a record"_s;
const QString kTwinInside = u"%1 of the same file stands at the same address"_s;

QString ColumnList(const QStringList& columns)
{
    return u'[' + columns.join(u"], ["_s) + u']';
}

} // namespace

Rehearsal::Rehearsal(const TransferDesk& desk, const ImportOrder& order, const WorkStep& step)
    : m_desk(desk)
    , m_order(order)
    , m_source(desk.Engine().OpenDatabase(order.source, engine::OpenMode::ReadOnly))
    , m_plan(PlanImport(desk, *m_source, order.table, step))
    , m_theirs(std::make_unique<store::Rows>(
          *m_source, u"SELECT "_s + ColumnList(m_plan.columns) + u" FROM ["_s + order.table + u']'))
    , m_stopped(m_plan.stopped)
{
    if (m_order.list)
        m_order.list->NameLines(m_plan);
    Read(step);
}

void Rehearsal::Read(const WorkStep& step)
{
    const WorkStep kept = [&](qint64 done, qint64 of, const QString& words) { return GoesOn(step, done, of, words); };
    if (!m_stopped)
        Sort(kept);
    if (!m_stopped)
        FindTwins(kept);
    if (m_stopped)
        return;
    AddRefusedLines();
    if (m_order.pictures && m_plan.hasPictures) {
        const QList<RowPicture> pictures = LookAtPictures(m_desk, *m_source, m_order.table, kept);
        for (RehearsedRow& row : m_rows)
            row.picture = pictures.value(row.place, RowPicture::None);
    }
    m_damage = DamageIn(*m_source);
}

/// A step that was answered with a stop is not asked again.
bool Rehearsal::GoesOn(const WorkStep& step, qint64 done, qint64 of, const QString& words)
{
    m_stopped = m_stopped || !step(done, of, words);
    return !m_stopped;
}

Rehearsal::~Rehearsal()
{
    m_theirs.reset();
    m_source->Close();
}

/// New and refused rows as the plan has them; those whose key is there are compared.
void Rehearsal::Sort(const WorkStep& step)
{
    QList<qsizetype> met;
    for (qint64 at = 0; at < m_theirs->Count(); ++at) {
        if (at % kBetweenSteps == 0 && !step(at, m_theirs->Count(), kReading))
            return;
        RehearsedRow row;
        row.place = at;
        const RefusedRow* refused = RefusedAt(m_plan, at);
        row.why = refused ? refused->why : QString();
        const auto record = m_theirs->At(at);
        row.stored = record ? text::RTrim(record->Value(fields::CENTRALKEY).toString()) : QString();
        row.key = text::Trim(row.stored);
        row.kind = row.why.isEmpty() ? RowKind::New : RowKind::Refused;
        row.choice = row.why.isEmpty() ? RowChoice::Add : RowChoice::KeepMine;
        if (row.why.isEmpty() && row.stored.startsWith(u' '))
            row.why = kBlanksFirst;
        if (m_plan.there.contains(at)) {
            row.kind = RowKind::Changed;
            row.mine = row.stored;
            row.why.clear();
            met.append(m_rows.size());
        } else if (refused) {
            row.key = NameOf(*refused);
        }
        m_rows.append(row);
    }
    Compare(met, step);
}

void Rehearsal::AddRefusedLines()
{
    for (const RefusedRow& line : m_order.list ? m_order.list->Refused() : QList<RefusedRow>()) {
        RehearsedRow row;
        row.place = -1;
        row.key = NameOf(line);
        row.kind = RowKind::Refused;
        row.why = line.why;
        m_rows.append(row);
    }
}

void Rehearsal::Compare(const QList<qsizetype>& rows, const WorkStep& step)
{
    for (qsizetype from = 0; from < rows.size(); from += kNamed) {
        if (!step(from, rows.size(), kComparing))
            return;
        QHash<QString, store::Record> mine;
        QStringList keys;
        for (qsizetype i = from; i < std::min(from + kNamed, rows.size()); ++i)
            keys.append(m_rows.at(rows.at(i)).stored);
        const store::Rows found = store::ReadRows(
            m_desk.databook, u"SELECT %1 FROM [%2] WHERE %3 IN (%4)"_s.arg(ColumnList(m_plan.columns), m_desk.globals.G_Table,
                                                                          fields::CENTRALKEY, InList(keys)));
        for (qint64 at = 0; at < found.Count(); ++at)
            if (const auto record = found.At(at))
                mine.insert(KeyMark(record->Value(fields::CENTRALKEY).toString()), *record);
        for (qsizetype i = from; i < std::min(from + kNamed, rows.size()); ++i) {
            RehearsedRow& row = m_rows[rows.at(i)];
            const auto theirs = m_theirs->At(row.place);
            const auto known = mine.constFind(KeyMark(row.stored));
            if (!theirs || known == mine.cend())
                continue;
            row.differences = static_cast<int>(std::ranges::count_if(m_plan.columns, [&](const QString& field) {
                return !IsKey(field) && Differs(*known, *theirs, field);
            }));
            row.kind = row.differences == 0 ? RowKind::Same : RowKind::Changed;
        }
    }
}

void Rehearsal::FindTwins(const WorkStep& step)
{
    AddressTwins twins;
    for (const RehearsedRow& row : std::as_const(m_rows)) {
        const auto theirs = row.kind == RowKind::New ? m_theirs->At(row.place) : std::nullopt;
        if (!theirs)
            continue;
        const QString address = Shown(*theirs, fields::ADDRESS);
        twins.Want(row.stored, address.isEmpty() ? row.key : address, Shown(*theirs, fields::CITY));
    }
    const QHash<QString, QString> found = twins.Find(m_desk, step);
    for (RehearsedRow& row : m_rows) {
        if (row.kind != RowKind::New)
            continue;
        if (found.contains(row.stored)) {
            row.kind = RowKind::Twin;
            row.mine = found.value(row.stored);
            row.choice = RowChoice::KeepMine;
        } else if (twins.Among().contains(row.stored)) {
            row.why = kTwinInside.arg(text::Trim(twins.Among().value(row.stored)));
            row.choice = RowChoice::KeepMine;
        }
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
        const bool differs = mine ? Differs(*mine, *theirs, field) : !pair.theirs.isEmpty();
        if (differs || (all && !pair.mine.isEmpty()))
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

} // namespace vasclip::upkeep
