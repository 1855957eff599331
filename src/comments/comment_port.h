#pragma once

#include "forms/screen.h"

namespace vasclip::comments {

/// Key codes that an entry field hands on. The codes between F3 and F8 follow each other.
enum KeyCode : int { kEnter = 13, kF2 = 113, kF3 = 114, kF4, kF5, kF6, kF7, kF8 };

/// The shift state of a key-down, a sum of these.
enum ShiftState : int { kNoShift = 0, kShift = 1, kCtrl = 2, kAlt = 4 };

/// Where the focus goes after a key: the field behind ("{TAB}") or the one before ("+{TAB}").
enum class Advance { Stay, Next, Previous };

struct KeyAnswer
{
    bool handled = false; ///< the key was taken; else the field does with it what it does without a library
    Advance advance = Advance::Stay;
    bool operator==(const KeyAnswer&) const = default;
};

/// An entry screen as the function keys see it.
class EntryKeys
{
public:
    virtual ~EntryKeys() = default;
    /// Raises the key-down of a field as if the user had pressed the key there: a click on a key's button
    /// takes exactly the path of the key.
    virtual void SendKey(forms::TextBox& field, int keyCode, int shift) = 0;
};

/// The function keys as an entry screen sees them. Implemented by frm_FKey.
///
/// A screen calls EntryOpened at the end of its Form_Load, FieldEntered when a box takes the focus,
/// FieldLeft when something without a library does, KeyDown for every key-down of a box. The frame opens with
/// the first screen and closes by itself when none of them is open any more.
class CommentPort
{
public:
    virtual ~CommentPort() = default;

    /// Opens the comment file, with its questions, unless it is open. A file that can't be used is told once
    /// and leaves the keys without phrases; the screen works all the same. Both outlive their being open.
    virtual void EntryOpened(forms::Screen& screen, EntryKeys& keys) = 0;

    /// Shows what the six keys hold for the field. `dataField` is the column that the box is bound to; a box
    /// without one ("") has no library, and the buttons rest.
    virtual void FieldEntered(EntryKeys& keys, forms::TextBox& field, const QString& dataField) = 0;
    virtual void FieldLeft() = 0; ///< the buttons rest

    /// F2 opens the library, F3 to F8 put their phrase in place of the field's text, with Ctrl and Alt or Shift they
    /// store the field's text, Enter advances. Any other key is not handled, nor is any but Enter without a
    /// data field.
    /// @param shift  a sum of ShiftState
    /// @throws RuntimeError with what is wrong with the comment file; field and file are then untouched
    [[nodiscard]] virtual KeyAnswer KeyDown(int keyCode, int shift, forms::TextBox& field,
                                            const QString& dataField) = 0;

    /// The frame with the six buttons, to be shown in the window of the entry screen.
    [[nodiscard]] virtual forms::Screen& Frame() = 0;
};

} // namespace vasclip::comments
