#include "upkeep/import_table.h"

#include "platform/engine/sql_name.h"
#include "platform/text/counted.h"
#include "store/bulk_rows.h"
#include "store/transaction.h"
#include "store/fields.h"
#include "store/record.h"

#include <QScopeGuard>

#include <algorithm>

namespace vasclip::upkeep {

using namespace Qt::StringLiterals;

namespace {

const QString kWords = u"Import from %1"_s;

qint64 PicturesInside(engine::Database& source, const QString& table)
{
    store::Rows counted(source, u"SELECT COUNT(*) FROM ["_s + table + u"] WHERE "_s + fields::FRONTPHOTO + u" IS NOT NULL"_s);
    const auto record = counted.Next();
    return record ? record->Values().first().toLongLong() : 0;
}

} // namespace

QString WordsOf(const SavedImages& pictures)
{
    QStringList parts;
    if (pictures.written > 0)
        parts.append(u"%1 written"_s.arg(pictures.written));
    if (pictures.over > 0)
        parts.append(u"%1 written over others"_s.arg(pictures.over));
    if (pictures.same > 0)
        parts.append(u"%1 there already"_s.arg(pictures.same));
    if (pictures.kept > 0)
        parts.append(u"%1 not written over others"_s.arg(pictures.kept));
    if (!pictures.notSaved.isEmpty())
        parts.append(u"%1 refused"_s.arg(pictures.notSaved.size()));
    return parts.isEmpty() ? QString() : u" Pictures: "_s + parts.join(u", "_s) + u'.';
}

QString AppendStatement(const TransferDesk& desk, const ImportOrder& order, const ImportPlan& plan, const QString& condition)
{
    using engine::Bracketed;
    return u" INSERT INTO "_s + Bracketed(desk.Databook()) + u'.' + Bracketed(desk.globals.G_Table) + u" (["_s +
           plan.columns.join(u"], ["_s) + u"]) SELECT "_s + plan.values.join(u", "_s) + u" FROM "_s + Bracketed(order.source) +
           u'.' + Bracketed(order.table) + u" WHERE "_s + condition + u';';
}

ImportOrder OrderOf(std::shared_ptr<const ListSource> list)
{
    return {.source = list->File(), .table = ListSource::kTable, .pictures = false, .list = list};
}

ImportResult ImportTable(const TransferDesk& desk, const ImportOrder& order, const WorkStep& step)
{
    ImportResult result;
    result.source = order.Name();
    result.table = order.table;
    NeedWritableDatabook(desk);
    const auto source = desk.Engine().OpenDatabase(order.source, engine::OpenMode::ReadOnly);
    const auto closed = qScopeGuard([&] { source->Close(); });
    ImportPlan plan = PlanImport(desk, *source, order.table);
    result.rows = plan.rows;
    if (order.list)
        order.list->NameLines(plan);
    result.refused = plan.refused;
    result.leftBehind = plan.leftBehind;
    if (order.list) {
        result.rows += order.list->Refused().size();
        result.leftBehind = order.list->LeftBehind();
        result.refused += order.list->Refused();
        std::ranges::stable_sort(result.refused, {}, &RefusedRow::place);
    }
    result.otherKind = plan.otherKind;
    result.blanksFirst = std::ranges::count_if(plan.newKeys, [](const QString& key) { return key.startsWith(u' '); });
    if (!order.pictures && plan.hasPictures)
        result.picturesLeft = PicturesInside(*source, order.table);
    EmbeddedImages images(desk, *source, order.table);
    if (order.pictures && plan.hasPictures && !images.SaveEmbeddedImages(step)) {
        result.pictures = images.Result();
        result.stopped = true;
        return result;
    }
    // Rows first: a Databook that somebody keeps locked leaves the photo directory as it is.
    store::Transaction whole(desk.databook);
    const QStringList proofs = images.WantsProof() ? plan.newKeys.mid(0, EmbeddedImages::kProofs) : QStringList();
    const QSet<QString> meanwhile =
        proofs.isEmpty() ? QSet<QString>() : KeysThere(desk.databook, desk.globals.G_Table, proofs);
    result.appended = store::AppendRows(desk.databook, AppendStatement(desk, order, plan, plan.condition), plan.newKeys,
                                        kWords.arg(order.Name()));
    result.there = plan.there.size() + plan.newKeys.size() - result.appended;
    for (const QString& key : proofs)
        if (!meanwhile.contains(KeyMark(key)))
            images.ProvedBy({key, {}});
    images.Place();
    result.pictures = images.Result();
    whole.Commit();
    images.Keep();
    result.damage = DamageIn(*source);
    result.done = true;
    return result;
}

QString WordsOf(const ImportResult& result)
{
    if (!result.done)
        return (result.stopped ? u"Canceled: nothing came in."_s : u"Nothing came in: the Databook is as it was."_s) +
               WordsOf(result.pictures);
    QString words = text::Counted{u"record"_s, u"records"_s}(result.appended) + u" of "_s + result.source +
                    (result.appended == 1 ? u" was added to the Databook."_s : u" were added to the Databook."_s);
    if (result.there > 0)
        words += u' ' + text::Counted{u"stayed out, as the Databook has its key."_s,
                                      u"stayed out, as the Databook has their keys."_s}(result.there);
    if (const qint64 out = result.rows - result.appended - result.there; out > 0)
        words += u' ' + text::Counted{u"was refused."_s, u"were refused."_s}(out);
    if (!result.leftBehind.isEmpty())
        words += u" The Databook has no field "_s + result.leftBehind.join(u", "_s) + u'.';
    if (!result.otherKind.isEmpty())
        words += u" What "_s + result.otherKind.join(u", "_s) + u" holds is of another kind than in the Databook and was left."_s;
    if (result.blanksFirst > 0)
        words += u' ' + text::Counted{u"key begins"_s, u"keys begin"_s}(result.blanksFirst) + u" with a blank: no look-up finds such a record."_s;
    if (result.picturesLeft > 0)
        words += u' ' + text::Counted{u"picture was"_s, u"pictures were"_s}(result.picturesLeft) +
                 u" left inside the file; import it again with its pictures to have them."_s;
    return words + WordsOf(result.pictures) + DamageWords(result.damage);
}

QStringList AccountOf(const ImportResult& result)
{
    QStringList lines = result.damage;
    for (const RefusedRow& row : result.refused)
        lines.append(NameOf(row) + u": "_s + row.why);
    return lines + result.pictures.notSaved;
}

} // namespace vasclip::upkeep
