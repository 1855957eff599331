#pragma once

#include "mapdata/vector_file.h"
#include "platform/street/features.h"

namespace vasclip::mapdata {

/// Where a collection of address points keeps what: each publisher has names of its own for the same columns.
class HouseColumns
{
public:
    explicit HouseColumns(const VectorLayer& layer);

    /// Has it at least a house number and a street, or both in one column?
    [[nodiscard]] bool AreThere() const;
    [[nodiscard]] std::vector<int> All() const;
    /// Number, street, unit, city and ZIP code of a row; no place.
    [[nodiscard]] street::AddressPoint Read(const OGRFeature& row) const;

private:
    int m_number;
    int m_numberPrefix;
    int m_numberSuffix;
    int m_street; ///< the whole name
    int m_direction;
    int m_typeBefore;
    int m_name;
    int m_type;
    int m_directionBehind;
    int m_address; ///< number and street in one
    int m_unit;
    int m_city;
    int m_zip;
};

} // namespace vasclip::mapdata
