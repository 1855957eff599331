#pragma once

#include "link/report_desk.h"
#include "platform/conduit/conduit.h"

namespace vasclip::link {

// The exchanges with the forms program: what is said, in which order, and nothing else. None retries.
//
// Each closes the conversation it finds open, assigns its topic afresh and closes behind itself, but where it
// says otherwise. All throw the RuntimeError of the conduit under their own name, with the conversation
// closed.

/// The open reports, comma-separated, the active one first, are in Text afterwards; blank or "none" if there
/// are none. A forms program that is not running has no reports: Text is then "" and nothing is thrown.
void KelQueryActiveReports(conduit::Conduit& txtDDE);
/// Must come before any other exchange on a report.
void KelOpenReport(conduit::Conduit& txtDDE, const QString& report);
/// The comma-separated form codes are in Text afterwards, the main form's first.
void KelListForms(conduit::Conduit& txtDDE, const QString& report);
/// @param item  form name, row and cell, joined by "|"
/// @return the field's text; "" without any exchange if the item is blank or has a blank form name
[[nodiscard]] QString KelGetFieldInfo(conduit::Conduit& txtDDE, const QString& report, const QString& item);
/// The value is in Text afterwards; the result is always "".
QString KelRequestGlobalVar2(conduit::Conduit& txtDDE, const QString& name);
/// The value of a global variable, "" if the forms program gives none.
[[nodiscard]] QString KelRequestVar(conduit::Conduit& txtDDE, const LinkState& state, const QString& name);
/// The images list is in Text afterwards.
void KelQueryGetImages(conduit::Conduit& txtDDE);
/// Runs a script of the forms program by its file name.
void KelSendScript(conduit::Conduit& txtDDE, const QString& name);
/// Puts a picture file into an image object, an empty path clears it. The topic is the previous exchange's.
void KelSendPhoto2Object(conduit::Conduit& txtDDE, const QString& object, const QString& path);
/// Swaps two comps within the report, 1 to 9. The topic is the previous exchange's.
void ErrClearComp(conduit::Conduit& txtDDE, int target, int source);
/// Sends a text, trimmed, to a field. The conversation stays open: the next exchange closes it, and a long
/// send needs no second goodbye per field.
void KelPokeText(conduit::Conduit& txtDDE, const QString& topic, const QString& item, const QString& text);

/// "NULL" left in Text means that the forms program gave no answer, and becomes "". Nothing is waited for.
void LoopWhileNull(conduit::Conduit& txtDDE, qint16 retryLimit);

/// Is a report open? Sets both flags of the state.
bool KelIsActive(conduit::Conduit& txtDDE, LinkState& state);
/// If the conversation is closed: opens the active report and lists its forms (in Text). With no forms
/// program or no report there, Text is "".
void KelReconnect(conduit::Conduit& txtDDE);

/// Request and execute on "KEL|Query"; they leave the conversation open and serve CompForm alone.
QString Request(conduit::Conduit& txtDDE, const QString& item);
void Execute(conduit::Conduit& txtDDE, const QString& command);
/// Asks the forms program for its comp form of a type.
/// @param programDir  with its trailing backslash
QString CompForm(conduit::Conduit& txtDDE, const QString& programDir, const QString& compType);

} // namespace vasclip::link
