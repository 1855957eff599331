#include "drops/sent_words.h"

#include "link/slot_icons.h"
#include "platform/text/text.h"

namespace vasclip::drops {

using namespace Qt::Literals::StringLiterals;

Outcome BrokenOff(link::LinkDesk& desk, const Slot& slot, const link::Dropped& dropped)
{
    const QString& key = dropped.key;
    using enum link::DropOutcome;
    const auto told = [](const QString& message) { return Outcome{false, message, forms::Colour::Red, {}}; };
    if (dropped.addressSent) {
        slot.text.SetText(SlotText(dropped.address, key));
        link::RefreshSlotIcon(desk, slot.ref, *dropped.record);
    }
    const QString shown = text::Trim(slot.text.Text());
    const QString again = u"Send it again."_s; // dropped, or by a menu or a key
    switch (dropped.outcome) {
    case Incomplete:
        if (dropped.addressSent)
            return told(u"Only a part of %1 reached the report. "_s.arg(key) + again);
        if (shown.isEmpty())
            return told(u"Only a part of %1 reached the report, not its address. "_s.arg(key) + again);
        return told(u"Only a part of %1 reached the report; the address there is still %2. "_s.arg(key, shown) + again);
    case NothingSent:
        return told(u"Nothing of %1 reached the report."_s.arg(key));
    case Unsure:
        return told(u"Whether %1 reached the report is not known: the forms program did not answer. "
                    u"Refresh shows what is there."_s.arg(key));
    case OtherReport:
    case Cancelled:
        return NotSent(desk.state.notSent);
    case NotFound:
        return told(u"%1 is no longer in the Databook."_s.arg(key));
    default: // refused by the user, or told in a box
        return {};
    }
}

Outcome InReport(const link::Dropped& dropped, PhotoSent photo, const QString& photoTold)
{
    const QString shown = SlotText(dropped.address, dropped.key);
    const QString& left = dropped.leftOfOldComp;
    QString message = left.isEmpty() ? u"%1 is in the report now"_s.arg(shown)
                                     : u"%1 is in the report now; %2"_s.arg(shown, left);
    if (photo == PhotoSent::Cleared || photo == PhotoSent::Kept)
        return {true, message + u". "_s + photoTold, forms::Colour::Red, {}};
    if (photo == PhotoSent::Failed)
        return {true, message + (left.isEmpty() ? u", its photo is not."_s : u". Its photo is not there."_s),
                forms::Colour::Red, {}};
    message += photo == PhotoSent::None ? u". It has no front view."_s : u"."_s;
    const bool all = left.isEmpty() && photo != PhotoSent::None;
    return {true, message, all ? forms::Colour::Green : forms::Colour::Blue, {}};
}

} // namespace vasclip::drops
