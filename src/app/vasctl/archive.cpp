#include "app/vasctl/session.h"

#include "common/dates.h"
#include "common/paths.h"
#include "upkeep/archive_records.h"
#include "upkeep/archive_target.h"
#include "upkeep/target_file.h"

namespace vasclip::vasctl {

using namespace Qt::Literals::StringLiterals;

namespace {

/// The archive that is named, else the one of the settings, whose directory a bare name is meant in too.
QString TargetOf(Session& session, const QCommandLineParser& options)
{
    const auto& globals = session.Home().globals;
    const QString named = options.value(u"file"_s);
    const bool bare = !named.contains(u'/') && !named.contains(u'\\') && !named.contains(u':');
    if (bare)
        return common::CkRSlash(globals.G_ArchiveDir) +
               upkeep::ArchiveName(named.isEmpty() ? globals.G_ArchiveFile : named);
    const QString path = DrivePathOf(session.Disk(), named);
    return path.isEmpty() || IsDirectory(session.Disk(), named, path) ? path : upkeep::ArchiveName(path);
}

} // namespace

int RunArchive(Session& session, const Output& out, const QStringList& arguments, const QCommandLineParser& options)
{
    if (!arguments.isEmpty() || !options.isSet(u"from"_s) || !options.isSet(u"to"_s)) {
        out.Error(u"Usage: vasctl archive --from DATE --to DATE [--file FILE] [--ask]"_s);
        return kUsage;
    }
    const upkeep::SaleRange range{options.value(u"from"_s), options.value(u"to"_s)};
    const QDate today = session.Ports().clock.Today();
    for (const QString& date : {range.start, range.stop})
        if (!common::IsDate(date, today)) {
            out.Error(u"'%1' is no date."_s.arg(date));
            return kUsage;
        }
    if (!upkeep::InRange(range.start, range, today)) {
        out.Error(u"The second date lies before the first: no record is in that range."_s);
        return kUsage;
    }
    shell::Program& program = session.WithDatabook();
    const QString target = TargetOf(session, options);
    if (target.isEmpty()) {
        out.Error(u"%1 lies on none of the program's drives; drives.ini maps more."_s.arg(options.value(u"file"_s)));
        return kUsage;
    }
    if (IsDirectory(session.Disk(), options.value(u"file"_s), target)) {
        out.Error(u"%1 is a directory. Name the archive in it."_s.arg(target));
        return kUsage;
    }
    if (upkeep::RefusesTarget(session.Prompter(), session.Engine(), upkeep::kArchiveTo, target,
                              program.DatabookPath()))
        return kFailed;
    upkeep::MakeDirectoriesOf(session.Disk(), target);
    upkeep::CopyFromNewData(session.Engine(), {program.globals.G_DataDir, program.globals.G_ProgramDir}, target);
    if (upkeep::IsSameFile(session.Disk(), target, program.DatabookPath())) {
        out.Error(u"You cannot archive records to itself.  Please select another database."_s);
        return kFailed;
    }
    if (upkeep::RefusesAccess(session.Prompter(), session.Disk(), target))
        return kFailed;
    ProgressLine progress(out);
    const upkeep::Archived done = upkeep::CopyArchiveData(
        {program.Ports(), program.sources.datDatabook, program.globals, program.Disk(), target,
         program.globals.G_ArchiveTable, range,
         options.isSet(u"ask"_s) ? upkeep::Duplicates::Ask : upkeep::Duplicates::Overwrite},
        [&](qint64 at, qint64 all, const upkeep::Archived&) {
            progress.Show(u"Archiving"_s, at, all);
            return true;
        });
    progress.Clear();
    QStringList said = done.left + done.pictures + done.missing;
    said.append(upkeep::WordsOf(done, target));
    out.Value({{u"moved"_s, done.moved},
               {u"overwritten"_s, done.overwritten},
               {u"file"_s, target},
               {u"left"_s, QJsonArray::fromStringList(done.left)},
               {u"pictures"_s, QJsonArray::fromStringList(done.pictures)},
               {u"missing"_s, QJsonArray::fromStringList(done.missing)}},
              said.join(u'\n'));
    if (done.failure)
        out.Error(done.failure->Description() + u'.');
    return done.left.isEmpty() && done.pictures.isEmpty() && done.missing.isEmpty() && !done.failure ? kDone : kFailed;
}

} // namespace vasclip::vasctl
