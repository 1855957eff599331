// Finding addresses on a state's streets: time by kind of query, growth with the number of edges, bytes on disk, and how
// many are found and how near. The streets are those of real counties, and copies of them under other names and places.
// usage: bench_geocode MAPDATA [EDGES [EDGES]] [--keep DIRECTORY | --peer DIRECTORY]
//   MAPDATA  the directory that has prattville_al and middlebury_vt_points
//   --keep   leaves the maps in the directory, and takes those that an earlier run left there
//   --peer   asks for 1,000 addresses and leaves them and the streets in the directory, for bench/peers/geocode
// Both sizes are asked in turn, a few hundred addresses each, over and over; of an address the least time counts: what
// else the machine does only adds to it.

#include "platform/street/address_parser.h"
#include "platform/street/county_writer.h"
#include "platform/street/geocode.h"
#include "platform/street/geocode_line.h"
#include "platform/street/name_number.h"
#include "platform/street/sample_pack.h"

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QHash>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <ctime>
#include <memory>
#include <random>
#include <vector>

using namespace vasclip;
using namespace vasclip::street;
using namespace Qt::StringLiterals;

namespace {

constexpr double kHitFeet = 131; // 40 m

struct Example
{
    QString kind;
    QString query;
    bool isOnStreet = true;
    Place place;
    QString street = {}; ///< its true name
};

Place At(double latitude, double longitude)
{
    return {static_cast<qint32>(std::lround(latitude * 1e6)), static_cast<qint32>(std::lround(longitude * 1e6))};
}

std::vector<Example> ReadExamples(const QString& path)
{
    std::vector<Example> examples;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return examples;
    while (!file.atEnd()) {
        const QStringList cells = QString::fromUtf8(file.readLine()).remove(u'\n').split(u'\t');
        if (cells.size() < 10 || cells.at(0) == u"id" || cells.at(0).startsWith(u'#'))
            continue;
        examples.push_back({cells.at(1), cells.at(2), !cells.at(8).isEmpty(),
                            At(cells.at(8).toDouble(), cells.at(9).toDouble()), cells.at(4)});
    }
    return examples;
}

std::vector<AddressPoint> ReadHouses(const QString& path)
{
    std::vector<AddressPoint> houses;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return houses;
    const QJsonArray features = QJsonDocument::fromJson(file.readAll()).object().value(u"features"_s).toArray();
    for (const auto& feature : features) {
        const QJsonObject fields = feature.toObject().value(u"properties"_s).toObject();
        const QJsonArray place =
            feature.toObject().value(u"geometry"_s).toObject().value(u"coordinates"_s).toArray();
        houses.push_back({QString::number(fields.value(u"HOUSE_NUMBER"_s).toInt()) +
                              fields.value(u"HOUSE_NUMBERSUFFIX"_s).toString(),
                          fields.value(u"PRIMARYNAME"_s).toString(), {}, fields.value(u"TOWNNAME"_s).toString(),
                          fields.value(u"ZIP"_s).toString(), At(place.at(1).toDouble(), place.at(0).toDouble())});
    }
    return houses;
}

/// How a county of the made state differs from the real one.
class Copy
{
public:
    explicit Copy(int number)
        : m_number(number)
    {}

    [[nodiscard]] Place Moved(Place place) const
    {
        // Half a degree apart, 30 in a row.
        return {place.latitude - 500000 * (m_number / 30), place.longitude + 500000 * (m_number % 30)};
    }
    [[nodiscard]] QString Zip(const QString& zip) const
    {
        if (m_number == 0 || zip.isEmpty())
            return zip;
        return QString::number(10000 + (m_number * 20 + zip.toInt() % 20) % 89999);
    }
    [[nodiscard]] QString Town(const QString& town) const
    {
        return m_number == 0 ? town
                             : Word(m_number) + Word(m_number / 40).toLower() + Word(m_number / 1600 + 9).toLower() +
                                   town.toLower();
    }
    /// One name in four is everywhere, as Main Street is, and so are numbered roads.
    [[nodiscard]] QString Street(const QString& name) const { return Street(name, name); }
    /// @param written  the name as a query has it, in the copy called as `name` is
    [[nodiscard]] QString Street(const QString& written, const QString& name) const
    {
        const uint hash = NameNumber(name); // the same in each run
        const bool numbered = std::any_of(name.begin(), name.end(), [](QChar letter) { return letter.isDigit(); });
        if (m_number == 0 || numbered || hash % 4 == 0)
            return written;
        const QString word = Word(m_number * 7 + static_cast<int>(hash % 1000));
        // A direction stays in front.
        const qsizetype blank = written.indexOf(u' ');
        return blank == 1 ? written.left(2) + word + written.sliced(1) : word + u' ' + written;
    }

private:
    static QString Word(int number)
    {
        static const char* const kWords[] = {
            "Oak",   "River", "Cedar", "Stone",  "Eagle", "Silver", "Willow", "Falcon", "Maple", "Copper",
            "Birch", "Amber", "Hazel", "Juniper", "Fox",   "Heron",  "Laurel", "Granite", "Aspen", "Bishop",
            "Clay",  "Dover", "Ember", "Fern",   "Grant", "Harbor", "Indigo", "Jasper", "Kirby", "Linden",
            "Moss",  "Nolan", "Orchid", "Pearl", "Quail", "Raven",  "Saddle", "Thorn",  "Umber", "Violet"};
        return QString::fromLatin1(kWords[static_cast<std::size_t>(number) % std::size(kWords)]);
    }
    int m_number;
};

/// A query for the copy: each word of the real one that names something, as the copy calls it.
QString Translated(const Example& example, const Copy& copy)
{
    QString text = example.query;
    if (const Address address = ParseAddress(text); !address.zip.isEmpty())
        text.replace(address.zip, copy.Zip(address.zip));
    text.replace(u"prattville"_s, copy.Town(u"Prattville"_s), Qt::CaseInsensitive);
    const qsizetype blank = text.indexOf(u' ');
    text.replace(blank + 1, text.size(), copy.Street(text.sliced(blank + 1), example.street));
    return example.kind == u"lower" ? text.toLower() : text;
}

struct State
{
    QString directory;
    qint64 edges = 0;
    int counties = 0;
    qint64 bytes = 0;
};

/// What a peer is to be asked on, as tables with a tab between the columns.
class PeerFiles
{
public:
    explicit PeerFiles(const QString& directory)
        : m_streets(directory + u"/streets.tsv"_s)
        , m_queries(directory + u"/queries.tsv"_s)
        , m_open(!directory.isEmpty() && m_streets.open(QIODevice::WriteOnly) && m_queries.open(QIODevice::WriteOnly))
    {}
    [[nodiscard]] bool Open() const { return m_open; }
    void Add(const RoadEdge& edge, const QString& original, int county, const QString& town)
    {
        if (!m_open)
            return;
        QStringList line;
        for (const Place& place : edge.line)
            line.append(Number(place.longitude) + u' ' + Number(place.latitude));
        Write(m_streets, {QString::number(++m_edges), QString::number(county), edge.name, original, edge.left.from,
                          edge.left.to, edge.left.zip, edge.right.from, edge.right.to, edge.right.zip, town,
                          u"LINESTRING("_s + line.join(u',') + u')'});
    }
    void Ask(const Example& example, const QString& query, Place place)
    {
        if (m_open)
            Write(m_queries, {QString::number(++m_asked), example.kind, query, example.isOnStreet ? u"t"_s : u"f"_s,
                              Number(place.latitude), Number(place.longitude)});
    }

private:
    static QString Number(qint32 millionths) { return QString::number(millionths / 1e6, 'f', 6); }
    static void Write(QFile& file, const QStringList& cells) { file.write(cells.join(u'\t').toUtf8() + '\n'); }

    QFile m_streets;
    QFile m_queries;
    bool m_open;
    qint64 m_edges = 0;
    int m_asked = 0;
};

bool MakeState(State& state, const std::vector<RoadEdge>& real, qint64 wanted, PeerFiles& peer)
{
    std::vector<CountyRecord> records;
    QString problem;
    QElapsedTimer clock;
    clock.start();
    // Two copies a county, side by side, make one of the usual size.
    for (int number = 0; state.edges < wanted; ++number) {
        const QString file = u"%1-1.cel"_s.arg(10000 + number);
        CountyWriter writer(state.directory + u'/' + file,
                            CountyInfo{QString::number(10000 + number), u"AL"_s, u"made"_s, u"2021"_s, {}});
        for (const int half : {0, 1}) {
            const Copy copy(number * 2 + half);
            for (RoadEdge edge : real) {
                const QString original = edge.name;
                edge.name = copy.Street(edge.name);
                for (Place& place : edge.line)
                    place = copy.Moved(place);
                edge.left.zip = copy.Zip(edge.left.zip);
                edge.right.zip = copy.Zip(edge.right.zip);
                state.edges += writer.Add(edge) ? 1 : 0;
                peer.Add(edge, original, number, copy.Town(u"Prattville"_s));
            }
            writer.Add(PlaceName{copy.Town(u"Prattville"_s), PlaceKind::City, 33960,
                                 copy.Moved({32464000, -86459700}), {}});
        }
        CountyRecord record;
        if (!writer.Finish(problem) || !MakeRecord(state.directory, file, record, problem)) {
            std::printf("%s\n", qPrintable(problem));
            return false;
        }
        records.push_back(record);
        state.bytes += record.bytes;
    }
    state.counties = static_cast<int>(records.size());
    if (!WriteIndex(state.directory, records, problem)) {
        std::printf("%s\n", qPrintable(problem));
        return false;
    }
    const qint64 index = QFileInfo(state.directory + u"/F1"_s).size();
    state.bytes += index;
    std::printf("%d counties, %lld edges, made in %.1f s: %.1f bytes an edge, of them %.1f of the index\n",
                state.counties, static_cast<long long>(state.edges), static_cast<double>(clock.elapsed()) / 1000,
                static_cast<double>(state.bytes) / static_cast<double>(state.edges),
                static_cast<double>(index) / static_cast<double>(state.edges));
    return true;
}

void Forget(const QString& directory)
{
    const QStringList files = QDir(directory).entryList(QDir::Files);
    for (const QString& name : files) {
        const int file = open(QFile::encodeName(directory + u'/' + name).constData(), O_RDONLY);
        if (file >= 0) {
            posix_fadvise(file, 0, 0, POSIX_FADV_DONTNEED);
            close(file);
        }
    }
}

double Milliseconds(clockid_t clock)
{
    timespec now{};
    clock_gettime(clock, &now);
    return static_cast<double>(now.tv_sec) * 1e3 + static_cast<double>(now.tv_nsec) / 1e6;
}

struct Times
{
    std::vector<double> milliseconds;
    int hits = 0;

    [[nodiscard]] double At(double share)
    {
        std::sort(milliseconds.begin(), milliseconds.end());
        const auto at = static_cast<std::size_t>(share * static_cast<double>(milliseconds.size()));
        return milliseconds.empty() ? 0 : milliseconds[std::min(at, milliseconds.size() - 1)];
    }
};

/// Maps that were left by an earlier run. @return false where there are none
bool FindState(State& state)
{
    const MapData maps(state.directory);
    for (const CountyRecord& record : maps.Counties()) {
        state.edges += record.info.edges;
        state.bytes += record.bytes;
    }
    state.counties = static_cast<int>(maps.Counties().size());
    return state.counties > 0;
}

/// One query, and the least that it took.
struct Asked
{
    const Example* example;
    QString query;
    Place place;
    bool hit = false;
    double found = 1e9;
    double reverse = 1e9;
};

class Timing
{
public:
    Timing(const State& state, const std::vector<Example>& examples, int queries)
        : m_state(state)
        , m_maps(std::make_unique<MapData>(state.directory))
        , m_geocoder(std::make_unique<MapGeocoder>(*m_maps))
    {
        std::mt19937 random(11);
        for (int round = 0; round < queries; ++round) {
            const Copy copy(static_cast<int>(random() % static_cast<unsigned>(state.counties * 2)));
            const Example& example = examples[random() % examples.size()];
            m_asked.push_back({&example, Translated(example, copy), copy.Moved(example.place)});
        }
    }

    [[nodiscard]] const std::vector<Asked>& All() const { return m_asked; }

    /// All of them with the files dropped from the cache, by the wall.
    void AskCold()
    {
        Forget(m_state.directory);
        for (const Asked& asked : m_asked) {
            const double from = Milliseconds(CLOCK_MONOTONIC);
            (void)m_geocoder->Find(asked.query);
            m_cold.milliseconds.push_back(Milliseconds(CLOCK_MONOTONIC) - from);
        }
    }

    /// Some of them, by the time of the processor alone.
    void Ask(std::size_t from, std::size_t to)
    {
        for (std::size_t at = from; at < std::min(to, m_asked.size()); ++at) {
            Asked& asked = m_asked[at];
            const double before = Milliseconds(CLOCK_THREAD_CPUTIME_ID);
            const std::vector<Candidate> found = m_geocoder->Find(asked.query);
            asked.found = std::min(asked.found, Milliseconds(CLOCK_THREAD_CPUTIME_ID) - before);
            asked.hit = asked.example->isOnStreet
                            ? !found.empty() && PlaneFeet(found[0].place, asked.place) <= kHitFeet
                            : found.empty();
        }
        // Apart from the others: the house that was just found is at hand.
        for (std::size_t at = from; at < std::min(to, m_asked.size()); ++at) {
            Asked& asked = m_asked[at];
            if (!asked.example->isOnStreet)
                continue;
            const double before = Milliseconds(CLOCK_THREAD_CPUTIME_ID);
            (void)m_geocoder->Near(asked.place);
            asked.reverse = std::min(asked.reverse, Milliseconds(CLOCK_THREAD_CPUTIME_ID) - before);
        }
    }

    /// @return the median of all that are found, in milliseconds
    double Print()
    {
        std::printf("%lld edges\n%-12s %8s %9s %9s %9s\n", static_cast<long long>(m_state.edges), "kind", "found",
                    "median ms", "95 % ms", "worst ms");
        QMap<QString, Times> kinds;
        Times all;
        Times reverse;
        for (const Asked& asked : m_asked) {
            for (Times* times : {&all, &kinds[asked.example->kind]}) {
                times->milliseconds.push_back(asked.found);
                times->hits += asked.hit ? 1 : 0;
            }
            if (asked.example->isOnStreet)
                reverse.milliseconds.push_back(asked.reverse);
        }
        const auto print = [](const char* name, Times& times) {
            std::printf("%-12s %7.1f%% %9.3f %9.3f %9.3f\n", name,
                        100.0 * times.hits / static_cast<double>(times.milliseconds.size()), times.At(0.5),
                        times.At(0.95), times.At(1));
        };
        for (auto kind = kinds.begin(); kind != kinds.end(); ++kind)
            print(qPrintable(kind.key()), kind.value());
        print("all", all);
        std::printf("%-12s %8s %9.3f %9.3f %9.3f\n", "reverse", "", reverse.At(0.5), reverse.At(0.95), reverse.At(1));
        std::printf("%-12s %8s %9.3f %9.3f %9.3f  (by the wall, files dropped from the cache)\n\n", "cold", "",
                    m_cold.At(0.5), m_cold.At(0.95), m_cold.At(1));
        return all.At(0.5);
    }

private:
    State m_state;
    std::unique_ptr<MapData> m_maps;
    std::unique_ptr<MapGeocoder> m_geocoder;
    std::vector<Asked> m_asked;
    Times m_cold;
};

/// Hits and errors on the real county.
void Measure(const char* name, const MapGeocoder& geocoder, const std::vector<Example>& examples)
{
    struct Tally
    {
        int asked = 0;
        int hits = 0;
        int wrong = 0;
        int sure = 0;
        int sureWrong = 0;
        std::vector<double> feet;
    };
    QMap<QString, Tally> tallies;
    for (const Example& example : examples) {
        Tally& tally = tallies[example.kind];
        ++tally.asked;
        const std::vector<Candidate> found = geocoder.Find(example.query);
        if (found.empty()) {
            tally.hits += example.isOnStreet ? 0 : 1;
            continue;
        }
        const double feet = PlaneFeet(found[0].place, example.place);
        const bool hit = example.isOnStreet && feet <= kHitFeet;
        tally.hits += hit ? 1 : 0;
        tally.wrong += hit ? 0 : 1;
        tally.sure += found[0].sure ? 1 : 0;
        tally.sureWrong += found[0].sure && !hit ? 1 : 0;
        if (hit)
            tally.feet.push_back(feet);
    }
    std::printf("\n%s: found within %.0f feet\n%-12s %6s %7s %6s %6s %11s %12s %9s\n", name, kHitFeet, "kind", "asked",
                "right", "wrong", "sure", "sure, wrong", "median feet", "worst");
    for (auto tally = tallies.begin(); tally != tallies.end(); ++tally) {
        std::sort(tally->feet.begin(), tally->feet.end());
        std::printf("%-12s %6d %6.1f%% %6d %6d %11d %12.1f %9.1f\n", qPrintable(tally.key()), tally->asked,
                    100.0 * tally->hits / tally->asked, tally->wrong, tally->sure, tally->sureWrong,
                    tally->feet.empty() ? 0 : tally->feet[tally->feet.size() / 2],
                    tally->feet.empty() ? 0 : tally->feet.back());
    }
}

std::vector<Example> HouseExamples(const std::vector<AddressPoint>& houses)
{
    std::vector<Example> examples;
    for (const AddressPoint& house : houses) {
        if (house.number == u"0" || house.street.isEmpty())
            continue;
        const QString line = house.number + u' ' + house.street;
        examples.push_back({u"exact"_s, line + u", "_s + house.city + u", VT "_s + house.zip, true, house.place});
        examples.push_back({u"lower"_s, (line + u' ' + house.city + u" vt "_s + house.zip).toLower(), true, house.place});
        examples.push_back({u"nozip"_s, line + u", "_s + house.city + u", VT"_s, true, house.place});
        examples.push_back({u"nocity"_s, line + u", "_s + house.zip, true, house.place});
        examples.push_back({u"outofrange"_s, u"9"_s + house.number + u"99 "_s + house.street + u", "_s + house.city + u", VT "_s + house.zip, false, {}});
    }
    return examples;
}

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication app(argc, argv);
    QStringList arguments = QCoreApplication::arguments();
    const auto option = [&arguments](const QString& name) {
        const qsizetype at = arguments.indexOf(name);
        const QString value = at > 0 ? arguments.value(at + 1) : QString();
        if (at > 0)
            arguments.remove(at, std::min<qsizetype>(2, arguments.size() - at));
        return value;
    };
    const QString peerDirectory = option(u"--peer"_s);
    const QString keep = option(u"--keep"_s);
    PeerFiles peer(peerDirectory);
    if (!peerDirectory.isEmpty() && !peer.Open()) {
        std::printf("nothing can be written in %s\n", qPrintable(peerDirectory));
        return 1;
    }
    const QString data = arguments.value(1);
    const std::vector<RoadEdge> real = test::ReadAddrFeat(data + u"/prattville_al/prattville_addrfeat"_s);
    const std::vector<Example> examples = ReadExamples(data + u"/prattville_al/geocode_examples.tsv"_s);
    if (real.empty() || examples.empty()) {
        std::printf("usage: bench_geocode MAPDATA [EDGES [EDGES]]\nMAPDATA has no prattville_al with streets and examples.\n");
        return 2;
    }
    const QTemporaryDir own;
    std::vector<Timing> timings;
    for (const qint64 edges : {arguments.value(2, u"400000"_s).toLongLong(), arguments.value(3, u"0"_s).toLongLong()}) {
        if (edges <= 0)
            continue;
        State state;
        state.directory = (keep.isEmpty() ? own.path() : keep) + u'/' + QString::number(edges);
        if (!FindState(state) && (!QDir().mkpath(state.directory) || !MakeState(state, real, edges, peer)))
            return 1;
        timings.emplace_back(state, examples, peer.Open() ? 1000 : 4000);
    }
    constexpr int kRounds = 7;
    constexpr std::size_t kBlock = 500;
    for (Timing& timing : timings) {
        timing.AskCold();
        for (const Asked& asked : timing.All())
            peer.Ask(*asked.example, asked.query, asked.place);
    }
    for (int round = 0; round < kRounds; ++round) {
        for (std::size_t at = 0; at < timings.front().All().size(); at += kBlock) {
            for (Timing& timing : timings)
                timing.Ask(at, at + kBlock);
        }
    }
    std::vector<double> medians;
    for (Timing& timing : timings)
        medians.push_back(timing.Print());
    if (medians.size() == 2)
        std::printf("growth of the median: %.2f (limit 1.5)\n", medians[1] / medians[0]);
    const auto county = test::MakePack(u"01001"_s, u"AL"_s, real, {},
                                       {{u"Prattville"_s, PlaceKind::City, 33960, {32464000, -86459700}, {}}});
    if (county)
        Measure("Prattville, ranges", MapGeocoder(*county->maps), examples);
    const std::vector<AddressPoint> houses =
        ReadHouses(data + u"/middlebury_vt_points/e911_address_points_middlebury.geojson"_s);
    const auto town = test::MakePack(u"50001"_s, u"VT"_s, {}, houses, {});
    if (town && !houses.empty())
        Measure("Middlebury, address points", MapGeocoder(*town->maps), HouseExamples(houses));
    return 0;
}
