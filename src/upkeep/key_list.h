#pragma once

#include <QStringList>

namespace vasclip::upkeep {

/// Keys as a statement lists them: 'A','B'.
[[nodiscard]] inline QString InList(const QStringList& keys)
{
    QStringList quoted;
    for (const QString& key : keys)
        quoted.append(u'\'' + QString(key).replace(u'\'', QLatin1StringView("''")) + u'\'');
    return quoted.join(u',');
}

} // namespace vasclip::upkeep
