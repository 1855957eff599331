#pragma once

#include "app/vasctl/output.h"
#include "app/vasctl/terminal_prompter.h"
#include "forms/screen.h"
#include "forms/system_ports.h"
#include "platform/conduit/chosen_conduit.h"
#include "shell/program.h"
#include "store/record.h"

#include <QCommandLineParser>

#include <memory>
#include <optional>
#include <vector>

namespace vasclip::vasctl {

/// The pointer and the focus of a program without windows.
class NoWindow : public forms::WindowPort
{
public:
    void AppActivate() override {}
    void SetHourglass(bool) override {}
};

/// One run of vasctl: the home, its settings, and the program without a screen.
class Session
{
public:
    Session(const QString& home, const QString& socketPath, int linkTimeLimitMs, TerminalPrompter& prompter);

    [[nodiscard]] const files::Disk& Disk() const { return m_program.Disk(); }
    [[nodiscard]] engine::Engine& Engine() { return m_program.Engine(); }
    /// Of the forms program's socket; words where KEL.INI says that it is spoken to in another way.
    [[nodiscard]] const QString& SocketPath() const { return m_socketPath; }
    [[nodiscard]] TerminalPrompter& Prompter() { return m_prompter; }
    [[nodiscard]] const forms::Ports& Ports() const { return m_program.Ports(); }
    [[nodiscard]] conduit::Conduit& Conduit() { return *m_conduit; }

    /// The program with ini files located and settings read. @throws RuntimeError if VAS2000.INI is
    /// missing
    shell::Program& Home();
    /// The same with the Databook bound to datDatabook.
    shell::Program& WithDatabook();
    /// The same with the comp types listed and the mapping bound, and the open report mirrored.
    shell::Program& WithReport();
    /// Is a report open in the forms program? If not, tells why, `otherwise` where nothing better is known.
    bool ReportIsOpen(const Output& out, const QString& otherwise);

private:
    shell::Surroundings Surround(const files::Disk& disk, const QString& socketPath, int linkTimeLimitMs);

    TerminalPrompter& m_prompter;
    forms::SystemClock m_clock;
    QString m_socketPath;
    std::optional<conduit::ChosenConduit> m_conduit;
    forms::QtEventPump m_pump;
    forms::SystemRandom m_random;
    NoWindow m_window;
    forms::NoScreens m_screens;
    shell::Program m_program;
    bool m_home = false; ///< its settings are read
    bool m_databook = false;
    bool m_report = false;
};

/// The drive path of a file or directory that is given as such or as the system writes it; "" for one that lies on
/// none of the program's drives.
[[nodiscard]] QString DrivePathOf(const files::Disk& disk, const QString& given);
/// Does a path name a directory where a file is to be made? A bare name never does: it gets the end of its kind.
/// @param given  as it was typed. @param path  what DrivePathOf made of it
[[nodiscard]] bool IsDirectory(const files::Disk& disk, const QString& given, const QString& path);
/// --limit: all records without one; nullopt, told, for one that is no number.
[[nodiscard]] std::optional<qint64> LimitOf(const Output& out, const QCommandLineParser& options);
/// Runs a statement that the user has typed, whole or in part. @return nothing, told, for one that is wrong:
/// it names no such column or table, or can't be read
[[nodiscard]] std::optional<store::Rows> OpenTyped(engine::Database& database, const QString& statement,
                                                   const Output& out);
/// Records in short: key, city, type, area, price, sale date and front photo.
/// @param places  of the records in `rows`, which has these fields
void PrintComps(const Output& out, const store::Rows& rows, const std::vector<qint64>& places);
/// An option for each field of the search screen, with its ranges, and for the rest of that screen.
[[nodiscard]] QList<QCommandLineOption> SearchOptions();

// The commands. Each prints through `out` and returns an exit code.
int RunRecords(Session& session, const Output& out, const QStringList& arguments,
               const QCommandLineParser& options);
int RunSearch(Session& session, const Output& out, const QStringList& arguments,
              const QCommandLineParser& options);
int RunFind(Session& session, const Output& out, const QStringList& arguments,
            const QCommandLineParser& options);
int RunCities(Session& session, const Output& out, const QStringList& arguments,
              const QCommandLineParser& options);
int RunCapture(Session& session, const Output& out, const QStringList& arguments,
               const QCommandLineParser& options);
int RunTrash(Session& session, const Output& out, const QStringList& arguments,
             const QCommandLineParser& options);
int RunSql(Session& session, const Output& out, const QStringList& arguments, const QCommandLineParser& options);
int RunReport(Session& session, const Output& out, const QStringList& arguments);
int RunRefresh(Session& session, const Output& out);
int RunDrop(Session& session, const Output& out, const QStringList& arguments,
            const QCommandLineParser& options);
int RunSwap(Session& session, const Output& out, const QStringList& arguments);
int RunPhotos(Session& session, const Output& out, const QStringList& arguments);
int RunTransfer(Session& session, const Output& out, const QStringList& arguments,
                const QCommandLineParser& options);
int RunLayouts(Session& session, const Output& out, const QStringList& arguments);
int RunSettings(Session& session, const Output& out, const QStringList& arguments);
int RunComments(Session& session, const Output& out, const QStringList& arguments);
int RunDatabook(Session& session, const Output& out, const QStringList& arguments);
int RunMap(Session& session, const Output& out, const QStringList& arguments, const QCommandLineParser& options);
int RunMapdata(Session& session, const Output& out, const QStringList& arguments, const QCommandLineParser& options);
int RunArchive(Session& session, const Output& out, const QStringList& arguments,
               const QCommandLineParser& options);
int RunMaintain(Session& session, const Output& out, const QStringList& arguments,
                const QCommandLineParser& options);
int RunExport(Session& session, const Output& out, const QStringList& arguments, const QCommandLineParser& options);
int RunImport(Session& session, const Output& out, const QStringList& arguments, const QCommandLineParser& options);
int RunPrint(Session& session, const Output& out, const QStringList& arguments, const QCommandLineParser& options);
int RunConvert(Session& session, const Output& out, const QStringList& arguments, const QCommandLineParser& options);
int RunDoctor(Session& session, const Output& out);

} // namespace vasclip::vasctl
