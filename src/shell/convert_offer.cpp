#include "shell/convert_offer.h"

#include "common/error_block.h"
#include "common/progress.h"
#include "platform/engine/genuine_file.h"
#include "platform/text/counted.h"
#include "shell/program.h"
#include "store/convert.h"
#include "upkeep/target_file.h"

namespace vasclip::shell {

using namespace Qt::Literals::StringLiterals;

namespace {

const QString kTitle = u"Access Database"_s;
const QString kOffer =
    u"%1 is an Access database. Vasclip reads it and stores nothing in it.\n\nYes makes a Vasclip database of it under "
    u"the same name, with every record and picture; the Access database is kept beside it, untouched, as %2. No opens "
    u"it for reading only."_s;
const QString kMade = u"%1 is a Vasclip database now: %2, each value of which was compared. The Access database "
                      u"is kept as %3."_s;
const text::Counted kRecords{u"record"_s, u"records"_s};
const QString kMissing = u"Not all of %1 can be read:\n%2\n\nGo on with what can be read? The Access database is kept in "
                         u"any case."_s;
const QString kInUse = u"%1 is open in another program, as the file %2 beside it tells. Close it there and convert it at the next "
                       u"start; where nobody has it open, delete that file. It is opened for reading only now."_s;
constexpr int kTold = 10; ///< lines of what is missing
constexpr int kGauge = 100;

bool HasTable(engine::Engine& engine, const QString& path, const QString& table)
{
    const auto database = engine.OpenDatabase(path, engine::OpenMode::ReadOnly);
    const bool has = database->TableNames().contains(table, Qt::CaseInsensitive);
    database->Close();
    return has;
}

void Convert(Program& program, const QString& path, const QString& kept)
{
    forms::Prompter& prompter = program.Prompter();
    std::optional<engine::Converted> made;
    {
        const forms::Hourglass hourglass(program.Ports().window);
        common::Progress progress(program.status, program.Ports().pump, 2 * kGauge);
        qint64 percent = -1;
        engine::Conversion wanted{.source = path, .target = path, .keepAs = kept};
        wanted.step = [&](const QString& doing, qint64 done, qint64 total) {
            const qint64 now = done * kGauge / std::max<qint64>(total, 1);
            return now == std::exchange(percent, now) ? !progress.Stopped() : progress.Step(doing);
        };
        wanted.accept = [&](const QStringList& missing) {
            QString text = missing.mid(0, kTold).join(u'\n');
            if (missing.size() > kTold)
                text += u"\nand %1 more"_s.arg(missing.size() - kTold);
            return prompter.MsgBox(forms::Buttons::YesNo, forms::Icon::Exclamation, kTitle, kMissing.arg(path, text)) ==
                   forms::Answer::Yes;
        };
        made = store::ConvertDatabase(program.Engine(), wanted);
    }
    if (!made)
        return;
    QStringList lines{kMade.arg(path, kRecords(made->records), kept)};
    if (const QString only = store::OnlyInOld(*made, kept); !only.isEmpty())
        lines.append(only + u'.');
    for (const QString& note : made->notes.mid(0, kTold))
        lines.append(note + u'.');
    prompter.MsgBox(forms::Buttons::Ok, forms::Icon::Information, kTitle, lines.join(u'\n'));
}

} // namespace

void OfferConversion(Program& program, const QString& path, const QString& table)
{
    try {
        if (program.life.readOnlyHome || !engine::IsGenuineFile(program.Disk(), path) ||
            !HasTable(program.Engine(), path, table))
            return;
        const QString kept = store::KeptName(program.Disk(), path);
        if (program.Prompter().MsgBox(forms::Buttons::YesNo, forms::Icon::Question, kTitle, kOffer.arg(path, kept)) !=
            forms::Answer::Yes)
            return;
        // What is stored through another program's hold on the old file would be lost with its name.
        if (upkeep::IsLocked(program.Engine(), path))
            program.Prompter().MsgBox(forms::Buttons::Ok, forms::Icon::Exclamation, kTitle,
                                      kInUse.arg(path, upkeep::LockFileOf(path)));
        else
            Convert(program, path, kept);
    } catch (const RuntimeError& failure) {
        common::ReportError(program.Prompter(), failure);
    }
}

} // namespace vasclip::shell
