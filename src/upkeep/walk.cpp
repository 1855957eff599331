#include "upkeep/walk.h"

#include "photos/photo_list.h"
#include "platform/text/runtime_error.h"
#include "platform/text/text.h"
#include "store/fields.h"
#include "store/record.h"

namespace vasclip::upkeep {

using namespace Qt::Literals::StringLiterals;

namespace {

const QString kDeleteWords = u"Delete %1"_s;

} // namespace

RowEdit::RowEdit(store::ChangeWalk& rows, Account& account)
    : m_rows(rows)
    , m_account(account)
{}

bool RowEdit::Has(const QString& field) const
{
    return m_rows.FieldIndex(field) >= 0;
}

bool RowEdit::IsNull(const QString& field) const
{
    const int index = m_rows.FieldIndex(field);
    return index < 0 || !m_rows.Value(index).isValid();
}

QString RowEdit::Text(const QString& field) const
{
    const int index = m_rows.FieldIndex(field);
    return index < 0 ? QString() : text::Trim(m_rows.Value(index).toString());
}

QString RowEdit::Key() const
{
    if (m_key.isNull())
        m_key = m_changed ? QString() : Text(fields::CENTRALKEY);
    return m_key;
}

void RowEdit::Set(const QString& field, const QString& text)
{
    const int index = m_rows.FieldIndex(field);
    if (index < 0)
        return;
    const engine::Field& column = m_rows.FieldAt(index);
    const QString fitted = column.size > 0 ? text.left(column.size) : text;
    const QString before = m_rows.Value(index).toString();
    if (text::Trim(before) == text::Trim(fitted))
        return;
    if (!m_changed) {
        static_cast<void>(Key()); // as it was
        m_changed = true;
    }
    m_rows.Set(index, fitted);
    m_account.Changed(Key(), m_rows.NameAt(index), before, fitted);
}

void RowEdit::Store()
{
    if (!m_changed)
        return;
    m_rows.Store();
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

void Walk::DeleteRow(store::ChangeWalk& rows)
{
    store::Record::Names names;
    QVariantList values;
    for (const QString& field : std::as_const(m_fields)) {
        names.insert(field, static_cast<int>(values.size()));
        values.append(rows.Value(rows.FieldIndex(field)));
    }
    const store::Record record(std::make_shared<const store::Record::Names>(std::move(names)), std::move(values));
    if (record.Has(fields::PHOTOS))
        for (const auto& [view, stem] : photos::ParsePhotos(record.Text(fields::PHOTOS)))
            if (!text::Trim(stem).isEmpty())
                m_pictures.Append(text::Trim(stem).toUtf8());
    m_account.Deleted(record.Text(fields::CENTRALKEY), record, m_fields);
    rows.Delete(kDeleteWords.arg(record.Text(fields::CENTRALKEY)));
}

bool Walk::Run(const Step& step, const std::function<void(RowEdit&)>& repair)
{
    m_pictures.Clear();
    try {
        store::ChangeWalk rows(m_source, m_reads.isEmpty() ? m_fields : m_reads, m_words);
        const qint64 all = rows.Count();
        for (qint64 done = 0; rows.Next(); ++done) {
            if (!step(done, all)) {
                m_account.TakeBack();
                m_pictures.Clear();
                return false;
            }
            m_account.RecordSeen();
            RowEdit row(rows, m_account);
            repair(row);
            if (row.m_delete)
                DeleteRow(rows);
            else
                row.Store();
        }
        m_pictures.Flush(); // while a full disk still takes everything back
        m_account.Flush();
        rows.Commit();
    } catch (...) {
        m_account.TakeBack();
        m_pictures.Clear();
        throw;
    }
    return true;
}

} // namespace vasclip::upkeep
