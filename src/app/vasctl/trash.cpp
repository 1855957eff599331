#include "app/vasctl/session.h"

#include "common/dates.h"
#include "common/paths.h"
#include "photos/trash.h"
#include "photos/trash_messages.h"
#include "platform/text/dates.h"
#include "platform/text/text.h"

namespace vasclip::vasctl {

using namespace Qt::Literals::StringLiterals;

namespace {

int List(Session& session, const Output& out, const QString& trash)
{
    QList<QStringList> rows;
    for (const photos::TrashedFile& file : photos::TrashedFiles(session.Disk(), trash))
        rows.append({file.name, text::Dec(file.bytes), file.modified.toString(Qt::ISODate)});
    out.Table({u"NAME"_s, u"BYTES"_s, u"SAVED"_s}, rows, {Kind::Text, Kind::Number});
    return kDone;
}

int Restore(Session& session, const Output& out, const photos::TrashDesk& desk, const QString& trash,
            const QStringList& names)
{
    for (const QString& name : names) {
        switch (photos::RestoreFromTrash(desk, trash, name)) {
        case photos::Restored::Yes:
            out.Line(u"%1 is back in %2"_s.arg(name, photos::TrashParentDir(trash)));
            break;
        case photos::Restored::Missing:
            out.Error(u"There is no picture '%1' in %2; 'vasctl trash list' shows what is there."_s.arg(name,
                                                                                                 trash));
            return kNotFound;
        case photos::Restored::Another:
            out.Error(u"%1 is another picture now than when it was asked about; nothing was restored."_s.arg(name));
            return kFailed;
        case photos::Restored::Declined:
            return session.Prompter().Declined() ? kDeclined : kFailed;
        }
    }
    return kDone;
}

int Empty(Session& session, const Output& out, const photos::TrashDesk& desk, const QString& trash,
          const QString& before)
{
    const QDate today = desk.ports.clock.Today();
    QDate last;
    if (!before.isEmpty()) {
        if (!common::IsDate(before, today)) {
            out.Error(u"'%1' is no date."_s.arg(before));
            return kUsage;
        }
        last = text::ReadDate(before, today)->date();
    }
    QList<photos::TrashedFile> pictures;
    for (const photos::TrashedFile& file : photos::TrashedFiles(session.Disk(), trash)) {
        if (!last.isValid() || file.modified.date() <= last)
            pictures.append(file);
    }
    if (pictures.isEmpty()) {
        out.Line(photos::kPhotosErased.arg(0));
        return kDone;
    }
    if (!session.Prompter().YesNo({}, photos::kEraseSelected))
        return kDeclined;
    const photos::Emptied done = photos::EmptyTrash(desk, trash, pictures);
    if (done.left.isEmpty() && done.changed.isEmpty()) {
        out.Line(photos::kPhotosErased.arg(done.deleted.size()));
        return kDone;
    }
    out.Error(photos::kNotErased.arg(done.deleted.size()).arg((done.left + done.changed).join(u", "_s)));
    return kFailed;
}

} // namespace

int RunTrash(Session& session, const Output& out, const QStringList& arguments,
             const QCommandLineParser& options)
{
    const QString verb = arguments.value(0);
    auto& program = session.Home();
    const QString trash = options.isSet(u"dir"_s) ? common::CkRSlash(DrivePathOf(session.Disk(), options.value(u"dir"_s)))
                                                  : photos::TrashDirectory(program.globals.G_CaptureDir);
    if (!photos::IsInTrashCan(trash)) {
        out.Error(u"%1 is no trash directory: its name is not TRASHCAN."_s.arg(trash));
        return kUsage;
    }
    if (options.isSet(u"dir"_s) && !session.Disk().DirExists(trash)) {
        out.Error(u"There is no directory '%1', or it can't be reached."_s.arg(trash));
        return kNotFound;
    }
    const photos::TrashDesk desk{session.Ports(), session.Disk(), program.globals};
    if (verb == u"list"_s && arguments.size() == 1)
        return List(session, out, trash);
    if (verb == u"restore"_s && arguments.size() >= 2)
        return Restore(session, out, desk, trash, arguments.mid(1));
    if (verb == u"empty"_s && arguments.size() == 1)
        return Empty(session, out, desk, trash, options.value(u"before"_s));
    out.Error(u"Usage: vasctl trash list | restore NAME ... | empty [--before DATE], each with [--dir DIR]"_s);
    return kUsage;
}

} // namespace vasclip::vasctl
