#include "platform/engine/recordset.h"

#include "platform/engine/database.h"
#include "platform/engine/errors.h"

namespace vasclip::engine {

using namespace Qt::Literals::StringLiterals;

namespace {

int Find(const Recordset& recordset, const QString& name)
{
    const int field = recordset.FieldIndex(name);
    if (field < 0)
        throw RuntimeError(error::kFieldUnknown, u"There is no field '%1' in this record set"_s.arg(name));
    return field;
}

} // namespace

QVariant Recordset::Value(const QString& name) const
{
    return Value(Find(*this, name));
}

void Recordset::SetValue(const QString& name, const QVariant& value)
{
    SetValue(Find(*this, name), value);
}

const std::vector<Bookmark>& Recordset::Bookmarks() const
{
    throw RuntimeError(error::kInvalidOperation, u"Only a query has its bookmarks at hand"_s);
}

std::vector<qint64> Recordset::PositionsOf(const std::vector<Bookmark>&) const
{
    throw RuntimeError(error::kInvalidOperation, u"Only a query has its bookmarks at hand"_s);
}

Transaction::~Transaction()
{
    if (!m_database)
        return;
    try {
        m_database->Rollback();
    } catch (const RuntimeError&) {
        // The failure that leads here is the one to tell; SQLite takes the rest back when the file closes.
    }
}

void Transaction::Commit()
{
    m_database->CommitTrans();
    m_database = nullptr;
}

} // namespace vasclip::engine
