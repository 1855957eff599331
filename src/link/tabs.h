#pragma once

#include "link/link_desk.h"
#include "link/slot_table.h"

namespace vasclip::link {

/// The numbers of the three slots of page n, from 0: "1 - 3", "4 - 6", ...
[[nodiscard]] QString CaptionRange(int n);
/// Caption of page j, from 1, of a kind: "1 - 3", "A 1 - 3" for alternates, "1P" for general pages.
[[nodiscard]] QString PageCaption(const QString& kind, int j);

/// An unavailable page reads kNotAvailable; an available one takes `caption`, and its tab control is enabled.
void HandleTabCaption(forms::TabControl& tab, int page, const QString& caption, bool enabled);
/// Enables or disables the three address boxes of the page; other tabs and pages past the end do nothing.
void HandleNALabel(ReportControls& report, const forms::TabControl& tab, int page, bool enabled);

/// Sets every tab and label by the report's forms; `forceAll` shows every page as available.
void TestOtherTabs(LinkDesk& desk, const QString& forms, bool forceAll);
/// Enables TabSubject if the report has its page, then sets the others.
void TabDisable(LinkDesk& desk, const QString& forms);

/// The one check after a click on a report tab: no page "N/A" is shown while a report is open, and a report
/// that has appeared meanwhile is found.
void TabClicked(LinkDesk& desk, forms::TabControl& tab, int previous);
/// "Subj/AltComp" while an alternates page is shown, else "Subject/Comp".
void CaptionSubjectAnd(ReportControls& report);

/// Is the page with slot `index` of a text or picture slot array "N/A"? Names in any case, "txtComp",
/// "imaGeneral", "geaRental"; a name of no group, and the subject, never are.
[[nodiscard]] bool SlotPageNotAvailable(const ReportControls& report, const QString& controlName, int index);

} // namespace vasclip::link
