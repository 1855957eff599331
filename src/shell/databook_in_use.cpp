#include "shell/databook_in_use.h"

#include "common/error_block.h"
#include "common/given_up.h"
#include "common/paths.h"
#include "common/settings.h"
#include "databook/grid.h"
#include "platform/engine/errors.h"
#include "platform/text/text.h"
#include "shell/convert_offer.h"
#include "shell/program.h"
#include "shell/record_on_show.h"
#include "shell/rescue_text.h"
#include "shell/window_wants.h"
#include "store/convert.h"
#include "store/messages.h"

namespace vasclip::shell {

using namespace Qt::Literals::StringLiterals;

namespace {

const QString kNotOpenedTitle = u"Databook Not Opened"_s;
const QString kReadOnlyHome =
    u"This home can't be written: it is open for looking and sending, and nothing can be stored."_s;
const QString kDamagedTitle = u"Databook Damaged"_s;
const QString kNotOpened =
    u"%1 can't be opened. %2.\n\nYes tries again, No chooses another Databook, Cancel ends the program."_s;
const QString kDamaged =
    u"%1 is damaged: %2.\nIt is open for reading only, so that nothing more is lost. If there is a backup, "
    u"restoring "
    u"it brings everything back.\n\nYes copies the records that can still be read into a new Databook and "
    u"goes on "
    u"with that one, No chooses another Databook, Cancel goes on with this one, for reading only."_s;

QString Joined(const Databook& databook)
{
    return databook.directory + databook.file;
}

Databook Split(const QString& path)
{
    const qsizetype end = path.lastIndexOf(u'\\') + 1;
    return {path.left(end), path.mid(end)};
}

/// A name that nothing has yet, beside the old one or in another directory.
QString FreeName(const files::Disk& disk, const QString& directory, const QString& file)
{
    const qsizetype point = file.lastIndexOf(u'.');
    const QString stem = point < 0 ? file : file.left(point);
    for (int number = 1;; ++number) {
        const QString name = u"%1_COPY%2.MDB"_s.arg(stem, number == 1 ? QString() : QString::number(number));
        if (!disk.Found(directory + name, files::ReadOnly | files::Hidden | files::Directory))
            return name;
    }
}

} // namespace

DatabookInUse::DatabookInUse(Program& program, RecordOnShow& shown, WindowWants& wants,
                             const ChangingDatabook& place)
    : m_program(program)
    , m_shown(shown)
    , m_wants(wants)
    , m_place(place)
{}

void DatabookInUse::ReadCaption()
{
    const auto& globals = m_program.globals;
    m_caption = globals.productName + u" -  Version "_s + m_program.version + u"  -  Connection = "_s +
                text::Folded(globals.G_DataDir) + text::Folded(globals.G_DataFile);
    Q_EMIT m_wants.CaptionChanged();
}

/// Binds the Databook that the settings name. @return why it could not be opened; "" if it was
QString DatabookInUse::WhyNotOpened()
{
    const QString path = m_program.DatabookPath();
    try {
        if (!m_program.Disk().Found(path, files::ReadOnly | files::Hidden)) {
            m_program.Prompter().Box(store::kPlainTitle, store::kFileNotFound.arg(path));
            return u"The file is not there"_s;
        }
        store::Connect2Databook(m_program.Ports(), m_program.sources, path, m_program.globals.G_Table);
        const auto bound = [&](const store::DataSource& source) {
            return source.Bound() && text::Folded(source.DatabaseName()) == text::Folded(path);
        };
        if (!bound(m_program.sources.datDatabook) || !bound(m_program.sources.datsql))
            return u"Its disk can't be read"_s; // asked about already
        if (m_program.sources.datDatabook.FieldIndex(store::kKeyIndex) < 0)
            return u"Its table %1 holds no comps"_s.arg(m_program.globals.G_Table);
        return {};
    } catch (const RuntimeError& failure) {
        common::TakeGivenUp();
        return failure.Description();
    }
}

/// A Databook that is missing, locked or no Databook costs a question, never the start.
void DatabookInUse::OpenDatabook()
{
    const common::RoutineScope scope{"Connect2Databook"};
    for (QString why = WhyNotOpened(); !why.isEmpty(); why = WhyNotOpened()) {
        const QString path = m_program.DatabookPath();
        switch (m_program.Prompter().MsgBox(forms::Buttons::YesNoCancel, forms::Icon::Exclamation,
                                            kNotOpenedTitle, kNotOpened.arg(path, why))) {
        case forms::Answer::Yes:
            break;
        case forms::Answer::No:
            if (const Databook chosen = ChooseDatabook(); !chosen.file.isEmpty()) {
                NameDatabook(chosen);
                OfferConversion(m_program, m_program.DatabookPath(), m_program.globals.G_Table);
            }
            break;
        default:
            throw forms::EndOfProgram{1};
        }
    }
    CheckDatabook(engine::CheckDepth::Opening);
    m_program.TellLocks();
    m_program.UndoKilledTransfers();
}

void DatabookInUse::NameDatabook(const Databook& databook)
{
    m_program.globals.G_DataDir = databook.directory;
    m_program.globals.G_DataFile = databook.file;
    ReadCaption();
}

Databook DatabookInUse::ChooseDatabook()
{
    const QString begin =
        m_program.Disk().DirExists(m_program.globals.G_DataDir) ? m_program.globals.G_DataDir : u"C:\\"_s;
    return Split(m_program.Prompter().OpenDialog(u"*.mdb|Access"_s, u"Choose another Databook"_s, begin));
}

void DatabookInUse::CheckDatabook(engine::CheckDepth depth)
{
    const common::RoutineScope scope{"CheckDatabook"};
    const bool inQuiet = depth == engine::CheckDepth::Quiet;
    const bool told = inQuiet && m_damageTold == text::Folded(m_program.DatabookPath());
    if (m_program.sources.datDatabook.Bound() && !told && !m_program.LookAtDatabook(depth))
        OfferWaysOut();
    if (inQuiet && m_program.life.readOnlyHome) // behind what the first record has to say
        m_program.status.lblmsg.Show(kReadOnlyHome, forms::Colour::Red);
}

/// @return true if another Databook is open now
bool DatabookInUse::OfferWaysOut()
{
    const QString path = m_program.DatabookPath();
    const QString damage = engine::DamageOf(m_program.sources.datDatabook.Database());
    m_damageTold = text::Folded(path);
    for (;;) {
        Databook wanted;
        switch (m_program.Prompter().MsgBox(forms::Buttons::YesNoCancel, forms::Icon::Exclamation,
                                            kDamagedTitle, kDamaged.arg(path, damage))) {
        case forms::Answer::Yes:
            wanted = CopyReadable();
            break;
        case forms::Answer::No:
            wanted = ChooseDatabook();
            break;
        default:
            return false;
        }
        if (wanted.file.isEmpty() || text::Folded(Joined(wanted)) == text::Folded(path))
            continue;
        if (!m_program.life.starting) {
            if (SwitchDatabook(wanted.directory, wanted.file))
                return true;
            continue;
        }
        NameDatabook(wanted);
        OfferConversion(m_program, m_program.DatabookPath(), m_program.globals.G_Table);
        OpenDatabook();
        return true;
    }
}

/// Records that a damaged Databook can't put in order come as they lie.
void DatabookInUse::DisplayFirstRecords()
{
    try {
        return m_shown.DisplayAllRecords();
    } catch (const RuntimeError& failure) {
        if (failure.Number() != error::kCorruptDatabase)
            throw;
    }
    const QString path = text::Folded(m_program.DatabookPath());
    if (m_damageTold != path && OfferWaysOut())
        return m_shown.DisplayAllRecords();
    try {
        databook::DisplayAllRecords(m_program.Ports(), m_program.records, m_program.sources.datsql,
                                    m_shown.Rows(), 0);
    } catch (const RuntimeError& failure) {
        common::ReportError(m_program.Prompter(), failure);
    }
}

/// A new Databook of what can be read of the present one. The settings name it from now on: tomorrow's start
/// must not find the old one again. @return its place; without a file if none was made
Databook DatabookInUse::CopyReadable()
{
    auto& prompter = m_program.Prompter();
    const QString source = m_program.DatabookPath();
    const QString directory = common::CkRSlash(
        prompter.ChooseDirectory(u"Directory of the new Databook"_s, m_program.globals.G_DataDir));
    if (directory.isEmpty())
        return {};
    try {
        const Databook made{directory, FreeName(m_program.Disk(), directory, m_program.globals.G_DataFile)};
        std::optional<engine::Rescued> rescued;
        {
            const forms::Hourglass hourglass(m_program.Ports().window);
            rescued = store::CopyReadable(m_program.Engine(), source, Joined(made));
        }
        prompter.MsgBox(forms::Buttons::Ok, forms::Icon::Information, kDamagedTitle,
                        RescueText(*rescued, source, Joined(made)));
        common::Globals kept = m_program.globals;
        kept.G_DataDir = made.directory;
        kept.G_DataFile = made.file;
        const common::SettingTarget rows[]{&common::Globals::G_DataDir, &common::Globals::G_DataFile};
        try {
            common::WriteSettings(rows, kept, m_program.Disk());
        } catch (const RuntimeError& failure) {
            common::ReportError(prompter, failure);
        }
        return made;
    } catch (const RuntimeError& failure) {
        common::ReportError(prompter, failure);
        return {};
    }
}

} // namespace vasclip::shell
