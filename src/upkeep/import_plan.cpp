#include "upkeep/import_plan.h"

#include "platform/engine/collation.h"
#include "platform/engine/errors.h"
#include "platform/engine/genuine_file.h"
#include "platform/engine/health.h"
#include "platform/text/text.h"
#include "store/fields.h"
#include "store/record.h"

#include <QHash>

#include <algorithm>

namespace vasclip::upkeep {

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype kNamed = 500;
constexpr qint64 kReadPerNamed = 5;
constexpr qint64 kBetweenSteps = 512; ///< rows
const QString kReading = u"Reading the keys of the file"_s;
const QString kNoKey = u"it has no key"_s;
const QString kThere = u"the Databook has a record of this key"_s;
const QString kTwice = u"an earlier row of the file has the same key"_s;
const QString kAccess = u"The Databook %1 is an Access database, which is only read. Convert it to a Vasclip database, then import"_s;
const QString kDamaged = u"The Databook %1 is damaged and only read. Copy what can be read into a new one, then import"_s;
const QString kProtected = u"The Databook %1 is write-protected. Get the rights to write the file and its directory, then import"_s;
const QString kTooLong = u"%1 holds %2 characters, the Databook takes %3"_s;

const engine::Field* FieldOf(const engine::TableDef& table, const QString& name)
{
    const auto found = std::ranges::find_if(
        table.fields, [&](const engine::Field& field) { return field.name.compare(name, Qt::CaseInsensitive) == 0; });
    return found == table.fields.end() ? nullptr : &*found;
}

bool IsBytes(const engine::Field& field)
{
    return field.type == engine::FieldType::Binary || field.type == engine::FieldType::LongBinary;
}

/// Can a value of one be stored in the other? Bytes are no text, and a picture is bytes read in pieces.
bool Fits(const engine::Field& source, const engine::Field& target)
{
    return IsBytes(target) ? source.type == engine::FieldType::LongBinary : !IsBytes(source);
}

/// Columns whose texts may be longer than the Databook's field takes. Numbers and dates are stored as text.
QList<engine::Field> Narrower(const engine::TableDef& from, const engine::TableDef& into, const QStringList& columns)
{
    QList<engine::Field> narrower;
    for (const QString& name : columns) {
        const engine::Field* source = FieldOf(from, name);
        const engine::Field* target = FieldOf(into, name);
        const bool wider = source->type != engine::FieldType::Text || source->size > target->size;
        if (target->type == engine::FieldType::Text && wider)
            narrower.append(*target);
    }
    return narrower;
}

/// Which field a row's text does not fit into, and why.
struct Misfit
{
    QString field, why;
};

/// Rows whose texts do not fit, by their place; looked for only where a field of the source is wider.
QHash<qint64, Misfit> TooLong(engine::Database& source, const QString& table, const QList<engine::Field>& narrower)
{
    QHash<qint64, Misfit> found;
    if (narrower.isEmpty())
        return found;
    QStringList names;
    for (const engine::Field& field : narrower)
        names.append(u"RTRIM([%1] & '')"_s.arg(field.name));
    const store::Rows rows(source, u"SELECT "_s + names.join(u", "_s) + u" FROM ["_s + table + u']');
    for (qint64 at = 0; at < rows.Count(); ++at) {
        const auto record = rows.At(at);
        for (qsizetype i = 0; record && i < narrower.size(); ++i) {
            const qsizetype length = record->Values().at(i).toString().size();
            if (length > narrower.at(i).size)
                found.insert(at, {narrower.at(i).name, kTooLong.arg(narrower.at(i).name).arg(length).arg(narrower.at(i).size)});
        }
    }
    return found;
}

/// A list of photos whose last line lacks its end, which other programs leave out: nobody would read that line.
QString PhotosValue(const QString& value, const engine::Field& into)
{
    const QString room =
        into.type == engine::FieldType::Text ? u" AND LEN(%1) <= %2"_s.arg(value).arg(into.size - 2) : QString();
    return u"IIF(INSTR(%1 & '', '|') > 0 AND RIGHT(%1, 2) <> '\r\n'%2, %1 & '\r\n', %1)"_s.arg(value, room);
}

/// A key of blanks is none.
QString FitCondition(const QList<engine::Field>& narrower)
{
    QStringList terms{u"TRIM("_s + fields::CENTRALKEY + u") <> ''"_s};
    for (const engine::Field& field : narrower)
        terms.append(u"LEN(RTRIM([%1] & '')) <= %2"_s.arg(field.name).arg(field.size));
    return terms.join(u" AND "_s);
}

} // namespace

QString KeyMark(const QString& key)
{
    return engine::FoldedText(key);
}

QString NameOf(const RefusedRow& row)
{
    const QString name = row.table.isEmpty() ? u"Line %1"_s.arg(row.place) : u"%1 row %2"_s.arg(row.table).arg(row.place);
    return row.key.isEmpty() ? name : name + u", "_s + row.key;
}

const RefusedRow* RefusedAt(const ImportPlan& plan, qint64 place)
{
    const auto found = plan.refusedAt.constFind(place);
    return found == plan.refusedAt.cend() ? nullptr : &plan.refused.at(*found);
}

QStringList DamageIn(engine::Database& source)
{
    return engine::DamageOf(source).isEmpty() ? QStringList() : engine::CheckDatabase(source, engine::CheckDepth::Quiet);
}

QString DamageWords(const QStringList& damage)
{
    return damage.isEmpty() ? QString() : u" The file is damaged, and not all of it could be read: %1."_s.arg(damage.first());
}

void NeedWritableDatabook(const TransferDesk& desk)
{
    if (desk.databook.Updatable())
        return;
    engine::Database& open = desk.databook.Database();
    const QString& why = engine::IsGenuine(open)                                            ? kAccess
                         : !engine::CheckDatabase(open, engine::CheckDepth::Quiet).isEmpty() ? kDamaged
                                                                                             : kProtected;
    throw RuntimeError(error::kFileIsReadOnly, why.arg(desk.Databook()));
}

QStringList removeEmbeddedImages(const QStringList& columns)
{
    QStringList left = columns;
    left.removeIf([](const QString& name) { return name.compare(fields::FRONTPHOTO, Qt::CaseInsensitive) == 0; });
    return left;
}

QSet<QString> KeysThere(const store::DataSource& databook, const QString& table, const QStringList& keys)
{
    QSet<QString> there;
    const auto take = [&](const QString& condition) {
        const store::Rows rows =
            store::ReadRows(databook, u"SELECT %1 FROM [%2]"_s.arg(fields::CENTRALKEY, table) + condition);
        for (qint64 at = 0; at < rows.Count(); ++at)
            if (const auto record = rows.At(at))
                there.insert(KeyMark(record->Values().first().toString()));
    };
    // To name a record costs as much as to read some; the keys of a Databook that is not much larger are read at once.
    if (store::CountRows(databook.Database(), table) <= kReadPerNamed * keys.size()) {
        take({});
        return there;
    }
    for (qsizetype from = 0; from < keys.size(); from += kNamed) {
        QStringList quoted;
        for (const QString& key : keys.mid(from, kNamed))
            quoted.append(u'\'' + QString(key).replace(u'\'', u"''"_s) + u'\'');
        take(u" WHERE %1 IN (%2)"_s.arg(fields::CENTRALKEY, quoted.join(u',')));
    }
    return there;
}

ImportPlan PlanImport(const TransferDesk& desk, engine::Database& source, const QString& table, const WorkStep& step)
{
    ImportPlan plan;
    const engine::TableDef from = source.Table(table);
    const engine::TableDef into = desk.databook.Database().Table(desk.globals.G_Table);
    QStringList both;
    const engine::Field* picture = FieldOf(from, fields::FRONTPHOTO);
    const bool inside = picture && picture->type == engine::FieldType::LongBinary;
    for (const engine::Field& field : from.fields) {
        const engine::Field* target = FieldOf(into, field.name);
        if (inside && &field == picture)
            continue; // it goes to the photo directory, whether an older Databook has the field or not
        (!target ? plan.leftBehind : Fits(field, *target) ? both : plan.otherKind).append(field.name);
    }
    plan.columns = removeEmbeddedImages(both);
    plan.hasPictures = inside && both.contains(fields::PHOTOS, Qt::CaseInsensitive);
    if (plan.otherKind.contains(fields::CENTRALKEY, Qt::CaseInsensitive))
        throw RuntimeError(error::kFieldUnknown,
                           u"The field %1 of the table %2 holds bytes, which are no keys of records. Choose a table of comps"_s
                               .arg(fields::CENTRALKEY, table));
    if (!both.contains(fields::CENTRALKEY, Qt::CaseInsensitive))
        throw RuntimeError(error::kFieldUnknown,
                           u"The table %1 of %2 has no field %3, by which records are told apart. Choose a table of comps"_s
                               .arg(table, source.Path(), fields::CENTRALKEY));
    const QList<engine::Field> narrower = Narrower(from, into, plan.columns);
    plan.condition = FitCondition(narrower);
    for (const engine::Field& field : narrower)
        if (const engine::FieldType type = FieldOf(from, field.name)->type;
            type == engine::FieldType::Text || type == engine::FieldType::Memo)
            plan.shortened.append(FieldOf(from, field.name)->name);
    // A key keeps as many blanks as fit: the Databook's own have them.
    for (const QString& name : std::as_const(plan.columns)) {
        const QString value = !plan.shortened.contains(name)                                ? u"[%1]"_s.arg(name)
                              : name.compare(fields::CENTRALKEY, Qt::CaseInsensitive) == 0 ? u"LEFT([%1], %2)"_s.arg(name).arg(FieldOf(into, name)->size)
                                                                                            : u"RTRIM([%1])"_s.arg(name);
        const bool photos = name.compare(fields::PHOTOS, Qt::CaseInsensitive) == 0;
        plan.values.append(photos ? PhotosValue(value, *FieldOf(into, name)) : value);
    }
    const QHash<qint64, Misfit> tooLong = TooLong(source, table, narrower);

    const store::Rows rows(source, u"SELECT "_s + fields::CENTRALKEY + u" FROM ["_s + table + u']');
    plan.rows = rows.Count();
    QStringList keys;
    keys.reserve(plan.rows);
    for (qint64 at = 0; at < plan.rows; ++at) {
        plan.stopped = at % kBetweenSteps == 0 && !step(at, plan.rows, kReading);
        if (plan.stopped)
            return plan;
        const auto record = rows.At(at);
        keys.append(record ? record->Values().first().toString() : QString());
    }
    const QSet<QString> there = KeysThere(desk.databook, desk.globals.G_Table, keys);
    QSet<QString> seen;
    for (qint64 at = 0; at < keys.size(); ++at) {
        const QString mark = KeyMark(keys.at(at));
        const QString why = mark.isEmpty()         ? kNoKey
                            : tooLong.contains(at) ? tooLong.value(at).why
                            : seen.contains(mark)  ? kTwice
                            : there.contains(mark) ? kThere
                                                   : QString();
        if (!why.isEmpty()) {
            plan.refusedAt.insert(at, plan.refused.size());
            plan.refused.append({from.name, at + 1, text::Trim(keys.at(at)), why,
                                 mark.isEmpty() ? fields::CENTRALKEY : tooLong.value(at).field});
            if (why == kThere) {
                plan.there.insert(at);
                seen.insert(mark);
            }
            continue;
        }
        seen.insert(mark);
        plan.newKeys.append(keys.at(at));
    }
    return plan;
}

} // namespace vasclip::upkeep
