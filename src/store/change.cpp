#include "store/change.h"

#include "platform/text/runtime_error.h"
#include "platform/text/text.h"
#include "store/messages.h"
#include "store/transaction.h"

#include <utility>

using namespace Qt::StringLiterals;

namespace vasclip::store {

namespace {

const QString kKeyMark = u"%1"_s;

/// Null where the table has no such field, and for a long binary one, which no history keeps.
QVariant ValueOf(const engine::Recordset& record, int field)
{
    return field < 0 || record.Fields().at(field).type == engine::FieldType::LongBinary ? QVariant()
                                                                                        : record.Value(field);
}

QString KeyOf(const engine::Recordset& record)
{
    return ValueOf(record, record.FieldIndex(kKeyIndex)).toString().trimmed();
}

/// The table whose records a source gives, which may be a SELECT of some of its fields.
QString TableOf(const DataSource& source)
{
    const QString& record = source.RecordSource();
    if (!record.startsWith(u"SELECT "_s, Qt::CaseInsensitive))
        return record;
    const qsizetype from = record.indexOf(u" FROM "_s, 0, Qt::CaseInsensitive) + 6;
    return record.mid(from).section(u' ', 0, 0).remove(u'[').remove(u']');
}

QString Quoted(QString text)
{
    return u'\'' + text.replace(u'\'', u"''"_s) + u'\'';
}

FieldValues AllValues(const engine::Recordset& record)
{
    FieldValues values;
    for (int i = 0; i < record.Fields().size(); ++i)
        if (const QVariant value = ValueOf(record, i); value.isValid())
            values.insert(record.Fields().at(i).name.toUpper(), value);
    return values;
}

} // namespace

Change::Change(DataSource& source, const QString& words)
    : m_source(source)
    , m_mine(true)
{
    Drop(source);
    Begin(source, words);
    m_begun = source.m_step;
}

Change::Change(DataSource& source, NewRecord, const QString& words)
    : m_source(source)
    , m_mine(true)
{
    BeginNew(source, words);
    m_begun = source.m_step;
}

Change::Change(DataSource& source, const OfKey& record, const QString& words)
    : m_beside(source.Beside())
    , m_source(*m_beside)
    , m_mine(true)
{
    if (!StandOn(m_source, record.key))
        throw RuntimeError(error::kNoCurrentRecord, u"There is no record %1"_s.arg(text::Trim(record.key)));
    Begin(m_source, words);
    m_begun = m_source.m_step;
}

Change::Change(DataSource& source, NewKey, const QString& words)
    : m_beside(source.Beside())
    , m_source(*m_beside)
    , m_mine(true)
{
    BeginNew(m_source, words);
    m_begun = m_source.m_step;
}

Change::Change(DataSource& source, TakePart, const QString& words)
    : m_source(source)
    , m_mine(!Open(source))
{
    Begin(source, words);
    if (m_mine)
        m_begun = source.m_step;
}

Change::~Change()
{
    if (!m_begun.expired() && m_begun.lock() == m_source.m_step)
        Drop(m_source);
}

void Change::Store()
{
    if (!m_mine)
        return;
    if (m_begun.expired())
        throw RuntimeError(error::kNoEdit, u"The change was dropped before it was stored"_s);
    StoreOpen(m_source);
    m_mine = false;
}

/// A look-up without a turn of the queue, which drops the change under way there.
bool Change::StandOn(DataSource& beside, const QString& key)
{
    const QString wanted = text::Trim(key);
    if (wanted.isEmpty())
        return false;
    beside.Recordset().Seek(u"="_s, wanted);
    return !beside.Recordset().NoMatch();
}

bool Change::Open(const DataSource& source)
{
    return source.Recordset().CurrentEditMode() != engine::EditMode::None;
}

void Change::Begin(DataSource& source, const QString& words)
{
    if (Open(source))
        return;
    source.Recordset().Edit();
    Note(source, Step::Kind::Edited, words);
}

void Change::BeginNew(DataSource& source, const QString& words)
{
    source.Recordset().AddNew();
    Note(source, Step::Kind::Added, words);
}

void Change::Note(DataSource& source, Step::Kind kind, const QString& words)
{
    source.m_step = std::make_shared<Step>(Step{.kind = kind, .words = words, .table = TableOf(source)});
    if (kind == Step::Kind::Added)
        return;
    source.m_step->key = KeyOf(source.Recordset());
    source.m_step->words.replace(kKeyMark, source.m_step->key);
}

void Change::Set(DataSource& source, const QString& field, const QVariant& value)
{
    engine::Recordset& record = source.Recordset();
    const QString name = field.toUpper();
    Step* step = source.m_step.get();
    const int index = record.FieldIndex(field);
    const bool first = step != nullptr && step->kind == Step::Kind::Edited && !step->before.contains(name);
    const QVariant before = first && Open(source) ? ValueOf(record, index) : QVariant();
    record.SetValue(field, value);
    if (step == nullptr || record.Fields().at(index).type == engine::FieldType::LongBinary)
        return;
    if (first)
        step->before.insert(name, before);
    step->after.insert(name, record.Value(index));
}

void Change::StoreOpen(DataSource& source)
{
    engine::Recordset& record = source.Recordset();
    Step* step = source.m_step.get();
    if (step == nullptr || !source.m_watcher->watch) {
        record.Update();
        source.m_step.reset();
        return;
    }
    if (step->kind == Step::Kind::Added)
        step->key = step->after.value(kKeyIndex).toString().trimmed();
    Transaction whole(source);
    record.Update();
    const auto stored = std::exchange(source.m_step, nullptr);
    whole.Heard(*stored);
    whole.Commit();
}

void Change::Drop(DataSource& source)
{
    source.m_step.reset();
    if (source.Bound() && Open(source))
        source.Recordset().CancelUpdate();
}

void Change::Delete(DataSource& source, const QString& words)
{
    engine::Recordset& record = source.Recordset();
    if (!source.m_watcher->watch) {
        record.Delete();
        return;
    }
    const Step step{.kind = Step::Kind::Deleted,
                    .words = words,
                    .table = TableOf(source),
                    .key = KeyOf(record),
                    .before = AllValues(record)};
    Transaction whole(source);
    record.Delete();
    whole.Heard(step);
    whole.Commit();
}

bool Change::DeleteKey(DataSource& source, const QString& key, const QString& words)
{
    const std::shared_ptr<DataSource> beside = source.Beside();
    if (!StandOn(*beside, key))
        return false;
    Delete(*beside, words);
    return true;
}

qint64 Change::Rows(DataSource& source, const QMap<QString, QString>& texts, const QString& condition,
                    const QString& words)
{
    QStringList settings;
    FieldValues after;
    for (auto text = texts.cbegin(); text != texts.cend(); ++text) {
        settings.append(u"%1 = %2"_s.arg(text.key(), Quoted(text.value())));
        after.insert(text.key().toUpper(), text.value());
    }
    engine::Database& database = source.Database();
    const QString where = u" WHERE "_s + condition;
    const QString statement =
        u"UPDATE ["_s + source.RecordSource() + u"] SET "_s + settings.join(u", "_s) + where;
    if (!source.m_watcher->watch)
        return database.Execute(statement);
    Transaction whole(source);
    const auto rows = database.OpenRecordset(u"SELECT * FROM ["_s + source.RecordSource() + u']' + where,
                                             engine::RecordsetType::Dynaset);
    for (; !rows->Eof(); rows->MoveNext()) {
        FieldValues before;
        for (const QString& field : after.keys())
            before.insert(field, ValueOf(*rows, rows->FieldIndex(field)));
        whole.Heard({.kind = Step::Kind::Edited,
                     .words = words,
                     .table = source.RecordSource(),
                     .key = KeyOf(*rows),
                     .before = before,
                     .after = after});
    }
    const qint64 changed = database.Execute(statement);
    whole.Commit();
    return changed;
}

} // namespace vasclip::store
