#include "store/move_record.h"

#include "platform/text/text.h"
#include "store/messages.h"
#include "store/record.h"
#include "store/transaction.h"

namespace vasclip::store {

namespace {

QString OfKey(const QString& key)
{
    return u" WHERE [%1] = '%2'"_s.arg(kKeyIndex, QString(text::Trim(key)).replace(u'\'', u"''"_s));
}

} // namespace

Moved MoveRecord(DataSource& source, const QString& key, const MoveTarget& target, SameKey same,
                 const QMap<QString, QByteArray>& fill, const QString& words)
{
    engine::Database& database = source.Database();
    const QString into = u"[%1].[%2]"_s.arg(target.file, target.table);
    const QString columns = u'[' + target.fields.join(u"], ["_s) + u']';
    Transaction whole(source);
    if (!ReadRecord(source, key))
        return Moved::Gone;
    if (!fill.isEmpty()) {
        Change change(source, Change::OfKey{key}, words);
        for (auto value = fill.cbegin(); value != fill.cend(); ++value)
            change.Set(value.key(), value.value());
        change.Store();
    }
    const QString append = u"INSERT INTO %1 (%2) SELECT %2 FROM [%3]"_s.arg(into, columns, source.RecordSource()) +
                           OfKey(key);
    bool replaced = false;
    // What has the key already is left out by an append.
    if (database.Execute(append) == 0) {
        if (same == SameKey::Leave)
            return Moved::KeyTaken;
        replaced = database.Execute(u"DELETE FROM "_s + into + OfKey(key)) > 0;
        if (database.Execute(append) == 0)
            return Moved::KeyTaken;
    }
    static_cast<void>(Change::DeleteKey(source, key, QString(words).replace(u"%1"_s, text::Trim(key))));
    whole.Commit();
    return replaced ? Moved::Replaced : Moved::Done;
}

} // namespace vasclip::store
