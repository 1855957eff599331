#pragma once

#include "photos/photo_desk.h"

#include <functional>
#include <memory>

namespace vasclip::shell {

/// The questions about a picture: by screens, or by boxes in a program that has no screens.
/// All of it outlives the questions.
/// @param viewsChanged  called when the user has changed the list of general views meanwhile
[[nodiscard]] std::unique_ptr<photos::PhotoQuestions>
MakePhotoQuestions(const forms::Ports& ports, const files::Disk& disk, const common::Globals& globals,
                   photos::SlotLoader& loader, std::function<void()> viewsChanged);

} // namespace vasclip::shell
