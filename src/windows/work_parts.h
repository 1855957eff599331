#pragma once

#include <QStringList>

class QDialog;
class QVBoxLayout;

namespace vasclip::windows {

class RecordGrid;

// What windows of long work over files and records have in common.

/// The databases of a directory, the tables of one of them, and what deletes either.
/// @param heading  with an access key that leads to the databases
[[nodiscard]] QVBoxLayout* MakeFilesColumn(QDialog& window, const QString& heading);

/// A grid of rows that are looked at, their columns as the screen gives them.
[[nodiscard]] RecordGrid* MakeGrid(QDialog& window, const QString& name, const QString& accessibleName);

/// What the work left out, line by line, below its heading. Both are there while there is something to tell.
/// @param stretch  of the list among the rows
void AddAccount(QVBoxLayout& rows, QDialog& window, const QString& accessibleName, int stretch = 1);

/// The message, the gauge and the buttons, as they stand from left to right. @param primary  one of them, or ""
void AddWorkFoot(QVBoxLayout& rows, QDialog& window, const QStringList& buttons, const QString& primary = {});

} // namespace vasclip::windows
