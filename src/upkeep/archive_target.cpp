#include "upkeep/archive_target.h"

#include "platform/engine/genuine_file.h"
#include "platform/text/runtime_error.h"
#include "store/upgrade.h"

#include <QFileInfo>

#include <algorithm>

namespace vasclip::upkeep {

using namespace Qt::Literals::StringLiterals;

namespace {

const QString kAccessTitle = u"Archive Is an Access Database"_s;
const QString kAccess =
    u"%1 is an Access database, which is read here and never written. Convert it first: open it as the Databook and "
    u"answer Yes, or use vasctl convert. Nothing was moved."_s;

} // namespace

QString ArchiveName(const QString& typed)
{
    if (typed.endsWith(u".MDB"_s, Qt::CaseInsensitive))
        return typed;
    const qsizetype slash = typed.lastIndexOf(u'\\');
    const qsizetype dot = typed.lastIndexOf(u'.');
    return (dot > slash ? typed.left(dot) : typed) + u".MDB"_s;
}

void MakeDirectoriesOf(const files::Disk& disk, const QString& file)
{
    for (qsizetype slash = file.indexOf(u'\\', 3); slash > 0; slash = file.indexOf(u'\\', slash + 1))
        if (!disk.DirExists(file.left(slash)))
            disk.MkDir(file.left(slash));
}

void CompleteFields(const store::DataSource& databook, const QString& file, const QString& table)
{
    engine::Engine& engine = databook.Engine();
    try {
        const auto database = engine.OpenDatabase(file, engine::OpenMode::ReadOnly);
        const engine::FieldList held = database->Table(table).fields;
        database->Close();
        engine::FieldList wanted = databook.Fields();
        wanted.removeIf([&](const engine::Field& field) {
            return std::ranges::any_of(held, [&](const engine::Field& there) {
                return there.name.compare(field.name, Qt::CaseInsensitive) == 0;
            });
        });
        if (wanted.isEmpty())
            return;
        const auto alone = engine.OpenDatabase(file, engine::OpenMode::Exclusive);
        store::AppendFields(*alone, table, wanted);
        alone->Close();
    } catch (const RuntimeError&) {
        // Records that need the fields stay, each with its line.
    }
}

bool RefusesAccess(forms::Prompter& prompter, const files::Disk& disk, const QString& file)
{
    if (!disk.Found(file, files::ReadOnly | files::Hidden) || !engine::IsGenuineFile(disk, file))
        return false;
    prompter.Box(kAccessTitle, kAccess.arg(file));
    return true;
}

bool IsSameFile(const files::Disk& disk, const QString& one, const QString& other)
{
    const QString native = QFileInfo(disk.ToNative(one)).canonicalFilePath();
    return !native.isEmpty() && native == QFileInfo(disk.ToNative(other)).canonicalFilePath();
}

} // namespace vasclip::upkeep
