#include "store/upgrade.h"

#include "platform/engine/errors.h"
#include "platform/engine/genuine_file.h"
#include "platform/files/native.h"
#include "platform/text/runtime_error.h"
#include "store/fields.h"
#include "store/messages.h"

#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace vasclip::store {

namespace {

const QString kReference = u"newdata.mdb"_s;

struct NewField
{
    QLatin1StringView name;
    int size; ///< of a text; 0 is a long binary
};

/// The fields that older files lack, in the order of appending.
constexpr NewField kNewFields[] = {
    {fields::FRONTPHOTO, 0},  {fields::LONGITUDE, 11},  {fields::LATITUDE, 11},   {fields::ANCHORED, 1},
    {fields::COMPID, 7},      {fields::SALEHIST4, 20},  {fields::SALEHIST5, 20},  {fields::FINANCETYP, 20},
    {fields::CONTRKDATE, 20}, {fields::OTHERAREA1, 20}, {fields::OTHERAREA2, 20},
};

const QString kFileLocked =
    u"The file appears to be locked.  Please inform all network users to exit this application "
    "so an update can take place."_s;
const QString kCountTitle = u"Error processing databook field count"_s;
const QString kCountText =
    u"Unable to detect field count in databook.mdb (reference *new* files are missing or "
    "corrupt). Reinstall the program and retry"_s;

} // namespace

qsizetype FieldCount(engine::Engine& engine, const QString& path, const QString& table)
{
    const auto database = engine.OpenDatabase(path, engine::OpenMode::ReadOnly);
    const qsizetype count = database->Table(table).fields.size();
    database->Close();
    return count;
}

std::optional<qsizetype> ReferenceCount(const forms::Ports& ports, engine::Engine& engine,
                                        const common::Globals& globals)
{
    const bool usersOwn = engine.Disk().FileExists(globals.G_UserDir + kReference);
    try {
        return FieldCount(engine, (usersOwn ? globals.G_UserDir : globals.G_ProgramDir) + kReference);
    } catch (const RuntimeError&) {
        ports.prompter.MsgBox(forms::Buttons::Ok, forms::Icon::Critical, kCountTitle, kCountText);
        return std::nullopt;
    }
}

bool TakesFields(engine::Engine& engine, const QString& path)
{
    const auto database = engine.OpenDatabase(path, engine::OpenMode::ReadOnly);
    const bool genuine = engine::IsGenuine(*database);
    database->Close();
    const QFileInfo file(engine.Disk().ToNative(path));
    return !genuine && files::native::MayWrite(file.filePath()) && files::native::MayWrite(file.absolutePath()) &&
           (engine.Disk().GetAttr(path) & files::ReadOnly) == 0;
}

void AppendMissing(engine::Database& database, const QString& table)
{
    engine::Transaction all(database);
    for (const NewField& row : kNewFields) {
        engine::Field field;
        field.name = QString(row.name);
        field.type = row.size > 0 ? engine::FieldType::Text : engine::FieldType::LongBinary;
        field.size = row.size;
        field.allowZeroLength = true;
        field.required = false;
        try {
            database.AppendField(table, field);
        } catch (const RuntimeError& failure) {
            // A table that already has some of the fields gets the rest.
            if (failure.Number() != error::kFieldDefinedTwice)
                throw;
        }
    }
    all.Commit();
}

void AppendFields(engine::Database& database, const QString& table, const engine::FieldList& fields)
{
    engine::Transaction all(database);
    for (engine::Field field : fields) {
        field.required = false;
        database.AppendField(table, field);
    }
    all.Commit();
}

std::shared_ptr<engine::Database> OpenAlone(const forms::Ports& ports, engine::Engine& engine,
                                            const QString& path)
{
    for (;;) {
        try {
            return engine.OpenDatabase(path, engine::OpenMode::Exclusive);
        } catch (const RuntimeError& failure) {
            if (failure.Number() != error::kExclusivelyLocked && failure.Number() != error::kInUseByOthers)
                throw;
            if (ports.prompter.MsgBox(forms::Buttons::RetryCancel, forms::Icon::Exclamation,
                                      kPlainTitle, kFileLocked) != forms::Answer::Retry)
                return nullptr;
        }
    }
}

Appended AppendAlone(const forms::Ports& ports, engine::Engine& engine, const QString& path, const QString& table)
{
    try {
        const auto database = OpenAlone(ports, engine, path);
        if (!database)
            return Appended::Locked;
        AppendMissing(*database, table);
        database->Close();
    } catch (const RuntimeError& failure) {
        // A program that leaves no mark of itself, as one for backups, holds it without being a user of it.
        if (failure.Number() != error::kTableLocked && failure.Number() != error::kCouldNotUpdateLocked)
            throw;
        ports.prompter.Box(kPlainTitle, kTableInUse);
        return Appended::Locked;
    }
    ports.prompter.Box(kPlainTitle, kUpdated);
    return Appended::Done;
}

} // namespace vasclip::store
