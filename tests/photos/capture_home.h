#pragma once

#include "photos/capture_desk.h"
#include "platform/work/thread_workers.h"
#include "support/scripted_ports.h"
#include "support/temp_home.h"

#include <QCoreApplication>
#include <QDeadlineTimer>

#include <atomic>
#include <map>
#include <mutex>

namespace vasclip::tests {

using namespace Qt::StringLiterals;

/// Waits in the event loop until something is so; a minute is a failure.
template <class Condition>
bool Until(Condition&& condition)
{
    const QDeadlineTimer limit(60'000);
    while (!condition()) {
        if (limit.hasExpired())
            return false;
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents | QEventLoop::AllEvents, 20);
    }
    return true;
}

/// Thumbnails by the name of the file: "BAD..." is broken, "EXIF..." has a small one in its head. Writes down
/// what it was asked for.
class NamedThumbs : public photos::ThumbSource
{
public:
    struct Log
    {
        std::mutex mutex;
        QStringList asked;
        std::map<QString, QSize> sizes;
        std::atomic<bool> held = false; ///< nothing is answered meanwhile
        QStringList Asked()
        {
            const std::lock_guard lock(mutex);
            return asked;
        }
    };
    explicit NamedThumbs(std::shared_ptr<Log> log)
        : m_log(std::move(log))
    {}
    [[nodiscard]] std::optional<photos::Thumb> Embedded(const QString& path) const override
    {
        Note(u"head "_s + path);
        const QString name = path.mid(path.lastIndexOf(u'\\') + 1).toUpper();
        if (!name.startsWith(u"EXIF"_s))
            return std::nullopt;
        return photos::Thumb{Plain(160, 120), SizeOf(path)};
    }
    [[nodiscard]] photos::Thumb Reduced(const QString& path, int longerSide,
                                        const std::function<bool()>& cancelled) const override
    {
        Note(u"decode "_s + path);
        const QString name = path.mid(path.lastIndexOf(u'\\') + 1).toUpper();
        while (name.startsWith(u"SLOW"_s)) {
            if (cancelled())
                throw RuntimeError(481, u"cancelled"_s);
            QThread::yieldCurrentThread();
        }
        if (name.startsWith(u"BAD"_s))
            throw RuntimeError(481, u"cut short"_s);
        return {Plain(longerSide, longerSide * 3 / 4), SizeOf(path)};
    }

private:
    static QImage Plain(int width, int height)
    {
        QImage image(width, height, QImage::Format_RGB32);
        image.fill(Qt::gray);
        return image;
    }
    QSize SizeOf(const QString& path) const
    {
        const std::lock_guard lock(m_log->mutex);
        const auto found = m_log->sizes.find(path.mid(path.lastIndexOf(u'\\') + 1));
        return found == m_log->sizes.end() ? QSize(800, 600) : found->second;
    }
    void Note(const QString& what) const
    {
        while (m_log->held)
            QThread::yieldCurrentThread();
        const std::lock_guard lock(m_log->mutex);
        m_log->asked.append(what);
    }
    std::shared_ptr<Log> m_log;
};

/// A capture desk on a home of its own, at C:\SNAP.
class CaptureHome : public testing::Test
{
protected:
    TempHome home;
    TestPorts doubles;
    common::Globals globals;
    forms::ControlSet set;
    common::StatusDesk status{set};
    photos::CaptureControls controls{set};
    photos::SlotTable table;
    photos::SlotLoader loader{home.disk, doubles.Get(), table};
    std::shared_ptr<NamedThumbs::Log> thumbs = std::make_shared<NamedThumbs::Log>();
    std::unique_ptr<photos::CaptureDesk> desk;

    const QString kDir = u"C:\\SNAP\\"_s;

    void SetUp() override
    {
        globals.G_CaptureDir = kDir;
        globals.imageFileNames = u"ON"_s;
        globals.imageListBox = u"OFF"_s;
        home.MakeDirs(kDir.chopped(1));
        loader.SetThumbTags(&controls.lbltag);
        desk = std::make_unique<photos::CaptureDesk>(
            photos::CaptureBase{home.disk, doubles.Get(), globals, status, loader}, controls,
            std::make_unique<NamedThumbs>(thumbs), std::make_unique<work::ThreadWorkers>());
        desk->SetSystemDrive(u"C:"_s);
    }
    void Put(const QString& name) { home.Put(kDir + name); }
    /// P00.JPG to P(count-1).JPG
    void PutMany(int count)
    {
        for (int i = 0; i < count; ++i)
            Put(Name(i));
    }
    static QString Name(int i) { return u"P%1.JPG"_s.arg(i, 2, 10, QChar(u'0')); }
    void Start()
    {
        desk->check4CaptureDir();
        desk->ViewFilCapture();
        desk->StartBrowsing();
    }
    bool Settle()
    {
        return Until([this] { return desk->Loader().Idle() && !controls.lblRefreshing.Visible(); });
    }
    /// The names below the thumbnails that can be seen, in order.
    QStringList Shown() const
    {
        QStringList names;
        for (int i = 0; i < 12; ++i)
            if (controls.geathumb(i).Visible())
                names.append(controls.lbltag(i).Caption());
        return names;
    }
    static QStringList Names(int first, int last)
    {
        QStringList names;
        for (int i = first; i <= last; ++i)
            names.append(Name(i));
        return names;
    }
};

} // namespace vasclip::tests
