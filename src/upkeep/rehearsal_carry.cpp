// What was chosen in a rehearsal, carried out.

#include "upkeep/rehearsal.h"

#include "platform/text/text.h"
#include "store/bulk_rows.h"
#include "store/change.h"
#include "store/fields.h"
#include "store/transaction.h"
#include "upkeep/key_list.h"
#include "upkeep/rehearsed_fields.h"

namespace vasclip::upkeep {

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype kNamed = 500;
const QString kImportWords = u"Import from %1"_s;
const QString kChangeWords = u"Import into %1"_s;
const QString kAddedMeanwhile = u"a record of this key is in the Databook by now"_s;
const QString kGoneMeanwhile = u"your record is not there any more"_s;
const QString kRowGone = u"the row does not stand in the file any more as it was read"_s;

} // namespace

QStringList Rehearsal::AddRows(RehearsalResult& result, Undone& undone)
{
    QStringList keys;
    QHash<QString, qsizetype> places;
    for (qsizetype at = 0; at < m_rows.size(); ++at) {
        if (m_rows.at(at).choice != RowChoice::Add)
            continue;
        keys.append(m_rows.at(at).stored);
        places.insert(KeyMark(m_rows.at(at).stored), at);
    }
    for (const QString& there : KeysThere(m_desk.databook, m_desk.globals.G_Table, keys))
        if (places.contains(there))
            undone.insert(places.value(there), kAddedMeanwhile);
    keys.removeIf([&](const QString& key) { return undone.contains(places.value(KeyMark(key))); });
    for (qsizetype from = 0; from < keys.size(); from += kNamed) {
        const QStringList some = keys.mid(from, kNamed);
        const QString named = m_plan.condition + u" AND "_s + fields::CENTRALKEY + u" IN ("_s + InList(some) + u')';
        result.added += store::AppendRows(m_desk.databook, AppendStatement(m_desk, m_order, m_plan, named), some,
                                          kImportWords.arg(m_order.Name()));
    }
    if (result.added == keys.size())
        return keys;
    const QSet<QString> there = KeysThere(m_desk.databook, m_desk.globals.G_Table, keys);
    keys.removeIf([&](const QString& key) {
        const bool gone = !there.contains(KeyMark(key));
        if (gone)
            undone.insert(places.value(KeyMark(key)), kRowGone);
        return gone;
    });
    return keys;
}

/// @return why nothing came of it, "" if it did
QString Rehearsal::ChangeRow(const RehearsedRow& row, RehearsalResult& result)
{
    const auto theirs = m_theirs->At(row.place);
    const auto mine = store::ReadRecord(m_desk.databook, row.mine);
    if (!theirs || !mine)
        return theirs ? kGoneMeanwhile : kRowGone;
    QList<std::pair<QString, QVariant>> values;
    for (const QString& field : std::as_const(m_plan.columns)) {
        const QString held = Shown(*mine, field);
        const bool wanted = row.choice == RowChoice::TakeTheirs || (held.isEmpty() && !Shown(*theirs, field).isEmpty());
        if (IsKey(field) || !wanted || !Differs(*mine, *theirs, field))
            continue;
        const QVariant value = Taken(*mine, *theirs, field);
        const bool shortened = value.isValid() && m_plan.shortened.contains(field);
        values.append({field, shortened ? text::RTrim(value.toString()) : value});
    }
    if (values.isEmpty())
        return {};
    store::Change change(m_desk.databook, store::Change::OfKey{row.mine}, kChangeWords);
    for (const auto& [field, value] : std::as_const(values))
        change.Set(field, value);
    change.Store();
    ++result.changed;
    return {};
}

bool Rehearsal::HasPhotos(const RehearsedRow& row) const
{
    const auto mine = store::ReadRecord(m_desk.databook, row.mine);
    return mine && !text::Trim(mine->Text(fields::PHOTOS)).isEmpty();
}

RehearsalResult Rehearsal::Carry(const WorkStep& step)
{
    RehearsalResult result;
    result.stopped = m_stopped;
    if (m_stopped)
        return result;
    NeedWritableDatabook(m_desk);
    QSet<QString> taken;
    for (const RehearsedRow& row : std::as_const(m_rows))
        if (row.choice == RowChoice::Add || row.choice == RowChoice::TakeTheirs ||
            (row.choice == RowChoice::FillBlanks && !HasPhotos(row)))
            taken.insert(KeyMark(row.stored));
    EmbeddedImages images(m_desk, *m_source, m_order.table);
    images.Only(taken);
    if (m_order.pictures && m_plan.hasPictures && !images.SaveEmbeddedImages(step)) {
        result.pictures = images.Result();
        result.stopped = true;
        return result;
    }
    store::Transaction whole(m_desk.databook);
    Undone undone;
    // The queue does not turn meanwhile: nobody else may write into this transaction.
    for (const QString& key : AddRows(result, undone))
        if (images.WantsProof())
            images.ProvedBy({key, {}});
    for (qsizetype at = 0; at < m_rows.size(); ++at) {
        if (m_rows.at(at).choice != RowChoice::TakeTheirs && m_rows.at(at).choice != RowChoice::FillBlanks)
            continue;
        const auto changed = result.changed;
        if (const QString why = ChangeRow(m_rows.at(at), result); !why.isEmpty())
            undone.insert(at, why);
        if (result.changed > changed && images.WantsProof())
            images.ProvedBy({m_rows.at(at).mine, SumOf(m_desk.databook, m_rows.at(at).mine)});
    }
    QSet<QString> dropped;
    for (auto one = undone.cbegin(); one != undone.cend(); ++one)
        dropped.insert(KeyMark(m_rows.at(one.key()).stored));
    images.Drop(dropped);
    images.Place();
    result.pictures = images.Result();
    whole.Commit();
    images.Keep();
    for (qsizetype at = 0; at < m_rows.size(); ++at) {
        if (!undone.contains(at))
            continue;
        m_rows[at].why = undone.value(at);
        result.undone.append(m_rows.at(at).key + u": "_s + undone.value(at));
    }
    result.damage = DamageIn(*m_source);
    result.done = true;
    return result;
}

} // namespace vasclip::upkeep
