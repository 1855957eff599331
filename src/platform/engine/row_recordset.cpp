#include "platform/engine/row_recordset.h"

#include "platform/engine/errors.h"
#include "platform/engine/long_source.h"
#include "platform/engine/values.h"

namespace vasclip::engine {

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr qint64 kWindow = 4 << 20; ///< of a long value that is read in pieces

/// A name folded for look-up.
QString Fold(const QString& name)
{
    return name.toUpper();
}

[[noreturn]] void ThrowDeleted()
{
    throw RuntimeError(error::kRecordDeleted, u"The record was deleted by somebody else"_s);
}

} // namespace

RowRecordset::RowRecordset(std::unique_ptr<RowStore> store)
    : m_store(std::move(store))
    , m_fields(m_store->Shape().fields)
{
    for (int i = 0; i < m_fields.size(); ++i) {
        // A name may be there twice; the first one answers.
        if (!m_byName.contains(Fold(m_fields[i].name)))
            m_byName.insert(Fold(m_fields[i].name), i);
        m_all.append(i);
    }
}

void RowRecordset::Close()
{
    m_store.reset();
    m_row.reset();
    m_window = {};
    m_mode = EditMode::None;
    m_changes.clear();
    m_chunks.clear();
}

RowStore& RowRecordset::Store() const
{
    if (!m_store)
        throw RuntimeError(error::kClosed, u"The record set is closed"_s);
    m_store->NeedOpen();
    return *m_store;
}

bool RowRecordset::Updatable() const
{
    return m_store && m_store->Updatable() && m_store->Shape().updatable;
}

void RowRecordset::NeedUpdatable() const
{
    const RowStore& store = Store();
    if (Updatable())
        return;
    throw RuntimeError(
        error::kFileIsReadOnly,
        store.Updatable()
            ? u"The result of this query can not be changed"_s
            : store.WhyReadOnly());
}

Bookmark RowRecordset::NeedId() const
{
    static_cast<void>(Store());
    const std::optional<Bookmark> id = CurrentId();
    if (!id)
        throw RuntimeError(error::kNoCurrentRecord, u"There is no current record"_s);
    return *id;
}

void RowRecordset::Moved()
{
    CancelUpdate();
    m_current = false;
    m_window = {};
}

void RowRecordset::ShowComputed(const QVariantList& values)
{
    m_row = Row{{}, 0, {0, values}};
    m_current = true;
}

std::optional<RowRecordset::Row> RowRecordset::ReadRow(Bookmark id) const
{
    RowStore& store = Store();
    const quint64 generation = store.Generation();
    auto rows = store.Read({&id, 1}, m_all, Longs::Sizes);
    if (!rows.front())
        return std::nullopt;
    return Row{id, generation, std::move(*rows.front())};
}

bool RowRecordset::Unchanged(Bookmark id) const
{
    // Ids are never given out again, and every change raises the version; one taken back, the generation.
    RowStore& store = Store();
    if (!m_row || m_row->id != id || Shape().computed || m_row->generation != store.Generation())
        return false;
    return store.Version(id) == m_row->stored.version;
}

bool RowRecordset::ReadNow(Bookmark id) const
{
    if (!Unchanged(id))
        m_row = ReadRow(id);
    m_current = m_row.has_value();
    return m_current;
}

const RowRecordset::Row& RowRecordset::NeedRow() const
{
    const Bookmark id = NeedId();
    const bool computed = Shape().computed;
    // What other record sets of this engine change shows at once, unless this one is being edited.
    const bool fresh = m_mode == EditMode::InProgress || computed ||
                       (m_current && m_row && m_row->generation == Store().Generation());
    if (m_row && (m_row->id == id || computed) && fresh)
        return *m_row;
    if (!ReadNow(id))
        ThrowDeleted();
    return *m_row;
}

int RowRecordset::NeedField(int field) const
{
    if (field < 0 || field >= m_fields.size())
        throw RuntimeError(error::kFieldUnknown, u"There is no field number %1 in '%2'"_s.arg(
                                                     QString::number(field), Table().name));
    return field;
}

int RowRecordset::FieldIndex(const QString& name) const
{
    return m_byName.value(Fold(name), -1);
}

int RowRecordset::NeedField(const QString& name) const
{
    const int field = FieldIndex(name);
    if (field < 0)
        throw RuntimeError(error::kFieldUnknown, u"There is no field '%1' in '%2'"_s.arg(name, Table().name));
    return field;
}

/// The table's own field behind a field of the set.
int RowRecordset::NeedSource(int field) const
{
    const int source = SourceOf(field);
    if (source < 0)
        throw RuntimeError(error::kInvalidOperation,
                           u"'%1' is computed and can not be changed"_s.arg(m_fields[field].name));
    return source;
}

const QVariant* RowRecordset::Changed(int field) const
{
    if (m_mode == EditMode::None)
        return nullptr;
    const auto found = m_changes.find(SourceOf(field));
    return found == m_changes.end() ? nullptr : &found->second;
}

QVariant RowRecordset::Value(int field) const
{
    static_cast<void>(NeedField(field));
    static_cast<void>(Store());
    if (const QVariant* changed = Changed(field))
        return WholeValue(*changed);
    if (m_mode == EditMode::Add)
        return {};
    const Row& row = NeedRow();
    const QVariant& value = row.stored.values[field];
    if (m_fields[field].type == FieldType::LongBinary && value.isValid())
        return Store().ReadLong(row.id, field);
    return value;
}

void RowRecordset::SetValue(int field, const QVariant& value)
{
    static_cast<void>(NeedField(field));
    if (m_mode == EditMode::None)
        throw RuntimeError(error::kNoEdit, u"The field '%1' can be set only after Edit or AddNew"_s.arg(
                                               m_fields[field].name));
    const int source = NeedSource(field);
    m_changes[source] = FitToField(Table().fields[source], value, m_store->Time());
    m_chunks.erase(source);
}

void RowRecordset::Edit()
{
    NeedUpdatable();
    const Bookmark id = NeedId();
    CancelUpdate();
    if (!ReadNow(id))
        ThrowDeleted();
    m_mode = EditMode::InProgress;
}

void RowRecordset::AddNew()
{
    NeedUpdatable();
    CancelUpdate();
    m_mode = EditMode::Add;
}

void RowRecordset::CancelUpdate()
{
    m_mode = EditMode::None;
    m_changes.clear();
    m_chunks.clear();
}

void RowRecordset::CheckRequired(bool adding) const
{
    const auto isNull = [&](int source) {
        const auto found = m_changes.find(source);
        return found == m_changes.end() ? adding : !found->second.isValid();
    };
    for (int i = 0; i < Table().fields.size(); ++i) {
        const Field& field = Table().fields[i];
        if (field.required && isNull(i))
            throw RuntimeError(error::kValueRequired, u"The field '%1' needs a value"_s.arg(field.name));
        for (const IndexDef& index : Table().indexes) {
            if (index.primary && index.fields.contains(field.name, Qt::CaseInsensitive) && isNull(i))
                throw RuntimeError(error::kKeyIsNull, u"The key field '%1' needs a value"_s.arg(field.name));
        }
    }
}

/// Remembers the row as another user left it. @return false while it can't be read for him: what is remembered stays,
/// so that storing again is refused again, and is not current any more. @throws 3167
bool RowRecordset::ReadFresh()
{
    try {
        std::optional<Row> fresh = ReadRow(m_row->id);
        if (!fresh)
            throw RuntimeError(error::kRecordDeleted, u"The record was deleted by somebody else meanwhile"_s);
        m_row = std::move(fresh);
        return true;
    } catch (const RuntimeError& failure) {
        if (failure.Number() != error::kCouldNotReadLocked)
            throw;
        m_current = false;
        return false;
    }
}

void RowRecordset::StoreChanges()
{
    switch (Store().Update(m_row->id, m_row->stored.version, m_changes)) {
    case UpdateOutcome::Done:
        return;
    case UpdateOutcome::Gone:
        throw RuntimeError(error::kRecordDeleted, u"The record was deleted by somebody else meanwhile"_s);
    case UpdateOutcome::Changed:
        break;
    }
    if (!ReadFresh())
        throw RuntimeError(error::kDataChanged, u"The data has changed: somebody else changed this record since it was "
                                                "opened for editing, and holds it still. Nothing was stored"_s);
    throw RuntimeError(
        error::kDataChanged,
        u"The data has changed: somebody else changed this record since it was opened for editing. "
        "Nothing was stored; updating again overwrites the other change"_s);
}

void RowRecordset::Update()
{
    RowStore& store = Store();
    if (m_mode == EditMode::None)
        throw RuntimeError(error::kNoEdit, u"There is nothing to update without Edit or AddNew"_s);
    const bool adding = m_mode == EditMode::Add;
    CheckRequired(adding);
    if (adding) {
        const Bookmark id = store.Insert(m_changes);
        CancelUpdate();
        RowAdded(id);
        return;
    }
    const Bookmark id = m_row->id;
    if (!m_changes.empty())
        StoreChanges();
    CancelUpdate();
    m_row.reset();
    RowChanged(id);
}

void RowRecordset::Delete()
{
    NeedUpdatable();
    const Bookmark id = NeedId();
    CancelUpdate();
    RowDeleting(id);
    if (!Store().Delete(id))
        throw RuntimeError(error::kRecordDeleted, u"The record was already deleted by somebody else"_s);
    m_row.reset();
    RowDeleted(id);
}

qint64 RowRecordset::FieldSize(const QString& name) const
{
    const int field = NeedField(name);
    const QVariant* const changed = Changed(field);
    if (const LongSource* source = changed == nullptr ? nullptr : LongSourceOf(*changed))
        return source->size;
    if (changed != nullptr)
        return changed->typeId() == QMetaType::QByteArray ? changed->toByteArray().size()
                                                          : changed->toString().size();
    if (m_mode == EditMode::Add)
        return 0;
    const QVariant value = NeedRow().stored.values[field];
    switch (m_fields[field].type) {
    case FieldType::LongBinary:
        return value.toLongLong();
    case FieldType::Memo:
    case FieldType::Text:
        return value.toString().size();
    case FieldType::Binary:
        return value.toByteArray().size();
    default:
        return m_fields[field].size;
    }
}

QByteArray RowRecordset::GetChunk(const QString& name, qint64 offset, qint64 bytes) const
{
    const int field = NeedField(name);
    const FieldType type = m_fields[field].type;
    if (type != FieldType::LongBinary && type != FieldType::Memo)
        throw RuntimeError(error::kInvalidOperation, u"The field '%1' is not read in pieces"_s.arg(name));
    offset = std::max<qint64>(offset, 0);
    bytes = std::max<qint64>(bytes, 0);
    if (type == FieldType::Memo)
        return Value(field).toString().mid(offset, bytes).toUtf8();
    const bool stored = m_mode != EditMode::Add && !Changed(field) && SourceOf(field) >= 0;
    if (!stored)
        return Value(field).toByteArray().mid(offset, bytes);
    const Row& row = NeedRow();
    if (!row.stored.values[field].isValid())
        return {};
    return ReadPiece(row.id, SourceOf(field), offset, bytes);
}

QByteArray RowRecordset::ReadPiece(Bookmark id, int source, qint64 offset, qint64 bytes) const
{
    RowStore& store = Store();
    if (offset == 0 || bytes >= kWindow) // a first piece may be all that is wanted
        return store.ReadPiece(id, source, offset, bytes);
    const bool inside = m_window.id == id && m_window.source == source && offset >= m_window.offset &&
                        offset + bytes <= m_window.offset + m_window.bytes.size();
    if (!inside || m_window.generation != store.Generation() || m_window.version != store.Version(id)) {
        m_window = {id, source, store.Version(id), store.Generation(), offset, {}};
        m_window.bytes = store.ReadPiece(id, source, offset, kWindow);
    }
    return m_window.bytes.mid(offset - m_window.offset, bytes);
}

void RowRecordset::AppendChunk(const QString& name, const QByteArray& bytes)
{
    const int field = NeedField(name);
    const FieldType type = m_fields[field].type;
    if (type != FieldType::LongBinary && type != FieldType::Memo)
        throw RuntimeError(error::kInvalidOperation, u"The field '%1' is not written in pieces"_s.arg(name));
    if (m_mode == EditMode::None)
        throw RuntimeError(error::kNoEdit,
                           u"The field '%1' can be set only after Edit or AddNew"_s.arg(name));
    const int source = NeedSource(field);
    QByteArray& whole = m_chunks[source];
    m_changes[source].clear(); // a second holder would have the bytes copied for each piece
    whole += bytes;
    // The first piece replaces what the record holds; a letter of a memo may be cut between two pieces.
    if (type == FieldType::Memo)
        m_changes[source] = FitToField(Table().fields[source], QString::fromUtf8(whole), m_store->Time());
    else
        m_changes[source] = whole;
}

} // namespace vasclip::engine
