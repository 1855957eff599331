#include "databook/record_actions.h"

#include "common/error_block.h"
#include "databook/frm_rename.h"
#include "databook/messages.h"
#include "databook/records.h"
#include "forms/screen.h"
#include "store/fields.h"
#include "store/messages.h"
#include "store/store.h"

using namespace Qt::StringLiterals;

namespace vasclip::databook {

using common::RoutineScope;

namespace {

QString WantedKey(const RecordWork& work)
{
    return KeyOf(work.desk.txtcentralkey.Text());
}

void Show(const RecordWork& work, const QString& key)
{
    if (work.showRecord)
        work.showRecord(key);
}

void Open(const RecordWork& work, const QString& key)
{
    if (!work.loadCompForm)
        return;
    work.ports.pump.DoEvents();
    if (work.loadCompForm(key))
        Show(work, key);
}

/// Says why nothing was done; the buttons follow what is in the Databook now.
void Refuse(const RecordWork& work, const RecordResult& result)
{
    if (result.outcome == RecordOutcome::NotFound)
        work.desk.CheckStatus(work.ports, work.databook, work.status);
    work.status.lblmsg.Show(result.message, result.outcome == RecordOutcome::Blank ? forms::Colour::Blue
                                                                                   : forms::Colour::Red);
}

void Rename(const RecordWork& work, RenameMode mode)
{
    if (!work.desk.VerifyAddress(work.status))
        return;
    const QString key = WantedKey(work);
    if (!store::FindRecord(work.ports, work.databook, key, fields::CENTRALKEY)) {
        Refuse(work, {RecordOutcome::NotFound, kNoSuchAddress.arg(key)});
        return;
    }
    frm_Rename screen(work.ports, work.databook, mode, key, work.newNames);
    work.ports.screens.ShowModal(screen);
    if (screen.NewKey().isEmpty())
        return;
    Show(work, screen.NewKey());
    work.status.lblmsg.Show((mode == RenameMode::Copy ? kWasCopied : kWasRenamed).arg(key, screen.NewKey()),
                            forms::Colour::Blue);
}

} // namespace

void CompAddRecord(const RecordWork& work)
{
    const RoutineScope scope{"CompAddRecord"};
    if (!work.desk.VerifyFields(work.status))
        return;
    const QString key = WantedKey(work);
    const RecordResult added = AddRecord(work.ports, work.databook, work.desk.txtcentralkey.Text(),
                                         work.desk.cboapprslType.Text().at(0), work.globals.addressCase);
    if (added) {
        Show(work, key);
        work.status.lblmsg.Show(kWasAdded.arg(key), forms::Colour::Blue);
        Open(work, key);
    } else if (added.outcome == RecordOutcome::Duplicate) {
        const bool open =
            work.loadCompForm && work.ports.prompter.YesNo(store::kPlainTitle, kOpenExisting.arg(key));
        Show(work, key);
        work.status.lblmsg.Show(key + kWasFound, forms::Colour::Blue);
        if (open)
            Open(work, key);
    } else {
        Refuse(work, added);
    }
}

void CompEditRecord(const RecordWork& work)
{
    const RoutineScope scope{"CompEditRecord"};
    if (!work.desk.VerifyAddress(work.status))
        return;
    const QString key = WantedKey(work);
    if (store::FindRecord(work.ports, work.databook, key, fields::CENTRALKEY))
        Open(work, key);
    else
        Refuse(work, {RecordOutcome::NotFound, kNoSuchAddress.arg(key)});
}

void CompDeleteRecord(const RecordWork& work)
{
    const RoutineScope scope{"CompDeleteRecord"};
    if (!work.desk.SetAppraisalType(work.status) || !work.desk.VerifyAddress(work.status))
        return;
    const QString key = WantedKey(work);
    if (!store::FindRecord(work.ports, work.databook, key, fields::CENTRALKEY)) {
        Refuse(work, {RecordOutcome::NotFound, kNoSuchAddress.arg(key)});
        return;
    }
    if (!work.ports.prompter.YesNo(store::kPlainTitle, kDeleteQuestion.arg(key)))
        return;
    const RecordResult deleted =
        DeleteRecord(work.ports, work.databook, key, {work.disk, work.globals.G_PhotoDir});
    if (!deleted && deleted.outcome != RecordOutcome::NotFound) {
        Refuse(work, deleted);
        return;
    }
    // Deleted by somebody else while the question stood: what was asked for has happened.
    Show(work, key);
    work.status.lblmsg.Show(deleted ? key + kWasDeleted : deleted.message, forms::Colour::Blue);
    if (deleted && !deleted.message.isEmpty())
        work.ports.prompter.Box(store::kPlainTitle, deleted.message);
}

void CompCopyRecord(const RecordWork& work)
{
    const RoutineScope scope{"CompCopyRecord"};
    Rename(work, RenameMode::Copy);
}

void CompRenameRecord(const RecordWork& work)
{
    const RoutineScope scope{"CompRenameRecord"};
    Rename(work, RenameMode::Rename);
}

} // namespace vasclip::databook
