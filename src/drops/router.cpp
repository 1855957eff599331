#include "drops/router.h"

#include "link/drop_comp.h"
#include "link/slot_icons.h"
#include "link/slot_photos.h"
#include "link/tabs.h"
#include "photos/photo_lists.h"
#include "platform/text/text.h"

namespace vasclip::drops {

using namespace Qt::Literals::StringLiterals;

namespace {

const QString kFrontView = u"FRONT VIEW"_s;

/// The three controls of one slot, and what refreshes the icons of its tab.
struct Slot
{
    forms::TextBox& text;
    forms::PictureBox& photo;
    forms::PictureBox& data;
    void (*refreshIcons)(link::LinkDesk&);
};

Slot SlotOf(link::LinkDesk& desk, const DropRule& rule, int index)
{
    if (rule.compType == "SALE"_L1)
        return {desk.report.txtComp(index), desk.slots.imaComp(index), desk.slots.geaComp(index),
                &link::RefreshCompIcons};
    if (rule.compType == "ALT"_L1)
        return {desk.report.txtAltComp(index), desk.slots.imaAltComp(index), desk.slots.geaAltComp(index),
                &link::RefreshAltCompIcons};
    if (rule.compType == "LIST"_L1)
        return {desk.report.txtListing(index), desk.slots.imaListing(index), desk.slots.geaListing(index),
                &link::RefreshListingIcons};
    return {desk.report.txtRental(index), desk.slots.imaRental(index), desk.slots.geaRental(index),
            &link::RefreshRentalIcons};
}

/// A slot shows the address in the user's case where that is the key but for case; a record whose ADDRESS has
/// been edited away from its key shows the key, or its slot would not find it again.
QString SlotText(const link::LinkState& state)
{
    const bool same = text::Folded(state.displayAddress) == text::Folded(state.currentKey);
    return text::Trim(same ? state.displayAddress : state.currentKey);
}

} // namespace

Router::Router(link::LinkDesk& desk)
    : m_desk(desk)
{}

bool Router::Accepts(const QString& source, const forms::Control& target) const
{
    return RuleFor(source, target.Name()) && target.Enabled() &&
           !link::SlotPageNotAvailable(m_desk.report, target.Name(), target.Index());
}

Outcome Router::Drop(const Drag& drag, forms::Control& target)
{
    const DropRule* rule = RuleFor(drag.source, target.Name());
    if (!rule || !Accepts(drag.source, target))
        return {};
    if (!link::KelIsActive(m_desk))
        return {};
    return PasteComp(drag, target, *rule);
}

Outcome Router::PasteComp(const Drag& drag, forms::Control& target, const DropRule& rule)
{
    const Slot slot = SlotOf(m_desk, rule, target.Index());
    m_desk.state.dragSourceIndex = -1;
    m_desk.state.currentKey = text::Folded(drag.key);

    m_desk.ports.window.AppActivate();
    const link::DropOutcome result = link::DropComp(m_desk, target, slot.photo, rule.compType, false);
    m_desk.ports.window.AppActivate();
    if (result == link::DropOutcome::Incomplete)
        return {false, u"Only a part of %1 reached the report. Drop it again."_s.arg(drag.key),
                forms::Colour::Red};
    if (result == link::DropOutcome::NotFound)
        return {false, u"%1 is no longer in the Databook."_s.arg(drag.key), forms::Colour::Red};
    if (result != link::DropOutcome::Sent)
        return {};

    slot.text.SetText(SlotText(m_desk.state));
    if (rule.action == DropAction::PasteCompAndPhoto) {
        photos::ReadPhotoLists(m_desk.sources.datDatabook, m_desk.lists.lstViews, m_desk.lists.lstimages);
        link::SendKelTheView(m_desk, slot.photo, slot.photo, static_cast<qint16>(target.Index()), kFrontView);
    }
    m_desk.loader.ErrLoadPict(slot.data, m_desk.globals.G_ProgramDir + u"Addendum_Added.bmp"_s);
    slot.refreshIcons(m_desk);
    m_desk.ports.window.AppActivate();
    return {true, u"%1 is in the report now."_s.arg(slot.text.Text()), forms::Colour::Green};
}

} // namespace vasclip::drops
