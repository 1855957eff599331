#include "store/store.h"

#include "common/error_block.h"
#include "platform/engine/errors.h"
#include "platform/text/text.h"
#include "store/change.h"
#include "store/fields.h"
#include "store/messages.h"

#include <algorithm>
#include <optional>

using namespace Qt::StringLiterals;

namespace vasclip::store {

using common::RoutineScope;

namespace {

const engine::Field& FieldOf(const DataSource& source, const QString& field)
{
    const engine::Field* found = FindField(source, field);
    if (found == nullptr)
        throw RuntimeError(error::kFieldUnknown, u"Field %1 is not in %2 of %3"_s.arg(
                                                     field, source.RecordSource(), source.DatabaseName()));
    return *found;
}

/// Where a record set stands, put back unless the seek succeeded. A set without a current record has no place
/// to go back to (error 3021 goes on with the next statement).
std::optional<engine::Bookmark> PlaceOf(const engine::Recordset& recordset)
{
    if (recordset.Bof() || recordset.Eof())
        return std::nullopt;
    try {
        return recordset.GetBookmark();
    } catch (const RuntimeError& failure) {
        if (failure.Number() != error::kNoCurrentRecord)
            throw;
        return std::nullopt;
    }
}

/// Another user may have deleted the record that this one stood on: there is then no place to go back to.
void GoBack(engine::Recordset& recordset, engine::Bookmark place)
{
    try {
        recordset.SetBookmark(place);
    } catch (const RuntimeError& failure) {
        if (failure.Number() != error::kBadBookmark && failure.Number() != error::kRecordDeleted)
            throw;
    }
}

bool SeekKey(const forms::Ports& ports, DataSource& source, const QString& key, const QString& index)
{
    engine::Recordset& recordset = source.Recordset();
    const std::optional<engine::Bookmark> place = PlaceOf(recordset);
    if (recordset.Index().compare(index, Qt::CaseInsensitive) != 0)
        recordset.SetIndex(index);
    recordset.Seek(u"="_s, key);
    const bool found = !recordset.NoMatch(); // read before the pump: a turn of the queue may seek again
    if (!found && place)
        GoBack(recordset, *place);
    ports.pump.DoEvents();
    return found;
}

/// A look-up in the Databook, with what is said of one that can't be looked up in.
template <class Work>
void LookUp(forms::Prompter& prompter, Work&& work)
{
    common::Guarded(prompter, [&] {
        try {
            work();
        } catch (const RuntimeError& failure) {
            switch (failure.Number()) {
            case error::kNoCurrentRecord:
                return;
            case error::kNoSuchIndex:
                prompter.Box(kRepairTitle, kRepairText);
                throw forms::EndOfProgram{1};
            case error::kNoObject:
                prompter.Box(kCompressTitle, kCompressText);
                throw forms::EndOfProgram{1};
            default:
                throw;
            }
        }
    });
}

} // namespace

void Connect2mdb(const forms::Ports& ports, DataSource& source, const QString& path,
                 const QString& tableOrSql, SourceKind kind)
{
    const RoutineScope scope{"Connect2mdb"};
    const bool done = common::Guarded(ports.prompter, [&] {
        if (!source.Engine().Disk().Found(path, files::ReadOnly | files::Hidden)) {
            ports.prompter.Box(kPlainTitle, kFileNotFound.arg(path));
            throw forms::EndOfProgram{1};
        }
        ports.pump.DoEvents();
        source.Open(path, tableOrSql, kind);
        ports.pump.DoEvents();
    });
    if (done)
        ports.pump.DoEvents();
}

bool Ismdb(engine::Engine& engine, const QString& path, const QString& table) noexcept
{
    try {
        if (!engine.Disk().Found(path, files::ReadOnly | files::Hidden))
            return false;
        const std::shared_ptr<engine::Database> database =
            engine.OpenDatabase(path, engine::OpenMode::ReadOnly);
        const engine::TableDef definition = database->Table(table);
        database->Close();
        const auto find = [&definition](QLatin1StringView name) {
            return std::find_if(
                definition.fields.cbegin(), definition.fields.cend(),
                [name](const engine::Field& f) { return f.name.compare(name, Qt::CaseInsensitive) == 0; });
        };
        const auto key = find(fields::CENTRALKEY);
        const auto gla = find(fields::GLA);
        const auto photos = find(fields::PHOTOS);
        const auto end = definition.fields.cend();
        return key != end && key->size > 0 && gla != end && gla->size > 0 && photos != end &&
               photos->type == engine::FieldType::Memo;
    } catch (...) {
        return false;
    }
}

bool FindRecord(const forms::Ports& ports, DataSource& source, const QString& key, const QString& index)
{
    QString wanted = text::Trim(key);
    if (wanted.isEmpty())
        return false;
    const RoutineScope scope{"FindRecord"};
    if (index == QLatin1StringView("FILENUMBERUSER"))
        wanted = wanted.toUpper();
    bool found = false;
    LookUp(ports.prompter, [&] { found = SeekKey(ports, source, wanted, index); });
    return found;
}

std::optional<Record> ReadRecord(const forms::Ports& ports, const DataSource& source, const QString& key)
{
    const RoutineScope scope{"ReadRecord"};
    std::optional<Record> record;
    LookUp(ports.prompter, [&] { record = ReadRecord(source, key); });
    return record;
}

void Updateandfind(const forms::Ports& ports, DataSource& source, const QString& key)
{
    const RoutineScope scope{"Updateandfind"};
    if (!common::Guarded(ports.prompter, [&] {
            if (Change::Open(source))
                Change::StoreOpen(source);
        }))
        return;
    if (!FindRecord(ports, source, key, kKeyIndex))
        ports.prompter.Box(kPlainTitle, kNotFoundAfterUpdate);
}

void DeleteRecord(const forms::Ports& ports, DataSource& source, const QString& key)
{
    const RoutineScope scope{"DeleteRecord"};
    if (!FindRecord(ports, source, key, kKeyIndex))
        return;
    common::Guarded(ports.prompter, [&] { Change::Delete(source, u"Delete %1"_s.arg(key)); });
}

const engine::Field* FindField(const DataSource& source, const QString& field)
{
    const engine::Recordset& recordset = source.Recordset();
    const int index = recordset.FieldIndex(field);
    return index < 0 ? nullptr : &recordset.Fields().at(index);
}

int SizeOf(const DataSource& source, const QString& field)
{
    const engine::Field* found = FindField(source, field);
    return found == nullptr ? 0 : found->size;
}

QString GetFieldData(const DataSource& source, const QString& field)
{
    const QVariant value = source.Recordset().Value(field);
    return value.isValid() ? text::Trim(value.toString()) : QString();
}

void SetFieldData(DataSource& source, const QString& value, const QString& field)
{
    Change::Set(source, field, value);
}

QString Trim2Size(const DataSource& source, const QString& value, const QString& field)
{
    return text::Trim(value).leftJustified(FieldOf(source, field).size, QLatin1Char(' '), true);
}

double TrimNum2Size(const DataSource& source, const QString& value, const QString& field)
{
    return text::Val(Trim2Size(source, value, field));
}

void DropTheTable(engine::Engine& engine, const QString& path, const QString& table)
{
    const std::shared_ptr<engine::Database> database = engine.OpenDatabase(path);
    database->Execute(u"DROP TABLE ["_s + table + u"]"_s);
    database->Close();
}

void CreateIndex(engine::Engine& engine, const QString& path, const QString& table)
{
    const std::shared_ptr<engine::Database> database = engine.OpenDatabase(path);
    database->AppendIndex(
        table, {.name = u"Centralkey"_s, .fields = {u"Centralkey"_s}, .primary = true, .unique = true});
    database->Close();
}

void ListTables(engine::Engine& engine, const QString& path, forms::ListBox& list)
{
    list.Clear();
    const std::shared_ptr<engine::Database> database = engine.OpenDatabase(path);
    for (const QString& name : database->TableNames()) {
        const QString folded = text::Folded(name);
        if (!folded.isEmpty() && !kSystemTables.contains(folded))
            list.AddItem(name);
    }
    database->Close();
}

void DalmoSetReadWriteBit(const forms::Ports& ports, const files::Disk& disk, const QString& path, int mode)
{
    try {
        disk.SetAttr(path, static_cast<unsigned>(mode));
    } catch (const RuntimeError&) {
        ports.prompter.Box(kPlainTitle, kReadOnlyFlagNotSet.arg(path));
    }
}

QStringList OfferedDatabases(engine::Engine& engine, const QString& directory, const QString& table)
{
    QStringList offered;
    for (const QString& name : engine.Disk().Dir(directory + u"*.mdb"_s, files::ReadOnly)) {
        // The text test is as loose as it looks: "DATA.MDB" is hidden too, being the tail of a template's
        // name.
        if (!kNeverOffered.contains(name.toUpper() + QLatin1Char('*')) &&
            Ismdb(engine, directory + name, table))
            offered.append(name);
    }
    return offered;
}

Sources::Sources(engine::Engine& engine)
    : datDatabook(engine, u"datDatabook"_s)
    , datsql(engine, u"datsql"_s)
    , datCentralKey(engine, u"datCentralKey"_s)
    , datComps(engine, u"datComps"_s)
    , datcomments(engine, u"datcomments"_s)
    , datnewcmts(engine, u"datnewcmts"_s)
    , datnewcomps(engine, u"datnewcomps"_s)
    , datmap(engine, u"datmap"_s)
    , datComp2Kel_CURRENT(engine, u"datComp2Kel_CURRENT"_s)
{}

const DataSource* Sources::Find(const QString& name) const
{
    for (const DataSource* source : {&datDatabook, &datsql, &datCentralKey, &datComps, &datcomments,
                                     &datnewcmts, &datnewcomps, &datmap, &datComp2Kel_CURRENT}) {
        if (source->Name().compare(name, Qt::CaseInsensitive) == 0)
            return source;
    }
    return nullptr;
}

QString GetData(const Sources& sources, const QString& name, const QString& field)
{
    const DataSource* source = sources.Find(name);
    if (!source)
        throw RuntimeError(error::kNoObject, u"There is no data source %1"_s.arg(name));
    return GetFieldData(*source, field);
}

void Connect2Databook(const forms::Ports& ports, Sources& sources, const QString& path, const QString& table)
{
    const RoutineScope scope{"Connect2Databook"};
    Connect2mdb(ports, sources.datDatabook, path, table, SourceKind::Table);
    Connect2mdb(ports, sources.datsql, path, table, SourceKind::Query);
}

} // namespace vasclip::store
