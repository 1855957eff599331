#include "shell/start_up.h"

#include "platform/text/text.h"

#include <QRegularExpression>

namespace vasclip::shell {

using namespace Qt::Literals::StringLiterals;

QStringList TakeSwitches(QStringList& arguments)
{
    static const QRegularExpression kSwitch(u"^/(D|S|2|NOLOAD|NO LOAD)$"_s,
                                            QRegularExpression::CaseInsensitiveOption);
    QStringList kept;
    QStringList taken;
    for (qsizetype i = 0; i < arguments.size(); ++i) {
        const QString& argument = arguments[i];
        // A path begins with a slash too, but stands behind its option.
        const bool value = !kept.isEmpty() && kept.last().startsWith(u"--"_s) && !kept.last().contains(u'=');
        const bool inTwo = argument.compare(u"/NO"_s, Qt::CaseInsensitive) == 0 &&
                           arguments.value(i + 1).compare(u"LOAD"_s, Qt::CaseInsensitive) == 0;
        if (!value && inTwo)
            taken.append(argument + u' ' + arguments[++i]);
        else
            (!value && kSwitch.match(argument).hasMatch() ? taken : kept).append(argument);
    }
    arguments = kept;
    return taken;
}

Switches::Switches(const QString& commandLine)
{
    const QString line = commandLine.toUpper();
    debug = line == u"/D"_s;
    trace = line.contains(u"/D"_s);
    silent = line.contains(u"/S"_s);
    pumpAlways = line.contains(u"/2"_s);
    noLoad = line.contains(u"/NOLOAD"_s) || line.contains(u"/NO LOAD"_s);
}

} // namespace vasclip::shell
