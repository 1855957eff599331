#pragma once

#include "platform/files/disk.h"

namespace vasclip::demo {

/// Draws the pictures that the program directory holds: the marks of the data boxes ("Addendum_Empty.bmp",
/// "Addendum_Full.bmp", "Addendum_Added.bmp", "compfull.jpg", "LISTfull.jpg", "RENTfull.jpg") and the drag
/// icons ("HandPict.Ico", "DropPict.Ico").
/// @param directory  with its trailing backslash
void MakeArtwork(const files::Disk& disk, const QString& directory);

} // namespace vasclip::demo
