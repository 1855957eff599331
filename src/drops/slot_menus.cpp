#include "drops/slot_menus.h"

#include "common/error_block.h"
#include "drops/sent_words.h"
#include "drops/view_rule.h"
#include "link/drop_comp.h"
#include "link/messages.h"
#include "link/report_check.h"
#include "link/slot_icons.h"
#include "link/slot_photos.h"
#include "link/slot_table.h"
#include "link/talk.h"
#include "photos/view_name.h"
#include "platform/text/text.h"

namespace vasclip::drops {

using namespace Qt::Literals::StringLiterals;

namespace {

struct GroupWord
{
    link::Group group;
    QLatin1StringView word;
    QLatin1StringView dropType = {}; ///< what DropComp is told by a click on the data box
};
constexpr GroupWord kGroups[] = {{link::Group::Subject, "SUBJECT"_L1},
                                 {link::Group::Alternates, "ALT"_L1, "ALTCOMP"_L1},
                                 {link::Group::Sales, "SALE"_L1, "SALE"_L1},
                                 {link::Group::Listings, "LIST"_L1, "LISTING"_L1},
                                 {link::Group::Rentals, "RENT"_L1, "RENTAL"_L1},
                                 {link::Group::General, "GENERAL"_L1}};

const GroupWord& RowOf(QLatin1StringView group)
{
    for (const GroupWord& row : kGroups)
        if (row.word == group)
            return row;
    return kGroups[0];
}

Outcome Missing(const QString& key)
{
    if (key.isEmpty())
        return {false, u"The slot names no record."_s, forms::Colour::Blue, {}};
    return {false, u"%1 is not in the Databook."_s.arg(key), forms::Colour::Red, {}};
}

QString KeyOfSlot(DropDesk& desk, QLatin1StringView group, int index)
{
    return text::Folded(SlotOf(desk.link, group, index).text.Text());
}

/// Runs a step for the slots that are on view and have a text, and tells of all of them. What breaks one off for the
/// user's sake, or for another report, ends it: the slots after it may be another report's by now.
template <class Step>
Outcome ForShown(DropDesk& desk, QLatin1StringView group, int index, Step&& step)
{
    QStringList filled, words;
    QList<int> left;
    const int first = link::FirstShown(index);
    for (int i = first; i < first + link::kSlotsOnAPage; ++i)
        if (!KeyOfSlot(desk, group, i).isEmpty())
            left.append(i);
    if (left.isEmpty())
        return {false, u"The slots on view name no records."_s, forms::Colour::Normal, {}};
    QStringList names; // now: another report may be on the tabs when they are told
    for (const int i : std::as_const(left))
        names.append(group == "SUBJECT"_L1 ? link::SubjectView(i) : KeyOfSlot(desk, group, i));
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

/// A failure that a box has told of leaves no word behind; here it is the answer to a menu or a click.
Outcome NotObtained(link::LinkDesk& desk, const Slot& slot, link::DropOutcome result, const QString& key)
{
    const Outcome outcome = BrokenOff(desk, slot, result, key);
    return outcome.message.isEmpty()
               ? Outcome{false, u"%1 did not reach the report."_s.arg(key), forms::Colour::Red, {}}
               : outcome;
}

} // namespace

QLatin1StringView GroupOf(const QString& controlName)
{
    const link::GroupRow* found = link::GroupOf(controlName);
    for (const GroupWord& row : kGroups)
        if (found != nullptr && row.group == found->group)
            return row.word;
    return ""_L1;
}

Outcome ObtainPhoto(DropDesk& desk, QLatin1StringView group, int index)
{
    if (const std::optional<Outcome> ended = OtherReport(desk))
        return *ended;
    const QString key = KeyOfSlot(desk, group, index);
    if (!TakeRecord(desk.link, key))
        return Missing(key);
    const forms::Hourglass hourglass(desk.link.ports.window);
    const Slot slot = SlotOf(desk.link, group, index);
    const QString view = group == "SUBJECT"_L1 ? link::SubjectView(index) : u"FRONT VIEW"_s;
    const PhotoSent sent = SendView(desk.link, slot.photo, view);
    const auto unsent = TellUnsent(desk.link, sent, view, key); // before the icons list other records' photos
    slot.RefreshIcons(desk.link);
    if (unsent)
        return *unsent;
    if (sent == PhotoSent::None)
        return {false, u"%1 has no %2."_s.arg(key, view), forms::Colour::Blue, {}};
    return {true, u"The %1 of %2 is in the report now."_s.arg(view, key), forms::Colour::Green, {}};
}

Outcome ObtainShownPhotos(DropDesk& desk, QLatin1StringView group, int index)
{
    return ForShown(desk, group, index, [&](int i) { return ObtainPhoto(desk, group, i); });
}

Outcome ClearPhoto(DropDesk& desk, QLatin1StringView group, int index)
{
    if (const std::optional<Outcome> ended = OtherReport(desk))
        return *ended;
    const Slot slot = SlotOf(desk.link, group, index);
    const bool cleared = link::ClearSlotPhoto(desk.link, slot.photo, true);
    slot.RefreshIcons(desk.link);
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
    if (view.isEmpty() || !TakeRecord(link, key) || link.lists.lstViews.IndexOf(view) < 0) {
        link.ports.prompter.Box(u"Photo not present"_s, u"General Photo is not present in database"_s);
        return {};
    }
    const Slot slot = SlotOf(link, "GENERAL"_L1, index);
    const QString file = text::Trim(link.loader.Table().ErrGetPict(slot.photo));
    if (!file.isEmpty() &&
        !link.ports.prompter.YesNo(link.globals.productName, u"Overwrite %1?  Are you sure?"_s.arg(file)))
        return {};
    const forms::Hourglass hourglass(link.ports.window);
    const QString before = slot.text.Text();
    slot.text.SetText(SlotText(link.state));
    const PhotoSent sent = SendView(link, slot.photo, view);
    const auto unsent = TellUnsent(link, sent, view, key);
    const auto giveBack = [&] { // but for a slot that shows another report by now
        if (slot.text.Text() == SlotText(link.state))
            slot.text.SetText(before);
    };
    if (sent == PhotoSent::Failed || sent == PhotoSent::Kept) {
        giveBack();
        return *unsent;
    }
    const GeneralTold told = TellGeneral(desk, index);
    if (told.addressFailed)
        giveBack();
    slot.RefreshIcons(link);
    if (unsent)
        return *unsent;
    const QString cleaned = photos::CleanedView(typed); // the record has it so; the report keeps what is typed
    return {true,
            u"The %1 of %2 is in the report now"_s.arg(view, key) + told.Words() +
                (cleaned.isEmpty() ? QString() : u' ' + cleaned),
            told.Failed() ? forms::Colour::Red : forms::Colour::Green, {}};
}

Outcome ObtainData(DropDesk& desk, QLatin1StringView group, int index, WithPhoto photo)
{
    link::LinkDesk& link = desk.link;
    if (const std::optional<Outcome> ended = OtherReport(desk))
        return *ended;
    const QString key = KeyOfSlot(desk, group, index);
    if (!TakeRecord(link, key))
        return Missing(key);
    const Slot slot = SlotOf(link, group, index);
    link.state.dragSourceIndex = -1;
    const link::DropOutcome sent = link::DropComp(link, slot.text, slot.photo, group, false);
    if (sent != link::DropOutcome::Sent)
        return NotObtained(link, slot, sent, key);
    const QString shown = SlotText(link.state);
    slot.text.SetText(shown);
    PhotoSent photoSent = PhotoSent::Yes;
    QString photoTold;
    if (photo == WithPhoto::Yes) {
        // The send turned the queue, and the lists may be another record's.
        photoSent = TakeRecord(link, key) ? SendView(link, slot.photo, u"FRONT VIEW"_s) : PhotoSent::Failed;
        if (const auto unsent = TellUnsent(link, photoSent, u"FRONT VIEW"_s, key))
            photoTold = unsent->message;
    }
    if (slot.data != nullptr && slot.text.Text() == shown) // a refresh may show another report by now
        link.loader.ErrLoadPict(*slot.data, link.globals.G_ProgramDir + u"Addendum_Added.bmp"_s);
    slot.RefreshIcons(link);
    link.ports.window.AppActivate();
    return InReport(link, shown, photoSent, photoTold);
}

Outcome ObtainShownData(DropDesk& desk, QLatin1StringView group, int index, WithPhoto photo)
{
    return ForShown(desk, group, index, [&](int i) { return ObtainData(desk, group, i, photo); });
}

Outcome ClickDataBox(DropDesk& desk, QLatin1StringView group, int index)
{
    const common::RoutineScope scope{"gea_Click"};
    link::LinkDesk& link = desk.link;
    const GroupWord& row = RowOf(group);
    const QLatin1StringView full = link::RowOf(row.group).lamp;
    const QString key = KeyOfSlot(desk, group, index);
    if (full.isEmpty())
        return {};
    if (const std::optional<Outcome> ended = OtherReport(desk))
        return *ended;
    if (!TakeRecord(link, key))
        return {};
    const Slot slot = SlotOf(link, group, index);
    link.state.currentSlotIndex = static_cast<qint16>(index);
    link.state.dragSourceIndex = -1;
    const link::DropOutcome sent = link::DropComp(link, slot.text, slot.photo, row.dropType, false);
    if (sent != link::DropOutcome::Sent)
        return NotObtained(link, slot, sent, key);
    link.loader.ErrLoadPict(*slot.data, link.globals.G_ProgramDir + full);
    slot.text.SetText(SlotText(link.state));
    return InReport(link, slot.text.Text(), PhotoSent::Yes, {});
}

Outcome SavePhotoOfSlot(DropDesk& desk, QLatin1StringView group, int index)
{
    const Slot slot = SlotOf(desk.link, group, index);
    const QString key = text::Folded(slot.text.Text());
    if (group == "GENERAL"_L1) {
        if (key.isEmpty())
            return {false, u"Blank address"_s, forms::Colour::Blue, {}};
        const QString file = desk.link.loader.Table().ErrGetPict(slot.photo);
        if (text::Trim(file).isEmpty() || file.contains("EMPTY"_L1, Qt::CaseInsensitive))
            return {};
    }
    if (!desk.routines.save)
        return {};
    desk.routines.save(group, index, SlotPart::Photo);
    return {true, {}, forms::Colour::Normal, key};
}

Outcome SaveDataOfSlot(DropDesk& desk, QLatin1StringView group, int index)
{
    if (!desk.routines.save)
        return {};
    desk.routines.save(group, index, SlotPart::Data);
    return {true, {}, forms::Colour::Normal, KeyOfSlot(desk, group, index)};
}

} // namespace vasclip::drops
