#pragma once

#include "mapdata/account.h"
#include "platform/street/county_writer.h"
#include "platform/street/features.h"

#include <QHash>

#include <functional>
#include <vector>

namespace vasclip::mapdata {

/// A record of a source, named for the account where there is something to say of it.
struct Record
{
    const char16_t* kind = u"row"; ///< "row", "TLID", "way", "node"
    qint64 number = 0;
    [[nodiscard]] QString Text() const { return QString::fromUtf16(kind) + u' ' + QString::number(number); }
};

/// A street edge with what only its source knows of it.
struct SourceEdge
{
    street::RoadEdge edge;
    qint64 line = 0; ///< TIGER's number of the edge, 0 for none
    qint64 leftFace = 0;
    qint64 rightFace = 0;
};

/// Gathers what all sources say of one county, and writes it: numbers of one file and lines of another come
/// together only when both are read.
class CountyBuild
{
public:
    explicit CountyBuild(Account& account)
        : m_account(account)
    {}

    /// From here on `source` is what the account calls the records by.
    void From(const QString& source);

    /// An edge with house numbers of its two sides. One that came before under its number gets another name, or
    /// other house numbers, from it.
    void AddNumbered(SourceEdge edge, Record record);
    /// An edge of a source that has all lines; left out where it came with its house numbers.
    void AddLine(SourceEdge edge, Record record);
    /// A way that may run through junctions; it is cut there.
    void AddWay(street::RoadEdge edge, Record record);
    void Add(street::AddressPoint house, Record record);
    void Add(street::MapArea area, Record record);
    void Add(street::WaterLine line, Record record);
    /// A line with the sea on its right.
    void AddCoast(std::vector<street::Place> line, Record record);
    /// A ring with the sea around it, whichever way it goes.
    void AddIsland(std::vector<street::Place> ring, Record record);
    void Add(street::PlaceName place, Record record);
    void Add(street::ZipArea area, Record record);
    /// In which place the ground left or right of an edge lies.
    void SetFace(qint64 face, const QString& place, const QString& zip);
    /// What a place is called that faces name by a code.
    void SetPlace(const QString& code, const QString& name) { m_placeNames.insert(code, name); }

    /// Is there anything that an address could be found by, or a street to draw?
    [[nodiscard]] bool IsEmpty() const { return m_edges.empty() && m_ways.empty() && m_houses.empty(); }
    /// The ground of its streets and houses.
    [[nodiscard]] street::Extent Ground() const { return GroundOf(m_ways); }
    [[nodiscard]] const std::vector<street::PlaceName>& Places() const { return m_places; }

    /// Gives all to the writer and forgets it. @param step  share done, 0 to 1; false stops
    /// @return false if it was stopped
    [[nodiscard]] bool Write(street::CountyWriter& writer, const std::function<bool(double)>& step);

private:
    struct Face
    {
        QString place;
        QString zip;
    };

    [[nodiscard]] street::Extent GroundOf(const std::vector<street::RoadEdge>& ways) const;
    [[nodiscard]] bool IsGood(const QString& fault, Record record);
    void CheckSide(street::NumberRange& side, Record record);
    void CheckNumbers(street::RoadEdge& edge, Record record);
    void TellBackwards();
    void JoinPlaces();
    /// Files of a state have the places and ZIP codes of all its counties.
    void DropNeighbours(const std::vector<street::RoadEdge>& ways);
    void SetCities();
    /// The sea of the coasts, unless it would drown the streets.
    void MakeSea(const std::vector<street::RoadEdge>& ways);

    QString m_source;
    Account& m_account;
    qint64 m_backwards = 0; ///< records of this source
    std::vector<SourceEdge> m_edges;
    QHash<qint64, std::size_t> m_byLine;
    std::vector<street::RoadEdge> m_ways;
    std::vector<street::AddressPoint> m_houses;
    std::vector<street::MapArea> m_areas;
    std::vector<street::WaterLine> m_brooks;
    std::vector<std::vector<street::Place>> m_coasts;
    std::vector<street::PlaceName> m_places;
    std::vector<street::ZipArea> m_zips;
    QHash<qint64, Face> m_faces;
    QHash<QString, QString> m_placeNames;
};

} // namespace vasclip::mapdata
