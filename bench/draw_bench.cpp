// Pictures of a map of 1500 x 1000 with names, what whoever paints waits for, and the pictures' own work.
// usage: bench_draw DIRECTORY LATITUDE LONGITUDE [--pictures-only] [PICTURES]
//        bench_draw DIRECTORY --memory [PLACES]
//   DIRECTORY  of maps; latitude and longitude in millionths of a degree; PICTURES is where they are left to
//   be looked at
//   --pictures-only  the pictures' own work alone, to be measured in turns with something else
//   --memory   what an open map takes while many places of it are looked at and found

#include "platform/street/geocode.h"
#include "platform/street/map_data.h"
#include "platform/street/street_map.h"

#include <QFile>
#include <QGuiApplication>

#include <algorithm>
#include <cstdio>
#include <ctime>
#include <functional>
#include <random>
#include <vector>

#ifdef __GLIBC__
#include <malloc.h>
#endif

using namespace Qt::StringLiterals;
using namespace vasclip::street;

namespace {

constexpr QSize kSize(1500, 1000);

double SecondsOf(clockid_t clock)
{
    timespec now{};
    clock_gettime(clock, &now);
    return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) / 1e9;
}

/// Milliseconds of processor time: whatever else the machine does is left out.
double Milliseconds(clockid_t clock, const std::function<void()>& work)
{
    const double begin = SecondsOf(clock);
    work();
    return (SecondsOf(clock) - begin) * 1000;
}

struct Spread
{
    double median = 0;
    double worst = 0;
};

/// @param clock  of the whole process for what one thread orders and Qt fills by threads of its own; of the thread where
///   the map's own workers draw meanwhile
Spread Of(int runs, clockid_t clock, const std::function<void()>& work)
{
    std::vector<double> times;
    for (int run = 0; run < runs; ++run)
        times.push_back(Milliseconds(clock, work));
    std::sort(times.begin(), times.end());
    return {times[times.size() / 2], times.back()};
}

void MeasurePicture(StreetMap& map, double kilometres, const QString& pictures)
{
    map.SetScale(kilometres * 1000 / 0.3048);
    const Spread whole = Of(9, CLOCK_PROCESS_CPUTIME_ID, [&map] { (void)map.ReportPicture(kSize.width(), kSize.height()); });
    std::printf("%4.1f km  picture %6.1f ms\n", kilometres, whole.median);
    if (!pictures.isEmpty())
        map.ReportPicture(kSize.width(), kSize.height()).save(u"%1/map_%2.png"_s.arg(pictures).arg(kilometres));
}

void Measure(StreetMap& map, double kilometres, const QString& pictures)
{
    map.SetScale(kilometres * 1000 / 0.3048);
    const Spread whole = Of(9, CLOCK_PROCESS_CPUTIME_ID, [&map] { (void)map.ReportPicture(kSize.width(), kSize.height()); });
    QImage screen(kSize, QImage::Format_RGB32);
    if (!pictures.isEmpty()) {
        map.ReportPicture(kSize.width(), kSize.height())
            .save(u"%1/map_%2.png"_s.arg(pictures).arg(kilometres));
        map.SetDark(true);
        map.FinishDrawing();
        QPainter dark(&screen);
        map.Paint(dark);
        screen.save(u"%1/map_%2_dark.png"_s.arg(pictures).arg(kilometres));
        map.SetDark(false);
    }
    map.FinishDrawing();
    QPainter painter(&screen);
    int step = 0;
    const Spread pan = Of(120, CLOCK_THREAD_CPUTIME_ID, [&] {
        map.PanBy({++step % 120 < 60 ? -9.0 : 9.0, 2});
        map.Paint(painter);
    });
    const Spread zoom = Of(40, CLOCK_THREAD_CPUTIME_ID, [&] {
        map.ZoomAt({400, 300}, ++step % 40 < 20 ? 1.1 : 1 / 1.1);
        map.Paint(painter);
    });
    map.FinishDrawing();
    std::printf("%4.1f km  picture %6.1f ms   pan step %5.1f, worst %5.1f ms   zoom step %5.1f, worst %5.1f ms\n",
                kilometres, whole.median, pan.median, pan.worst, zoom.median, zoom.worst);
}

/// A search of a thousand addresses of the map, found and placed one by one, the map painted after each 25 and whole at
/// the end; the time of the processor for all threads.
void MeasureSearch(StreetMap& map, const MapGeocoder& geocoder, Place middle)
{
    constexpr int kWanted = 1000;
    std::vector<QString> addresses;
    for (int at = 1; at < 20 * kWanted && addresses.size() < kWanted; ++at) {
        const Place near{middle.latitude + (at * 7919 % 2001 - 1000) * 25, middle.longitude + (at * 104729 % 2001 - 1000) * 30};
        for (const Candidate& candidate : geocoder.Near(near)) {
            if (candidate.foundBy != FoundBy::Street && addresses.size() < kWanted) {
                addresses.push_back(candidate.address);
                break;
            }
        }
    }
    QImage screen(kSize, QImage::Format_RGB32);
    double least = 1e9;
    double leastMap = 1e9;
    std::size_t placed = 0;
    for (int round = 0; round < 5; ++round) {
        map.DoAction(action::kClearPoints);
        map.FinishDrawing();
        double begin = SecondsOf(CLOCK_PROCESS_CPUTIME_ID);
        placed = 0;
        for (std::size_t at = 0; at < addresses.size(); ++at) {
            map.SetID(static_cast<qint32>(at) + 1);
            map.SetLocation(addresses[at]);
            map.DoAction(action::kGeocode);
            if (map.Status() < 0)
                continue;
            map.SetFlags(0x8C42);
            map.SetPicture(at % 3 == 0 ? u"C:\\comp.bmp"_s : u"C:\\reddoor.bmp"_s);
            map.SetText(addresses[at].section(u',', 0, 0));
            map.DoAction(action::kAddPoint);
            ++placed;
            if (at % 25 == 0) {
                QPainter painter(&screen);
                map.Paint(painter);
            }
        }
        map.FinishDrawing();
        least = std::min(least, SecondsOf(CLOCK_PROCESS_CPUTIME_ID) - begin);
        begin = SecondsOf(CLOCK_PROCESS_CPUTIME_ID);
        for (const QString& address : addresses)
            (void)geocoder.Find(address, 2);
        leastMap = std::min(leastMap, SecondsOf(CLOCK_PROCESS_CPUTIME_ID) - begin);
    }
    std::printf("a search of %zu comps: %zu placed, the map painted meanwhile and whole at the end: %.2f s (limit 2), of them "
                "%.2f s to find them\n", addresses.size(), placed, least, leastMap);
}

/// Memory of the process that is in use now, in MB; 0 where the system doesn't say.
double ResidentMb()
{
    QFile file(u"/proc/self/statm"_s);
    if (!file.open(QIODevice::ReadOnly))
        return 0;
    return file.readAll().split(' ').value(1).toDouble() * 4096 / 1e6;
}

void Look(StreetMap& map, Place place, double kilometres)
{
    map.SetLatitude(place.latitude);
    map.SetLongitude(place.longitude);
    map.DoAction(action::kSetCentre);
    map.SetScale(kilometres * 1000 / 0.3048);
    map.FinishDrawing();
}

/// What an open map takes above the program, while places all over it are looked at from near and far and the addresses
/// there are found.
void MeasureMemory(const QString& directory, int places)
{
    const auto native = [](const QString& path) { return path; };
    {
        // The program itself: letters, threads, a sheet of the window's size.
        StreetMap empty({std::make_shared<MapData>(QString()), nullptr, native});
        empty.SetSize(kSize, 1);
        Look(empty, {32464000, -86459700}, 1.5);
    }
    const double before = ResidentMb();
    const auto maps = std::make_shared<MapData>(directory);
    const auto geocoder = std::make_shared<MapGeocoder>(*maps);
    StreetMap map({maps, geocoder, native});
    map.SetSize(kSize, 1);
    const double opened = ResidentMb() - before;
    qint64 edges = 0;
    for (const CountyRecord& county : maps->Counties())
        edges += county.info.edges;
    std::mt19937 random(7);
    double most = 0;
    double last = 0;
    int found = 0;
    for (int at = 0; at < places && !maps->Counties().empty(); ++at) {
        const Extent& extent = maps->Counties()[random() % maps->Counties().size()].info.extent;
        const auto within = [&random](qint32 low, qint32 high) {
            return low + static_cast<qint32>(random() % static_cast<quint32>(high - low + 1));
        };
        const Place place{within(extent.low.latitude, extent.high.latitude), within(extent.low.longitude, extent.high.longitude)};
        constexpr double kWidths[] = {0.5, 1.5, 5, 1.5, 20, 0.5, 80};
        Look(map, place, kWidths[static_cast<std::size_t>(at) % std::size(kWidths)]);
        for (const Candidate& candidate : geocoder->Near(place))
            found += geocoder->Find(candidate.address).empty() ? 0 : 1;
        last = ResidentMb() - before;
        most = std::max(most, last);
    }
    std::printf("%lld edges, %zu counties: opened %.1f MB, %d places looked at and %d addresses found there: most %.1f MB, at the "
                "end %.1f MB (limit 64) above the %.1f MB of the program; cells at hand %.1f MB\n",
                static_cast<long long>(edges), maps->Counties().size(), opened, places, found, most, last, before,
                static_cast<double>(maps->CachedBytes()) / 1e6);
}

} // namespace

int main(int argc, char** argv)
{
#ifdef __GLIBC__
    mallopt(M_MMAP_THRESHOLD, 256 * 1024); // as the program does
#endif
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication app(argc, argv);
    QStringList arguments = QGuiApplication::arguments();
    const bool picturesOnly = arguments.removeAll(u"--pictures-only"_s) > 0;
    if (arguments.size() >= 3 && arguments[2] == u"--memory") {
        MeasureMemory(arguments[1], arguments.value(3, u"1000"_s).toInt());
        return 0;
    }
    if (arguments.size() != 4 && arguments.size() != 5) {
        std::fprintf(stderr, "usage: %s DIRECTORY LATITUDE LONGITUDE [--pictures-only] [PICTURES]\n"
                             "       %s DIRECTORY --memory [PLACES]\n", argv[0], argv[0]);
        return 2;
    }
    const auto maps = std::make_shared<MapData>(arguments[1]);
    const auto geocoder = std::make_shared<MapGeocoder>(*maps);
    StreetMap map({maps, geocoder, [](const QString& path) { return path; }});
    const QString pictures = arguments.value(4);
    const Place middle{arguments[2].toInt(), arguments[3].toInt()};
    map.SetSize(kSize, 1);
    map.SetLatitude(middle.latitude);
    map.SetLongitude(middle.longitude);
    map.DoAction(action::kSetCentre);
    if (picturesOnly) {
        for (const double kilometres : {0.5, 1.5, 5.0})
            MeasurePicture(map, kilometres, pictures);
        return 0;
    }

    QImage screen(kSize, QImage::Format_RGB32);
    QPainter painter(&screen);
    std::printf("first paint %.1f ms (limit 150), of this thread; a pan step's limit is 16\n",
                Milliseconds(CLOCK_THREAD_CPUTIME_ID, [&] { map.Paint(painter); }));
    painter.end();
    for (const double kilometres : {0.5, 1.5, 5.0})
        Measure(map, kilometres, pictures);

    map.SetScale(5000 / 0.3048);
    MeasureSearch(map, *geocoder, middle);
    map.DoAction(action::kClearPoints);
    // A thousand points around one place.
    for (qint32 id = 1; id <= 1000; ++id) {
        map.SetID(id);
        map.SetLatitude(middle.latitude + (id * 7919 % 2001 - 1000) * 20);
        map.SetLongitude(middle.longitude + (id * 104729 % 2001 - 1000) * 24);
        map.SetFlags(0x8C42);
        map.SetPicture(id % 3 == 0 ? u"C:\\comp.bmp"_s : u"C:\\reddoor.bmp"_s);
        map.SetText(u"%1 CHESTNUT ST"_s.arg(100 + id));
        map.DoAction(action::kAddPoint);
    }
    std::printf("1,000 points:\n");
    Measure(map, 5, {});
    return 0;
}
