#include "app/vasctl/list_options.h"
#include "app/vasctl/where_option.h"

#include "common/paths.h"
#include "platform/text/counted.h"
#include "platform/text/text.h"
#include "upkeep/code_pages.h"
#include "upkeep/export_csv.h"
#include "upkeep/export_table.h"
#include "upkeep/file_names.h"
#include "upkeep/tables.h"
#include "upkeep/target_file.h"

#include <QJsonArray>

namespace vasclip::vasctl {

using namespace Qt::Literals::StringLiterals;

namespace {

const text::Counted kRecords{u"record was"_s, u"records were"_s};
const text::Counted kLetters{u"letter is not in the code page %1 and was written as \"?\"."_s,
                             u"letters are not in the code page %1 and were written as \"?\"."_s};
constexpr auto kUsageText = "Usage: vasctl export --file NAME [--table NAME] [--to vasclip | access | csv] [--pictures] "
                            "[--where SQL] [--delimiter C] [--code-page NAME]"_L1;

/// A bare name goes into the export directory.
QString TargetOf(Session& session, const QString& given)
{
    const bool bare = !given.contains(u'\\') && !given.contains(u'/');
    return bare ? common::CkRSlash(session.Home().globals.G_ExportDir) + given : DrivePathOf(session.Disk(), given);
}

void MakeDirectoryOf(const files::Disk& disk, const QString& target)
{
    for (qsizetype slash = target.indexOf(u'\\', 3); slash > 0; slash = target.indexOf(u'\\', slash + 1))
        if (!disk.DirExists(target.left(slash)))
            disk.MkDir(target.left(slash));
}

int Csv(const Output& out, const upkeep::TransferDesk& desk, const QString& target, const QString& where,
        const QCommandLineParser& options, const upkeep::WorkStep& step)
{
    upkeep::CsvForm form;
    const std::optional<QChar> delimiter = DelimiterOf(out, options);
    if (!delimiter)
        return kUsage;
    if (!delimiter->isNull())
        form.delimiter = *delimiter;
    if (options.isSet(u"code-page"_s)) {
        form.codePage = upkeep::CodePageOf(options.value(u"code-page"_s));
        if (form.codePage.isEmpty()) {
            out.Error(u"'%1' is no code page that can be written; these can: %2."_s.arg(
                options.value(u"code-page"_s), upkeep::CodePages().join(u", "_s)));
            return kUsage;
        }
    }
    const upkeep::CsvExport result = upkeep::ExportCsv(desk, target, where, form, step);
    QString words = kRecords(result.records) + u" written to %1."_s.arg(target);
    if (result.lost > 0)
        words += u' ' + kLetters(result.lost).arg(form.codePage);
    out.Value({{u"file"_s, target}, {u"records"_s, result.records}, {u"lost"_s, result.lost}, {u"message"_s, words}},
              words);
    return kDone;
}

} // namespace

int RunExport(Session& session, const Output& out, const QStringList& arguments, const QCommandLineParser& options)
{
    const QString to = options.isSet(u"to"_s) ? options.value(u"to"_s) : u"vasclip"_s;
    const bool csv = to == "csv"_L1;
    if (!arguments.isEmpty() || options.value(u"file"_s).isEmpty() || (!csv && to != "vasclip"_L1 && to != "access"_L1) ||
        (csv && options.isSet(u"pictures"_s)) ||
        (!csv && (options.isSet(u"delimiter"_s) || options.isSet(u"code-page"_s)))) {
        out.Error(kUsageText);
        return kUsage;
    }
    QString target = TargetOf(session, options.value(u"file"_s));
    if (target.isEmpty()) {
        out.Error(u"%1 lies on none of the program's drives. 'vasctl doctor' lists them."_s.arg(options.value(u"file"_s)));
        return kUsage;
    }
    if (IsDirectory(session.Disk(), options.value(u"file"_s), target)) {
        out.Error(u"%1 is a directory. Name the file in it that is to be made."_s.arg(target));
        return kUsage;
    }
    if (!csv)
        target = upkeep::DatabaseName(target);
    else if (!target.mid(target.lastIndexOf(u'\\')).contains(u'.'))
        target += u".csv"_s;
    const QString given = options.value(u"table"_s);
    if (upkeep::IsSystemTable(given)) {
        out.Error(u"Tables whose names begin with MSYS are the system's own; '%1' is none for an export."_s.arg(given));
        return kUsage;
    }
    shell::Program& program = session.WithDatabook();
    const QString table = text::Folded(options.isSet(u"table"_s) ? options.value(u"table"_s) : program.globals.G_ExportTableS);
    if (!csv && !upkeep::IsTableName(table)) {
        out.Error(QString::fromUtf16(upkeep::kTableNameWords));
        return kUsage;
    }
    const std::optional<QString> where = WhereOf(session, out, options);
    if (!where)
        return kUsage;
    const upkeep::TransferDesk desk{
        .databook = program.sources.datDatabook, .globals = program.globals, .ports = session.Ports()};
    if (upkeep::RefusesTarget(session.Prompter(), session.Engine(), upkeep::kExportTo, target, desk.Databook()))
        return kFailed;
    MakeDirectoryOf(session.Disk(), target);
    ProgressLine line(out);
    const auto step = [&line](qint64 done, qint64 of, const QString& words) {
        line.Show(words, done, of);
        return true;
    };
    if (csv)
        return Csv(out, desk, target, *where, options, step);
    const upkeep::ExportResult result = upkeep::ExportTable(desk,
                                                            {.target = target,
                                                             .table = table,
                                                             .search = *where,
                                                             .pictures = options.isSet(u"pictures"_s),
                                                             .access = to == "access"_L1},
                                                            step);
    line.Clear();
    for (const QString& one : result.notIn)
        out.Error(one);
    const QString words = upkeep::WordsOf(result);
    if (!result.written)
        return result.declined ? kDeclined : kFailed; // the box has told why
    out.Value({{u"file"_s, result.file},
               {u"table"_s, result.table},
               {u"records"_s, result.records},
               {u"pictures"_s, result.pictures},
               {u"notInside"_s, QJsonArray::fromStringList(result.notIn)},
               {u"noMore"_s, QJsonArray::fromStringList(result.lost)},
               {u"notes"_s, QJsonArray::fromStringList(result.notes)},
               {u"message"_s, words}},
              words);
    return kDone;
}

} // namespace vasclip::vasctl
