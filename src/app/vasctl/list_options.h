#pragma once

#include "app/vasctl/output.h"
#include "upkeep/list_presets.h"

#include <QCommandLineParser>

namespace vasclip::vasctl {

// How `import` reads a list.

/// Is an option given that says how a list is read, for a file that is none? It is told then.
[[nodiscard]] bool RefusesListOptions(const Output& out, const QCommandLineParser& options);
/// The letter of --delimiter; a null one without it. @return nothing, told, for what is none
[[nodiscard]] std::optional<QChar> DelimiterOf(const Output& out, const QCommandLineParser& options);
/// What the options say. @return nothing, told, for a value that is none
[[nodiscard]] std::optional<upkeep::ListChoice> ListChoiceOf(const Output& out, const QCommandLineParser& options);
/// Is something said of a text file that is a spreadsheet, or the other way round? It is told then.
[[nodiscard]] bool RefusesOtherKind(const Output& out, const upkeep::ListFile& file, const upkeep::ListChoice& choice);
/// HEADING=FIELD; nothing behind the sign leaves the column behind. @return false, told, for what is not there
[[nodiscard]] bool MapColumn(const Output& out, const upkeep::TransferDesk& desk, upkeep::ListLook& look, const QString& choice);
/// What a list is taken for, since nobody looks at it meanwhile.
void TellLook(const Output& out, const upkeep::ListFile& file, const upkeep::ListLook& look);

} // namespace vasclip::vasctl
