#include "link/drop_comp.h"

#include "common/proper_case.h"
#include "link/form_table.h"
#include "link/kel_channel.h"
#include "link/kel_helpers.h"
#include "link/messages.h"
#include "link/report_check.h"
#include "link/reporter.h"
#include "link/slot_photos.h"
#include "link/slot_table.h"
#include "link/swap_comps.h"
#include "link/talk.h"
#include "platform/text/text.h"

namespace vasclip::link {

using namespace Qt::Literals::StringLiterals;

namespace {

DropOutcome OutcomeOf(const SendResult& result)
{
    if (result.complete)
        return DropOutcome::Sent;
    if (result.sent > 0)
        return DropOutcome::Incomplete;
    const bool noAnswer = result.failure == error::kLinkTimeOut || result.failure == error::kLinkPeerGone;
    return noAnswer ? DropOutcome::Unsure : DropOutcome::NothingSent;
}

/// What cells without a value of the new comp still tell of the one before it, in words.
QString LeftOfOldComp(LinkDesk& desk, const SendResult& result, const QString& existing)
{
    QStringList left;
    for (const UnsentField& field : result.unsent) {
        try {
            const QString held = text::Trim(KelGetFieldInfo(desk.txtDDE, result.report, field.item));
            if (!held.isEmpty())
                left.append(messages::kStillOfOldComp.arg(field.what, held, existing));
        } catch (const RuntimeError&) {
            // The send itself is done; that the cell could not be looked at is no reason for a box.
            left.append(messages::kMayBeOfOldComp.arg(field.what, existing));
        }
    }
    return left.join(u"; "_s);
}

/// How far a send got that the user has cancelled.
DropOutcome TellCancelled(LinkDesk& desk, const QString& key, const SendResult& result)
{
    desk.state.notSent = result.sent == 0 ? messages::kNothingSent.arg(key)
                                          : messages::kPartSent.arg(key, text::Dec(result.sent),
                                                                    text::Dec(result.rows));
    return DropOutcome::Cancelled;
}

DropOutcome SendDropped(LinkDesk& desk, const forms::Control& target, forms::PictureBox& photoSlot,
                        const QString& compType, bool clearPhoto)
{
    const QString existing = text::Trim(ExistingSlotText(desk.report, compType, target.Index()));
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
    if (Cancelled(desk))
        return TellCancelled(desk, key, {});
    if (!looked)
        return DropOutcome::Failed;
    if (!found)
        return DropOutcome::NotFound;
    if (!KelEnsureRunning(desk))
        return Cancelled(desk) ? TellCancelled(desk, key, {}) : DropOutcome::NotRunning;
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
    desk.state.addressSent = result.addressSent;
    if (Cancelled(desk) && !result.complete && !result.otherReport)
        return TellCancelled(desk, key, result);
    if (!updated)
        return DropOutcome::Failed;
    if (!found)
        return DropOutcome::NotFound;
    if (result.otherReport)
        return DropOutcome::OtherReport;
    if (result.sent > 0 && LinkSurvived(result) && !existing.isEmpty() && text::Folded(existing) != text::Folded(key))
        desk.state.leftOfOldComp = LeftOfOldComp(desk, result, existing);
    return OutcomeOf(result);
}

} // namespace

DropOutcome DropComp(LinkDesk& desk, const forms::Control& target, forms::PictureBox& photoSlot,
                     const QString& compType, bool clearPhoto)
{
    const common::RoutineScope scope{"DropComp"};
    const forms::Hourglass hourglass{desk.ports.window};
    const int index = target.Index();
    const qint16 source = desk.state.dragSourceIndex;
    desk.state.addressSent = false;
    desk.state.leftOfOldComp.clear();
    if (source == index)
        return DropOutcome::OwnSlot;
    if (source >= 1 && source <= 9) {
        switch (SendSwap(desk, index, source)) {
        case SwapOutcome::Swapped:
            return DropOutcome::Swapped;
        case SwapOutcome::NotSent:
            return DropOutcome::OtherReport;
        default:
            return DropOutcome::Failed;
        }
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
        // The question before it gave the user time to bring another report to the front.
        if (const ReportCheck check = CheckAnsweredReport(desk); !check.Stands()) {
            desk.state.notSent = check.words;
            result.otherReport = true;
            return;
        }
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
    const GroupRow* row = GroupOfWord(compType);
    return row ? (report.*row->texts)(index).Text() : QString();
}

} // namespace vasclip::link
