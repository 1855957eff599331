#include "store/bulk_rows.h"

#include "platform/text/runtime_error.h"
#include "store/transaction.h"

using namespace Qt::StringLiterals;

namespace vasclip::store {

qint64 CopyRows(engine::Database& database, const QStringList& statements)
{
    engine::Transaction whole(database);
    qint64 stored = 0;
    for (const QString& statement : statements) {
        const QString words = statement.trimmed();
        if (!words.startsWith("SELECT "_L1, Qt::CaseInsensitive) && !words.startsWith("INSERT "_L1, Qt::CaseInsensitive))
            throw RuntimeError(error::kInvalidOperation, u"Only SELECT INTO and INSERT copy records"_s);
        stored += database.Execute(statement);
    }
    whole.Commit();
    return stored;
}

qint64 AppendRows(DataSource& source, const QString& statement, const QStringList& keys, const QString& words)
{
    Transaction whole(source);
    const qint64 stored = CopyRows(source.Database(), {statement});
    for (const QString& key : whole.IsHeard() ? keys : QStringList())
        whole.Heard({.kind = Step::Kind::Added, .words = words, .table = source.RecordSource(), .key = key});
    whole.Commit();
    return stored;
}

} // namespace vasclip::store
