#pragma once

#include <QHash>
#include <QLatin1StringView>
#include <QString>

namespace vasclip::databook {

/// What the search screen holds.
struct SearchForm
{
    QHash<QLatin1StringView, QString> texts; ///< by control, values and ranges
    int sort = 0;                            ///< 0 to 6, as SORTGRID
    bool ignorePending = false;
    bool wildcards = true;
};

} // namespace vasclip::databook
