#include "link/record_status.h"

#include "link/form_table.h"
#include "link/messages.h"
#include "link/reporter.h"
#include "platform/text/text.h"

namespace vasclip::link {

using namespace Qt::Literals::StringLiterals;

void ButtonStatus(const RecordButtons& buttons, const QString& state)
{
    const QString folded = text::Folded(state);
    if (folded != "FOUND"_L1 && folded != "NOT FOUND"_L1)
        return;
    const bool found = folded == "FOUND"_L1;
    buttons.cmdAdd.SetEnabled(!found);
    for (forms::Button* button : {&buttons.cmddelete, &buttons.cmdRename, &buttons.cmdCopy, &buttons.cmdEdit})
        button->SetEnabled(found);
}

void CheckStatus(const forms::Ports& ports, store::DataSource& databook, const QString& txtcentralkey,
                 forms::Label& lblmsg, const RecordButtons& buttons, forms::ComboBox& cboapprslType)
{
    const QString key = text::Folded(txtcentralkey);
    if (key.isEmpty()) {
        lblmsg.SetCaption(messages::kKeyMissing);
        return;
    }
    Reported(ports.prompter, "CheckStatus", [&] {
        if (!store::FindRecord(ports, databook, key, u"CENTRALKEY"_s)) {
            lblmsg.SetCaption(messages::kKeyNotFound.arg(key));
            ButtonStatus(buttons, u"Not Found"_s);
            SetAppraisalType(cboapprslType, u" "_s);
            return;
        }
        lblmsg.SetCaption(messages::kKeyFound.arg(key));
        ButtonStatus(buttons, u"Found"_s);
        const QVariant type = databook.Recordset().Value(u"APPRSLTYPE"_s);
        SetAppraisalType(cboapprslType, type.isValid() ? type.toString() : u" "_s);
    });
}

} // namespace vasclip::link
