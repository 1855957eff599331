#include "store/move_record.h"

#include "platform/engine/sql_name.h"
#include "platform/text/text.h"
#include "store/messages.h"
#include "store/transaction.h"

namespace vasclip::store {

namespace {

QString Quoted(QString text)
{
    return u'\'' + text.replace(u'\'', u"''"_s) + u'\'';
}

QString OfKey(const QString& key)
{
    return u" WHERE [%1] = "_s.arg(kKeyIndex) + Quoted(text::Trim(key));
}

/// Gives a record what the one before it held in fields that the source lacks.
void Keep(engine::Database& database, const QString& into, const QString& key, const FieldValues& kept)
{
    QStringList settings;
    for (auto value = kept.cbegin(); value != kept.cend(); ++value)
        if (value->isValid())
            settings.append(engine::Bracketed(value.key()) + u" = "_s + Quoted(value->toString()));
    if (!settings.isEmpty())
        static_cast<void>(database.Execute(u"UPDATE "_s + into + u" SET "_s + settings.join(u", "_s) + OfKey(key)));
}

bool IsThere(engine::Engine& engine, const MoveTarget& target, const QString& key)
{
    const auto file = engine.OpenDatabase(target.file, engine::OpenMode::ReadOnly);
    return Rows(*file, u"SELECT [%1] FROM [%2]"_s.arg(kKeyIndex, target.table) + OfKey(key)).Count() > 0;
}

} // namespace

Moved MoveRecord(DataSource& source, const QString& key, const Record& seen, const MoveTarget& target, SameKey same,
                 const QMap<QString, QByteArray>& fill, const QString& words)
{
    engine::Database& database = source.Database();
    const QString into = engine::Bracketed(target.file) + u'.' + engine::Bracketed(target.table);
    const QString columns = u'[' + target.fields.join(u"], ["_s) + u']';
    Transaction whole(source);
    const auto now = ReadRecord(source, key);
    if (!now)
        return Moved::Gone;
    if (now->Values() != seen.Values())
        return Moved::Changed;
    if (!fill.isEmpty()) {
        Change change(source, Change::OfKey{key}, words);
        for (auto value = fill.cbegin(); value != fill.cend(); ++value)
            change.Set(value.key(), value.value());
        change.Store();
    }
    const QString append = u"INSERT INTO %1 (%2) SELECT %2 FROM [%3]"_s.arg(into, columns, source.RecordSource()) +
                           OfKey(key);
    bool replaced = false;
    // What has the key already is left out by an append, and what a required field or another index refuses.
    if (database.Execute(append) == 0) {
        if (same == SameKey::Leave && IsThere(source.Engine(), target, key))
            return Moved::KeyTaken;
        const FieldValues kept = same == SameKey::Replace && target.kept ? target.kept() : FieldValues();
        replaced = same == SameKey::Replace && database.Execute(u"DELETE FROM "_s + into + OfKey(key)) > 0;
        if (!replaced || database.Execute(append) == 0)
            return Moved::Refused;
        Keep(database, into, key, kept);
    }
    static_cast<void>(Change::DeleteKey(source, key, QString(words).replace(u"%1"_s, text::Trim(key))));
    whole.Commit();
    return replaced ? Moved::Replaced : Moved::Done;
}

} // namespace vasclip::store
