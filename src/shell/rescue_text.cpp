#include "shell/rescue_text.h"

#include "platform/text/counted.h"

namespace vasclip::shell {

using namespace Qt::Literals::StringLiterals;

QString RescueText(const engine::Rescued& rescued, const QString& source, const QString& target)
{
    static const text::Counted kRecords{u"record of %1 was copied to %2."_s, u"records of %1 were copied to %2."_s};
    static const text::Counted kIncomplete{u"lacks what could not be read."_s, u"lack what could not be read."_s};
    QString text = kRecords(rescued.records).arg(source, target);
    if (rescued.lost > 0)
        text += u" %1 could not be read."_s.arg(rescued.lost);
    if (rescued.incomplete > 0)
        text += u' ' + kIncomplete(rescued.incomplete);
    constexpr int kNamesShown = 12;
    if (!rescued.names.isEmpty())
        text += u"\n\n"_s + rescued.names.mid(0, kNamesShown).join(u'\n');
    if (rescued.names.size() > kNamesShown)
        text += u"\n..."_s;
    return text;
}

} // namespace vasclip::shell
