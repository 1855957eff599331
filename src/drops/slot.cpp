#include "drops/slot.h"

#include "common/proper_case.h"
#include "link/slot_photos.h"
#include "platform/text/text.h"
#include "store/fields.h"

namespace vasclip::drops {

using namespace Qt::Literals::StringLiterals;

Slot SlotOf(link::LinkDesk& desk, SlotRef slot)
{
    return {slot, link::TextOf(desk.report, slot), link::PhotoOf(desk.slots, slot), link::BoxOf(desk.slots, slot)};
}

QString SlotText(const QString& address, const QString& key)
{
    return text::Trim(text::Folded(address) == text::Folded(key) ? address : key);
}

std::optional<Taken> TakeRecord(const link::LinkDesk& desk, const QString& key)
{
    const std::optional<store::Record> record = store::ReadRecord(desk.ports, desk.sources.datDatabook, key);
    if (!record)
        return std::nullopt;
    return Taken{*record, text::Folded(key),
                 common::AddressInCase(record->Text(fields::ADDRESS), desk.globals.addressCase),
                 photos::PhotoList(*record)};
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
bool MaySendMissing(link::LinkDesk& desk, const Taken& record, const QString& view)
{
    const QString file = link::PathOfView(desk, record.photos, view);
    return desk.disk.FileExists(file) ||
           desk.ports.prompter.YesNo(desk.globals.productName,
                                     u"The picture of the %1 of %2 is missing: %3 is not there. Sending it clears "
                                     u"the picture of the slot in the report. Clear it?"_s.arg(view, record.key, file));
}

} // namespace

PhotoSent SendView(link::LinkDesk& desk, const Taken& record, forms::PictureBox& photo, const QString& view)
{
    const bool hasView = record.photos.Has(view);
    if (hasView && !MaySendMissing(desk, record, view))
        return PhotoSent::Kept;
    if (!hasView && ReportShowsPhoto(desk, photo) && !link::ClearSlotPhoto(desk, photo, false))
        return PhotoSent::Failed;
    const link::SlotSend sent = link::SendKelTheView(desk, photo, photo, photo.Index(), record.photos, view);
    if (sent == link::SlotSend::Failed)
        return PhotoSent::Failed;
    if (!hasView)
        return PhotoSent::None;
    return sent == link::SlotSend::Sent ? PhotoSent::Yes : PhotoSent::Cleared;
}

std::optional<Outcome> TellUnsent(const link::LinkDesk& desk, const Taken& record, PhotoSent sent, const QString& view,
                                  const QString& name)
{
    const QString file = link::PathOfView(desk, record.photos, view);
    switch (sent) {
    case PhotoSent::Failed:
        return NotSent(desk.state.notSent.isEmpty() ? u"The photo of %1 did not reach the report."_s.arg(name)
                                                    : desk.state.notSent);
    case PhotoSent::Kept:
        return Outcome{false, u"The %1 of %2 was not sent: %3 is missing."_s.arg(view, name, file),
                       forms::Colour::Red, {}};
    case PhotoSent::Cleared:
        return Outcome{true,
                       u"The slot's picture was cleared, because the %1 of %2 is missing: %3."_s.arg(view, name, file),
                       forms::Colour::Red, {}};
    case PhotoSent::Yes:
    case PhotoSent::None:
        break;
    }
    return std::nullopt;
}

} // namespace vasclip::drops
