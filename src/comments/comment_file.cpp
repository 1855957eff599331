#include "comments/comment_file.h"

#include "comments/messages.h"
#include "common/error_block.h"
#include "platform/text/runtime_error.h"
#include "store/messages.h"
#include "store/schema.h"

using namespace Qt::StringLiterals;

namespace vasclip::comments {

using common::RoutineScope;

namespace {

/// A copy of a database that may be in use, open for writing whatever the source's attributes were.
void CopyComments(engine::Engine& engine, const QString& source, const QString& target)
{
    engine.CopyDatabase(source, target);
    engine.Disk().SetAttr(target, files::Normal);
}

} // namespace

QString SharedCommentFile(const common::Globals& globals)
{
    return globals.G_DataDir + kCommentFile;
}

QString LocalCommentFile(const common::Globals& globals)
{
    return globals.G_UserDir + kCommentFile;
}

QString CommentFilePath(const common::Globals& globals)
{
    return globals.share != 0 ? SharedCommentFile(globals) : LocalCommentFile(globals);
}

bool HasCommentFile(const files::Disk& disk, const QString& path)
{
    try {
        return disk.Found(path, files::ReadOnly | files::Hidden);
    } catch (const RuntimeError&) {
        return false; // a drive that is not there: opening the file says so
    }
}

void CreateCommentFile(engine::Engine& engine, const common::Globals& globals, const QString& path)
{
    const files::Disk& disk = engine.Disk();
    if (HasCommentFile(disk, path))
        throw RuntimeError(error::kFileExists, u"The comment file %1 is there already"_s.arg(path));
    const QString pattern = globals.G_ProgramDir + kCommentTemplate;
    if (HasCommentFile(disk, pattern))
        CopyComments(engine, pattern, path);
    else
        store::MakeDatabase(engine, path);
}

bool TurnSharingOn(const forms::Ports& ports, engine::Engine& engine, const common::Globals& globals)
{
    const RoutineScope scope{"TurnSharingOn"};
    const files::Disk& disk = engine.Disk();
    if (HasCommentFile(disk, SharedCommentFile(globals)))
        return true;
    if (!ports.prompter.YesNo(store::kPlainTitle, kNoSharedFile)) {
        ports.prompter.Box(store::kPlainTitle, kShareTheBest);
        return false;
    }
    if (!HasCommentFile(disk, LocalCommentFile(globals)))
        CreateCommentFile(engine, globals, LocalCommentFile(globals));
    CopyComments(engine, LocalCommentFile(globals), SharedCommentFile(globals));
    return true;
}

void TurnSharingOff(const forms::Ports& ports, engine::Engine& engine, const common::Globals& globals)
{
    const RoutineScope scope{"TurnSharingOff"};
    const files::Disk& disk = engine.Disk();
    if (HasCommentFile(disk, LocalCommentFile(globals)))
        return;
    if (HasCommentFile(disk, SharedCommentFile(globals)) &&
        ports.prompter.YesNo(store::kPlainTitle, kCopyTheShared)) {
        CopyComments(engine, SharedCommentFile(globals), LocalCommentFile(globals));
        ports.prompter.Box(store::kPlainTitle, kCopySuccessful);
        return;
    }
    CreateCommentFile(engine, globals, LocalCommentFile(globals));
    ports.prompter.Box(store::kPlainTitle, kEmptyCreated);
}

} // namespace vasclip::comments
