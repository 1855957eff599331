#pragma once

#include "common/dates.h"
#include "forms/controls.h"

#include <optional>

namespace vasclip::databook {

/// What is said of a date that was not taken as it was typed.
struct DateNote
{
    QString typed;
    QString words;     ///< what was not understood and what it counts as
    bool lost = false;   ///< it is no date, and what was typed is not kept
    bool stored = false; ///< what it counts as stands in the record by now, and the words have been there before
};

/// @param typed   trimmed
/// @param counts  the date that it counts as
/// @param means   what that date stands for, ", a pending sale"; may be ""
/// @return nullopt for a date that says what it is taken for
[[nodiscard]] std::optional<DateNote> NoteOn(const QString& typed, common::DateSense sense, const QString& counts,
                                             const QString& means);

/// Words beside a box about what became of its text, and a button that brings the text back.
class FieldNote
{
public:
    /// @param box  "txtSaleDate" has lblSaleDateNote and cmdSaleDateBack
    FieldNote(forms::ControlSet& set, const QString& box);

    forms::Label label;
    forms::Button back;

    /// @param shown  the text that stands in the box now; there is a way back only to another one
    void Tell(const DateNote& note, const QString& shown);
    void Refuse(const QString& words); ///< the text still stands in the box
    void Hide();
};

} // namespace vasclip::databook
