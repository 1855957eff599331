#include "photos/capture_folder.h"

#include "platform/text/runtime_error.h"

#include <algorithm>
#include <chrono>
#include <condition_variable>
#include <memory>
#include <mutex>

namespace vasclip::photos {

using namespace Qt::Literals::StringLiterals;

namespace {

/// A directory that answers slowly does not keep another one waiting.
constexpr int kMostReaders = 4;
constexpr QLatin1StringView kPatterns[] = {"*.jpg"_L1, "*.bmp"_L1};

bool Before(const QString& a, const QString& b)
{
    return a.compare(b, Qt::CaseInsensitive) < 0;
}

} // namespace

CaptureFolder::CaptureFolder(const files::Disk& disk, QObject* parent)
    : QObject(parent)
    , m_disk(disk)
{
    m_pool.setMaxThreadCount(kMostReaders);
    m_poll.setInterval(kPollMilliseconds);
    m_rest.setInterval(kRestMilliseconds);
    m_rest.setSingleShot(true);
    connect(&m_poll, &QTimer::timeout, this, &CaptureFolder::Look);
    connect(&m_rest, &QTimer::timeout, this, &CaptureFolder::Look);
}

CaptureFolder::~CaptureFolder()
{
    m_pool.waitForDone();
}

QStringList CaptureFolder::PicturesIn(const files::Disk& disk, const QString& directory)
{
    QStringList names;
    if (directory.isEmpty())
        return names;
    try {
        for (const QLatin1StringView pattern : kPatterns) {
            const QStringList more = disk.Dir(directory + pattern);
            const qsizetype middle = names.size();
            names += more;
            if (middle > 0 && !more.isEmpty())
                std::inplace_merge(names.begin(), names.begin() + middle, names.end(), Before);
        }
    } catch (const RuntimeError&) {
        return {}; // a card that was pulled out has no pictures
    }
    return names;
}

/// What a worker thread found, and who may still wait for it.
struct CaptureFolder::Answer
{
    std::mutex mutex;
    std::condition_variable came;
    std::optional<QStringList> names;
    bool awaited = true; ///< else the worker tells it by the queue
};

/// The names of the directory, read aside. @return nullopt if they are not there within the patience; they
/// are then taken when they come
std::optional<QStringList> CaptureFolder::Read()
{
    ++m_round;
    if (m_patience < 0)
        return PicturesIn(m_disk, m_directory);
    const auto answer = std::make_shared<Answer>();
    m_pool.start([this, answer, directory = m_directory, round = m_round] {
        QStringList names = PicturesIn(m_disk, directory);
        const std::lock_guard lock(answer->mutex);
        if (answer->awaited) {
            answer->names = std::move(names);
            answer->came.notify_one();
            return;
        }
        QMetaObject::invokeMethod(
            this,
            [this, round, names = std::move(names)] {
                if (round == m_round)
                    Take(names);
            },
            Qt::QueuedConnection);
    });
    std::unique_lock lock(answer->mutex);
    answer->came.wait_for(lock, std::chrono::milliseconds(m_patience),
                          [&answer] { return answer->names.has_value(); });
    answer->awaited = false;
    return std::move(answer->names);
}

void CaptureFolder::Open(const QString& directory)
{
    m_directory = directory;
    const std::optional<QStringList> names = Read();
    m_reading = !names.has_value();
    m_names = names.value_or(QStringList());
    if (Watching())
        Attach();
}

bool CaptureFolder::Refresh()
{
    const std::optional<QStringList> names = Read();
    if (!names)
        return false;
    m_reading = false;
    return std::exchange(m_names, *names) != *names;
}

void CaptureFolder::Watch()
{
    if (Watching())
        return;
    m_watcher = new QFileSystemWatcher(this);
    connect(m_watcher, &QFileSystemWatcher::directoryChanged, &m_rest, qOverload<>(&QTimer::start));
    m_poll.start();
    Attach();
}

/// Watches the directory that is open and no other.
void CaptureFolder::Attach()
{
    if (const QStringList before = m_watcher->directories(); !before.isEmpty())
        m_watcher->removePaths(before);
    try {
        if (m_disk.DirExists(m_directory))
            m_watcher->addPath(m_disk.ToNative(m_directory));
    } catch (const RuntimeError&) {
        return; // the look every few seconds remains
    }
}

/// Reads the names aside; what has changed is taken when they are there.
void CaptureFolder::Look()
{
    if (m_looking || m_directory.isEmpty())
        return;
    m_looking = true;
    m_pool.start([this, directory = m_directory, round = m_round] {
        QStringList names = PicturesIn(m_disk, directory);
        QMetaObject::invokeMethod(
            this,
            [this, round, names = std::move(names)] {
                m_looking = false;
                if (round == m_round) // else the rules have read it meanwhile
                    Take(names);
            },
            Qt::QueuedConnection);
    });
}

void CaptureFolder::Take(const QStringList& names)
{
    if (m_watcher != nullptr && m_watcher->directories().isEmpty())
        Attach(); // a card that came back
    if (std::exchange(m_reading, false)) {
        m_names = names;
        Q_EMIT Opened();
    } else if (names != m_names) {
        const QStringList before = std::exchange(m_names, names);
        Q_EMIT Changed(before);
    }
    Q_EMIT Polled();
}

int CaptureFolder::PlaceOf(const QString& name) const
{
    return static_cast<int>(std::lower_bound(m_names.cbegin(), m_names.cend(), name, Before) -
                            m_names.cbegin());
}

} // namespace vasclip::photos
