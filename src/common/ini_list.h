#pragma once

#include "common/globals.h"
#include "forms/controls.h"
#include "platform/files/disk.h"

#include <QString>

namespace vasclip::common {

/// A list kept in an ini file as numbered keys: GENERALVIEW1, GENERALVIEW2, ...
struct IniListPlace
{
    QString file; ///< drive path of the ini file
    QString section;
    QString prefix;
};

/// The saved names of general views.
[[nodiscard]] IniListPlace GeneralViews(const Globals& globals);

inline constexpr int kUntilEmpty = -1;

/// Adds the values of the keys numbered from 1 upward to the list: `count` of them, or with kUntilEmpty as
/// far as the first empty one. What the list holds already stays.
void LoadList(forms::ListBox& list, const files::Disk& disk, const IniListPlace& place,
              int count = kUntilEmpty);

/// Writes one numbered key for each line, and deletes the keys of lines that the list no longer has, all in
/// one replacement of the file.
/// @return false if the file could not be written; it then holds what it held before
bool SaveList(const forms::ListBox& list, const files::Disk& disk, const IniListPlace& place);

enum class Case { Matters, Ignored };

/// The operations below compare trimmed text.

/// @return index of the first line that is the text, -1 if there is none
[[nodiscard]] int FindInList(const forms::ListBox& list, const QString& text, Case sensitivity);
/// @return false if the text was in the list, which then stays as it is
bool AddUnlessPresent(forms::ListBox& list, const QString& text, Case sensitivity);
/// Removes the first line that is the text. @return false if there is none
bool RemoveFromList(forms::ListBox& list, const QString& text, Case sensitivity);

} // namespace vasclip::common
