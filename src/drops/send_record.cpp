#include "drops/send_record.h"

#include "drops/sent_words.h"
#include "link/drop_comp.h"
#include "link/slot_icons.h"
#include "platform/text/text.h"

namespace vasclip::drops {

using namespace Qt::Literals::StringLiterals;

Outcome SendRecord(link::LinkDesk& desk, SlotRef ref, const QString& key, WithPhoto photo, QLatin1StringView lamp)
{
    const Slot slot = SlotOf(desk, ref);
    desk.ports.window.AppActivate();
    const link::Dropped dropped = link::DropComp(desk, ref, text::Folded(key));
    desk.ports.window.AppActivate();
    if (dropped.outcome != link::DropOutcome::Sent) {
        Outcome outcome = BrokenOff(desk, slot, dropped);
        outcome.stayed = dropped.outcome != link::DropOutcome::NotFound; // it may be the one on show
        return outcome;
    }

    const Taken record{*dropped.record, dropped.key, dropped.address, photos::PhotoList(*dropped.record)};
    const QString shown = record.Text();
    slot.text.SetText(shown);
    PhotoSent sent = PhotoSent::Yes;
    QString photoTold;
    if (photo == WithPhoto::Yes) {
        sent = SendView(desk, record, slot.photo, u"FRONT VIEW"_s);
        if (const auto unsent = TellUnsent(desk, record, sent, u"FRONT VIEW"_s, shown))
            photoTold = unsent->message;
    }
    if (slot.text.Text() == shown) { // a refresh may show another report by now
        desk.loader.ErrLoadPict(*slot.data, desk.globals.G_ProgramDir + lamp);
        link::RefreshSlotIcon(desk, ref, record.record);
    }
    desk.ports.window.AppActivate();
    Outcome outcome = InReport(dropped, sent, photoTold);
    outcome.stayed = true;
    return outcome;
}

} // namespace vasclip::drops
