#include "platform/files/disk.h"

#include <QCoreApplication>
#include <QDir>
#include <QStandardPaths>
#include <QStringList>

using namespace Qt::StringLiterals;

namespace vasclip::files {

QString DefaultHome()
{
    const QString option = u"--home"_s;
    const QStringList arguments =
        QCoreApplication::instance() ? QCoreApplication::arguments() : QStringList();
    for (qsizetype at = 1; at < arguments.size(); ++at) {
        if (arguments[at] == option && at + 1 < arguments.size())
            return QDir(arguments[at + 1]).absolutePath();
        if (arguments[at].startsWith(option + u'='))
            return QDir(arguments[at].mid(option.size() + 1)).absolutePath();
    }
    const QString fromEnvironment = qEnvironmentVariable("VASCLIP_HOME");
    if (!fromEnvironment.isEmpty())
        return QDir(fromEnvironment).absolutePath();
    return QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) + u"/vasclip"_s;
}

} // namespace vasclip::files
