#pragma once

#include "link/link_desk.h"

namespace vasclip::link {

/// Mirrors the report that is open in the forms program: its pages, addresses and pictures. With none open
/// every tab shows its normal caption and nothing is said. A step that fails is reported and the next one
/// goes on. A refresh asked for from within one, or from within a transfer, does nothing.
/// @throws forms::EndOfProgram for a report whose main form is not in the form table
/// @return what to tell: why the tabs show no report; "" where they show one, or nothing was done
QString RefreshAppraisal(LinkDesk& desk);

/// Reopens the report if the conduit is closed, stores the main form's code, and sets the tabs if a report is
/// active.
void Test2PopulateTabs(LinkDesk& desk);
/// Reads report and forms and sets the tabs. @throws forms::EndOfProgram as RefreshAppraisal
void PopulateKelTabs(LinkDesk& desk);

/// Opens a report, stores its forms and images lists in frm_Addr and the forms program's version in the
/// globals.
/// @throws forms::EndOfProgram for an unknown main form or a refused version, after the message;
/// RuntimeError of the exchange
void OpenActiveReport(LinkDesk& desk, const QString& report);

} // namespace vasclip::link
