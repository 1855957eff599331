#pragma once

#include "forms/controls.h"

namespace vasclip::shell {

struct frm_Splash;
class Program;
struct SystemPlaces;

// What the steps of the start do that no other part of the program does.

/// The street control reads its paths from a copy of pwstreet.ini in the program directory. A directory that
/// takes none leaves the file where it was found.
/// @param tabSource  whose tab gets the map's name
void TurnOnMaps(Program& program, const SystemPlaces& places, forms::TabControl& tabSource);
/// Where the street maps are, for a program without a screen, which leaves every file as it is.
void ReadMapPlaces(Program& program, const SystemPlaces& places);
/// A directory that cannot even be looked for stands for a drive without its disk. @throws RuntimeError 52
void VerifyCaptureDirectory(const Program& program);
/// A new updater waits in the Update directory until the program starts.
void checkUpdate(const Program& program);
void PrepareGrid(Program& program, bool loadUserLayout, frm_Splash& splash);

} // namespace vasclip::shell
