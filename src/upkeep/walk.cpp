#include "upkeep/walk.h"

#include "photos/photo_list.h"
#include "platform/text/runtime_error.h"
#include "platform/text/text.h"
#include "store/fields.h"
#include "store/store.h"
#include "store/transaction.h"

namespace vasclip::upkeep {

using namespace Qt::Literals::StringLiterals;

namespace {

const QString kDeleteWords = u"Delete %1"_s;

/// The whole table, or a SELECT of the fields that are wanted of it: the others need not be read.
QString RowsOf(const store::DataSource& source, const QStringList& wanted)
{
    QStringList names;
    for (const QString& field : wanted)
        if (source.FieldIndex(field) >= 0)
            names.append(u'[' + field + u']');
    return names.isEmpty() ? source.RecordSource()
                           : u"SELECT %1 FROM [%2]"_s.arg(names.join(u", "_s), source.RecordSource());
}

} // namespace

RowEdit::RowEdit(store::DataSource& rows, Account& account, const QString& words)
    : m_rows(rows)
    , m_account(account)
    , m_words(words)
{}

bool RowEdit::Has(const QString& field) const
{
    return m_rows.FieldIndex(field) >= 0;
}

bool RowEdit::IsNull(const QString& field) const
{
    return !Has(field) || !m_rows.Value(field).isValid();
}

QString RowEdit::Text(const QString& field) const
{
    return Has(field) ? store::GetFieldData(m_rows, field) : QString();
}

QString RowEdit::Key() const
{
    if (m_key.isNull())
        m_key = m_change ? QString() : Text(fields::CENTRALKEY);
    return m_key;
}

void RowEdit::Set(const QString& field, const QString& text)
{
    const engine::Field* column = store::FindField(m_rows, field);
    if (column == nullptr)
        return;
    const QString fitted = column->size > 0 ? text.left(column->size) : text;
    const QString before = m_rows.Value(field).toString();
    if (text::Trim(before) == text::Trim(fitted))
        return;
    if (!m_change) {
        static_cast<void>(Key()); // as it was
        m_change.emplace(m_rows, m_words);
    }
    m_change->Set(field, fitted);
    m_account.Changed(Key(), column->name.toUpper(), before, fitted);
}

void RowEdit::Store()
{
    if (!m_change)
        return;
    m_change->Store();
    m_account.RecordChanged();
}

Walk::Walk(store::DataSource& source, Account& account, const QString& words, const QStringList& reads)
    : m_source(source)
    , m_account(account)
    , m_words(words)
    , m_reads(reads)
{
    for (const engine::Field& field : source.Fields())
        if (field.type != engine::FieldType::LongBinary && field.type != engine::FieldType::Binary)
            m_fields.append(field.name.toUpper());
}

void Walk::DeleteRow(store::DataSource& rows)
{
    store::Record::Names names;
    QVariantList values;
    for (const QString& field : std::as_const(m_fields)) {
        names.insert(field, static_cast<int>(values.size()));
        values.append(rows.Value(field));
    }
    const store::Record record(std::make_shared<const store::Record::Names>(std::move(names)), std::move(values));
    if (record.Has(fields::PHOTOS))
        for (const auto& [view, stem] : photos::ParsePhotos(record.Text(fields::PHOTOS)))
            if (!text::Trim(stem).isEmpty())
                m_pictures.Append(text::Trim(stem).toUtf8());
    m_account.Deleted(record.Text(fields::CENTRALKEY), record, m_fields);
    store::Change::Delete(rows, kDeleteWords.arg(record.Text(fields::CENTRALKEY)));
}

bool Walk::Run(const Step& step, const std::function<void(RowEdit&)>& repair)
{
    m_pictures.Clear();
    store::DataSource rows(m_source.Engine(), m_source.Name());
    rows.ShareDatabase(m_source);
    try {
        // The lock comes first: whoever changes a record between its reading and its writing would be overwritten.
        store::Transaction whole(m_source);
        rows.Open(m_source.DatabaseName(), RowsOf(m_source, m_reads), store::SourceKind::Query);
        const qint64 all = rows.Count();
        for (qint64 done = 0; !rows.AtEnd(); ++done) {
            if (!step(done, all)) {
                m_account.TakeBack();
                m_pictures.Clear();
                return false;
            }
            m_account.RecordSeen();
            RowEdit row(rows, m_account, m_words);
            repair(row);
            if (row.m_delete)
                DeleteRow(rows);
            else
                row.Store();
            if (!rows.AtEnd()) // the last record of all was deleted
                rows.MoveNext();
        }
        whole.Commit();
    } catch (...) {
        m_account.TakeBack();
        m_pictures.Clear();
        throw;
    }
    return true;
}

} // namespace vasclip::upkeep
