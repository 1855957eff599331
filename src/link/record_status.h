#pragma once

#include "forms/controls.h"
#include "forms/ports.h"
#include "store/store.h"

namespace vasclip::link {

/// The buttons that act on the record in `txtcentralkey`.
struct RecordButtons
{
    forms::Button& cmdAdd;
    forms::Button& cmddelete;
    forms::Button& cmdRename;
    forms::Button& cmdCopy;
    forms::Button& cmdEdit;
};

/// "Found" enables all but Add, "Not Found" only Add, in any case; another text changes nothing.
void ButtonStatus(const RecordButtons& buttons, const QString& state);

/// Tells whether a key is in the Databook: status line, buttons and comp type box follow.
void CheckStatus(const forms::Ports& ports, store::DataSource& databook, const QString& txtcentralkey,
                 forms::Label& lblmsg, const RecordButtons& buttons, forms::ComboBox& cboapprslType);

} // namespace vasclip::link
