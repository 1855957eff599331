#pragma once

#include "link/link_desk.h"

namespace vasclip::link {

/// Which report the forms program has active, beside the one that the tabs mirror.
enum class ReportIs {
    Mirrored, ///< the very one
    NotOpen,  ///< none: no forms program, or no report in it
    Another,  ///< what would go out is meant for the report that the tabs show
};

/// What came of a look. `words` say why nothing may be sent; empty for Mirrored.
struct ReportCheck
{
    ReportIs is = ReportIs::Mirrored;
    QString words = {};
    [[nodiscard]] bool Stands() const { return is == ReportIs::Mirrored; }
};

/// Compares what KelQueryActiveReports has just left in Text with the tabs; says nothing.
[[nodiscard]] ReportIs CompareReport(const LinkDesk& desk);

/// The same, and where another report is active the user is asked whether to read the tabs from it. They are
/// read anew or stay; what was to be sent is not sent either way, since it was chosen for the other report.
[[nodiscard]] ReportCheck CheckAnsweredReport(LinkDesk& desk);

/// Asks the forms program first. Stands before every conversation that pokes, runs a macro or sends a picture,
/// and before every question that names what the report holds.
[[nodiscard]] ReportCheck CheckReport(LinkDesk& desk);

/// Why there is no report, from what KelQueryActiveReports left in Text.
[[nodiscard]] QString NoReportWords(const LinkDesk& desk);

} // namespace vasclip::link
