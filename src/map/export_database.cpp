#include "common/paths.h"
#include "link/reporter.h"
#include "map/exports.h"
#include "map/messages.h"
#include "photos/photo_list.h"
#include "platform/engine/genuine_file.h"
#include "platform/text/runtime_error.h"
#include "platform/text/text.h"
#include "store/change.h"
#include "store/convert.h"
#include "store/fields.h"
#include "store/schema.h"
#include "upkeep/target_file.h"

namespace vasclip::map {

using namespace Qt::Literals::StringLiterals;

namespace {

const QString kTable = u"appraisal"_s;
const QString kTemplate = u"appraisal.mbk"_s;

/// The template's copy, which can be stored into whatever kind of file that is; a new file where there is none.
void CopyFromNewFiles(const ExportDesk& desk, engine::Engine& engine, const QString& file)
{
    const QString given = desk.globals.G_ProgramDir + kTemplate;
    if (engine::IsGenuineFile(desk.disk, given)) {
        static_cast<void>(store::ConvertDatabase(engine, {.source = given, .target = file}));
        return;
    }
    if (desk.disk.FileExists(given)) {
        desk.disk.FileCopy(given, file);
        return;
    }
    const auto database = engine.CreateDatabase(file);
    database->CreateTable(store::AppraisalTable());
    database->Close();
}

QString PhotoOf(const ExportDesk& desk, const QString& key)
{
    const auto record = store::ReadRecord(desk.ports, desk.sources.datDatabook, text::Folded(key));
    const QString stem = record ? photos::PhotoList(*record).StemOf(u"FRONT VIEW"_s) : QString();
    return stem.isEmpty() ? QString() : u"File://"_s + desk.globals.G_PhotoDir + stem + u".jpg"_s;
}

void Add(const ExportDesk& desk, store::DataSource& data, const ExportEntry& entry)
{
    store::Change change(data, store::Change::NewRecord{}, messages::kExportWords);
    change.Set(u"NAME"_s, entry.label);
    change.Set(fields::ADDRESS, entry.address);
    change.Set(fields::CITY, entry.city);
    change.Set(fields::ST, entry.state);
    change.Set(fields::ZIP, entry.zipOrSubjects);
    change.Set(fields::COUNTY, entry.county);
    if (const QString photo = PhotoOf(desk, entry.key); !photo.isEmpty()) {
        change.Set(u"HYPERLINK"_s, photo);
        change.Set(u"Information"_s, photo);
    }
    change.Store();
}

void KillQuietly(const files::Disk& disk, const QString& file)
{
    try {
        if (disk.FileExists(file))
            disk.Kill(file);
    } catch (const RuntimeError&) {
        // The next export meets it again.
    }
}

/// Closes the source on every way out, so that the file can be moved.
class Bound
{
public:
    Bound(store::DataSource& data, const QString& file)
        : m_data(data)
    {
        data.Open(file, kTable, store::SourceKind::Table);
    }
    ~Bound() { m_data.Close(); }
    Bound(const Bound&) = delete;
    Bound& operator=(const Bound&) = delete;

private:
    store::DataSource& m_data;
};

void Fill(const ExportDesk& desk, const QString& file, const QList<ExportEntry>& entries)
{
    store::DataSource& data = desk.sources.datmap;
    const Bound bound(data, file);
    engine::Transaction whole(data.Database());
    DeleteAllRecs(data);
    for (const ExportEntry& entry : entries)
        Add(desk, data, entry);
    whole.Commit();
}

/// The usual name is the one of the program's own databases that may be written anew.
bool Refused(const ExportDesk& desk, engine::Engine& engine, const QString& file)
{
    forms::Prompter& prompter = desk.ports.prompter;
    if (upkeep::StemOf(file).compare(kTable, Qt::CaseInsensitive) == 0)
        return upkeep::RefusesLocked(prompter, engine, upkeep::kExportTo, file);
    const store::DataSource& databook = desk.sources.datDatabook;
    return upkeep::RefusesTarget(prompter, engine, upkeep::kExportTo, file,
                                 databook.Bound() ? databook.DatabaseName() : QString());
}

} // namespace

void errcreatemdb(engine::Engine& engine, const QString& file)
{
    const common::RoutineScope scope{"errcreatemdb"};
    const auto database = engine.OpenDatabase(file);
    for (const engine::Field& field : store::AppraisalTable().fields) {
        try {
            database->AppendField(kTable, field);
        } catch (const RuntimeError& failure) {
            if (failure.Number() != error::kFieldDefinedTwice)
                throw;
        }
    }
    database->Close();
}

void DeleteAllRecs(store::DataSource& data)
{
    for (data.MoveFirst(); !data.AtEnd(); data.MoveFirst())
        store::Change::Delete(data, messages::kExportWords);
}

ExportResult ExportToAppraisalmdb(ExportDesk desk, engine::DatabaseKind kind)
{
    const QString directory = FindExportDir(desk.globals);
    ExportResult result{.file = directory + desk.globals.mapExportFile};
    const QString working = result.file + u".new"_s;
    const QString access = result.file + u".access"_s;
    link::Reported(desk.ports.prompter, "ExportToAppraisalmdb", [&] {
        engine::Engine& engine = desk.sources.datmap.Engine();
        if (Refused(desk, engine, result.file))
            return;
        common::MakeDirectory(desk.disk, desk.ports.prompter, directory);
        KillQuietly(desk.disk, working); // of a run that was ended in the middle
        KillQuietly(desk.disk, access);
        CopyFromNewFiles(desk, engine, working);
        errcreatemdb(engine, working);
        const QList<ExportEntry> entries = ExportEntries(desk);
        Fill(desk, working, entries);
        if (kind == engine::DatabaseKind::Access)
            static_cast<void>(store::ConvertDatabase(
                engine, {.source = working, .target = access, .to = engine::DatabaseKind::Access}));
        desk.disk.FileCopy(kind == engine::DatabaseKind::Access ? access : working, result.file); // in one step
        result.entries = static_cast<int>(entries.size());
        result.written = true;
    });
    KillQuietly(desk.disk, working);
    KillQuietly(desk.disk, access);
    return result;
}

} // namespace vasclip::map
