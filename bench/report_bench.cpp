// Printing the longest report to PDF: seconds for a thousand records with two photos each, also of the processor alone, since
// other work on the machine leaves these as they are, and the memory that it takes for one, two and four thousand.
// usage: bench_report [RECORDS]

#include "platform/picture/picture.h"
#include "store/schema.h"
#include "support/standing_time.h"
#include "upkeep/layout_files.h"
#include "upkeep/report_pictures.h"
#include "upkeep/report_print.h"
#include "upkeep/report_table.h"

#include <QElapsedTimer>
#include <QFile>
#include <QGuiApplication>
#include <QTemporaryDir>

#include <cstdio>
#include <cstdlib>
#include <random>
#include <sys/resource.h>

using namespace vasclip;
using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int kPictures = 50;
const QString kDatabook = u"C:\\DATABOOK.MDB"_s;
const QString kReport = u"C:\\Report_Detail.mdb"_s;
const QString kPhotos = u"C:\\JPG\\"_s;

/// As a camera's: 800 by 600 with detail everywhere.
void MakePictures(const files::Disk& disk)
{
    disk.MkDir(kPhotos.chopped(1));
    std::mt19937 random(7);
    QImage image(800, 600, QImage::Format_RGB32);
    for (int n = 0; n < kPictures; ++n) {
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x)
                image.setPixel(x, y,
                               qRgb((x + n) & 255, (y * 2) & 255, static_cast<int>(random() & 63) + 96));
        picture::SaveJpeg(disk, image, kPhotos + u"P%1.jpg"_s.arg(n), 90);
    }
}

/// A record's text for a column: as long as people fill it.
QString ValueOf(const store::CompsColumn& column, int record)
{
    if (column.sorts == engine::SortsAs::Number)
        return QString::number(1 + record % 9 * 37).left(column.size);
    if (column.sorts == engine::SortsAs::Date)
        return u"%1/%2/2025"_s.arg(1 + record % 12).arg(1 + record % 28);
    const QString words = u"Average for the neighborhood and in good repair "_s;
    return QString(words.repeated(column.size / 60 + 1)).left(qMin(column.size, 120));
}

void MakeRecords(engine::Engine& engine, int from, int to)
{
    const auto database = engine.OpenDatabase(kDatabook);
    const auto rows = database->OpenRecordset(u"COMPS"_s, engine::RecordsetType::Table);
    engine::Transaction all(*database);
    for (int record = from; record < to; ++record) {
        rows->AddNew();
        for (const store::CompsColumn& column : store::CompsColumns())
            if (column.size > 0)
                rows->SetValue(column.name, ValueOf(column, record));
        rows->SetValue(u"CENTRALKEY"_s, u"%1 OAK ST"_s.arg(record));
        rows->SetValue(u"ADDRESS"_s, u"%1 Oak St"_s.arg(record));
        rows->SetValue(
            u"PHOTOS"_s,
            u"FRONT VIEW|P%1\r\nREAR VIEW|P%2\r\n"_s.arg(record % kPictures).arg((record + 7) % kPictures));
        rows->Update();
    }
    all.Commit();
}

long PeakMegabytes()
{
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return usage.ru_maxrss / 1024;
}

/// Seconds of processor time of this process.
double Computed()
{
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    const auto seconds = [](const timeval& time) {
        return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
    };
    return seconds(usage.ru_utime) + seconds(usage.ru_stime);
}

} // namespace

int main(int argc, char* argv[])
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication app(argc, argv);
    const int first = argc > 1 ? std::atoi(argv[1]) : 1000;
    const QTemporaryDir home;
    const files::Disk disk(home.path());
    engine::Engine engine(disk, tests::SomeTime());
    store::MakeDatabase(engine, kDatabook);
    MakePictures(disk);
    common::Globals globals;
    globals.G_UserDir = u"C:\\"_s;
    const upkeep::ReportLayout layout = upkeep::OpenLayout(disk, globals, u"detail"_s);
    long before = 0;
    int made = 0;
    for (int records = first; records <= 4 * first; records *= 2) {
        MakeRecords(engine, made, records);
        made = records;
        upkeep::FillReport(engine, kReport, kDatabook, u"COMPS"_s, {});
        const upkeep::ReportTable table(engine, kReport, layout);
        upkeep::ReportPictures pictures(disk, kPhotos);
        const QString file = home.filePath(u"report.pdf"_s);
        qint64 pages = 0;
        QElapsedTimer timer;
        timer.start();
        const double computed = Computed();
        const auto done = upkeep::PrintToPdf({.layout = layout,
                                              .sheet = layout.sheet,
                                              .facts = {.now = engine.Time().Now(),
                                                        .count = records,
                                                        .databook = u"DATABOOK.MDB"_s,
                                                        .search = {},
                                                        .company = {}},
                                              .feed = table.Feed(),
                                              .pictures = pictures},
                                             file, [&](const QString&, qint64, qint64 total) {
                                                 pages = total;
                                                 return true;
                                             });
        const double seconds = static_cast<double>(timer.elapsed()) / 1000;
        const double computing = Computed() - computed;
        const long peak = PeakMegabytes();
        if (done != paper::Made::Whole)
            return EXIT_FAILURE;
        std::printf("%6d records: %6.2f s, %6.2f s of them computing, %lld pages, %.1f MB of PDF, peak memory %ld MB (%+ld)\n",
                    records, seconds, computing, static_cast<long long>(pages), static_cast<double>(QFile(file).size()) / 1e6,
                    peak, peak - (before ? before : peak));
        before = peak;
    }
    return EXIT_SUCCESS;
}
