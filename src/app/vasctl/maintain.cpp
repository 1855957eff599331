#include "app/vasctl/session.h"

#include "platform/text/runtime_error.h"
#include "upkeep/draft_file.h"
#include "upkeep/repairs.h"
#include "upkeep/target_file.h"

#include <QElapsedTimer>

#include <algorithm>

namespace vasclip::vasctl {

using namespace Qt::Literals::StringLiterals;
using upkeep::Repair;

namespace {

constexpr int kEveryMs = 200;

QJsonArray Lines(const upkeep::Account& account)
{
    QJsonArray lines;
    for (int i = 0; i < account.Count(); ++i)
        lines.append(account.Line(i));
    return lines;
}

/// Nothing is repaired for an account that could not be kept.
bool CanBeWritten(const files::Disk& disk, const QString& path)
{
    try {
        upkeep::NeedTextFile(disk, path);
        const upkeep::DraftFile probe(disk.ToNative(path), path);
        return true;
    } catch (const RuntimeError&) {
        return false;
    }
}

void Print(const Output& out, const upkeep::RepairResult& result, const upkeep::Account& account, const QString& kept)
{
    QString said;
    for (int i = 0; kept.isEmpty() && !out.Json() && i < account.Count(); ++i)
        said += account.Line(i) + u'\n';
    said += account.Summary();
    if (!kept.isEmpty())
        said += u"\nLine by line in %1"_s.arg(kept);
    if (!result.message.isEmpty())
        said += u'\n' + result.message;
    QJsonObject value{{u"message"_s, result.message},
                      {u"seen"_s, account.Seen()},
                      {u"changed"_s, account.Records()},
                      {u"deleted"_s, account.Removed()}};
    if (kept.isEmpty())
        value[u"account"_s] = Lines(account);
    else
        value[u"file"_s] = kept;
    out.Value(value, said);
}

} // namespace

int RunMaintain(Session& session, const Output& out, const QStringList& arguments, const QCommandLineParser& options)
{
    const auto texts = upkeep::RepairTexts();
    const auto row = std::ranges::find_if(texts, [&](const auto& text) { return arguments.value(0) == text.word; });
    const bool dated = row != texts.end() && upkeep::DeletesByDate(row->repair);
    if (row == texts.end() || arguments.size() != 1 || dated != options.isSet(u"date"_s)) {
        out.Error(u"Usage: vasctl maintain STEP [--account FILE]; delete-by-sale and delete-by-load with --date DATE."_s);
        return kUsage;
    }
    const QDate today = session.Ports().clock.Today();
    const QString date = options.value(u"date"_s);
    const std::optional deletion = dated ? upkeep::Deletion::Of(date, today) : upkeep::Deletion{};
    if (!deletion) {
        out.Error(u"'%1' is no date."_s.arg(date));
        return kUsage;
    }
    const QString kept =
        options.isSet(u"account"_s) ? DrivePathOf(session.Disk(), options.value(u"account"_s)) : QString();
    if (options.isSet(u"account"_s) && kept.isEmpty()) {
        out.Error(u"%1 lies on none of the program's drives; drives.ini maps more."_s.arg(
            options.value(u"account"_s)));
        return kUsage;
    }
    if (!kept.isEmpty() && !CanBeWritten(session.Disk(), kept)) {
        out.Error(u"The account can't be written as %1; nothing was changed. Choose another file."_s.arg(kept));
        return kFailed;
    }
    shell::Program& program = session.WithDatabook();
    if (!upkeep::AskRepair(session.Prompter(), row->repair, *deletion))
        return kDeclined;
    upkeep::Account account;
    ProgressLine progress(out);
    QElapsedTimer shown;
    shown.start();
    const upkeep::RepairResult result = upkeep::RunRepair(
        {program.Ports(), program.sources.datDatabook, program.globals, program.Disk()}, row->repair, *deletion,
        account, [&](const QString& caption, qint64 done, qint64 of) {
            if (shown.elapsed() >= kEveryMs) {
                progress.Show(caption, done, of);
                shown.restart();
            }
            return true;
        });
    progress.Clear();
    try {
        if (!kept.isEmpty())
            account.Save(session.Disk(), kept);
    } catch (const RuntimeError& failure) {
        // The repair is done: its account is printed, as it has no other place.
        Print(out, result, account, {});
        out.Error(u"The repair is done, and only its account could not be kept: %1."_s.arg(failure.Description()));
        return kFailed;
    }
    Print(out, result, account, kept);
    return kDone;
}

} // namespace vasclip::vasctl
