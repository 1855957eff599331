#include "app/vasctl/where_option.h"

#include "platform/text/counted.h"
#include "platform/text/runtime_error.h"
#include "store/schema.h"
#include "upkeep/layout_files.h"
#include "upkeep/report_csv.h"
#include "upkeep/report_pictures.h"
#include "upkeep/report_print.h"
#include "upkeep/report_question.h"
#include "upkeep/report_table.h"

#include <QCoreApplication>

namespace vasclip::vasctl {

using namespace Qt::Literals::StringLiterals;

namespace {

const text::Counted kRecords{u"record"_s, u"records"_s};
const text::Counted kPages{u"page"_s, u"pages"_s};
const QString kUse =
    u"Usage: vasctl print --layout NAME --out FILE.pdf [--where SQL] [--paper NAME] [--landscape | "
    u"--portrait], "
    "with --csv FILE.csv instead; vasctl print --layout NAME --copy NEW; vasctl print --list; vasctl print --fields"_s;

/// A report database of this run alone, gone with it; what a kill leaves the program clears away at its exit.
class Scratch
{
public:
    Scratch(const files::Disk& disk, const QString& directory)
        : m_disk(disk)
        , m_file(directory + u"Report_%1.mdb"_s.arg(QCoreApplication::applicationPid()))
    {}
    ~Scratch()
    {
        try {
            if (m_disk.Found(m_file))
                m_disk.Kill(m_file);
        } catch (const RuntimeError&) {
            // The program's exit meets it.
        }
    }
    Scratch(const Scratch&) = delete;
    Scratch& operator=(const Scratch&) = delete;
    [[nodiscard]] const QString& File() const { return m_file; }

private:
    const files::Disk& m_disk;
    QString m_file;
};

int List(Session& session, const Output& out)
{
    const common::Globals& globals = session.Home().globals;
    QList<QStringList> rows;
    bool fine = true;
    for (const upkeep::LayoutEntry& entry : upkeep::ListLayouts(session.Disk(), globals)) {
        fine = fine && entry.wrong.isEmpty();
        rows.append({entry.name, entry.words, entry.own ? u"yes"_s : u"no"_s, entry.wrong});
    }
    out.Table({u"layout"_s, u"report"_s, u"own"_s, u"wrong"_s}, rows);
    return fine ? kDone : kFailed;
}

int ListFields(const Output& out)
{
    QList<QStringList> rows;
    for (const store::CompsColumn& column : store::CompsColumns())
        rows.append({column.name, column.heading});
    out.Table({u"field"_s, u"label"_s}, rows);
    return kDone;
}

/// Where a report goes: a path of the system's or of the program's drives.
QString NativeOf(const files::Disk& disk, const QString& file)
{
    return file.size() >= 2 && file[1] == u':' && file[0].isLetter() ? disk.ToNative(file) : file;
}

int Print(Session& session, const Output& out, const upkeep::ReportLayout& layout, const paper::Sheet& sheet,
          const QString& file, const QString& where)
{
    shell::Program& program = session.WithDatabook();
    const bool csv = file.endsWith(u".csv"_s, Qt::CaseInsensitive);
    const Scratch scratch(session.Disk(), program.globals.G_UserDir);
    const qint64 count = upkeep::FillReport(session.Engine(), scratch.File(), program.DatabookPath(),
                                            program.globals.G_Table, where);
    if (!csv && !upkeep::MayPrint(session.Prompter(), count))
        return kDeclined;
    const upkeep::ReportTable table(session.Engine(), scratch.File(), layout);
    const QDateTime now = session.Ports().clock.Now();
    ProgressLine line(out);
    if (csv) {
        static_cast<void>(upkeep::WriteReportCsv(NativeOf(session.Disk(), file), layout, table.Feed(),
                                                 now.date(), [] { return true; }));
        line.Clear();
        out.Value({{u"file"_s, file}, {u"records"_s, count}}, kRecords(count) + u" in %1."_s.arg(file));
        return kDone;
    }
    upkeep::ReportPictures pictures(session.Disk(), program.globals.G_PhotoDir);
    int pages = 0;
    const upkeep::ReportBook book{.layout = layout,
                                  .sheet = sheet,
                                  .facts = {.now = now,
                                            .count = count,
                                            .databook = program.globals.G_DataFile,
                                            .search = where,
                                            .company = program.globals.companyName},
                                  .feed = table.Feed(),
                                  .pictures = pictures};
    static_cast<void>(upkeep::PrintToPdf(book, NativeOf(session.Disk(), file),
                                         [&](const QString& doing, qint64 done, qint64 total) {
                                             line.Show(doing, done, total);
                                             pages = static_cast<int>(total);
                                             return true;
                                         }));
    line.Clear();
    QString message = kRecords(count) + u" on %1 in %2."_s.arg(kPages(pages), file);
    if (pictures.Missing() > 0)
        message += (pictures.Missing() == 1 ? u" 1 photo is"_s : u" %1 photos are"_s.arg(pictures.Missing())) +
                   u" missing or damaged; 'vasctl photos verify' names what is."_s;
    out.Value({{u"file"_s, file},
               {u"records"_s, count},
               {u"pages"_s, pages},
               {u"missing_photos"_s, pictures.Missing()}},
              message);
    return kDone;
}

} // namespace

int RunPrint(Session& session, const Output& out, const QStringList& arguments,
             const QCommandLineParser& options)
{
    const QString layoutName = options.value(u"layout"_s), csv = options.value(u"csv"_s);
    const QString file = options.isSet(u"csv"_s) ? csv : options.value(u"out"_s);
    if (arguments.isEmpty() && options.isSet(u"list"_s))
        return List(session, out);
    if (arguments.isEmpty() && options.isSet(u"fields"_s))
        return ListFields(out);
    if (!arguments.isEmpty() || layoutName.isEmpty() ||
        (options.isSet(u"csv"_s) && options.isSet(u"out"_s)) ||
        (options.isSet(u"landscape"_s) && options.isSet(u"portrait"_s))) {
        out.Error(kUse);
        return kUsage;
    }
    const common::Globals& globals = session.Home().globals;
    if (options.isSet(u"copy"_s)) {
        out.Line(u"Copied to %1."_s.arg(
            upkeep::CopyLayout(session.Disk(), globals, layoutName, options.value(u"copy"_s))));
        return kDone;
    }
    if (!file.endsWith(options.isSet(u"csv"_s) ? u".csv"_s : u".pdf"_s, Qt::CaseInsensitive)) {
        out.Error(kUse);
        return kUsage;
    }
    const upkeep::ReportLayout layout = upkeep::OpenLayout(session.Disk(), globals, layoutName);
    paper::Sheet sheet = upkeep::SheetOf(session.Disk(), globals, layout);
    if (options.isSet(u"paper"_s)) {
        sheet.name = options.value(u"paper"_s).toLower();
        if (!paper::PaperNames().contains(sheet.name)) {
            out.Error(u"There is no paper '%1'; there are %2."_s.arg(options.value(u"paper"_s),
                                                                     paper::PaperNames().join(u", "_s)));
            return kUsage;
        }
    }
    if (options.isSet(u"landscape"_s) || options.isSet(u"portrait"_s))
        sheet.landscape = options.isSet(u"landscape"_s);
    const std::optional<QString> where = WhereOf(session, out, options);
    return where ? Print(session, out, layout, sheet, file, *where) : kUsage;
}

} // namespace vasclip::vasctl
