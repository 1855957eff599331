#include "link/swap_comps.h"

#include "common/addresses.h"
#include "link/comp2kel.h"
#include "link/kel_channel.h"
#include "link/kel_helpers.h"
#include "link/messages.h"
#include "link/report_check.h"
#include "link/reporter.h"
#include "link/slot_icons.h"
#include "link/slot_photos.h"
#include "link/slot_table.h"
#include "link/talk.h"
#include "platform/text/text.h"
#include "store/fields.h"

namespace vasclip::link {

using namespace Qt::Literals::StringLiterals;

namespace {

bool HasSlot(const ReportControls& report, int comp)
{
    return comp >= 1 && comp <= RowOf(Group::Sales).slots && report.txtComp(comp).Enabled() &&
           !OnMissingPage(report, {Group::Sales, comp});
}

void ReadAddress(LinkDesk& desk, const QList<MappingRow>& rows, int comp)
{
    const QString report = text::Trim(desk.addr.txtKelReport.Text());
    for (const MappingRow& row : rows) {
        const QString field = row.fieldName.toUpper();
        const bool address = field == fields::ADDRESS;
        if (!address && field != fields::NEIGHBORHD)
            continue;
        const QString cell = KelShiftCell(row.RowCell(), row.offset, static_cast<qint16>(comp));
        const QString value = KelGetFieldInfo(desk.txtDDE, report, rows.first().formName + u'|' + cell);
        if (address) {
            desk.addr.txtCompAddr(comp).SetText(value);
            continue;
        }
        const common::CityStateZip parts = common::ParseCityStateZip(value);
        desk.addr.txtCompCity(comp).SetText(parts.city);
        desk.addr.txtCompState(comp).SetText(parts.state);
        desk.addr.txtCompZip(comp).SetText(parts.zip);
    }
}

} // namespace

SwapOutcome SendSwap(LinkDesk& desk, int target, int source)
{
    const ReportCheck check = CheckReport(desk);
    desk.state.notSent = check.words;
    if (!check.Stands())
        return SwapOutcome::NotSent;
    int failure = 0;
    bool asked = false;
    const bool swapped = Reported(desk.ports.prompter, "ErrClearComp", [&] {
        try {
            KelOpenReport(desk.txtDDE, KelFirstToken(desk.txtDDE.Text())); // the macro runs on the topic that this leaves
            asked = true;
            ErrClearComp(desk.txtDDE, target, source);
        } catch (const RuntimeError& error) {
            failure = error.Number();
            throw;
        }
    });
    if (swapped)
        return SwapOutcome::Swapped;
    if (failure == conduit::kUserInterrupt) {
        desk.state.notSent = messages::kCancelledBefore;
        return SwapOutcome::NotSent;
    }
    const bool silent = failure == error::kLinkTimeOut || failure == error::kLinkPeerGone;
    return asked && silent ? SwapOutcome::Unsure : SwapOutcome::Failed;
}

SwapOutcome SwapComps(LinkDesk& desk, int target, int source)
{
    const common::RoutineScope scope{"SwapComps"};
    if (desk.state.refreshing || desk.state.transferring)
        return SwapOutcome::Busy;
    if (target == source || !HasSlot(desk.report, target) || !HasSlot(desk.report, source))
        return SwapOutcome::NoSuchSlot;
    const Talking talking{desk, messages::kSwapping.arg(text::Dec(target), text::Dec(source))};
    const forms::Hourglass hourglass{desk.ports.window};
    const SwapOutcome sent = SendSwap(desk, target, source);
    desk.ports.window.AppActivate();
    if (sent != SwapOutcome::Swapped)
        return sent;
    const bool read =
        Reported(desk.ports.prompter, "SwapComps", [&] { ReadSalesSlots(desk, {target, source}); });
    return read ? SwapOutcome::Swapped : SwapOutcome::Unread;
}

void ReadSalesSlots(LinkDesk& desk, const QList<int>& comps)
{
    KelQueryGetImages(desk.txtDDE);
    desk.addr.txtKelimages.SetText(desk.txtDDE.Text());
    const QString formType = KelFirstToken(desk.addr.txtKelListForms.Text());
    MappingPages pages;
    for (const int comp : comps) {
        const QString base = text::Dec(KelPageBase(static_cast<qint16>(comp)));
        ReadAddress(desk, pages.Rows(desk.sources.datComp2Kel_CURRENT, formType, base, u"SALE"_s), comp);
        desk.report.txtComp(comp).SetText(desk.addr.txtCompAddr(comp).Text());
        SetPhoto(desk, desk.slots.imaComp(comp));
        SetAddendumIcon(desk, desk.slots.geaComp(comp), desk.report.txtComp(comp));
    }
    RefreshCompIcons(desk);
}

} // namespace vasclip::link
