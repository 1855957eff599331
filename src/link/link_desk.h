#pragma once

#include "link/book_sources.h"
#include "link/conversation.h"
#include "link/report_mirror.h"

namespace vasclip::link {

/// Everything that the conversation with the report works on, and no more than the sum of its three parts. A routine
/// takes the part that it uses, one that needs more the whole; whoever composes it owns what it refers to.
struct LinkDesk : Conversation, ReportMirror, BookSources
{};

/// A file of the forms program's directory, by KEL.INI's APPDIR.
[[nodiscard]] QString FormsProgramFile(const BookSources& desk, const QString& name);

/// Runs a script of the forms program if its directory has one of that name. @throws RuntimeError of the
/// exchange
void SendScriptIfThere(LinkDesk& desk, const QString& name);

/// KelIsActive, and is the report named? A list of reports without a comma names none, and without a name nothing can
/// be asked of it: that counts as "no report", and the status line tells why. @throws RuntimeError of the exchange
bool ReportIsNamed(LinkDesk& desk);

/// ReportIsNamed with its failures reported; one that failed counts as "no report".
bool KelIsActive(LinkDesk& desk);

/// Why the forms program has a report and it can't be told which; "" unless that is what Text holds as its answer to
/// the question for its reports.
[[nodiscard]] QString UnnamedReportWords(const Conversation& desk);

/// Is a report open, now or after a second try? If not, says so.
bool KelEnsureRunning(LinkDesk& desk);

/// Is nobody at the other end of the link any more? By the number of the failure that told so.
[[nodiscard]] bool LinkIsDead(int number);

/// False while `lblFileNo` of frm_Addr reads "KEL NOT ACTIVE".
[[nodiscard]] bool TestKelLabel(const frm_Addr& addr);

/// Opens the forms program from the File menu and reminds of the refresh; the link never starts by itself.
/// @param open  opens a file with the desktop's "open" verb; false if that failed
/// @return false if it could not be opened, which has been said
bool LaunchFormsProgram(LinkDesk& desk, const std::function<bool(const QString& drivePath)>& open);

} // namespace vasclip::link
