#pragma once

class QDialog;
class QPrinter;

namespace vasclip::upkeep {
class frm_ReportPreview;
}

namespace vasclip::windows {

/// Asks for printer, pages and copies, and prints.
void AskForPrinter(QDialog& window, upkeep::frm_ReportPreview& preview);

/// Sends the pages that were chosen in the printer's dialogue; all of them also while they are still counted.
void SendToPrinter(upkeep::frm_ReportPreview& preview, QPrinter& printer);

} // namespace vasclip::windows
