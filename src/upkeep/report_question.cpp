#include "upkeep/report_question.h"

namespace vasclip::upkeep {

using namespace Qt::StringLiterals;

bool MayPrint(forms::Prompter& prompter, qint64 count)
{
    if (count <= kMostUnasked)
        return true;
    const QString question = u"You have more than 500 records queued for printing (Exact count = "_s +
                             QString::number(count) + u" )"_s + u"\r\n"_s + u"Do you with to Continue ?"_s;
    return prompter.MsgBox(forms::Buttons::YesNoCancel, forms::Icon::Question,
                           u"Output Report Record Count"_s, question) == forms::Answer::Yes;
}

} // namespace vasclip::upkeep
