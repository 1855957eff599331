#include "app/vasctl/session.h"

#include "platform/desktop/termination.h"
#include "platform/text/counted.h"
#include "platform/text/text.h"
#include "store/convert.h"

#include <QCoreApplication>

namespace vasclip::vasctl {

using namespace Qt::Literals::StringLiterals;

namespace {

const text::Counted kRecords{u"record"_s, u"records"_s};
const text::Counted kTables{u"table"_s, u"tables"_s};
constexpr int kTold = 20; ///< of what is missing, in a question or an answer for people

QString ListOf(const QStringList& lines)
{
    QString text = lines.mid(0, kTold).join(u'\n');
    if (lines.size() > kTold)
        text += u"\nand %1 more"_s.arg(lines.size() - kTold);
    return text;
}

QString TextOf(const engine::Converted& made, const engine::Conversion& wanted)
{
    QString text = u"%1 in %2 of %3 %4 converted to %5, and every value was compared."_s.arg(
        kRecords(made.records), kTables(made.tables.size()), wanted.source, made.records == 1 ? u"was"_s : u"were"_s,
        wanted.target);
    if (const QString only = store::OnlyInOld(made, wanted.source); !only.isEmpty())
        text += u'\n' + only + u'.';
    for (const QStringList& more : {made.notes, made.missing}) {
        if (!more.isEmpty())
            text += u'\n' + ListOf(more);
    }
    return text;
}

} // namespace

int RunConvert(Session& session, const Output& out, const QStringList& arguments, const QCommandLineParser& options)
{
    const QString to = text::Folded(options.value(u"to"_s));
    if (arguments.size() != 2 || arguments.contains(QString()) || (to != u"ACCESS" && to != u"VASCLIP")) {
        out.Error(u"Usage: vasctl convert SOURCE TARGET --to access|vasclip"_s);
        return kUsage;
    }
    engine::Conversion wanted;
    wanted.source = DrivePathOf(session.Disk(), arguments[0]);
    wanted.target = DrivePathOf(session.Disk(), arguments[1]);
    wanted.to = to == u"ACCESS" ? engine::DatabaseKind::Access : engine::DatabaseKind::Vasclip;
    for (int i = 0; i < 2; ++i) {
        if ((i == 0 ? wanted.source : wanted.target).isEmpty()) {
            out.Error(u"%1 lies on none of the program's drives; drives.ini maps more."_s.arg(arguments[i]));
            return kUsage;
        }
    }
    if (text::Folded(wanted.source) == text::Folded(wanted.target)) {
        out.Error(u"The new database needs a name of its own: %1 stays as it is."_s.arg(wanted.source));
        return kUsage;
    }
    if (session.Disk().DirExists(wanted.target)) {
        out.Error(u"%1 is a directory. Name the database in it that is to be made."_s.arg(wanted.target));
        return kUsage;
    }
    bool stop = false;
    const desktop::Termination wish([&stop] { stop = true; });
    ProgressLine progress(out);
    wanted.step = [&](const QString& doing, qint64 done, qint64 total) {
        progress.Show(doing, done, total);
        QCoreApplication::processEvents();
        return !stop;
    };
    wanted.accept = [&](const QStringList& missing) {
        progress.Clear();
        return session.Prompter().MsgBox(
                   forms::Buttons::YesNo, forms::Icon::Exclamation, u"Convert Database"_s,
                   u"Not all of %1 could be converted:\n%2\n\nKeep the new database without that?"_s.arg(
                       wanted.source, ListOf(missing))) == forms::Answer::Yes;
    };
    const auto made = store::ConvertDatabase(session.Engine(), wanted);
    progress.Clear();
    if (!made) {
        out.Error(u"Stopped: nothing was made."_s);
        return stop ? kFailed : kDeclined;
    }
    out.Value({{u"records"_s, made->records},
               {u"tables"_s, QJsonArray::fromStringList(made->tables)},
               {u"file"_s, wanted.target},
               {u"notes"_s, QJsonArray::fromStringList(made->notes)},
               {u"notTaken"_s, QJsonArray::fromStringList(made->notTaken)},
               {u"missing"_s, QJsonArray::fromStringList(made->missing)}},
              TextOf(*made, wanted));
    return made->missing.isEmpty() ? kDone : kFailed;
}

} // namespace vasclip::vasctl
