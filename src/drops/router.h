#pragma once

#include "drops/drag.h"
#include "drops/drop_desk.h"
#include "drops/drop_table.h"

#include <optional>

namespace vasclip::drops {

/// Routes a drag that ended on a control to the routine that does the work. Knows names, keys and indices.
class Router
{
public:
    explicit Router(DropDesk desk);

    /// May a drag begin on this control now? A photo slot only with a file, a text slot with a text.
    [[nodiscard]] bool CanStart(const forms::Control& source) const;
    /// A drag begins: the drag state takes its kind, its picture and its index.
    Drag Begin(const forms::Control& source, int shift = 0);
    /// Files of another program come in.
    Drag BeginFiles(const QStringList& files);
    [[nodiscard]] const DragState& State() const { return m_state; }
    /// The drag has come over a control, which takes it off the one before; an empty target takes it off alone.
    void TargetDragOverKel(const QString& source, const QString& target);

    /// Is there a rule for the pair, and is the target's slot in the report?
    [[nodiscard]] bool Accepts(const QString& source, const forms::Control& target) const;
    /// A pair without a rule and a slot whose page is "N/A" do nothing, silently. A drop with no report open, or
    /// with another report active than the tabs show, does nothing and says so.
    /// A drop that arrives while another or a refresh is at work does nothing and says so.
    Outcome Drop(const Drag& drag, forms::Control& target);

private:
    void SourceMouseDown();
    enum class Place { PhotoSlot, Subject, TextOrData, Elsewhere };
    [[nodiscard]] static Place PlaceOf(const QString& target);
    [[nodiscard]] QString Refusal(const Drag& drag) const;
    /// @return what ends the drop, if anything does
    [[nodiscard]] std::optional<Outcome> Guards(const Drag& drag, const DropRule& rule, forms::Control& target);
    Outcome Run(const Drag& drag, forms::Control& target, const DropRule& rule);
    [[nodiscard]] QString KeyOf(const forms::Control& source) const;

    DropDesk m_desk;
    DragState m_state;
    QString m_overSource, m_overTarget; ///< what the drag hovers over
    bool m_busy = false;
};

} // namespace vasclip::drops
