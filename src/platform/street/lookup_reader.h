#pragma once

#include "platform/street/address_number.h"
#include "platform/street/address_street.h"
#include "platform/street/edge_store.h"

#include <memory>
#include <optional>
#include <vector>

struct sqlite3;

namespace vasclip::street {

struct LookupSummary;
struct PlaceSummary;

/// The numbers of one side of an edge; empty where the source gives none.
struct StoredSide
{
    HouseNumber from;
    HouseNumber to;
    quint32 zip = 0; ///< of the county's list, 0 for none
    quint32 city = 0;
};

struct StoredEdge
{
    EdgePosition position;
    StoredSide left;
    StoredSide right;
};

struct StoredHouse
{
    HouseNumber number;
    Place place;
    quint32 zip = 0;
    quint32 city = 0;
};

/// A street of a county with all that is known of its numbers.
struct StoredStreet
{
    StreetName name;
    std::vector<StoredEdge> edges; ///< by their positions
    std::vector<StoredHouse> houses; ///< by their numbers
};

/// A name that is in the file, and how many typing errors lie between.
struct SimilarName
{
    QString name;
    int errors = 0;
};

/// Reads the tables of a county file that `LookupWriter` wrote. Any thread may ask. A damaged row is as if missing.
class LookupReader
{
public:
    /// @param county  open; must outlive the reader
    explicit LookupReader(sqlite3* county);
    ~LookupReader();
    LookupReader(const LookupReader&) = delete;
    LookupReader& operator=(const LookupReader&) = delete;

    /// The streets whose name has this base.
    [[nodiscard]] std::vector<StoredStreet> Streets(const QString& base) const;
    /// Bases that differ by one or two typing errors, the nearest first.
    [[nodiscard]] std::vector<SimilarName> Similar(const QString& base) const;
    [[nodiscard]] QString Zip(quint32 number) const;
    [[nodiscard]] QString City(quint32 number) const;
    /// Without the numbers of its names.
    [[nodiscard]] const LookupSummary& Summary() const;
    /// The post town of a ZIP, "" where it isn't known.
    [[nodiscard]] QString CityOfZip(const QString& zip) const;

private:
    struct Work;
    std::unique_ptr<Work> m_work;
};

/// A ZIP with the counties that have some of it.
struct KnownZip
{
    std::vector<quint32> counties;
    Place centre;
    Extent extent;
};

/// A place of a name; several counties can have a part of it, each its own.
struct KnownPlace
{
    quint32 county = 0;
    QString name;
    qint64 population = 0;
    Place place;
    Extent extent;
    int errors = 0; ///< typing errors in what was asked
};

/// Reads the tables of the index that `NameIndexWriter` wrote. Any thread may ask.
class NameIndex
{
public:
    /// @param index  open; must outlive the reader
    explicit NameIndex(sqlite3* index);
    ~NameIndex();
    NameIndex(const NameIndex&) = delete;
    NameIndex& operator=(const NameIndex&) = delete;

    /// Counties that have a street of that base, and seldom one that has not; ascending.
    [[nodiscard]] std::vector<quint32> CountiesOf(const QString& base) const;
    [[nodiscard]] std::optional<KnownZip> Zip(const QString& zip) const;
    /// @param city  by `CityKey`
    [[nodiscard]] std::vector<KnownPlace> Places(const QString& city) const;
    /// Places whose name differs by typing errors, the nearest first.
    [[nodiscard]] std::vector<KnownPlace> SimilarPlaces(const QString& city) const;
    /// Two letters, "" where it isn't known.
    [[nodiscard]] QString State(quint32 county) const;
    /// All counties of the index.
    [[nodiscard]] std::vector<quint32> Counties() const;

private:
    struct Work;
    std::unique_ptr<Work> m_work;
};

} // namespace vasclip::street
