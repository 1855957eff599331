#include "drops/actions.h"

#include "drops/sent_words.h"
#include "link/drop_comp.h"
#include "platform/text/text.h"

namespace vasclip::drops {

using namespace Qt::Literals::StringLiterals;

Outcome PasteRecord(DropDesk& drops, const Drag& drag, const DropRule& rule, forms::Control& target)
{
    link::LinkDesk& desk = drops.link;
    const Slot slot = SlotOf(desk, rule.group, target.Index());
    desk.state.dragSourceIndex = -1;
    desk.state.currentKey = text::Folded(drag.key);

    desk.ports.window.AppActivate();
    const link::DropOutcome result = link::DropComp(desk, target, slot.photo, rule.group, false);
    desk.ports.window.AppActivate();
    if (result != link::DropOutcome::Sent)
        return BrokenOff(desk, slot, result, drag.key);

    const QString shown = SlotText(desk.state);
    slot.text.SetText(shown);
    PhotoSent photo = PhotoSent::Yes;
    QString photoTold;
    if (rule.action == DropAction::PasteCompAndPhoto) {
        // The send turned the queue, and the lists may be another record's.
        photo = TakeRecord(desk, drag.key) ? SendView(desk, slot.photo, u"FRONT VIEW"_s) : PhotoSent::Failed;
        if (const auto unsent = TellUnsent(desk, photo, u"FRONT VIEW"_s, shown))
            photoTold = unsent->message;
    }
    if (slot.text.Text() == shown) // a refresh may show another report by now
        desk.loader.ErrLoadPict(*slot.data, desk.globals.G_ProgramDir + u"Addendum_Added.bmp"_s);
    slot.RefreshIcons(desk);
    desk.ports.window.AppActivate();
    return InReport(desk, shown, photo, photoTold);
}

} // namespace vasclip::drops
