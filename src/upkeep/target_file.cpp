#include "upkeep/target_file.h"

#include "common/paths.h"
#include "platform/engine/genuine_file.h"
#include "platform/files/drive_path.h"
#include "platform/text/runtime_error.h"
#include "platform/text/text.h"
#include "store/schema.h"
#include "upkeep/file_names.h"

#include <QFileDevice>
#include <QFileInfo>
#include <QStorageInfo>

#include <algorithm>

namespace vasclip::upkeep {

using namespace Qt::StringLiterals;

namespace {

const QString kTitle = u"User not allowed to %1"_s;
const QString kProtected = u"You cannot %1 default (protected) installed database: %2 "_s;
const QString kDatabaseTitle = u"User not allowed to %1 database"_s;
const QString kOpen = u"You cannot %1 currently open database (%2)!"_s;
const QString kLocked = u"The selected database is LOCKED (by you or another user). Make sure all users are not "
                        u"currenlty connected to %2 before attempting to %1 this database file!"_s;
const QString kWriteProtected =
    u"The file %1 is write-protected. Choose another name, or take the protection off it"_s;
const QString kNoText = u"%1 is there, and no text file to be written over. Choose a name that ends in .txt or .csv"_s;
const QString kNotWritten = u"%1 can't be written. Nothing was stored. Make sure that you have rights to it and to its "
                            u"directory, and that no other program has it open"_s;
const QString kNoMore = u"The disk took no more of %1. Nothing was stored; make room on it or choose another one"_s;
const QString kFull = u"The disk that holds %1 is full. Nothing was stored; make room and try again"_s;
const QString kNoFile = u"You cannot %1 \"%2\", which is not the name of one file. Enter the name of the database file."_s;
const QString kTemplate = u"NEWDATA.MDB"_s;

bool IsFull(const QFileDevice& file)
{
    constexpr qint64 kRoom = 64 * 1024; // a disk keeps some blocks for itself
    const QStorageInfo disk(QFileInfo(file.fileName()).absolutePath());
    return file.error() == QFileDevice::ResourceError || (disk.isValid() && disk.bytesAvailable() < kRoom);
}

} // namespace

QString StemOf(const QString& fileName)
{
    const QString name = fileName.mid(fileName.lastIndexOf(u'\\') + 1);
    return name.left(name.indexOf(u'.'));
}

QString LockFileOf(const QString& path)
{
    const qsizetype dot = path.lastIndexOf(u'.');
    return (dot > path.lastIndexOf(u'\\') ? path.left(dot) : path) + u".LDB"_s;
}

bool NamesOneFile(const QString& path)
{
    try {
        const files::DrivePath taken = files::ParseDrivePath(path, files::Wildcards::Refused);
        return !taken.closed && !taken.parts.isEmpty();
    } catch (const RuntimeError&) {
        return false;
    }
}

bool IsThere(const files::Disk& disk, const QString& path)
{
    return NamesOneFile(path) && disk.Found(path, files::ReadOnly | files::Hidden);
}

bool IsLocked(engine::Engine& engine, const QString& path)
{
    if (!engine.Disk().Found(LockFileOf(path), files::ReadOnly | files::Hidden))
        return false;
    const QList<engine::User> users = engine.Users(path);
    return users.isEmpty() || std::ranges::any_of(users, &engine::User::alive);
}

bool RefusesLocked(forms::Prompter& prompter, engine::Engine& engine, const FileVerb& verb, const QString& path)
{
    if (!IsLocked(engine, path))
        return false;
    prompter.Box(kDatabaseTitle.arg(verb.verb), kLocked.arg(verb.what, path));
    return true;
}

bool RefusesTarget(forms::Prompter& prompter, engine::Engine& engine, const FileVerb& verb, const QString& path,
                   const QString& databook)
{
    if (!NamesOneFile(path)) {
        prompter.Box(kDatabaseTitle.arg(verb.verb), kNoFile.arg(verb.what, path));
        return true;
    }
    if (const QString stem = StemOf(path); IsProtectedDatabase(stem)) {
        prompter.Box(kTitle.arg(verb.verb) + verb.titleTail, kProtected.arg(verb.what, stem));
        return true;
    }
    if (text::Folded(path) == text::Folded(databook)) {
        prompter.Box(kDatabaseTitle.arg(verb.verb), kOpen.arg(verb.what, databook));
        return true;
    }
    return RefusesLocked(prompter, engine, verb, path);
}

bool IsTableName(const QString& name)
{
    return !text::Trim(name).isEmpty() && !name.contains(u'[') && !name.contains(u']');
}

void NeedWritable(const files::Disk& disk, const QString& file)
{
    if (disk.Found(file, files::ReadOnly | files::Hidden) && (disk.GetAttr(file) & files::ReadOnly) != 0)
        throw RuntimeError(error::kPathFileAccess, kWriteProtected.arg(file));
}

void NeedTextFile(const files::Disk& disk, const QString& file)
{
    const QString name = text::Folded(file);
    const bool isText = name.endsWith(u".CSV"_s) || name.endsWith(u".TXT"_s) || name.endsWith(u".TSV"_s);
    if (!isText && disk.Found(file, files::ReadOnly | files::Hidden))
        throw RuntimeError(error::kPathFileAccess, kNoText.arg(file));
    NeedWritable(disk, file);
}

void FailWriting(const QString& shown, const QFileDevice& file)
{
    if (IsFull(file))
        throw RuntimeError(error::kDiskFull, kFull.arg(shown));
    if (file.isOpen()) // a limit, a broken line: whatever it is, the rights were there
        throw RuntimeError(error::kDiskFull, kNoMore.arg(shown));
    throw RuntimeError(error::kPathFileAccess, kNotWritten.arg(shown));
}

void CopyFromNewData(engine::Engine& engine, const QStringList& templates, const QString& target)
{
    const files::Disk& disk = engine.Disk();
    if (disk.Found(target, files::ReadOnly | files::Hidden))
        return;
    for (const QString& directory : templates) {
        if (const QString given = common::CkRSlash(directory) + kTemplate; disk.FileExists(given) && !engine::IsGenuineFile(disk, given)) {
            engine.CopyDatabase(given, target);
            return;
        }
    }
    store::MakeDatabase(engine, target);
}

void CloseDatabasemdb(store::DataSource& source)
{
    source.Close();
}

void Copy2Export(engine::Engine& engine, const QString& dataDir)
{
    const QString directory = common::CkRSlash(dataDir);
    engine.CopyDatabase(directory + u"DATABOOK.MDB"_s, directory + u"EXPORT\\TEMPDATA.MDB"_s);
}

} // namespace vasclip::upkeep
