#include "databook/record_desk.h"

#include "common/error_block.h"
#include "databook/comp_types.h"
#include "databook/messages.h"
#include "platform/text/text.h"
#include "store/store.h"

namespace vasclip::databook {

using common::RoutineScope;

RecordDesk::RecordDesk(forms::ControlSet& set)
    : lblAddingaComp(set, QStringLiteral("lblAddingaComp"))
    , txtcentralkey(set, QStringLiteral("txtcentralkey"))
    , cboapprslType(set, QStringLiteral("cboapprslType"))
    , cmdAdd(set, QStringLiteral("cmdAdd"))
    , cmdCopy(set, QStringLiteral("cmdCopy"))
    , cmdDelete(set, QStringLiteral("cmdDelete"))
    , cmdRename(set, QStringLiteral("cmdRename"))
    , cmdEdit(set, QStringLiteral("cmdEdit"))
    , cmdSearch(set, QStringLiteral("cmdSearch"))
    , cmdAddManual(set, QStringLiteral("cmdAddManual"))
    , txtQuickFind(set, QStringLiteral("txtQuickFind"))
    , lstConditions(set, QStringLiteral("lstConditions"))
    , cmdShowAll(set, QStringLiteral("cmdShowAll"))
    , grddatabook(set, QStringLiteral("grddatabook"))
    , cmdPrint(set, QStringLiteral("cmdPrint"))
    , cmdRefresh(set, QStringLiteral("cmdRefresh"))
    , cmdDetails(set, QStringLiteral("cmdDetails"))
    , lblDatabookADDR(set, QStringLiteral("lblDatabookADDR"))
{
    lblAddingaComp.SetCaption(QStringLiteral("Add a Comp"));
    cmdAdd.SetCaption(QStringLiteral("&Add"));
    cmdCopy.SetCaption(QStringLiteral("&Copy"));
    cmdDelete.SetCaption(QStringLiteral("De&lete"));
    cmdRename.SetCaption(QStringLiteral("Re&name"));
    cmdEdit.SetCaption(QStringLiteral("&Edit"));
    cmdSearch.SetCaption(QStringLiteral("Search"));
    cmdAddManual.SetCaption(QStringLiteral("Add Man&ually"));
    txtcentralkey.SetToolTipText(
        QStringLiteral("Address of a comp (Ins in the grid). Enter adds it, or edits one "
                       "that is there"));
    cmdAdd.SetToolTipText(QStringLiteral("Add a comp of this address (Enter in the address)"));
    cmdCopy.SetToolTipText(QStringLiteral("Copy the record to another address (Ctrl+Shift+C)"));
    cmdDelete.SetToolTipText(QStringLiteral("Delete the record and its photos (Del)"));
    cmdRename.SetToolTipText(QStringLiteral("Give the record another address (Ctrl+R)"));
    cmdEdit.SetToolTipText(QStringLiteral("Edit the record (Ctrl+E)"));
    cmdPrint.SetCaption(QStringLiteral("Print Comps"));
    cmdRefresh.SetCaption(QStringLiteral("Refresh Grid"));
    cmdDetails.SetCaption(QStringLiteral("Current Details"));
    cmdShowAll.SetCaption(QStringLiteral("Show all records"));
    cmdShowAll.SetToolTipText(QStringLiteral("Ends the search and empties the quick find"));
}

void RecordDesk::LoadCompType()
{
    cboapprslType.Clear();
    for (const CompType& type : CompTypes())
        cboapprslType.AddItem(QString(type.listText));
}

void RecordDesk::SetAppraisalType(const QString& code)
{
    QChar letter = CompTypeLetter(code);
    if (letter == QLatin1Char(' '))
        letter = QLatin1Char('F');
    for (const CompType& type : CompTypes())
        if (letter == QLatin1Char(type.letter))
            cboapprslType.SetText(QString(type.selectText));
}

bool RecordDesk::VerifyAddress(common::StatusDesk& status)
{
    if (!text::Trim(txtcentralkey.Text()).isEmpty())
        return true;
    status.lblmsg.Show(kEnterAddress, forms::Colour::Blue);
    return false;
}

bool RecordDesk::SetAppraisalType(common::StatusDesk& status)
{
    if (!CompTypeLetter(cboapprslType.Text()).isNull())
        return true;
    status.lblmsg.Show(kSelectType, forms::Colour::Blue);
    cboapprslType.SetFocus();
    return false;
}

bool RecordDesk::VerifyFields(common::StatusDesk& status)
{
    return VerifyAddress(status) && SetAppraisalType(status);
}

void RecordDesk::CheckStatus(const forms::Ports& ports, store::DataSource& databook,
                             common::StatusDesk& status)
{
    const RoutineScope scope{"CheckStatus"};
    const QString key = text::Folded(txtcentralkey.Text());
    if (key.isEmpty()) {
        status.lblmsg.Show(kKeyMissing, forms::Colour::Blue);
        return;
    }
    if (!store::FindRecord(ports, databook, key, QStringLiteral("CENTRALKEY"))) {
        status.lblmsg.Show(key + kWasNotFound, forms::Colour::Blue);
        ButtonStatus(QStringLiteral("Not Found"));
        SetAppraisalType(QStringLiteral(" "));
        return;
    }
    status.lblmsg.Show(key + kWasFound, forms::Colour::Blue);
    ButtonStatus(QStringLiteral("Found"));
    const RoutineScope step{"Determine Comp Type"};
    const QVariant type = databook.Recordset().Value(QStringLiteral("APPRSLTYPE"));
    const QString code = text::Trim(type.toString());
    if (CompTypeLetter(code).isNull())
        cboapprslType.SetText(code); // not the type of the record before
    SetAppraisalType(code.isEmpty() ? QStringLiteral(" ") : code);
}

void RecordDesk::ShowNone()
{
    txtcentralkey.SetText({});
    lblDatabookADDR.SetCaption({});
    cboapprslType.SetListIndex(-1);
    cboapprslType.SetText({});
    ButtonStatus(QStringLiteral("Not Found"));
}

void RecordDesk::ButtonStatus(const QString& state)
{
    const QString folded = text::Folded(state);
    const bool found = folded == QLatin1StringView("FOUND");
    if (!found && folded != QLatin1StringView("NOT FOUND"))
        return;
    cmdAdd.SetEnabled(!found);
    for (forms::Button* button : {&cmdDelete, &cmdRename, &cmdCopy, &cmdEdit})
        button->SetEnabled(found);
}

} // namespace vasclip::databook
