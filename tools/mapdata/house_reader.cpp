#include "mapdata/house_reader.h"

#include "mapdata/house_columns.h"

#include <algorithm>

namespace vasclip::mapdata {

using namespace Qt::StringLiterals;

bool ReadHouses(VectorLayer& layer, const LayerJob& job)
{
    const HouseColumns columns(layer);
    layer.Only(columns.All());
    const double all = double(std::max<qint64>(1, layer.Count()));
    qint64 done = 0;
    while (const OGRFeatureUniquePtr row = layer.Next()) {
        constexpr qint64 kOften = 256;
        if (++done % kOften == 0 && !job.step(double(done) / all))
            return false;
        const Record record{u"row", row->GetFID()};
        const Shape shape = layer.ShapeOf(*row);
        if (shape.kind == Shape::Kind::None) {
            job.account.Left(job.source, record.Text(), u"it has no place"_s);
            continue;
        }
        street::AddressPoint house = columns.Read(*row);
        house.place = MiddleOf(shape);
        job.county.Add(std::move(house), record);
    }
    return true;
}

} // namespace vasclip::mapdata
