#include "link/drop_comp.h"

#include "common/proper_case.h"
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
#include "store/fields.h"

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
QString LeftOfOldComp(const Conversation& desk, const SendResult& result, const QString& existing)
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
DropOutcome TellCancelled(ReportMirror& desk, const QString& key, const SendResult& result)
{
    desk.state.notSent = result.sent == 0 ? messages::kNothingSent.arg(key)
                                          : messages::kPartSent.arg(key, text::Dec(result.sent),
                                                                    text::Dec(result.rows));
    return DropOutcome::Cancelled;
}

/// What the record holds now; none if it is gone.
void Read(LinkDesk& desk, Dropped& dropped)
{
    dropped.record = store::ReadRecord(desk.ports, desk.sources.datDatabook, dropped.key);
    if (dropped.record)
        dropped.address =
            common::AddressInCase(dropped.record->Text(fields::ADDRESS), desk.globals.addressCase);
}

/// Reads the record, and asks whether anybody is there.
DropOutcome Prepare(LinkDesk& desk, SlotRef slot, ClearPhoto clear, Dropped& dropped)
{
    const bool looked = Reported(desk.ports.prompter, "DropComp", [&] {
        Read(desk, dropped);
        if (dropped.record)
            KelQueryActiveReports(desk.txtDDE);
    });
    if (Cancelled(desk))
        return TellCancelled(desk, dropped.key, {});
    if (!looked)
        return DropOutcome::Failed;
    if (!dropped.record)
        return DropOutcome::NotFound;
    if (!KelEnsureRunning(desk))
        return Cancelled(desk) ? TellCancelled(desk, dropped.key, {}) : DropOutcome::NotRunning;
    if (clear == ClearPhoto::Yes && !ClearSlotPhoto(desk, PhotoOf(desk.slots, slot), false))
        return DropOutcome::Failed;
    return DropOutcome::Sent;
}

DropOutcome SendDropped(LinkDesk& desk, SlotRef slot, ClearPhoto clear, Dropped& dropped)
{
    const QLatin1StringView group = RowOf(slot.group).mapping;
    const QString existing = text::Trim(TextOf(desk.report, slot).Text());
    if (const DropOutcome ended = Prepare(desk, slot, clear, dropped); ended != DropOutcome::Sent)
        return ended;
    SendResult result;
    const bool updated = Reported(desk.ports.prompter, "DropComp", [&] {
        Read(desk, dropped); // the exchanges took their time
        if (dropped.record)
            result = KelUpdateKel(desk, *dropped.record, static_cast<qint16>(slot.index), group);
    });
    dropped.sent = result.sent;
    dropped.addressSent = result.addressSent;
    if (Cancelled(desk) && !result.complete && !result.otherReport)
        return TellCancelled(desk, dropped.key, result);
    if (!updated)
        return DropOutcome::Failed;
    if (!dropped.record)
        return DropOutcome::NotFound;
    if (result.otherReport)
        return DropOutcome::OtherReport;
    if (result.sent > 0 && LinkSurvived(result) && !existing.isEmpty() &&
        text::Folded(existing) != text::Folded(dropped.key))
        dropped.leftOfOldComp = LeftOfOldComp(desk, result, existing);
    return OutcomeOf(result);
}

DropOutcome Swap(LinkDesk& desk, int target, int source)
{
    switch (SendSwap(desk, target, source)) {
    case SwapOutcome::Swapped:
        return DropOutcome::Swapped;
    case SwapOutcome::NotSent:
        return DropOutcome::OtherReport;
    default:
        return DropOutcome::Failed;
    }
}

} // namespace

Dropped DropComp(LinkDesk& desk, SlotRef slot, const QString& key, int source, ClearPhoto clear)
{
    const common::RoutineScope scope{"DropComp"};
    const forms::Hourglass hourglass{desk.ports.window};
    Dropped dropped{.key = key};
    if (source == slot.index)
        dropped.outcome = DropOutcome::OwnSlot;
    else if (source >= 1 && source <= photos::kComps)
        dropped.outcome = Swap(desk, slot.index, source);
    else if (!ConfirmOverwrite(desk, TextOf(desk.report, slot).Text(), key))
        dropped.outcome = DropOutcome::Refused;
    else
        dropped.outcome = SendDropped(desk, slot, clear, dropped);
    return dropped;
}

SendResult KelUpdateKel(LinkDesk& desk, const store::Record& record, qint16 comp, const QString& compType)
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
        result = SendBulk(desk, record, formType, report, comp, compType);
        desk.ports.window.AppActivate();
        if (LinkSurvived(result))
            SendScriptIfThere(desk, u"recalc.bas"_s);
        desk.ports.window.AppActivate();
    });
    return result;
}

bool ConfirmOverwrite(Conversation& desk, const QString& existing, const QString& key)
{
    desk.txtDDE.SetText(QString());
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
