#pragma once

#include "link/link_desk.h"

namespace vasclip::shell {

/// The marks beside the slots, drawn: an empty card, a card, a card with a picture, a card with a picture and
/// a tick; and the anchor of a record with coordinates.
[[nodiscard]] link::SlotIconPictures SlotIconPictures();

} // namespace vasclip::shell
