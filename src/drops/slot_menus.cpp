#include "drops/slot_menus.h"

#include "common/error_block.h"
#include "drops/slot.h"
#include "drops/view_rule.h"
#include "link/messages.h"
#include "link/report_check.h"
#include "link/slot_icons.h"
#include "link/slot_photos.h"
#include "link/slot_table.h"
#include "link/talk.h"
#include "link/transfer.h"
#include "photos/view_name.h"
#include "platform/text/text.h"

namespace vasclip::drops {

using namespace Qt::Literals::StringLiterals;

namespace {

Outcome Missing(const QString& key)
{
    if (key.isEmpty())
        return {false, u"The slot names no record."_s, forms::Colour::Blue, {}};
    return {false, u"%1 is not in the Databook."_s.arg(key), forms::Colour::Red, {}};
}

QString KeyOfSlot(DropDesk& desk, SlotRef slot)
{
    return text::Folded(SlotOf(desk.link, slot).text.Text());
}

/// Runs a step for the slots that are on view and have a text, and tells of all of them. What breaks one off for the
/// user's sake, or for another report, ends it: the slots after it may be another report's by now.
template <class Step>
Outcome ForShown(DropDesk& desk, SlotRef slot, Step&& step)
{
    QStringList filled, words;
    QList<SlotRef> left;
    const int first = link::FirstShown(slot.index);
    for (int i = first; i < first + link::kSlotsOnAPage; ++i)
        if (!KeyOfSlot(desk, {slot.group, i}).isEmpty())
            left.append({slot.group, i});
    if (left.isEmpty())
        return {false, u"The slots on view name no records."_s, forms::Colour::Normal, {}};
    QStringList names; // now: another report may be on the tabs when they are told
    for (const SlotRef one : std::as_const(left))
        names.append(one.group == Group::Subject ? link::SubjectView(one.index) : KeyOfSlot(desk, one));
    forms::Colour colour = forms::Colour::Green;
    int done = 0;
    bool ended = false;
    desk.link.state.notSent.clear();
    while (!left.isEmpty() && !ended) {
        const Outcome one = step(left.first());
        ended = !desk.link.state.notSent.isEmpty() || link::Cancelled(desk.link);
        if (ended && one.message == link::messages::kCancelledBefore)
            break; // nothing of this one went out either
        if (ended && done > 0 && !link::Cancelled(desk.link) && one.message == desk.link.state.notSent) {
            words.append(u"Then: "_s + one.message); // it is among those not filled
            break;
        }
        left.removeFirst();
        const QString name = names.takeFirst();
        done += one.done ? 1 : 0;
        if (one.colour == forms::Colour::Green)
            filled.append(name);
        else if (!one.message.isEmpty())
            words.append(one.message);
        if (colour == forms::Colour::Green || one.colour == forms::Colour::Red)
            colour = one.colour;
    }
    if (words.isEmpty() && left.isEmpty())
        words.append(u"%1 of the slots on view are filled from the Databook."_s.arg(done));
    else if (!filled.isEmpty())
        words.prepend(u"Filled from the Databook: %1."_s.arg(filled.join(u"; "_s)));
    const bool none = done == 0 && !link::Cancelled(desk.link); // nothing was sent, which has been said
    if (!left.isEmpty() && !none) {
        words.append((link::Cancelled(desk.link) ? u"Cancelled. Not filled: %1."_s : u"Not filled: %1."_s)
                         .arg(names.join(u"; "_s)));
        colour = forms::Colour::Red;
    }
    return {done > 0, words.join(u' '), colour, {}};
}

/// @return what ends it, if the report that the tabs show is not the active one
std::optional<Outcome> OtherReport(DropDesk& desk)
{
    const link::ReportCheck check = link::CheckReport(desk.link);
    desk.link.state.notSent = check.words;
    return check.Stands() ? std::nullopt : std::optional(NotSent(check.words));
}

/// Sends the record that a slot's text names. A failure that a box has told of leaves no word behind; here it is the
/// answer to a menu or a click.
Outcome Obtain(link::LinkDesk& desk, SlotRef ref, const QString& key, WithPhoto photo, QLatin1StringView lamp)
{
    Outcome outcome = SendRecord(desk, ref, key, photo, lamp);
    outcome.stayed = false; // after a menu the record on show begins with its front view
    if (!outcome.done && outcome.message.isEmpty()) {
        outcome.message = u"%1 did not reach the report."_s.arg(key);
        outcome.colour = forms::Colour::Red;
    }
    return outcome;
}

} // namespace

Outcome ObtainPhoto(DropDesk& desk, SlotRef ref)
{
    if (const std::optional<Outcome> ended = OtherReport(desk))
        return *ended;
    const QString key = KeyOfSlot(desk, ref);
    const std::optional<Taken> record = TakeRecord(desk.link, key);
    if (!record)
        return Missing(key);
    const forms::Hourglass hourglass(desk.link.ports.window);
    const Slot slot = SlotOf(desk.link, ref);
    const QString view = ref.group == Group::Subject ? link::SubjectView(ref.index) : u"FRONT VIEW"_s;
    const PhotoSent sent = SendView(desk.link, *record, slot.photo, view);
    const auto unsent = TellUnsent(desk.link, *record, sent, view, key);
    link::RefreshSlotIcon(desk.link, ref);
    if (unsent)
        return *unsent;
    if (sent == PhotoSent::None)
        return {false, u"%1 has no %2."_s.arg(key, view), forms::Colour::Blue, {}};
    return {true, u"The %1 of %2 is in the report now."_s.arg(view, key), forms::Colour::Green, {}};
}

Outcome ObtainShownPhotos(DropDesk& desk, SlotRef ref)
{
    return ForShown(desk, ref, [&](SlotRef one) { return ObtainPhoto(desk, one); });
}

Outcome ClearPhoto(DropDesk& desk, SlotRef ref)
{
    if (const std::optional<Outcome> ended = OtherReport(desk))
        return *ended;
    const Slot slot = SlotOf(desk.link, ref);
    const bool cleared = link::ClearSlotPhoto(desk.link, slot.photo, true);
    link::RefreshIcons(desk.link, ref.group);
    if (!cleared && !desk.link.state.notSent.isEmpty())
        return NotSent(desk.link.state.notSent);
    return {cleared, {}, forms::Colour::Normal, {}};
}

Outcome ObtainGeneral(DropDesk& desk, int index)
{
    link::LinkDesk& link = desk.link;
    if (const std::optional<Outcome> ended = OtherReport(desk))
        return *ended;
    const QString typed = text::Folded(link.report.cboGeneral(index).Text());
    const QString view = photos::CleanView(typed);
    const QString key = text::Folded(link.report.txtSubject.Text());
    const std::optional<Taken> record = view.isEmpty() ? std::nullopt : TakeRecord(link, key);
    if (!record || !record->photos.Has(view)) {
        link.ports.prompter.Box(u"Photo not present"_s, u"General Photo is not present in database"_s);
        return {};
    }
    const Slot slot = SlotOf(link, {Group::General, index});
    const QString file = text::Trim(link.loader.Table().ErrGetPict(slot.photo));
    if (!file.isEmpty() &&
        !link.ports.prompter.YesNo(link.globals.productName, u"Overwrite %1?  Are you sure?"_s.arg(file)))
        return {};
    const forms::Hourglass hourglass(link.ports.window);
    const QString before = slot.text.Text();
    slot.text.SetText(record->Text());
    const PhotoSent sent = SendView(link, *record, slot.photo, view);
    const auto unsent = TellUnsent(link, *record, sent, view, key);
    const auto giveBack = [&] { // but for a slot that shows another report by now
        if (slot.text.Text() == record->Text())
            slot.text.SetText(before);
    };
    if (sent == PhotoSent::Failed || sent == PhotoSent::Kept) {
        giveBack();
        return *unsent;
    }
    const GeneralTold told = TellGeneral(desk, index);
    if (told.addressFailed)
        giveBack();
    RefreshSlotIcon(link, slot.ref);
    if (unsent)
        return *unsent;
    const QString cleaned = photos::CleanedView(typed); // the record has it so; the report keeps what is typed
    return {true,
            u"The %1 of %2 is in the report now"_s.arg(view, key) + told.Words() +
                (cleaned.isEmpty() ? QString() : u' ' + cleaned),
            told.Failed() ? forms::Colour::Red : forms::Colour::Green, {}};
}

Outcome ObtainData(DropDesk& desk, SlotRef ref, WithPhoto photo)
{
    if (!link::RowOf(ref.group).Comps())
        return {};
    if (const std::optional<Outcome> ended = OtherReport(desk))
        return *ended;
    const QString key = KeyOfSlot(desk, ref);
    if (!TakeRecord(desk.link, key))
        return Missing(key);
    return Obtain(desk.link, ref, key, photo, kAddedLamp);
}

Outcome ObtainShownData(DropDesk& desk, SlotRef ref, WithPhoto photo)
{
    return ForShown(desk, ref, [&](SlotRef one) { return ObtainData(desk, one, photo); });
}

Outcome ClickDataBox(DropDesk& desk, SlotRef ref)
{
    const common::RoutineScope scope{"gea_Click"};
    const link::GroupRow& row = link::RowOf(ref.group);
    const QString key = KeyOfSlot(desk, ref);
    if (row.lamp.isEmpty())
        return {};
    if (const std::optional<Outcome> ended = OtherReport(desk))
        return *ended;
    if (!TakeRecord(desk.link, key))
        return {};
    return Obtain(desk.link, ref, key, WithPhoto::No, row.lamp);
}

Outcome SavePhotoOfSlot(DropDesk& desk, SlotRef ref)
{
    const Slot slot = SlotOf(desk.link, ref);
    const QString key = text::Folded(slot.text.Text());
    if (ref.group == Group::General) {
        if (key.isEmpty())
            return {false, u"Blank address"_s, forms::Colour::Blue, {}};
        const QString file = desk.link.loader.Table().ErrGetPict(slot.photo);
        if (text::Trim(file).isEmpty() || file.contains("EMPTY"_L1, Qt::CaseInsensitive))
            return {};
    }
    link::TransferSlot(desk.link, ref, link::What::Pic);
    return {true, {}, forms::Colour::Normal, key};
}

Outcome SaveDataOfSlot(DropDesk& desk, SlotRef ref)
{
    link::TransferSlot(desk.link, ref, link::What::Data);
    return {true, {}, forms::Colour::Normal, KeyOfSlot(desk, ref)};
}

} // namespace vasclip::drops
