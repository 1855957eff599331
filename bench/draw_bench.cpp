// Pictures of a map of 1500 x 1000 with names, what whoever paints waits for, and the pictures' own work.
// usage: bench_draw DIRECTORY LATITUDE LONGITUDE [PICTURES]
//   DIRECTORY  of maps; latitude and longitude in millionths of a degree; PICTURES is where they are left to
//   be looked at

#include "platform/street/geocode.h"
#include "platform/street/map_data.h"
#include "platform/street/street_map.h"

#include <QGuiApplication>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <functional>
#include <vector>

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

/// Milliseconds of this thread's processor time: whatever else the machine does is left out.
double Milliseconds(const std::function<void()>& work)
{
    const double begin = SecondsOf(CLOCK_THREAD_CPUTIME_ID);
    work();
    return (SecondsOf(CLOCK_THREAD_CPUTIME_ID) - begin) * 1000;
}

struct Spread
{
    double median = 0;
    double worst = 0;
};

Spread Of(int runs, const std::function<void()>& work)
{
    std::vector<double> times;
    for (int run = 0; run < runs; ++run)
        times.push_back(Milliseconds(work));
    std::sort(times.begin(), times.end());
    return {times[times.size() / 2], times.back()};
}

void Measure(StreetMap& map, double kilometres, const QString& pictures)
{
    map.SetScale(kilometres * 1000 / 0.3048);
    const Spread whole = Of(9, [&map] { (void)map.ReportPicture(kSize.width(), kSize.height()); });
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
    const Spread pan = Of(120, [&] {
        map.PanBy({++step % 120 < 60 ? -9.0 : 9.0, 2});
        map.Paint(painter);
    });
    const Spread zoom = Of(40, [&] {
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

} // namespace

int main(int argc, char** argv)
{
    if (argc != 4 && argc != 5) {
        std::fprintf(stderr, "usage: %s DIRECTORY LATITUDE LONGITUDE [PICTURES]\n", argv[0]);
        return 2;
    }
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication app(argc, argv);
    const auto maps = std::make_shared<MapData>(QString::fromLocal8Bit(argv[1]));
    const auto geocoder = std::make_shared<MapGeocoder>(*maps);
    StreetMap map({maps, geocoder, [](const QString& path) { return path; }});
    const QString pictures = argc == 5 ? QString::fromLocal8Bit(argv[4]) : QString();
    map.SetSize(kSize, 1);
    map.SetLatitude(std::atoi(argv[2]));
    map.SetLongitude(std::atoi(argv[3]));
    map.DoAction(action::kSetCentre);

    QImage screen(kSize, QImage::Format_RGB32);
    QPainter painter(&screen);
    std::printf("first paint %.1f ms (limit 150), of this thread; a pan step's limit is 16\n",
                Milliseconds([&] { map.Paint(painter); }));
    painter.end();
    for (const double kilometres : {0.5, 1.5, 5.0})
        Measure(map, kilometres, pictures);

    map.SetScale(5000 / 0.3048);
    MeasureSearch(map, *geocoder, {std::atoi(argv[2]), std::atoi(argv[3])});
    map.DoAction(action::kClearPoints);
    // A thousand points around one place.
    for (qint32 id = 1; id <= 1000; ++id) {
        map.SetID(id);
        map.SetLatitude(std::atoi(argv[2]) + (id * 7919 % 2001 - 1000) * 20);
        map.SetLongitude(std::atoi(argv[3]) + (id * 104729 % 2001 - 1000) * 24);
        map.SetFlags(0x8C42);
        map.SetPicture(id % 3 == 0 ? u"C:\\comp.bmp"_s : u"C:\\reddoor.bmp"_s);
        map.SetText(u"%1 CHESTNUT ST"_s.arg(100 + id));
        map.DoAction(action::kAddPoint);
    }
    std::printf("1,000 points:\n");
    Measure(map, 5, {});
    return 0;
}
