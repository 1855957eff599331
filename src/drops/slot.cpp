#include "drops/slot.h"

#include "common/proper_case.h"
#include "link/slot_icons.h"
#include "link/slot_photos.h"
#include "photos/photo_lists.h"
#include "platform/text/text.h"

namespace vasclip::drops {

using namespace Qt::Literals::StringLiterals;

Slot SlotOf(link::LinkDesk& desk, QLatin1StringView group, int index)
{
    const link::GroupRow* comps = link::GroupOfWord(group);
    const link::Group of = comps                     ? comps->group
                           : group == "GENERAL"_L1 ? link::Group::General
                                                   : link::Group::Subject;
    const link::SlotRef slot{of, index};
    return {link::TextOf(desk.report, slot), link::PhotoOf(desk.slots, slot), link::BoxOf(desk.slots, slot), of};
}

void Slot::RefreshIcons(link::LinkDesk& desk) const
{
    link::RefreshIcons(desk, group);
}

QString SlotText(const link::LinkState& state)
{
    const bool same = text::Folded(state.displayAddress) == text::Folded(state.currentKey);
    return text::Trim(same ? state.displayAddress : state.currentKey);
}

bool TakeRecord(link::LinkDesk& desk, const QString& key)
{
    store::DataSource& databook = desk.sources.datDatabook;
    desk.state.currentKey = text::Folded(key);
    if (desk.state.currentKey.isEmpty() ||
        !store::FindRecord(desk.ports, databook, desk.state.currentKey, u"CENTRALKEY"_s))
        return false;
    desk.state.displayAddress =
        common::AddressInCase(store::GetFieldData(databook, u"ADDRESS"_s), desk.globals.addressCase);
    photos::ReadPhotoLists(databook, desk.lists.lstViews, desk.lists.lstimages);
    return true;
}

namespace {

/// Does the report show a picture in the slot, as far as was read or sent?
bool ReportShowsPhoto(const link::LinkDesk& desk, const forms::PictureBox& photo)
{
    const QString entry = u';' + link::ImageObjectName(photo.Name(), photo.Index());
    return !text::Trim(desk.loader.Table().ErrGetPict(photo)).isEmpty() ||
           (u';' + desk.addr.txtKelimages.Text()).contains(entry, Qt::CaseInsensitive);
}

/// Sending a picture that is gone empties the slot in the report, and no one would expect that.
bool MaySendMissing(link::LinkDesk& desk, const QString& view)
{
    const QString file = link::PathOfView(desk, view);
    return desk.disk.FileExists(file) ||
           desk.ports.prompter.YesNo(desk.globals.productName,
                                     u"The picture of the %1 of %2 is missing: %3 is not there. Sending it clears "
                                     u"the picture of the slot in the report. Clear it?"_s.arg(
                                         view, text::Trim(desk.state.currentKey), file));
}

} // namespace

PhotoSent SendView(link::LinkDesk& desk, forms::PictureBox& photo, const QString& view)
{
    const bool hasView = desk.lists.lstViews.IndexOf(view) >= 0;
    if (hasView && !MaySendMissing(desk, view))
        return PhotoSent::Kept;
    if (!hasView && ReportShowsPhoto(desk, photo) && !link::ClearSlotPhoto(desk, photo, false))
        return PhotoSent::Failed;
    if (!hasView) // clearing turns the queue, and the lists may be another record's
        static_cast<void>(TakeRecord(desk, desk.state.currentKey));
    const link::SlotSend sent = link::SendKelTheView(desk, photo, photo, photo.Index(), view);
    if (sent == link::SlotSend::Failed)
        return PhotoSent::Failed;
    if (!hasView)
        return PhotoSent::None;
    return sent == link::SlotSend::Sent ? PhotoSent::Yes : PhotoSent::Cleared;
}

std::optional<Outcome> TellUnsent(const link::LinkDesk& desk, PhotoSent sent, const QString& view,
                                  const QString& key)
{
    const QString file = link::PathOfView(desk, view);
    switch (sent) {
    case PhotoSent::Failed:
        return NotSent(desk.state.notSent.isEmpty() ? u"The photo of %1 did not reach the report."_s.arg(key)
                                                    : desk.state.notSent);
    case PhotoSent::Kept:
        return Outcome{false, u"The %1 of %2 was not sent: %3 is missing."_s.arg(view, key, file),
                       forms::Colour::Red, {}};
    case PhotoSent::Cleared:
        return Outcome{true,
                       u"The slot's picture was cleared, because the %1 of %2 is missing: %3."_s.arg(view, key, file),
                       forms::Colour::Red, {}};
    case PhotoSent::Yes:
    case PhotoSent::None:
        break;
    }
    return std::nullopt;
}

} // namespace vasclip::drops
