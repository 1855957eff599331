#pragma once

#include "store/data_source.h"

#include <QHash>

namespace vasclip::photos {

/// Which record names a stored picture. Reads the photos of all records once, when it is first asked.
class PhotoOwners
{
public:
    /// The source outlives this; unbound, no record names anything.
    explicit PhotoOwners(const store::DataSource& databook, QString table);
    /// Key of the record that names a stem, in any case; "" if none does.
    [[nodiscard]] QString Of(const QString& stem);

private:
    const store::DataSource& m_databook;
    QString m_table;
    bool m_read = false;
    QHash<QString, QString> m_keys;
};

} // namespace vasclip::photos
