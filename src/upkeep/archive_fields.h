#pragma once

#include "store/data_source.h"
#include "store/record.h"

namespace vasclip::upkeep {

/// Which fields a record takes into an archive, and what it would lose there.
class ArchiveFields
{
public:
    ArchiveFields() = default;
    ArchiveFields(const store::DataSource& databook, const store::DataSource& archive);

    [[nodiscard]] const QStringList& Both() const { return m_both; }
    /// Fields of the archive, which the Databook lacks.
    [[nodiscard]] const QStringList& Own() const { return m_own; }
    /// Why the record stays; "" where it loses nothing.
    [[nodiscard]] QString WhyNot(const QString& key, const store::Record& record) const;

private:
    QStringList m_both, m_own;
    QStringList m_lacking; ///< fields of the Databook that the archive has no place for
    QList<std::pair<QString, engine::FieldType>> m_otherKind; ///< fields that hold no texts in the archive, and do here
};

} // namespace vasclip::upkeep
