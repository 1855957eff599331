#include "databook/record_desk.h"

#include "common/error_block.h"
#include "databook/comp_types.h"
#include "databook/messages.h"
#include "platform/text/text.h"
#include "store/fields.h"
#include "store/store.h"

using namespace Qt::StringLiterals;

namespace vasclip::databook {

using common::RoutineScope;

RecordDesk::RecordDesk(forms::ControlSet& set)
    : lblAddingaComp(set, u"lblAddingaComp"_s)
    , txtcentralkey(set, u"txtcentralkey"_s)
    , cboapprslType(set, u"cboapprslType"_s)
    , cmdAdd(set, u"cmdAdd"_s)
    , cmdCopy(set, u"cmdCopy"_s)
    , cmdDelete(set, u"cmdDelete"_s)
    , cmdRename(set, u"cmdRename"_s)
    , cmdEdit(set, u"cmdEdit"_s)
    , cmdSearch(set, u"cmdSearch"_s)
    , cmdAddManual(set, u"cmdAddManual"_s)
    , lblTwin(set, u"lblTwin"_s)
    , cmdTwin(set, u"cmdTwin"_s)
    , txtQuickFind(set, u"txtQuickFind"_s)
    , lstConditions(set, u"lstConditions"_s)
    , cmdShowAll(set, u"cmdShowAll"_s)
    , grddatabook(set, u"grddatabook"_s)
    , cmdPrint(set, u"cmdPrint"_s)
    , cmdRefresh(set, u"cmdRefresh"_s)
    , cmdDetails(set, u"cmdDetails"_s)
    , lblDatabookADDR(set, u"lblDatabookADDR"_s)
{
    lblAddingaComp.SetCaption(u"Add a Comp"_s);
    cmdAdd.SetCaption(u"&Add"_s);
    cmdCopy.SetCaption(u"&Copy"_s);
    cmdDelete.SetCaption(u"De&lete"_s);
    cmdRename.SetCaption(u"Re&name"_s);
    cmdEdit.SetCaption(u"&Edit"_s);
    cmdSearch.SetCaption(u"Search"_s);
    cmdAddManual.SetCaption(u"Add Man&ually"_s);
    cmdTwin.SetCaption(u"Show it"_s);
    cmdTwin.SetToolTipText(u"Goes to that record"_s);
    lblTwin.SetVisible(false);
    cmdTwin.SetVisible(false);
    txtcentralkey.SetToolTipText(u"Address of a comp (Ins in the grid). Enter adds it, or edits one "
                                 "that is there"_s);
    cmdAdd.SetToolTipText(u"Add a comp of this address (Enter in the address)"_s);
    cmdCopy.SetToolTipText(u"Copy the record to another address (Ctrl+Shift+C)"_s);
    cmdDelete.SetToolTipText(u"Delete the record and its photos (Del)"_s);
    cmdRename.SetToolTipText(u"Give the record another address (Ctrl+R)"_s);
    cmdEdit.SetToolTipText(u"Edit the record (Ctrl+E)"_s);
    cmdPrint.SetCaption(u"Print Comps"_s);
    cmdRefresh.SetCaption(u"Refresh Grid"_s);
    cmdDetails.SetCaption(u"Current Details"_s);
    cmdShowAll.SetCaption(u"Show all records"_s);
    cmdShowAll.SetToolTipText(u"Ends the search and empties the quick find"_s);
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
    if (!store::FindRecord(ports, databook, key, fields::CENTRALKEY)) {
        status.lblmsg.Show(key + kWasNotFound, forms::Colour::Blue);
        ButtonStatus(u"Not Found"_s);
        SetAppraisalType(u" "_s);
        return;
    }
    status.lblmsg.Show(key + kWasFound, forms::Colour::Blue);
    ButtonStatus(u"Found"_s);
    const RoutineScope step{"Determine Comp Type"};
    const QString code = store::GetFieldData(databook, fields::APPRSLTYPE);
    if (CompTypeLetter(code).isNull())
        cboapprslType.SetText(code); // not the type of the record before
    SetAppraisalType(code.isEmpty() ? u" "_s : code);
}

void RecordDesk::ShowNone()
{
    txtcentralkey.SetText({});
    lblDatabookADDR.SetCaption({});
    cboapprslType.SetListIndex(-1);
    cboapprslType.SetText({});
    ButtonStatus(u"Not Found"_s);
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
