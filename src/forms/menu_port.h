#pragma once

#include "forms/controls.h"

namespace vasclip::forms {

/// What the window asks when the right button or a key goes to a control that has no rule of its own for it.
class MenuPort
{
public:
    virtual ~MenuPort() = default;
    /// The menu to open over a control; nullptr for none.
    virtual Menu* MenuOver(const Control& control) = 0;
    /// The delete key was pressed on a picture of the capture directory.
    virtual void DeleteKeyOn(const Control& thumb) = 0;
};

} // namespace vasclip::forms
