#pragma once

#include "drops/drag.h"
#include "drops/drop_table.h"
#include "link/link_desk.h"

namespace vasclip::drops {

/// Routes a drag that ended on a control to the routine that does the work. Knows names, keys and indices.
class Router
{
public:
    explicit Router(link::LinkDesk& desk);

    /// Is there a rule for the pair, and is the target's slot in the report?
    [[nodiscard]] bool Accepts(const QString& source, const forms::Control& target) const;
    /// A pair without a rule, a slot whose page is "N/A" and a drop with no report open do nothing, silently.
    /// A drop that arrives while another or a refresh is at work does nothing and says so.
    Outcome Drop(const Drag& drag, forms::Control& target);

private:
    Outcome PasteComp(const Drag& drag, forms::Control& target, const DropRule& rule);

    link::LinkDesk& m_desk;
    bool m_busy = false;
};

} // namespace vasclip::drops
