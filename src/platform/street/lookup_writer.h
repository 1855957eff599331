#pragma once

#include "platform/street/edge_store.h"
#include "platform/street/features.h"

#include <memory>

struct sqlite3;

namespace vasclip::street {

/// A ZIP code of a county with its ground.
struct ZipSummary
{
    QString zip;
    QString city; ///< its post town by the places of the source, "" where it has none
    Place centre;
    Extent extent;
};

/// A place of a county with its ground: of its outline, or of its point alone.
struct PlaceSummary
{
    QString name;
    PlaceKind kind = PlaceKind::Town;
    qint64 population = 0;
    Place place;
    Extent extent;
};

/// What the index of all counties keeps of one, so that an address leads to the few files that can have it.
struct LookupSummary
{
    QString state; ///< two letters, "" where it isn't known
    std::vector<quint32> names; ///< the numbers of its street names, ascending
    std::vector<ZipSummary> zips;
    std::vector<PlaceSummary> places;
};

/// Writes the tables of a county file by which addresses are found. It creates them in `county`, inside the
/// caller's transaction; `Finish` writes, so a failure before it leaves the file as it was.
class LookupWriter
{
public:
    /// @param county  open and writable; stays the caller's
    /// @param state   two letters, "" where it isn't known
    LookupWriter(sqlite3* county, const QString& state);
    ~LookupWriter();
    LookupWriter(const LookupWriter&) = delete;
    LookupWriter& operator=(const LookupWriter&) = delete;

    /// Each edge once, where it lies in the file; an edge with no name is left out.
    void Add(const RoadEdge& edge, EdgePosition position);
    void Add(const AddressPoint& house);
    void Add(const PlaceName& place);
    void Add(const ZipArea& area);

    /// Writes all. @return false with SQLite's words in `problem`
    [[nodiscard]] bool Finish(QString& problem);
    /// What `NameIndexWriter` wants to know, after `Finish`; `ReadSummary` gives the same of a file.
    [[nodiscard]] const LookupSummary& Summary() const;
    /// Houses left out since their street or number is empty.
    [[nodiscard]] qint64 LeftOut() const;

private:
    struct Work;
    std::unique_ptr<Work> m_work;
};

/// The summary that a county file carries. @return false with the reason in `problem`
[[nodiscard]] bool ReadSummary(sqlite3* county, LookupSummary& summary, QString& problem);

/// Writes the tables of the index of all counties, inside the caller's transaction.
class NameIndexWriter
{
public:
    /// @param index  a new file, open and writable; stays the caller's
    explicit NameIndexWriter(sqlite3* index);
    ~NameIndexWriter();
    NameIndexWriter(const NameIndexWriter&) = delete;
    NameIndexWriter& operator=(const NameIndexWriter&) = delete;

    /// @param county  its number in the index, 1 or more
    void Add(quint32 county, const LookupSummary& summary);
    /// Writes all. @return false with SQLite's words in `problem`
    [[nodiscard]] bool Finish(QString& problem);

private:
    struct Work;
    std::unique_ptr<Work> m_work;
};

} // namespace vasclip::street
