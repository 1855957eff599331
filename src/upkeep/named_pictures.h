#pragma once

#include "store/data_source.h"

#include <QHash>

namespace vasclip::upkeep {

/// How often the records of a Databook name each picture file: one that a record still names is not another's to
/// delete.
class NamedPictures
{
public:
    NamedPictures() = default;
    /// @param source  of the table. Its cursor stays where it is.
    explicit NamedPictures(const store::DataSource& source);

    [[nodiscard]] bool Has(const QString& stem) const;
    [[nodiscard]] bool Any() const { return !m_named.isEmpty(); }
    /// A record of these PHOTOS is gone.
    void Leave(const QString& photos);

private:
    QHash<QString, int> m_named; ///< by stem in capitals
};

} // namespace vasclip::upkeep
