#pragma once

#include "platform/street/cell.h"
#include "platform/street/county_info.h"
#include "platform/street/features.h"

#include <QString>

#include <functional>
#include <memory>

namespace vasclip::street {

/// Writes the file of one county from its features, which may come in any order. Nothing of it is used before an
/// index names it, so a file that was left half written is only litter.
class CountyWriter
{
public:
    /// @param path  native, of a file that is not there yet
    /// @param info  `county`, `state`, `source` and `date`; the rest is counted here
    CountyWriter(const QString& path, const CountyInfo& info);
    ~CountyWriter();
    CountyWriter(const CountyWriter&) = delete;
    CountyWriter& operator=(const CountyWriter&) = delete;

    /// Each takes a feature unless `Fault` (feature_check.h) finds it wanting. @return false if it was left out
    bool Add(const RoadEdge& edge);
    bool Add(const AddressPoint& house);
    bool Add(const MapArea& area);
    bool Add(const WaterLine& line);
    bool Add(const PlaceName& place);
    bool Add(const ZipArea& area);
    /// A name that is drawn and by which nothing is found. @return false if it was left out
    bool AddLabel(const PlaceName& place);

    /// Writes all and flushes it. The file is gone where that fails.
    /// @param progress  told how many of how many cells are written; false stops
    /// @return false with the reason in `problem`
    [[nodiscard]] bool Finish(QString& problem, const std::function<bool(qint64, qint64)>& progress = {});
    /// What the file says of itself; complete after `Finish`.
    [[nodiscard]] const CountyInfo& Info() const;

private:
    struct Work;
    std::unique_ptr<Work> m_work;
};

} // namespace vasclip::street
