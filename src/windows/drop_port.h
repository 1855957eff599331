#pragma once

#include "forms/controls.h"

namespace vasclip::windows {

/// What the window asks when something is dragged. The window knows no rule: it forwards names and controls.
class DropPort
{
public:
    virtual ~DropPort() = default;
    /// May a drag begin on this control now?
    [[nodiscard]] virtual bool IsSource(const forms::Control& source) const = 0;
    /// Would a drop of this source on this control do something now?
    /// @param source  name of the control the drag began on, "grddatabook"
    [[nodiscard]] virtual bool Accepts(const QString& source, const forms::Control& target) const = 0;
    /// A drag hovers over a control: the hint goes to the status line. An empty target clears it.
    virtual void DragOver(const QString& source, const QString& target) = 0;
    /// The drag ended on a control. Runs after the toolkit's own drag loop is over, so it may ask questions.
    virtual void Drop(forms::Control& source, forms::Control& target) = 0;
};

} // namespace vasclip::windows
