#pragma once

#include "forms/controls.h"

namespace vasclip::drops {

/// A drag of a named source.
struct Drag
{
    QString source;      ///< control name, any case: "grddatabook", "txtComp"
    int index = -1;      ///< of a control array
    QString key;         ///< CENTRALKEY of the record being dragged, if it is one
    QString picturePath; ///< drive path of the picture being dragged, may be empty
};

/// What a drop came to.
struct Outcome
{
    bool done = false;
    QString message; ///< for the status line; may be empty
    forms::Colour colour = forms::Colour::Normal;
};

} // namespace vasclip::drops
