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

/// Does the report show a picture in the slot, as far as was read or sent?
bool ReportShowsPhoto(const link::LinkDesk& desk, const forms::PictureBox& photo)
{
    const QString entry = u';' + link::ImageObjectName(photo.Name(), photo.Index());
    return !text::Trim(desk.loader.Table().ErrGetPict(photo)).isEmpty() ||
           (u';' + desk.addr.txtKelimages.Text()).contains(entry, Qt::CaseInsensitive);
}

enum class PhotoSent { Yes, None, Failed };

/// Sends the front view of the record that datDatabook stands on. Without one the slot is emptied here and in
/// the report, where the picture of the comp before would stand beside the new one's data.
PhotoSent SendFrontView(link::LinkDesk& desk, forms::PictureBox& photo)
{
    photos::ReadPhotoLists(desk.sources.datDatabook, desk.lists.lstViews, desk.lists.lstimages);
    const bool hasView = desk.lists.lstViews.IndexOf(kFrontView) >= 0;
    if (!hasView && ReportShowsPhoto(desk, photo) && !link::ClearSlotPhoto(desk, photo, false))
        return PhotoSent::Failed;
    if (!link::SendKelTheView(desk, photo, photo, photo.Index(), kFrontView))
        return PhotoSent::Failed;
    return hasView ? PhotoSent::Yes : PhotoSent::None;
}

/// Raises a flag for a scope.
class Busy
{
public:
    explicit Busy(bool& flag)
        : m_flag(flag)
    {
        m_flag = true;
    }
    ~Busy() { m_flag = false; }
    Busy(const Busy&) = delete;
    Busy& operator=(const Busy&) = delete;

private:
    bool& m_flag;
};

} // namespace

Router::Router(link::LinkDesk& desk)
    : m_desk(desk)
{}

bool Router::Accepts(const QString& source, const forms::Control& target) const
{
    const DropRule* rule = RuleFor(source, target.Name());
    if (!rule || !target.Enabled() ||
        link::SlotPageNotAvailable(m_desk.report, target.Name(), target.Index()))
        return false;
    // The data box of a comp that the form does not have stays enabled; its text slot does not.
    return SlotOf(m_desk, *rule, target.Index()).text.Enabled();
}

Outcome Router::Drop(const Drag& drag, forms::Control& target)
{
    const DropRule* rule = RuleFor(drag.source, target.Name());
    if (!rule)
        return {};
    // A turn of the queue can bring a drop into the middle of other work on the same slots and records.
    if (m_busy)
        return {false, u"The drop before this one is still on its way. Drop it again in a moment."_s,
                forms::Colour::Red};
    if (m_desk.state.refreshing)
        return {false, u"The report is being read. Drop it again in a moment."_s, forms::Colour::Red};
    const Busy busy{m_busy};
    if (!link::KelIsActive(m_desk) || !Accepts(drag.source, target))
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
    PhotoSent photo = PhotoSent::Yes;
    if (rule.action == DropAction::PasteCompAndPhoto)
        photo = SendFrontView(m_desk, slot.photo);
    m_desk.loader.ErrLoadPict(slot.data, m_desk.globals.G_ProgramDir + u"Addendum_Added.bmp"_s);
    slot.refreshIcons(m_desk);
    m_desk.ports.window.AppActivate();
    const QString shown = slot.text.Text();
    if (photo == PhotoSent::Failed)
        return {true, u"%1 is in the report now, its photo is not."_s.arg(shown), forms::Colour::Red};
    if (photo == PhotoSent::None)
        return {true, u"%1 is in the report now. It has no front view."_s.arg(shown), forms::Colour::Green};
    return {true, u"%1 is in the report now."_s.arg(shown), forms::Colour::Green};
}

} // namespace vasclip::drops
