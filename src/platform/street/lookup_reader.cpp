#include "platform/street/lookup_reader.h"

#include "platform/street/lookup_format.h"
#include "platform/street/name_number.h"
#include "platform/street/piece_index.h"
#include "platform/street/sql.h"

#include <sqlite3.h>

#include <algorithm>
#include <map>
#include <mutex>

namespace vasclip::street {

namespace {

/// Reads the bytes of a row by its number. The statement is made when it is first needed: most files are opened for
/// one address.
class Rows
{
public:
    Rows(sqlite3* file, const char* sql)
        : m_file(file)
        , m_sql(sql)
    {}

    [[nodiscard]] QByteArray At(quint32 id) const
    {
        if (!m_select) {
            QString problem; // a file without the table has no rows
            m_select = PrepareSql(m_file, m_sql, problem);
            if (!m_select)
                return {};
        }
        sqlite3_bind_int64(m_select.get(), 1, id);
        QByteArray bytes;
        if (sqlite3_step(m_select.get()) == SQLITE_ROW)
            bytes = QByteArray(static_cast<const char*>(sqlite3_column_blob(m_select.get(), 0)),
                               sqlite3_column_bytes(m_select.get(), 0));
        sqlite3_reset(m_select.get());
        return bytes;
    }

private:
    sqlite3* m_file;
    const char* m_sql;
    mutable SqlStatement m_select;
};

/// A digit is no typing error: 3rd is not 4th, US 31 not US 82.
bool SameDigits(QStringView one, QStringView other)
{
    qsizetype there = 0;
    const auto next = [&other, &there] {
        while (there < other.size() && !other[there].isDigit())
            ++there;
    };
    for (const QChar letter : one) {
        if (!letter.isDigit())
            continue;
        next();
        if (there == other.size() || other[there] != letter)
            return false;
        ++there;
    }
    next();
    return there == other.size();
}

/// Names that a single swap of two letters makes of `name`: such an error can harm two pieces at once.
QStringList Swapped(const QString& name)
{
    QStringList swapped;
    if (name.size() > 48 || pieces::ErrorsFor(name.size()) == 0)
        return swapped;
    for (qsizetype at = 0; at + 1 < name.size(); ++at) {
        if (name.at(at) == name.at(at + 1))
            continue;
        QString other = name;
        std::swap(other[at], other[at + 1]);
        swapped.append(other);
    }
    return swapped;
}

} // namespace

struct LookupReader::Work
{
    explicit Work(sqlite3* file)
        : streets(file, "SELECT bytes FROM lookup_streets WHERE id = ?")
        , pieceRows(file, "SELECT bytes FROM lookup_pieces WHERE id = ?")
    {
        const Rows facts(file, "SELECT bytes FROM lookup_facts WHERE id = ?");
        summary = format::ReadSummary(facts.At(format::kSummaryRow));
        zips = format::ReadTexts(facts.At(format::kZipsRow));
        cities = format::ReadTexts(facts.At(format::kCitiesRow));
    }

    /// Each base of a row with its streets, until `take` says that it is enough.
    template <class Take> void Walk(quint32 number, const Take& take) const;

    mutable std::mutex guard; ///< over the rows
    Rows streets;
    Rows pieceRows;
    LookupSummary summary;
    QStringList zips;
    QStringList cities;
};

template <class Take> void LookupReader::Work::Walk(quint32 number, const Take& take) const
{
    const QByteArray row = [&] {
        const std::lock_guard lock(guard);
        return streets.At(number);
    }();
    ByteReader bytes(row);
    while (bytes.Left() > 0) {
        const QString base = bytes.Text();
        std::vector<StoredStreet> streetsOfBase;
        for (std::size_t left = bytes.Count(5); left > 0; --left)
            streetsOfBase.push_back(format::ReadStreet(bytes, base));
        if (bytes.Failed())
            return;
        take(base, std::move(streetsOfBase));
    }
}

LookupReader::LookupReader(sqlite3* county)
    : m_work(std::make_unique<Work>(county))
{}

LookupReader::~LookupReader() = default;

std::vector<StoredStreet> LookupReader::Streets(const QString& base) const
{
    std::vector<StoredStreet> found;
    m_work->Walk(NameNumber(base), [&](const QString& name, std::vector<StoredStreet> streets) {
        if (name == base)
            found = std::move(streets);
    });
    return found;
}

std::vector<SimilarName> LookupReader::Similar(const QString& base) const
{
    std::vector<SimilarName> found;
    const int most = pieces::ErrorsFor(base.size());
    if (most == 0)
        return found;
    std::vector<quint32> numbers = pieces::NumbersLike(base, [this](quint32 bucket) {
        const std::lock_guard lock(m_work->guard);
        return m_work->pieceRows.At(bucket);
    });
    for (const QString& swapped : Swapped(base))
        numbers.push_back(NameNumber(swapped));
    std::sort(numbers.begin(), numbers.end());
    numbers.erase(std::unique(numbers.begin(), numbers.end()), numbers.end());
    for (const quint32 number : numbers) {
        m_work->Walk(number, [&](const QString& name, const std::vector<StoredStreet>&) {
            const int errors = pieces::ErrorsBetween(base, name, most);
            if (errors >= 1 && errors <= most && SameDigits(base, name))
                found.push_back({name, errors});
        });
    }
    std::sort(found.begin(), found.end(), [](const SimilarName& one, const SimilarName& other) {
        return std::tie(one.errors, one.name) < std::tie(other.errors, other.name);
    });
    return found;
}

QString LookupReader::Zip(quint32 number) const
{
    return number == 0 ? QString() : m_work->zips.value(number - 1);
}

QString LookupReader::City(quint32 number) const
{
    return number == 0 ? QString() : m_work->cities.value(number - 1);
}

const LookupSummary& LookupReader::Summary() const
{
    return m_work->summary;
}

QString LookupReader::CityOfZip(const QString& zip) const
{
    for (const ZipSummary& known : m_work->summary.zips) {
        if (known.zip == zip)
            return known.city;
    }
    return {};
}

struct NameIndex::Work
{
    explicit Work(sqlite3* file)
        : names(file, "SELECT bytes FROM lookup_names WHERE id = ?")
        , zips(file, "SELECT bytes FROM lookup_zips WHERE id = ?")
        , places(file, "SELECT bytes FROM lookup_places WHERE id = ?")
        , pieceRows(file, "SELECT bytes FROM lookup_pieces WHERE id = ?")
    {
        QString problem;
        const SqlStatement all = PrepareSql(file, "SELECT id, bytes FROM lookup_states ORDER BY id", problem);
        while (all && sqlite3_step(all.get()) == SQLITE_ROW)
            states[static_cast<quint32>(sqlite3_column_int64(all.get(), 0))] = ColumnText(all.get(), 1);
    }

    void AppendPlaces(quint32 number, const QString& city, int errors, std::vector<KnownPlace>& found) const;

    mutable std::mutex guard;
    Rows names;
    Rows zips;
    Rows places;
    Rows pieceRows;
    std::map<quint32, QString> states;
};

NameIndex::NameIndex(sqlite3* index)
    : m_work(std::make_unique<Work>(index))
{}

NameIndex::~NameIndex() = default;

std::vector<quint32> NameIndex::CountiesOf(const QString& base) const
{
    const quint32 number = NameNumber(base);
    const std::lock_guard lock(m_work->guard);
    const QByteArray row = m_work->names.At(number >> format::kNameBits);
    ByteReader bytes(row);
    while (bytes.Left() > 0) {
        const quint64 rest = bytes.Number();
        std::vector<quint32> counties(bytes.Count(1));
        quint32 last = 0;
        for (quint32& county : counties)
            county = last += static_cast<quint32>(bytes.Number());
        if (rest == (number & ((1u << format::kNameBits) - 1)))
            return bytes.Failed() ? std::vector<quint32>() : counties;
    }
    return {};
}

std::optional<KnownZip> NameIndex::Zip(const QString& zip) const
{
    const std::lock_guard lock(m_work->guard);
    const QByteArray row = m_work->zips.At(zip.toUInt());
    ByteReader bytes(row);
    KnownZip known;
    for (std::size_t left = bytes.Count(7); left > 0; --left) {
        known.counties.push_back(static_cast<quint32>(bytes.Number()));
        const Place centre = format::ReadPlace(bytes);
        const Extent extent = format::ReadExtent(bytes);
        // The part with the most ground is the middle of it.
        const auto size = [](const Extent& of) { return of.IsEmpty() ? 0 : double(of.high.latitude) - of.low.latitude; };
        if (known.counties.size() == 1 || size(extent) > size(known.extent))
            known.centre = centre;
        known.extent.Widen(extent);
    }
    return known.counties.empty() || bytes.Failed() ? std::nullopt : std::optional(known);
}

void NameIndex::Work::AppendPlaces(quint32 number, const QString& city, int errors,
                                   std::vector<KnownPlace>& found) const
{
    const QByteArray row = places.At(number);
    ByteReader bytes(row);
    while (bytes.Left() > 0) {
        KnownPlace place;
        place.name = bytes.Text();
        const int off = errors == 0 ? (place.name == city ? 0 : 1) : pieces::ErrorsBetween(city, place.name, errors);
        place.errors = off;
        for (std::size_t left = bytes.Count(8); left > 0; --left) {
            place.county = static_cast<quint32>(bytes.Number());
            place.population = bytes.Signed();
            place.place = format::ReadPlace(bytes);
            place.extent = format::ReadExtent(bytes);
            if (off <= errors && !bytes.Failed())
                found.push_back(place);
        }
    }
}

std::vector<KnownPlace> NameIndex::Places(const QString& city) const
{
    std::vector<KnownPlace> found;
    const std::lock_guard lock(m_work->guard);
    m_work->AppendPlaces(NameNumber(city), city, 0, found);
    return found;
}

std::vector<KnownPlace> NameIndex::SimilarPlaces(const QString& city) const
{
    std::vector<KnownPlace> found;
    const std::lock_guard lock(m_work->guard);
    std::vector<quint32> numbers =
        pieces::NumbersLike(city, [this](quint32 bucket) { return m_work->pieceRows.At(bucket); });
    for (const QString& swapped : Swapped(city))
        numbers.push_back(NameNumber(swapped));
    std::sort(numbers.begin(), numbers.end());
    numbers.erase(std::unique(numbers.begin(), numbers.end()), numbers.end());
    for (const quint32 number : numbers)
        m_work->AppendPlaces(number, city, pieces::ErrorsFor(city.size()), found);
    std::stable_sort(found.begin(), found.end(),
                     [](const KnownPlace& one, const KnownPlace& other) { return one.errors < other.errors; });
    return found;
}

QString NameIndex::State(quint32 county) const
{
    const auto found = m_work->states.find(county);
    return found == m_work->states.end() ? QString() : found->second;
}

std::vector<quint32> NameIndex::Counties() const
{
    std::vector<quint32> counties;
    for (const auto& [county, state] : m_work->states)
        counties.push_back(county);
    return counties;
}

} // namespace vasclip::street
