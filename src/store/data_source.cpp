#include "store/data_source.h"

#include "platform/text/runtime_error.h"
#include "store/change.h"
#include "store/messages.h"
#include "store/record.h"
#include "store/transaction.h"

#include <utility>

using namespace Qt::StringLiterals;

namespace vasclip::store {

DataSource::DataSource(engine::Engine& engine, const QString& name)
    : m_engine(engine)
    , m_name(name)
    , m_watcher(std::make_shared<Watcher>())
{}

DataSource::~DataSource()
{
    Close();
}

void DataSource::Refresh()
{
    const bool sameFile = m_database && m_database->Path().compare(m_databaseName, Qt::CaseInsensitive) == 0;
    std::shared_ptr<engine::Database> database =
        sameFile ? m_database : m_engine.OpenDatabase(m_databaseName);
    std::unique_ptr<engine::Recordset> recordset = database->OpenRecordset(
        m_recordSource, m_kind == SourceKind::Table ? engine::RecordsetType::Table : engine::RecordsetType::Dynaset);
    if (!recordset->Bof() || !recordset->Eof())
        recordset->MoveFirst();
    // Everything that can fail is done: only now is the old binding let go.
    m_reader.reset();
    m_beside.reset();
    m_step.reset();
    std::swap(m_recordset, recordset);
    std::swap(m_database, database);
    if (recordset)
        recordset->Close();
    recordset.reset();
    database.reset();
    Q_EMIT Refreshed();
}

void DataSource::Open(QString path, QString tableOrSql, SourceKind kind)
{
    const auto swapNames = [&] {
        std::swap(m_databaseName, path);
        std::swap(m_recordSource, tableOrSql);
        std::swap(m_kind, kind);
    };
    swapNames();
    try {
        Refresh();
    } catch (...) {
        swapNames();
        throw;
    }
}

void DataSource::ShareDatabase(const DataSource& other)
{
    m_database = other.m_database;
    m_watcher = other.m_watcher;
}

void DataSource::Watch(std::function<void(const Step&)> watch, std::function<void()> takenBack)
{
    m_watcher->watch = std::move(watch);
    m_watcher->takenBack = std::move(takenBack);
}

std::shared_ptr<DataSource> DataSource::Beside()
{
    static_cast<void>(Database()); // is there a table to stand beside?
    if (!m_beside) {
        const auto beside = std::make_shared<DataSource>(m_engine, m_name);
        beside->ShareDatabase(*this);
        beside->SetDatabaseName(m_databaseName);
        beside->SetRecordSource(m_recordSource);
        beside->Refresh();
        beside->Recordset().SetIndex(kKeyIndex);
        m_beside = beside;
    }
    return m_beside;
}

void DataSource::Close()
{
    m_reader.reset();
    m_beside.reset();
    m_step.reset();
    if (m_recordset)
        m_recordset->Close();
    m_recordset.reset();
    m_database.reset();
}

engine::Recordset& DataSource::Recordset() const
{
    if (!m_recordset)
        throw RuntimeError(error::kNoObject, u"The data source %1 is not open"_s.arg(m_name));
    return *m_recordset;
}

engine::Database& DataSource::Database() const
{
    if (!m_database)
        throw RuntimeError(error::kNoObject, u"The data source %1 has no open database"_s.arg(m_name));
    return *m_database;
}

bool DataSource::Updatable() const
{
    return Recordset().Updatable();
}

qint64 DataSource::Count() const
{
    return Recordset().RecordCount();
}

const engine::FieldList& DataSource::Fields() const
{
    return Recordset().Fields();
}

int DataSource::FieldIndex(const QString& field) const
{
    return Recordset().FieldIndex(field);
}

QVariant DataSource::Value(const QString& field) const
{
    return Recordset().Value(field);
}

bool DataSource::AtEnd() const
{
    return Recordset().Eof();
}

void DataSource::MoveFirst()
{
    Recordset().MoveFirst();
}

void DataSource::MoveNext()
{
    Recordset().MoveNext();
}

void DataSource::MoveLast()
{
    Recordset().MoveLast();
}

QVariantList DataSource::ValuesAt(qint64 place, const QList<int>& fields) const
{
    return Recordset().Peek(place, fields);
}

qint64 DataSource::PlaceOf(const DataSource& other) const
{
    return Recordset().PositionOf(other.Recordset().GetBookmark());
}

std::vector<qint64> DataSource::PlacesOf(const std::vector<engine::Bookmark>& records) const
{
    return Recordset().PositionsOf(records);
}

} // namespace vasclip::store
