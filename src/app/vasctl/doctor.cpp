#include "app/vasctl/session.h"

#include "common/paths.h"
#include "databook/quick_find.h"
#include "link/kel_channel.h"
#include "link/kel_helpers.h"
#include "platform/desktop/desktop.h"
#include "platform/files/native.h"
#include "platform/text/counted.h"
#include "platform/text/text.h"
#include "store/schema.h"

#include <QFile>
#include <QFileInfo>

#include <algorithm>

namespace vasclip::vasctl {

using namespace Qt::Literals::StringLiterals;

namespace {

const text::Counted kRecords{u"record"_s, u"records"_s};

enum class Grade { Good, Notice, Wrong };

/// Collects what was looked at; a line a finding, in words that say what to do.
class Findings
{
public:
    void Add(Grade grade, const QString& subject, const QString& text)
    {
        static const QStringList kNames{u"ok"_s, u"notice"_s, u"wrong"_s};
        m_rows.append({kNames[static_cast<int>(grade)], subject, text});
        m_wrong += grade == Grade::Wrong ? 1 : 0;
    }
    [[nodiscard]] const QList<QStringList>& Rows() const { return m_rows; }
    [[nodiscard]] int Wrong() const { return m_wrong; }

private:
    QList<QStringList> m_rows;
    int m_wrong = 0;
};

void LookAtHome(const files::Disk& disk, Findings& found)
{
    const QFileInfo home(disk.Home());
    const bool usable = home.isDir() && home.isReadable() && files::native::MayWrite(disk.Home()) && home.isExecutable();
    found.Add(
        usable ? Grade::Good : Grade::Wrong, u"home"_s,
        usable
            ? disk.Home()
            : u"%1 can't be read and written by this user; give it to the user or choose another with --home"_s
                  .arg(disk.Home()));
    for (const auto& [letter, directory] : disk.Drives()) {
        const QString subject = u"drive %1:"_s.arg(letter);
        if (!QFileInfo(directory).isDir()) {
            found.Add(Grade::Wrong, subject,
                      u"%1 is not there; make it, or mend the line of drives.ini"_s.arg(directory));
            continue;
        }
        const qint64 free = disk.FreeBytes(letter + u":\\"_s) / (1024 * 1024);
        if (letter == u'C' && free < 200)
            found.Add(Grade::Notice, subject, u"%1, only %2 MB free"_s.arg(directory, text::Dec(free)));
        else
            found.Add(Grade::Good, subject, u"%1, %2 MB free"_s.arg(directory, text::Dec(free)));
    }
}

void LookAtDirectory(const files::Disk& disk, Findings& found, const QString& key, const QString& path)
{
    if (path.isEmpty())
        found.Add(Grade::Wrong, key,
                  u"is not set; 'vasctl settings set DIRECTORIES %1 PATH' sets it"_s.arg(key));
    else if (disk.DirExists(path))
        found.Add(Grade::Good, key, path);
    else
        found.Add(Grade::Wrong, key, path + u" is not there; make it, or set another directory"_s);
}

QString DamageText(const QString& path, const QStringList& damage, bool databook)
{
    constexpr int kTold = 3;
    const QString more = damage.size() > kTold ? u" and %1 more"_s.arg(damage.size() - kTold) : QString();
    return u"%1 is damaged: %2%3; restore it from a backup%4"_s.arg(
        path, damage.mid(0, kTold).join(u"; "_s), more,
        databook ? u", or let 'vasctl databook copy FILE' make a new one of what can be read; until then it is open "
                   u"for reading only"_s
                 : QString());
}

/// The index of the quick-find box; the program makes it anew by itself.
void LookAtIndex(engine::Database& database, Findings& found, const QString& table)
{
    engine::TextIndexState state;
    constexpr int kSliceMilliseconds = 200;
    if (!engine::TextIndexReads(database, table))
        state.trouble = engine::TextIndexTrouble::Damaged;
    while (state.trouble == engine::TextIndexTrouble::None && !state.whole)
        state = database.KeepTextIndex(table, databook::QuickFindFields(), kSliceMilliseconds);
    if (state.trouble == engine::TextIndexTrouble::Damaged || state.trouble == engine::TextIndexTrouble::OutOfStep)
        found.Add(Grade::Notice, u"text index"_s, databook::IndexText(state.trouble));
    else
        found.Add(Grade::Good, u"text index"_s,
                  state.whole && state.trouble == engine::TextIndexTrouble::None ? u"whole"_s : u"not made yet"_s);
}

void LookAtDatabase(Session& session, Findings& found, const QString& subject, const QString& path,
                    const QString& table)
{
    try {
        const auto database = session.Engine().OpenDatabase(path, engine::OpenMode::ReadOnly);
        const engine::TableDef stored = database->Table(table);
        QString text = path + u", "_s + kRecords(store::CountRows(*database, table));
        const auto users = session.Engine().Users(path);
        QStringList others;
        for (const engine::User& user : users) {
            if (user.process != QCoreApplication::applicationPid())
                others.append(u"%1, process %2%3"_s.arg(user.host)
                                  .arg(user.process)
                                  .arg(user.alive ? QString() : u" (no more)"_s));
        }
        if (!others.isEmpty())
            text += u"; open by "_s + others.join(u"; "_s);
        const bool databook = subject == u"Databook"_s;
        if (!engine::LocksHold(*database))
            found.Add(Grade::Notice, subject,
                      u"the disk of %1 keeps no locks: two users who store at the same time can spoil it for each other; let one "
                      u"user at a time work on it, or put it on another disk"_s.arg(path));
        const QStringList damage = engine::CheckDatabase(*database, engine::CheckDepth::Whole);
        if (damage.isEmpty())
            found.Add(Grade::Good, subject, text);
        else
            found.Add(Grade::Wrong, subject, DamageText(path, damage, databook));
        if (databook) {
            LookAtIndex(*database, found, table);
            const auto missing = [&] {
                QStringList names;
                for (const engine::Field& field : store::CompsTable().fields) {
                    const auto same = [&](const engine::Field& other) {
                        return other.name.compare(field.name, Qt::CaseInsensitive) == 0;
                    };
                    if (std::none_of(stored.fields.begin(), stored.fields.end(), same))
                        names.append(field.name);
                }
                return names;
            }();
            if (!missing.isEmpty())
                found.Add(Grade::Wrong, subject, u"lacks the fields "_s + missing.join(u", "_s));
        }
    } catch (const RuntimeError& failure) {
        found.Add(Grade::Wrong, subject, u"%1 (error %2)"_s.arg(failure.Description(), text::Dec(failure.Number())));
    }
}

void LookAtLink(Session& session, Findings& found)
{
    auto& program = session.Home();
    if (program.globals.kelAppDir.isEmpty())
        found.Add(Grade::Notice, u"forms program"_s,
                  u"KEL.INI names no APPDIR; its scripts can't be found"_s);
    else
        LookAtDirectory(session.Disk(), found, u"forms program"_s, program.globals.kelAppDir);
    try {
        if (!link::KelIsActive(session.Conduit(), program.linkState)) {
            found.Add(Grade::Notice, u"link"_s,
                      u"no report is open on %1; start the forms program and open a report"_s.arg(
                          session.SocketPath()));
            return;
        }
        link::KelQueryActiveReports(session.Conduit());
        found.Add(Grade::Good, u"link"_s, u"open report: "_s + link::KelFirstToken(session.Conduit().Text()));
    } catch (const RuntimeError& failure) {
        found.Add(Grade::Wrong, u"link"_s,
                  u"%1 (error %2)"_s.arg(failure.Description(), text::Dec(failure.Number())));
    }
}

} // namespace

int RunDoctor(Session& session, const Output& out)
{
    Findings found;
    found.Add(
        Grade::Good, u"versions"_s,
        u"Vasclip %1, Qt %2"_s.arg(QCoreApplication::applicationVersion(), QString::fromLatin1(qVersion())));
    LookAtHome(session.Disk(), found);
    bool settings = true;
    try {
        auto& program = session.Home();
        found.Add(Grade::Good, u"VAS2000.INI"_s, program.globals.applicationIni);
        const bool kel = session.Disk().FileExists(program.globals.kelIni);
        found.Add(kel ? Grade::Good : Grade::Wrong, u"KEL.INI"_s,
                  kel ? program.globals.kelIni
                      : program.globals.kelIni + u" is not there; it comes with the forms program"_s);
    } catch (const RuntimeError& failure) {
        found.Add(Grade::Wrong, u"VAS2000.INI"_s, failure.Description());
        settings = false;
    }
    if (settings) {
        auto& program = session.Home();
        const auto& g = program.globals;
        const std::pair<QString, QString> directories[]{
            {u"APPDIR"_s, g.G_ProgramDir},   {u"USERDIR"_s, g.G_UserDir},
            {u"PHOTODIR"_s, g.G_PhotoDir},   {u"CAPTUREDIR"_s, g.G_CaptureDir},
            {u"DATADIR"_s, g.G_DataDir},     {u"ARCHIVEDIR"_s, g.G_ArchiveDir},
            {u"EXPORTDIR"_s, g.G_ExportDir}, {u"IMPORTDIR"_s, g.G_ImportDir},
        };
        for (const auto& [key, path] : directories)
            LookAtDirectory(session.Disk(), found, key, path);
        LookAtDatabase(session, found, u"Databook"_s, g.G_DataDir + g.G_DataFile, g.G_Table);
        LookAtDatabase(session, found, u"field mapping"_s,
                       g.G_UserDir + QString::fromLatin1(common::Globals::kMappingFile),
                       QString::fromLatin1(common::Globals::kMappingTable));
        LookAtDatabase(session, found, u"template"_s, g.G_ProgramDir + u"NEWDATA.MDB"_s, u"COMPS"_s);
        LookAtLink(session, found);
    }
    out.Table({u"state"_s, u"subject"_s, u"finding"_s}, found.Rows());
    return found.Wrong() == 0 ? kDone : kFailed;
}

} // namespace vasclip::vasctl
