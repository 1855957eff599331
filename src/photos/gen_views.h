#pragma once

#include "common/globals.h"
#include "forms/controls.h"
#include "platform/files/disk.h"

namespace vasclip::photos {

/// Adds the user's general views to a list, each as a record can hold it: the settings file may have come from
/// anywhere.
void LoadGenViews(forms::ListBox& list, const files::Disk& disk, const common::Globals& globals);

/// Fills `lstGenViews` with the user's general views and every box of `cboGeneral` from it. What stands in a
/// box stays, and no box raises an event.
void AddGenViews2CBO(forms::ListBox& lstGenViews, const forms::ControlArray<forms::ComboBox>& cboGeneral,
                     const files::Disk& disk, const common::Globals& globals);

} // namespace vasclip::photos
