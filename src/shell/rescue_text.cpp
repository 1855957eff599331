#include "shell/rescue_text.h"

namespace vasclip::shell {

using namespace Qt::Literals::StringLiterals;

QString RescueText(const engine::Rescued& rescued, const QString& source, const QString& target)
{
    QString text =
        u"%1 records of %2 were copied to %3."_s.arg(QString::number(rescued.records), source, target);
    if (rescued.lost > 0)
        text += u" %1 could not be read."_s.arg(rescued.lost);
    if (rescued.incomplete > 0)
        text += u" %1 lack what could not be read."_s.arg(rescued.incomplete);
    constexpr int kNamesShown = 12;
    if (!rescued.names.isEmpty())
        text += u"\n\n"_s + rescued.names.mid(0, kNamesShown).join(u'\n');
    if (rescued.names.size() > kNamesShown)
        text += u"\n..."_s;
    return text;
}

} // namespace vasclip::shell
