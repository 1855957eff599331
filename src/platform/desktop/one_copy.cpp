#include "platform/desktop/one_copy.h"

#include <QCoreApplication>
#include <QFile>

using namespace Qt::StringLiterals;

namespace vasclip::desktop {

OneCopy::OneCopy(const QString& home)
{
    TakeName(home);
    const QString path = home + u"/.vasclip.lock"_s;
    QFile mark(path);
    if (m_lock.Take(path, 0)) {
        if (mark.open(QIODevice::WriteOnly | QIODevice::Truncate))
            mark.write(QByteArray::number(QCoreApplication::applicationPid()) + '\n');
    } else if (m_lock.HeldByOther() && mark.open(QIODevice::ReadOnly)) {
        m_other = mark.readLine(32).trimmed().toLongLong();
    }
}

} // namespace vasclip::desktop
