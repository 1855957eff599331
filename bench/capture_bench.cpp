#include "forms/screen.h"
#include "photos/capture_desk.h"
#include "photos/picture_thumbs.h"
#include "platform/picture/picture.h"
#include "platform/work/thread_workers.h"
#include "support/temp_home.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QPainter>
#include <QProcess>
#include <QStandardPaths>
#include <QThread>

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <functional>

#include <sys/resource.h>

/// The capture browser: a page of twelve 12-megapixel pictures beside vipsthumbnail (processor time of both), a directory of
/// 500 with small pictures in their heads beside reading those heads, the memory of what is off the screen, and
/// a directory of 50,000 beside one of 50.
/// bench_capture [DIR]: DIR holds camera files to take besides the made ones.

using namespace Qt::Literals::StringLiterals;
using namespace vasclip;

namespace {

const QString kDir = u"C:\\SNAP\\"_s;

class Nobody : public forms::Prompter
{
public:
    forms::Answer MsgBox(forms::Buttons, forms::Icon, const QString&, const QString&) override
    {
        return forms::Answer::Ok;
    }
    QString OpenDialog(const QString&, const QString&, const QString&) override { return {}; }
    QString ChooseDirectory(const QString&, const QString&) override { return {}; }
};
class Still : public forms::EventPump, public forms::WindowPort, public forms::Clock, public forms::RandomSource
{
public:
    void DoEvents() override {}
    void AppActivate() override {}
    void SetHourglass(bool) override {}
    [[nodiscard]] QDateTime Now() const override { return QDateTime::currentDateTime(); }
    void Wait(double) override {}
    [[nodiscard]] double Rnd() override { return 0.5; }
};

/// A browser over a home of its own.
struct Browser
{
    explicit Browser(const files::Disk& itsDisk)
        : disk(itsDisk)
        , controls(set)
        , status(set)
        , loader(disk, ports, table)
    {
        globals.G_CaptureDir = kDir;
        globals.imageFileNames = u"ON"_s;
        globals.imageListBox = u"OFF"_s;
        desk = std::make_unique<photos::CaptureDesk>(photos::CaptureBase{disk, ports, globals, status, loader},
                                                     controls, std::make_unique<photos::PictureThumbs>(disk),
                                                     std::make_unique<work::ThreadWorkers>());
    }
    void Settle() const
    {
        while (controls.lblRefreshing.Visible())
            QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents);
    }
    void Rest() const
    {
        Settle();
        while (!desk->Loader().Idle()) {
            QThread::msleep(1); // what is kept for later tells nobody
            QCoreApplication::processEvents();
        }
    }
    const files::Disk& disk;
    Nobody prompter;
    Still still;
    forms::NoScreens screens;
    forms::Ports ports{prompter, still, still, still, still, screens};
    forms::ControlSet set;
    common::Globals globals;
    photos::CaptureControls controls;
    common::StatusDesk status;
    photos::SlotTable table;
    photos::SlotLoader loader;
    std::unique_ptr<photos::CaptureDesk> desk;
};

/// Milliseconds of processor time, of this process or of the children it has waited for: a busy machine does not
/// matter, nor how many processors it has.
double ProcessorMilliseconds(int who, const std::function<void()>& work)
{
    const auto spent = [who] {
        rusage usage{};
        getrusage(who, &usage);
        return double(usage.ru_utime.tv_sec + usage.ru_stime.tv_sec) * 1e3 +
               double(usage.ru_utime.tv_usec + usage.ru_stime.tv_usec) / 1e3;
    };
    const double before = spent();
    work();
    return spent() - before;
}

/// Leaves and grain: compresses like a photo.
QByteArray Photo(int width, int height, unsigned seed)
{
    QImage image(width, height, QImage::Format_RGB32);
    for (int y = 0; y < height; ++y) {
        auto* line = reinterpret_cast<QRgb*>(image.scanLine(y));
        for (int x = 0; x < width; ++x) {
            seed = seed * 1664525U + 1013904223U;
            const int grain = int(seed >> 27);
            line[x] = qRgb((x * 200 / width + grain) & 255, (y * 180 / height + grain) & 255, 90 + grain);
        }
    }
    return picture::ToJpeg(image, 90);
}

qint64 ResidentBytes()
{
    QFile file(u"/proc/self/statm"_s);
    if (!file.open(QIODevice::ReadOnly))
        return 0;
    return file.readAll().split(' ').value(1).toLongLong() * 4096;
}

/// With a small picture in its head, as a camera writes it.
QByteArray WithThumbnail(const QByteArray& jpeg, const QByteArray& small)
{
    QByteArray tiff("II*\0\x08\0\0\0", 8);
    const auto put = [&](quint32 value, int bytes) {
        for (int i = 0; i < bytes; ++i)
            tiff.append(char(value >> (8 * i)));
    };
    put(0, 2);
    put(14, 4);
    put(3, 2);
    constexpr quint32 kThumbAt = 14 + 2 + 3 * 12 + 4;
    const std::tuple<quint32, quint32, quint32> entries[] = {
        {0x103, 3, 6}, {0x201, 4, kThumbAt}, {0x202, 4, quint32(small.size())}};
    for (const auto& [tag, type, value] : entries) {
        put(tag, 2);
        put(type, 2);
        put(1, 4);
        put(value, 4);
    }
    put(0, 4);
    const QByteArray exif = QByteArray("Exif\0\0", 6) + tiff + small;
    QByteArray segment("\xff\xe1", 2);
    segment.append(char((exif.size() + 2) >> 8)).append(char((exif.size() + 2) & 255));
    return QByteArray(jpeg).insert(2, segment + exif);
}

void PageOfTwelve(const QString& what, tests::TempHome& home)
{
    const QStringList names = photos::CaptureFolder::PicturesIn(home.disk, kDir);
    if (names.isEmpty())
        return;
    QStringList files;
    for (const QString& name : names)
        files << home.disk.ToNative(kDir + name);
    double ours = 1e9;
    double peer = 1e9;
    const QString program = QStandardPaths::findExecutable(u"vipsthumbnail"_s);
    for (int round = 0; round < 3; ++round) {
        Browser browser(home.disk);
        ours = std::min(ours, ProcessorMilliseconds(RUSAGE_SELF, [&] {
                            browser.desk->StartBrowsing();
                            browser.Settle();
                        }));
        if (program.isEmpty())
            continue;
        QProcess process;
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(u"VIPS_CONCURRENCY"_s, u"1"_s);
        process.setProcessEnvironment(environment);
        peer = std::min(peer, ProcessorMilliseconds(RUSAGE_CHILDREN, [&] {
                            process.start(program, QStringList{u"--size"_s,
                                                               QString::number(photos::CaptureDesk::kThumbPixels),
                                                               u"-o"_s, home.Native(u"vips-%s.jpg"_s)} +
                                                       files);
                            process.waitForFinished(-1);
                        }));
    }
    const QString beside = program.isEmpty()
                               ? u"vipsthumbnail is not installed"_s
                               : u"vipsthumbnail %1 ms, ratio %2 (limit 1)"_s.arg(peer, 0, 'f', 0)
                                     .arg(ours / peer, 0, 'f', 2);
    std::printf("page of %d, %s: %.0f ms of processor time; %s\n", int(names.size()), qPrintable(what), ours, qPrintable(beside));
}

void FiveHundred()
{
    tests::TempHome home;
    home.MakeDirs(u"C:\\SNAP"_s);
    const QByteArray picture = Photo(1600, 1200, 7);
    const QByteArray small = Photo(160, 120, 9);
    const QByteArray file = WithThumbnail(picture, small);
    QStringList paths;
    for (int i = 0; i < 500; ++i) {
        paths << kDir + u"P%1.JPG"_s.arg(i, 3, 10, QChar(u'0'));
        home.disk.WriteWhole(paths.last(), file);
    }
    const qsizetype at = file.indexOf(small, 2);
    double heads = 1e9;
    double ours = 1e9;
    const photos::PictureThumbs source(home.disk);
    int found = 0;
    for (int round = 0; round < 5; ++round) {
        // Reading a head: the bytes, and the small picture that stands where it was put.
        heads = std::min(heads, ProcessorMilliseconds(RUSAGE_SELF, [&] {
                             for (const QString& path : paths) {
                                 QFile open(home.disk.ToNative(path));
                                 if (!open.open(QIODevice::ReadOnly))
                                     continue;
                                 const QByteArray head = open.read(64 * 1024);
                                 (void)QImage::fromData(head.mid(at, small.size()), "JPG");
                             }
                         }));
        ours = std::min(ours, ProcessorMilliseconds(RUSAGE_SELF, [&] {
                            found = 0;
                            for (const QString& path : paths)
                                found += source.Embedded(path).has_value() ? 1 : 0;
                        }));
    }
    std::printf("500 pictures with small ones in their heads, one thread: %.1f ms of processor time for %d; their heads read "
                "alone: %.1f ms, ratio %.2f (limit 1.20)\n",
                ours, found, heads, ours / heads);

    Browser browser(home.disk);
    const qint64 before = ResidentBytes();
    browser.desk->StartBrowsing();
    browser.Rest();
    const qint64 onePage = ResidentBytes();
    for (int page = 0; page < 45; ++page) {
        browser.desk->imaScroll_Click(2);
        browser.Rest();
    }
    const qint64 after = ResidentBytes();
    const auto& cache = browser.desk->Loader().Cache();
    std::printf("after all pages: %lld pictures kept off the screen in %.2f MB, %.2f MB for 100 (limit 1); the process "
                "grew by %.1f MB for the first page and by %.1f MB for the 41 others\n",
                static_cast<long long>(cache.Count()), double(cache.Bytes()) / 1048576,
                double(cache.Bytes()) / 1048576 * 100 / 500, double(onePage - before) / 1048576,
                double(after - onePage) / 1048576);
}

/// Milliseconds that the window stands still, and until the first page is whole.
std::pair<double, double> OpenDirectoryOf(int count)
{
    tests::TempHome home;
    home.MakeDirs(u"C:\\SNAP"_s);
    home.disk.WriteWhole(kDir + u"00000.JPG"_s, Photo(640, 480, 3));
    const std::filesystem::path first = home.disk.ToNative(kDir + u"00000.JPG"_s).toStdString();
    for (int i = 1; i < count; ++i)
        std::filesystem::create_hard_link(
            first, first.parent_path() / u"%1.JPG"_s.arg(i, 5, 10, QChar(u'0')).toStdString());
    double still = 1e9;
    double whole = 1e9;
    for (int round = 0; round < 3; ++round) {
        const files::Disk fresh(home.disk.Home());
        Browser browser(fresh); // which has not read the directory yet
        browser.desk->Folder().SetPatience(photos::CaptureFolder::kShortPatience);
        QElapsedTimer timer;
        timer.start();
        browser.desk->StartBrowsing();
        still = std::min(still, double(timer.nsecsElapsed()) / 1e6);
        browser.Settle();
        whole = std::min(whole, double(timer.nsecsElapsed()) / 1e6);
        browser.Rest();
    }
    return {still, whole};
}

} // namespace

int main(int argc, char** argv)
{
    QCoreApplication app(argc, argv);
    {
        tests::TempHome home;
        home.MakeDirs(u"C:\\SNAP"_s);
        for (int i = 0; i < 12; ++i)
            home.disk.WriteWhole(kDir + u"P%1.JPG"_s.arg(i, 2, 10, QChar(u'0')),
                                 Photo(4000, 3000, static_cast<unsigned>(i)));
        PageOfTwelve(u"made, 12 megapixels"_s, home);
    }
    if (const QString given = QCoreApplication::arguments().value(1); !given.isEmpty()) {
        tests::TempHome home;
        home.MakeDirs(u"C:\\SNAP"_s);
        int number = 0;
        for (const auto& entry : std::filesystem::directory_iterator(given.toStdString()))
            if (entry.is_regular_file() && number < 12)
                std::filesystem::copy_file(
                    entry.path(),
                    home.disk.ToNative(kDir + u"R%1.JPG"_s.arg(number++, 2, 10, QChar(u'0'))).toStdString());
        PageOfTwelve(u"of "_s + given, home);
    }
    FiveHundred();
    const auto few = OpenDirectoryOf(50);
    const auto many = OpenDirectoryOf(50'000);
    std::printf("a directory of 50: the window stands still for %.0f ms, the first page is whole after %.0f ms; of "
                "50,000: %.0f ms, %.0f ms\n",
                few.first, few.second, many.first, many.second);
    return 0;
}
