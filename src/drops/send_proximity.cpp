#include "drops/actions.h"

#include "drops/slot.h"
#include "link/messages.h"
#include "link/report_check.h"
#include "link/reporter.h"
#include "link/send_proximity.h"
#include "platform/text/text.h"

namespace vasclip::drops {

using namespace Qt::Literals::StringLiterals;

namespace {

const QString kOtherComp =
    u"The proximity %1 was measured for %2, and %3 is %4. Send it into that comp's cell all the same?"_s;

/// "Alt comp 2"
QString NameOf(SlotRef slot)
{
    return u"%1 %2"_s.arg(link::RowOf(slot.group).title, text::Dec(slot.index));
}

bool MaySend(const DropDesk& drops, const Drag& drag, SlotRef slot)
{
    const QString address = text::Trim(SlotOf(drops.link, slot).text.Text());
    if (text::Folded(address) == drag.key)
        return true;
    return drops.link.ports.prompter.YesNo(
        drops.link.globals.productName,
        kOtherComp.arg(drag.text, drag.key.isEmpty() ? u"no address"_s : drag.key, NameOf(slot),
                       address.isEmpty() ? u"empty"_s : address));
}

} // namespace

Outcome SendProximity(DropDesk& drops, const Drag& drag, SlotRef slot)
{
    link::LinkDesk& desk = drops.link;
    if (!MaySend(drops, drag, slot))
        return {};
    link::ProximitySend sent = link::ProximitySend::NoReport;
    if (!link::Reported(desk.ports.prompter, "SendProximity",
                        [&] { sent = link::KelUpdateKelProximity(desk, slot, drag.text); }))
        return NotSent(u"The proximity was not sent."_s);
    switch (sent) {
    case link::ProximitySend::Sent:
        break;
    case link::ProximitySend::NoCell:
        return NotSent(u"The form has no cell for the proximity of %1."_s.arg(NameOf(slot)));
    case link::ProximitySend::NoReport:
        return NotSent(link::NoReportWords(desk));
    case link::ProximitySend::OtherReport:
        return NotSent(desk.state.notSent);
    }
    desk.addr.txtAltProximity(slot.index).SetText(drag.text);
    return {true, u"%1: %2 is in the report now."_s.arg(NameOf(slot), drag.text), forms::Colour::Green};
}

} // namespace vasclip::drops
