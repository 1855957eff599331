#include "platform/street/lookup_writer.h"

#include "platform/street/address_parser.h"
#include "platform/street/lookup_format.h"
#include "platform/street/name_number.h"
#include "platform/street/piece_index.h"
#include "platform/street/post_towns.h"
#include "platform/street/sql.h"

#include <QHash>

#include <sqlite3.h>

#include <algorithm>
#include <map>

using namespace Qt::StringLiterals;

namespace vasclip::street {

namespace {

/// A street while it fills.
struct Filling
{
    StoredStreet street;
    std::vector<Place> middles; ///< of its edges
};

/// A list of texts that are named by their place in it, from 1 on.
class Texts
{
public:
    quint32 NumberOf(const QString& text)
    {
        if (text.isEmpty())
            return 0;
        const auto found = m_numbers.constFind(text);
        if (found != m_numbers.cend())
            return *found;
        m_texts.append(text);
        return *m_numbers.insert(text, static_cast<quint32>(m_texts.size()));
    }
    [[nodiscard]] QString At(quint32 number) const { return number == 0 ? QString() : m_texts.at(number - 1); }
    [[nodiscard]] const QStringList& All() const { return m_texts; }

private:
    QStringList m_texts;
    QHash<QString, quint32> m_numbers;
};

HouseNumber NumberOf(const QString& text)
{
    bool plain = false;
    if (const int value = text.toInt(&plain); plain && value >= 0)
        return {{}, value, {}};
    return ParseHouseNumber(text);
}

bool IsZip(const QString& text)
{
    return text.size() == 5 && text != u"99999" && text != u"00000";
}

bool Put(sqlite3* file, const char* sql, const std::map<quint32, QByteArray>& rows, QString& problem)
{
    const SqlStatement insert = PrepareSql(file, sql, problem);
    if (!insert)
        return false;
    for (const auto& [id, bytes] : rows) {
        sqlite3_reset(insert.get());
        sqlite3_bind_int64(insert.get(), 1, id);
        sqlite3_bind_blob64(insert.get(), 2, bytes.constData(), static_cast<sqlite3_uint64>(bytes.size()),
                            SQLITE_STATIC);
        if (sqlite3_step(insert.get()) != SQLITE_DONE) {
            problem = SqlProblem(file);
            return false;
        }
    }
    return true;
}

} // namespace

struct LookupWriter::Work
{
    sqlite3* file = nullptr;
    LookupSummary summary;
    std::vector<Filling> streets;
    QHash<QString, quint32> byName; ///< as sources write it, from 1 on; 0 for a name that has no base
    QHash<QString, quint32> byText; ///< by its one name
    Texts zips;
    Texts cities;
    PostTowns towns;
    qint64 leftOut = 0;

    Filling* StreetOf(const QString& name);
    StoredSide SideOf(const NumberRange& range);
    void NameCities();
    void Summarise();
    [[nodiscard]] std::map<quint32, QByteArray> StreetRows();
};

Filling* LookupWriter::Work::StreetOf(const QString& name)
{
    const auto known = byName.constFind(name);
    if (known != byName.cend())
        return *known == 0 ? nullptr : &streets[*known - 1];
    const StreetName parts = ParseStreet(name);
    quint32 number = 0;
    if (!parts.IsEmpty()) {
        quint32& same = byText[parts.Text() + u'|' + parts.base];
        if (same == 0) {
            streets.push_back({{parts, {}, {}}, {}});
            same = static_cast<quint32>(streets.size());
        }
        number = same;
    }
    byName.insert(name, number);
    return number == 0 ? nullptr : &streets[number - 1];
}

StoredSide LookupWriter::Work::SideOf(const NumberRange& range)
{
    StoredSide side{NumberOf(range.from), NumberOf(range.to), 0, 0};
    if (side.from.IsEmpty() || side.to.IsEmpty()) {
        // One end alone is a range of one number.
        side.from = side.to = side.from.IsEmpty() ? side.to : side.from;
    }
    if (IsZip(range.zip))
        side.zip = zips.NumberOf(range.zip);
    if (!side.from.IsEmpty())
        side.city = cities.NumberOf(CityKey(range.city));
    return side;
}

LookupWriter::LookupWriter(sqlite3* county, const QString& state)
    : m_work(std::make_unique<Work>())
{
    m_work->file = county;
    m_work->summary.state = state;
}

LookupWriter::~LookupWriter() = default;

void LookupWriter::Add(const RoadEdge& edge, EdgePosition position)
{
    if (edge.line.empty())
        return;
    Work& work = *m_work;
    const StoredEdge stored{position, work.SideOf(edge.left), work.SideOf(edge.right)};
    const Place middle = edge.line.at(edge.line.size() / 2);
    work.towns.AddZip(work.zips.At(stored.left.zip), middle);
    work.towns.AddZip(work.zips.At(stored.right.zip), middle);
    std::vector<const Filling*> taken;
    for (const QString& name : QStringList{edge.name} + edge.otherNames) {
        Filling* street = name.isEmpty() ? nullptr : work.StreetOf(name);
        if (street == nullptr || std::find(taken.begin(), taken.end(), street) != taken.end())
            continue; // two spellings of one name
        street->street.edges.push_back(stored);
        street->middles.push_back(middle);
        taken.push_back(street);
    }
}

void LookupWriter::Add(const AddressPoint& house)
{
    Work& work = *m_work;
    const HouseNumber number = NumberOf(house.number);
    Filling* street = number.IsEmpty() || house.street.isEmpty() ? nullptr : work.StreetOf(house.street);
    if (street == nullptr) {
        ++work.leftOut;
        return;
    }
    const QString city = CityKey(house.city);
    const QString zip = IsZip(house.zip) ? house.zip : QString();
    street->street.houses.push_back({number, house.place, work.zips.NumberOf(zip), work.cities.NumberOf(city)});
    work.towns.AddZip(zip, house.place);
    work.towns.AddHouse(city, house.place);
}

void LookupWriter::Add(const PlaceName& place)
{
    m_work->towns.Add(place);
}

void LookupWriter::Add(const ZipArea& area)
{
    m_work->towns.Add(area);
}

/// Ranges get the town in whose outline they lie; a source's own word stays where it names a place that is known,
/// since some have the county there.
void LookupWriter::Work::NameCities()
{
    const auto name = [this](StoredSide& side, const QString& town) {
        if (!town.isEmpty())
            side.city = cities.NumberOf(town);
        else if (side.city != 0 && towns.HasPlaces() && !towns.IsPlace(cities.At(side.city)))
            side.city = 0;
    };
    for (Filling& filling : streets) {
        for (std::size_t at = 0; at < filling.middles.size(); ++at) {
            StoredEdge& edge = filling.street.edges[at];
            if (edge.left.from.IsEmpty() && edge.right.from.IsEmpty())
                continue;
            const QString town = towns.Around(filling.middles[at]);
            if (!edge.left.from.IsEmpty())
                name(edge.left, town);
            if (!edge.right.from.IsEmpty())
                name(edge.right, town);
        }
    }
}

std::map<quint32, QByteArray> LookupWriter::Work::StreetRows()
{
    // Streets of one base, and bases of one number, share a row.
    std::map<quint32, std::map<QString, std::vector<StoredStreet*>>> bases;
    for (Filling& filling : streets) {
        StoredStreet& street = filling.street;
        std::sort(street.edges.begin(), street.edges.end(), [](const StoredEdge& one, const StoredEdge& other) {
            return std::pair(one.position.cell, one.position.index) < std::pair(other.position.cell, other.position.index);
        });
        const auto key = [](const StoredHouse& house) {
            return std::tuple(house.number.value, house.number.prefix, house.number.suffix, house.zip, house.city,
                              house.place.latitude, house.place.longitude);
        };
        std::sort(street.houses.begin(), street.houses.end(),
                  [&key](const StoredHouse& one, const StoredHouse& other) { return key(one) < key(other); });
        // The flats of one house.
        const auto same = [](const StoredHouse& one, const StoredHouse& other) {
            return one.number == other.number && one.zip == other.zip && one.city == other.city &&
                   one.place == other.place;
        };
        street.houses.erase(std::unique(street.houses.begin(), street.houses.end(), same), street.houses.end());
        bases[NameNumber(street.name.base)][street.name.base].push_back(&street);
    }
    std::map<quint32, QByteArray> rows;
    for (const auto& [number, names] : bases) {
        ByteWriter bytes;
        for (const auto& [base, variants] : names) {
            bytes.Text(base);
            bytes.Number(variants.size());
            for (const StoredStreet* street : variants)
                format::WriteStreet(bytes, *street);
        }
        rows[number] = bytes.Bytes();
        summary.names.push_back(number);
    }
    return rows;
}

bool LookupWriter::Finish(QString& problem)
{
    Work& work = *m_work;
    work.NameCities();
    pieces::Collector names;
    for (const Filling& filling : work.streets)
        names.Add(filling.street.name.base, NameNumber(filling.street.name.base));
    work.summary.names.clear();
    const std::map<quint32, QByteArray> rows = work.StreetRows();
    work.summary.zips = work.towns.Zips();
    work.summary.places = work.towns.Places();
    const std::map<quint32, QByteArray> facts{{format::kSummaryRow, format::SummaryBytes(work.summary)},
                                              {format::kZipsRow, format::TextsBytes(work.zips.All())},
                                              {format::kCitiesRow, format::TextsBytes(work.cities.All())},
                                              {format::kNamesRow, format::NamesBytes(work.summary.names)}};
    return RunSql(work.file,
                  "CREATE TABLE lookup_streets(id INTEGER PRIMARY KEY, bytes BLOB NOT NULL);"
                  "CREATE TABLE lookup_pieces(id INTEGER PRIMARY KEY, bytes BLOB NOT NULL);"
                  "CREATE TABLE lookup_facts(id INTEGER PRIMARY KEY, bytes BLOB NOT NULL)",
                  problem) &&
           Put(work.file, "INSERT INTO lookup_streets VALUES(?, ?)", rows, problem) &&
           Put(work.file, "INSERT INTO lookup_pieces VALUES(?, ?)", names.Rows(), problem) &&
           Put(work.file, "INSERT INTO lookup_facts VALUES(?, ?)", facts, problem);
}

const LookupSummary& LookupWriter::Summary() const
{
    return m_work->summary;
}

qint64 LookupWriter::LeftOut() const
{
    return m_work->leftOut;
}

bool ReadSummary(sqlite3* county, LookupSummary& summary, QString& problem)
{
    const SqlStatement row = PrepareSql(county, "SELECT bytes FROM lookup_facts WHERE id = ?", problem);
    if (!row)
        return false;
    QByteArray facts[2];
    for (const int at : {0, 1}) {
        sqlite3_reset(row.get());
        sqlite3_bind_int(row.get(), 1, at == 0 ? format::kSummaryRow : format::kNamesRow);
        if (sqlite3_step(row.get()) != SQLITE_ROW) {
            problem = u"the file has no summary of its streets"_s;
            return false;
        }
        const auto* bytes = static_cast<const char*>(sqlite3_column_blob(row.get(), 0));
        facts[at] = QByteArray(bytes, sqlite3_column_bytes(row.get(), 0));
    }
    summary = format::ReadSummary(facts[0]);
    summary.names = format::ReadNames(facts[1]);
    return true;
}

struct NameIndexWriter::Work
{
    struct PlaceRow
    {
        quint32 county = 0;
        PlaceSummary place;
    };
    sqlite3* file = nullptr;
    std::map<quint32, std::vector<quint32>> names; ///< the counties of each
    std::map<quint32, std::vector<std::pair<quint32, ZipSummary>>> zips;
    std::map<QString, std::vector<PlaceRow>> places;
    std::map<quint32, QByteArray> states;
};

NameIndexWriter::NameIndexWriter(sqlite3* index)
    : m_work(std::make_unique<Work>())
{
    m_work->file = index;
}

NameIndexWriter::~NameIndexWriter() = default;

void NameIndexWriter::Add(quint32 county, const LookupSummary& summary)
{
    Work& work = *m_work;
    for (const quint32 name : summary.names)
        work.names[name].push_back(county);
    for (const ZipSummary& zip : summary.zips)
        work.zips[zip.zip.toUInt()].emplace_back(county, zip);
    for (const PlaceSummary& place : summary.places)
        work.places[CityKey(place.name)].push_back({county, place});
    work.states[county] = summary.state.toUtf8();
}

bool NameIndexWriter::Finish(QString& problem)
{
    Work& work = *m_work;
    std::map<quint32, ByteWriter> names;
    for (auto& [name, counties] : work.names) {
        ByteWriter& bytes = names[name >> format::kNameBits];
        bytes.Number(name & ((1u << format::kNameBits) - 1));
        bytes.Number(counties.size());
        std::sort(counties.begin(), counties.end());
        quint32 last = 0;
        for (const quint32 county : counties) {
            bytes.Number(county - last);
            last = county;
        }
    }
    std::map<quint32, QByteArray> nameRows;
    for (const auto& [bucket, bytes] : names)
        nameRows[bucket] = bytes.Bytes();
    std::map<quint32, QByteArray> zipRows;
    for (const auto& [zip, parts] : work.zips) {
        ByteWriter bytes;
        bytes.Number(parts.size());
        for (const auto& [county, part] : parts) {
            bytes.Number(county);
            format::WritePlace(bytes, part.centre);
            format::WriteExtent(bytes, part.extent);
        }
        zipRows[zip] = bytes.Bytes();
    }
    std::map<quint32, ByteWriter> places;
    pieces::Collector likes;
    for (const auto& [key, rows] : work.places) {
        ByteWriter& bytes = places[NameNumber(key)];
        bytes.Text(key);
        bytes.Number(rows.size());
        for (const Work::PlaceRow& row : rows) {
            bytes.Number(row.county);
            bytes.Signed(row.place.population);
            format::WritePlace(bytes, row.place.place);
            format::WriteExtent(bytes, row.place.extent);
        }
        likes.Add(key, NameNumber(key));
    }
    std::map<quint32, QByteArray> placeRows;
    for (const auto& [number, bytes] : places)
        placeRows[number] = bytes.Bytes();
    return RunSql(work.file,
                  "CREATE TABLE lookup_names(id INTEGER PRIMARY KEY, bytes BLOB NOT NULL);"
                  "CREATE TABLE lookup_zips(id INTEGER PRIMARY KEY, bytes BLOB NOT NULL);"
                  "CREATE TABLE lookup_places(id INTEGER PRIMARY KEY, bytes BLOB NOT NULL);"
                  "CREATE TABLE lookup_pieces(id INTEGER PRIMARY KEY, bytes BLOB NOT NULL);"
                  "CREATE TABLE lookup_states(id INTEGER PRIMARY KEY, bytes BLOB NOT NULL)",
                  problem) &&
           Put(work.file, "INSERT INTO lookup_names VALUES(?, ?)", nameRows, problem) &&
           Put(work.file, "INSERT INTO lookup_zips VALUES(?, ?)", zipRows, problem) &&
           Put(work.file, "INSERT INTO lookup_places VALUES(?, ?)", placeRows, problem) &&
           Put(work.file, "INSERT INTO lookup_pieces VALUES(?, ?)", likes.Rows(), problem) &&
           Put(work.file, "INSERT INTO lookup_states VALUES(?, ?)", work.states, problem);
}

} // namespace vasclip::street
