#pragma once

#include "drops/drag.h"
#include "drops/drop_desk.h"
#include "drops/drop_table.h"
#include "forms/drop_port.h"

#include <optional>

namespace vasclip::drops {

/// The one owner of a drag: what it carries and hovers over, and the routine that does its work when it ends on a
/// control. Knows names, keys and indices.
class Router : public forms::DropPort
{
public:
    explicit Router(DropDesk desk);

    /// A photo slot only with a file, a text slot with a text.
    [[nodiscard]] bool IsSource(const forms::Control& source) const override;
    void Begin(const forms::Control& source, int shift) override { m_drag = Start(source, shift); }
    [[nodiscard]] bool AimsAtRow(const QString& source, const forms::Control& target) const override;
    bool TakeRow(int row, const QString& key) override { return m_desk.show && m_desk.show->TakeRow(row, key); }
    /// The hint line goes to lblmsg.
    void DragOver(const QString& source, const QString& target) override;
    void Drop(forms::Control& source, forms::Control& target) override;
    [[nodiscard]] QString FileOf(const forms::Control& source) const override;
    /// Upright. @throws RuntimeError 481 for a file that is no picture
    [[nodiscard]] QImage ImageOf(const forms::Control& source) const override;
    /// Of the program directory; null if it has none.
    [[nodiscard]] QImage DragIcon() const override;
    [[nodiscard]] bool AcceptsFiles(const forms::Control& target) const override { return Accepts(kFiles, target); }
    void DropFiles(const QStringList& files, forms::Control& target) override;

    /// A drag begins: the drag state takes its kind, its picture and its index.
    Drag Start(const forms::Control& source, int shift = 0);
    /// Files of another program come in. @param files  drive paths
    Drag StartFiles(const QStringList& files);
    [[nodiscard]] const DragState& State() const { return m_state; }
    /// The drag has come over a control, which takes it off the one before; an empty target takes it off alone.
    void TargetDragOverKel(const QString& source, const QString& target);

    /// Is there a rule for the pair, and is the target's slot in the report?
    [[nodiscard]] bool Accepts(const QString& source, const forms::Control& target) const override;
    /// A pair without a rule and a slot whose page is "N/A" do nothing, silently. A drop with no report open, or
    /// with another report active than the tabs show, does nothing and says so.
    /// A drop that arrives while another or a refresh is at work does nothing and says so.
    /// What comes of it is the caller's to tell.
    Outcome DropUntold(const Drag& drag, forms::Control& target);
    /// The same, told.
    Outcome End(const Drag& drag, forms::Control& target);

private:
    void SourceMouseDown();
    enum class Place { PhotoSlot, Subject, TextOrData, Elsewhere };
    [[nodiscard]] static Place PlaceOf(const QString& target);
    [[nodiscard]] QString Refusal(const Drag& drag) const;
    /// @return what ends the drop, if anything does
    [[nodiscard]] std::optional<Outcome> Guards(const Drag& drag, const DropRule& rule, forms::Control& target);
    Outcome Run(const Drag& drag, forms::Control& target, const DropRule& rule);
    [[nodiscard]] QString KeyOf(const forms::Control& source) const;
    [[nodiscard]] QString PathOf(const forms::Control& source) const;
    Outcome Tell(const Outcome& outcome);

    DropDesk m_desk;
    DragState m_state;
    Drag m_drag; ///< of the window, while it lasts
    QString m_overSource, m_overTarget; ///< what the drag hovers over
    bool m_busy = false;
};

} // namespace vasclip::drops
