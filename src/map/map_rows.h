#pragma once

#include "forms/grid.h"
#include "platform/street/county_info.h"

#include <QHash>

#include <vector>

namespace vasclip::map {

/// What was found when maps were read whole, by the checksum of their files: "" where nothing is wrong.
using CheckedMaps = QHash<QByteArray, QString>;

/// The maps of a directory as rows of a grid.
class MapRows : public forms::GridSource
{
public:
    void Take(const std::vector<street::CountyRecord>& counties, const CheckedMaps& checked);
    [[nodiscard]] qint64 RowCount() const override { return m_rows.size(); }
    [[nodiscard]] QStringList FieldNames() const override;
    [[nodiscard]] QStringList Row(qint64 row) const override { return m_rows.value(row); }

private:
    QList<QStringList> m_rows;
};

[[nodiscard]] QList<forms::GridColumn> MapColumns();
/// "3 maps, 32,686 streets, 2,642 houses, 1.9 MB".
[[nodiscard]] QString TotalOf(const std::vector<street::CountyRecord>& counties);

} // namespace vasclip::map
