#include "drops/swap_slots.h"

#include "link/swap_comps.h"
#include "platform/text/text.h"

namespace vasclip::drops {

using namespace Qt::Literals::StringLiterals;

namespace {

QString Shown(const link::LinkDesk& desk, int comp)
{
    const auto& boxes = desk.report.txtComp;
    return comp < 1 || comp > boxes.Last() ? QString() : text::Trim(boxes(comp).Text());
}

QString Named(const link::LinkDesk& desk, int comp)
{
    const QString address = Shown(desk, comp);
    return address.isEmpty() ? u"comp %1 is empty"_s.arg(comp) : u"comp %1 is %2"_s.arg(comp).arg(address);
}

Outcome Told(const QString& message)
{
    return {false, message, forms::Colour::Red, {}};
}

} // namespace

Outcome SwapSlots(DropDesk& drops, int target, int source, const std::pair<QString, QString>& shown)
{
    const link::LinkDesk& desk = drops.link;
    if (text::Folded(Shown(desk, target)) != text::Folded(shown.first) ||
        text::Folded(Shown(desk, source)) != text::Folded(shown.second))
        return Told(u"The slots show other comps than when the menu opened. Nothing was swapped."_s);
    return SwapSlots(drops, target, source);
}

Outcome SwapSlots(DropDesk& drops, int target, int source)
{
    link::LinkDesk& desk = drops.link;
    switch (link::SwapComps(desk, target, source)) {
    case link::SwapOutcome::Swapped:
        return {true, u"Swapped: %1 now, %2."_s.arg(Named(desk, target), Named(desk, source)), forms::Colour::Green, {}};
    case link::SwapOutcome::Unread:
        return {true, u"Comps %1 and %2 were swapped, but could not be read again. Refresh shows them."_s.arg(target).arg(
                          source),
                forms::Colour::Red, {}};
    case link::SwapOutcome::Failed:
        return Told(u"The report did not swap comps %1 and %2. Refresh shows what it holds."_s.arg(target).arg(source));
    case link::SwapOutcome::Unsure:
        return Told(u"Whether comps %1 and %2 were swapped is not known: the forms program did not answer. Refresh shows "
                    u"what is there."_s.arg(target).arg(source));
    case link::SwapOutcome::NotSent:
        return NotSent(desk.state.notSent);
    case link::SwapOutcome::Busy:
        return Told(u"The report is being read. Try again in a moment."_s);
    case link::SwapOutcome::NoSuchSlot:
        return Told(u"Comps %1 and %2 cannot be swapped: the report does not have both."_s.arg(target).arg(source));
    }
    return {};
}

} // namespace vasclip::drops
