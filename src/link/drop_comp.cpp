#include "link/drop_comp.h"

#include "common/proper_case.h"
#include "link/form_table.h"
#include "link/kel_channel.h"
#include "link/kel_helpers.h"
#include "link/messages.h"
#include "link/reporter.h"
#include "link/slot_photos.h"
#include "platform/text/text.h"

namespace vasclip::link {

using namespace Qt::Literals::StringLiterals;

namespace {

DropOutcome SendDropped(LinkDesk& desk, const forms::Control& target, forms::PictureBox& photoSlot,
                        const QString& compType, bool clearPhoto)
{
    const QString key = desk.state.currentKey;
    bool found = false;
    const bool looked = Reported(desk.ports.prompter, "DropComp", [&] {
        found = store::FindRecord(desk.ports, desk.sources.datDatabook, key, u"CENTRALKEY"_s) &&
                StandOn(desk, key);
        if (!found)
            return;
        desk.state.displayAddress = common::AddressInCase(
            store::GetFieldData(desk.sources.datDatabook, u"ADDRESS"_s), desk.globals.addressCase);
        KelQueryActiveReports(desk.txtDDE);
    });
    if (!looked)
        return DropOutcome::Failed;
    if (!found)
        return DropOutcome::NotFound;
    if (!KelEnsureRunning(desk))
        return DropOutcome::NotRunning;
    if (clearPhoto) {
        desk.state.currentSlotIndex = static_cast<qint16>(target.Index());
        if (!ClearSlotPhoto(desk, photoSlot, false))
            return DropOutcome::Failed;
    }
    SendResult result;
    const bool updated = Reported(desk.ports.prompter, "DropComp", [&] {
        found = StandOn(desk, key);
        if (found)
            result = KelUpdateKel(desk, static_cast<qint16>(target.Index()), CompGroup(compType));
    });
    if (!updated)
        return DropOutcome::Failed;
    if (!found)
        return DropOutcome::NotFound;
    return result.complete ? DropOutcome::Sent : DropOutcome::Incomplete;
}

} // namespace

DropOutcome DropComp(LinkDesk& desk, const forms::Control& target, forms::PictureBox& photoSlot,
                     const QString& compType, bool clearPhoto)
{
    const common::RoutineScope scope{"DropComp"};
    const forms::Hourglass hourglass{desk.ports.window};
    const int index = target.Index();
    const qint16 source = desk.state.dragSourceIndex;
    if (source == index)
        return DropOutcome::OwnSlot;
    if (source >= 1 && source <= 9) {
        const bool swapped =
            Reported(desk.ports.prompter, "DropComp", [&] { ErrClearComp(desk.txtDDE, index, source); });
        return swapped ? DropOutcome::Swapped : DropOutcome::Failed;
    }
    if (source == -1) {
        desk.state.dropRefused = false;
        if (!ConfirmOverwrite(desk, ExistingSlotText(desk.report, compType, index))) {
            desk.state.dropRefused = true;
            return DropOutcome::Refused;
        }
    }
    return SendDropped(desk, target, photoSlot, compType, clearPhoto);
}

SendResult KelUpdateKel(LinkDesk& desk, qint16 comp, const QString& compType)
{
    SendResult result;
    Reported(desk.ports.prompter, "KelUpdateKel", [&] {
        KelQueryActiveReports(desk.txtDDE);
        if (text::Trim(desk.txtDDE.Text()).isEmpty())
            return;
        const QString report = KelFirstToken(desk.txtDDE.Text());
        KelOpenReport(desk.txtDDE, report);
        KelListForms(desk.txtDDE, report);
        const QString formType = KelFirstToken(desk.txtDDE.Text());
        desk.ports.window.AppActivate();
        result = SendBulk(desk, formType, report, comp, compType);
        desk.ports.window.AppActivate();
        if (LinkSurvived(result))
            SendScriptIfThere(desk, u"recalc.bas"_s);
        desk.ports.window.AppActivate();
    });
    return result;
}

bool ConfirmOverwrite(LinkDesk& desk, const QString& existing)
{
    desk.txtDDE.SetText(QString());
    const QString& key = desk.state.currentKey;
    if (text::Trim(existing).isEmpty() || text::Folded(existing) == text::Folded(key))
        return true;
    desk.ports.window.AppActivate();
    return desk.ports.prompter.YesNo(messages::kOverwriteTitle,
                                     messages::kOverwrite.arg(text::Trim(existing), text::Trim(key)));
}

QString ExistingSlotText(const ReportControls& report, const QString& compType, int index)
{
    if (index == 0 || index == -1)
        return {};
    const QString group = CompGroup(compType);
    if (group == "SALE"_L1)
        return report.txtComp(index).Text();
    if (group == "ALT"_L1)
        return report.txtAltComp(index).Text();
    if (group == "RENT"_L1)
        return report.txtRental(index).Text();
    if (group == "LIST"_L1)
        return report.txtListing(index).Text();
    return {};
}

} // namespace vasclip::link
