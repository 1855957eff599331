// The Databook that the program works on: opened at the start, looked at, and the ways out when it can't be used.

#include "common/error_block.h"
#include "common/given_up.h"
#include "common/paths.h"
#include "common/settings.h"
#include "databook/grid.h"
#include "platform/engine/errors.h"
#include "platform/text/text.h"
#include "shell/frm_main.h"
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
    u"%1 is damaged: %2.\nIt is open for reading only, so that nothing more is lost. If there is a backup, restoring "
    u"it brings everything back.\n\nYes copies the records that can still be read into a new Databook and goes on "
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

QString RescueText(const engine::Rescued& rescued, const QString& source, const QString& target)
{
    QString text = u"%1 records of %2 were copied to %3."_s.arg(QString::number(rescued.records), source, target);
    if (rescued.lost > 0)
        text += u" %1 could not be read."_s.arg(rescued.lost);
    if (rescued.incomplete > 0)
        text += u" %1 lack what could not be read."_s.arg(rescued.incomplete);
    constexpr int kNamesShown = 12;
    if (!rescued.names.isEmpty())
        text += u"\n\n"_s + rescued.names.mid(0, kNamesShown).join(u'\n');
    if (rescued.names.size() > kNamesShown)
        text += u"\n..."_s;
    return text;
}

/// Binds the Databook that the settings name. @return why it could not be opened; "" if it was
QString frm_Main::WhyNotOpened()
{
    const QString path = globals.G_DataDir + globals.G_DataFile;
    try {
        if (!m_base.disk.Found(path, files::ReadOnly | files::Hidden)) {
            m_base.ports.prompter.Box(store::kPlainTitle, store::kFileNotFound.arg(path));
            return u"The file is not there"_s;
        }
        store::Connect2Databook(m_base.ports, sources, path, globals.G_Table);
        const auto bound = [&](const store::DataSource& source) {
            return source.Bound() && text::Folded(source.DatabaseName()) == text::Folded(path);
        };
        if (!bound(sources.datDatabook) || !bound(sources.datsql))
            return u"Its disk can't be read"_s; // asked about already
        if (sources.datDatabook.Recordset().FieldIndex(store::kKeyIndex) < 0)
            return u"Its table %1 holds no comps"_s.arg(globals.G_Table);
        return {};
    } catch (const RuntimeError& failure) {
        common::TakeGivenUp();
        return failure.Description();
    }
}

/// A Databook that is missing, locked or no Databook costs a question, never the start.
void frm_Main::OpenDatabook()
{
    const common::RoutineScope scope{"Connect2Databook"};
    for (QString why = WhyNotOpened(); !why.isEmpty(); why = WhyNotOpened()) {
        const QString path = globals.G_DataDir + globals.G_DataFile;
        switch (m_base.ports.prompter.MsgBox(forms::Buttons::YesNoCancel, forms::Icon::Exclamation, kNotOpenedTitle,
                                             kNotOpened.arg(path, why))) {
        case forms::Answer::Yes:
            break;
        case forms::Answer::No:
            if (const Databook chosen = ChooseDatabook(); !chosen.file.isEmpty())
                NameDatabook(chosen);
            break;
        default:
            throw forms::EndOfProgram{1};
        }
    }
    CheckDatabook(engine::CheckDepth::Opening);
}

void frm_Main::NameDatabook(const Databook& databook)
{
    globals.G_DataDir = databook.directory;
    globals.G_DataFile = databook.file;
    ReadCaption();
}

Databook frm_Main::ChooseDatabook()
{
    const QString begin = m_base.disk.DirExists(globals.G_DataDir) ? globals.G_DataDir : u"C:\\"_s;
    return Split(m_base.ports.prompter.OpenDialog(u"*.mdb|Access"_s, u"Choose another Databook"_s, begin));
}

bool frm_Main::LookAtDatabook(engine::CheckDepth depth)
{
    engine::Database& database = sources.datDatabook.Database();
    try {
        if (engine::DamageOf(database).isEmpty())
            engine::CheckDatabase(database, depth);
    } catch (const RuntimeError&) {
        return true; // in use, or its disk failed: whoever reads it next is told
    }
    return engine::DamageOf(database).isEmpty();
}

void frm_Main::CheckDatabook(engine::CheckDepth depth)
{
    const common::RoutineScope scope{"CheckDatabook"};
    const bool inQuiet = depth == engine::CheckDepth::Quiet;
    const bool told = inQuiet && m_damageTold == text::Folded(globals.G_DataDir + globals.G_DataFile);
    if (sources.datDatabook.Bound() && !told && !LookAtDatabook(depth))
        OfferWaysOut();
    if (inQuiet && m_readOnlyHome) // behind what the first record has to say
        status.lblmsg.Show(kReadOnlyHome, forms::Colour::Red);
}

/// @return true if another Databook is open now
bool frm_Main::OfferWaysOut()
{
    const QString path = globals.G_DataDir + globals.G_DataFile;
    const QString damage = engine::DamageOf(sources.datDatabook.Database());
    m_damageTold = text::Folded(path);
    for (;;) {
        Databook wanted;
        switch (m_base.ports.prompter.MsgBox(forms::Buttons::YesNoCancel, forms::Icon::Exclamation, kDamagedTitle,
                                             kDamaged.arg(path, damage))) {
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
        if (!m_starting) {
            if (SwitchDatabook(wanted.directory, wanted.file))
                return true;
            continue;
        }
        NameDatabook(wanted);
        OpenDatabook();
        return true;
    }
}

/// Records that a damaged Databook can't put in order come as they lie.
void frm_Main::DisplayFirstRecords()
{
    try {
        return DisplayAllRecords();
    } catch (const RuntimeError& failure) {
        if (failure.Number() != error::kCorruptDatabase)
            throw;
    }
    const QString path = text::Folded(globals.G_DataDir + globals.G_DataFile);
    if (m_damageTold != path && OfferWaysOut())
        return DisplayAllRecords();
    try {
        databook::DisplayAllRecords(m_base.ports, records, sources.datsql, *m_rows, 0);
    } catch (const RuntimeError& failure) {
        common::ReportError(m_base.ports.prompter, failure);
    }
}

/// A new Databook of what can be read of the present one. The settings name it from now on: tomorrow's start must
/// not find the old one again. @return its place; without a file if none was made
Databook frm_Main::CopyReadable()
{
    auto& prompter = m_base.ports.prompter;
    const QString source = globals.G_DataDir + globals.G_DataFile;
    const QString directory = common::CkRSlash(
        prompter.ChooseDirectory(u"Directory of the new Databook"_s, globals.G_DataDir));
    if (directory.isEmpty())
        return {};
    try {
        const Databook made{directory, FreeName(m_base.disk, directory, globals.G_DataFile)};
        std::optional<engine::Rescued> rescued;
        {
            const forms::Hourglass hourglass(m_base.ports.window);
            rescued = engine::CopyReadable(m_base.engine, source, Joined(made));
        }
        prompter.MsgBox(forms::Buttons::Ok, forms::Icon::Information, kDamagedTitle,
                        RescueText(*rescued, source, Joined(made)));
        common::Globals kept = globals;
        kept.G_DataDir = made.directory;
        kept.G_DataFile = made.file;
        const common::SettingTarget rows[]{&common::Globals::G_DataDir, &common::Globals::G_DataFile};
        try {
            common::WriteSettings(rows, kept, m_base.disk);
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
