#pragma once

#include "photos/photo_desk.h"

#include <memory>

namespace vasclip::shell {

/// The questions about a picture: by screens, or by boxes in a program that has no screens.
/// All of it outlives the questions.
[[nodiscard]] std::unique_ptr<photos::PhotoQuestions>
MakePhotoQuestions(const forms::Ports& ports, const files::Disk& disk, const common::Globals& globals,
                   photos::SlotLoader& loader);

} // namespace vasclip::shell
