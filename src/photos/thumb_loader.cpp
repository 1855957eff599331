#include "photos/thumb_loader.h"

#include "platform/text/runtime_error.h"

#include <algorithm>
#include <utility>

namespace vasclip::photos {

ThumbLoader::ThumbLoader(std::unique_ptr<ThumbSource> source, work::Workers& workers)
    : m_source(std::move(source))
    , m_atWork(workers)
{}

ThumbLoader::~ThumbLoader()
{
    {
        const std::lock_guard lock(m_mutex);
        m_tasks.clear();
    }
    m_token.Cancel();
    m_token.Wait();
}

void ThumbLoader::Show(const QStringList& onShow, const QStringList& next, int longerSide)
{
    std::deque<Task> tasks;
    m_onShow = QSet<QString>(onShow.cbegin(), onShow.cend());
    quint64 round = 0;
    {
        const std::lock_guard lock(m_mutex);
        if (std::exchange(m_longerSide, longerSide) != longerSide)
            m_done.clear();
        round = ++m_round;
    }
    m_done.intersect(m_onShow);
    QStringList wanted;
    for (const QString& path : onShow)
        if (!m_done.contains(path))
            wanted.append(path);
    for (const Work work : {Work::Head, Work::Decode})
        for (const QString& path : std::as_const(wanted))
            tasks.push_back({path, work, longerSide, round});
    m_due = static_cast<int>(tasks.size());
    for (const QString& path : next)
        if (!m_onShow.contains(path) && !m_cache.Has(path))
            tasks.push_back({path, Work::Keep, ThumbCache::kPixels, round});
    {
        const std::lock_guard lock(m_mutex);
        m_tasks = std::move(tasks);
        m_wanted = m_onShow;
        m_wanted.unite(QSet<QString>(next.cbegin(), next.cend()));
    }
    for (const QString& path : std::as_const(wanted))
        if (const auto kept = m_cache.Get(path); kept && !kept->image.isNull())
            Q_EMIT Arrived(path, *kept, Pass::Kept);
    if (wanted.isEmpty())
        Q_EMIT Settled();
    Start();
}

void ThumbLoader::Again(const QString& path)
{
    Forget(path);
    if (!m_onShow.contains(path))
        return;
    {
        const std::lock_guard lock(m_mutex);
        m_tasks.push_front({path, Work::Decode, m_longerSide, m_round});
    }
    ++m_due;
    Start();
}

void ThumbLoader::Forget(const QString& path)
{
    m_cache.Remove(path);
    m_done.remove(path);
}

void ThumbLoader::ForgetAll()
{
    {
        const std::lock_guard lock(m_mutex);
        m_tasks.clear();
        m_wanted.clear();
        ++m_round;
    }
    m_onShow.clear();
    m_done.clear();
    m_due = 0;
    m_cache.Clear();
}

bool ThumbLoader::Idle() const
{
    const std::lock_guard lock(m_mutex);
    return m_tasks.empty() && m_workers == 0;
}

void ThumbLoader::Start()
{
    int more = 0;
    {
        const std::lock_guard lock(m_mutex);
        const int wanted = static_cast<int>(
            std::min<std::size_t>(m_tasks.size(), static_cast<std::size_t>(m_atWork.AtOnce())));
        more = std::max(0, wanted - m_workers);
        m_workers += more;
    }
    for (; more > 0; --more)
        m_atWork.Run([this](const work::CancelToken&) { WorkOff(); }, {}, m_token);
}

void ThumbLoader::WorkOff()
{
    for (;;) {
        Task task;
        {
            const std::lock_guard lock(m_mutex);
            if (m_tasks.empty()) {
                --m_workers;
                return;
            }
            task = std::move(m_tasks.front());
            m_tasks.pop_front();
        }
        Do(task);
    }
}

bool ThumbLoader::Unwanted(const QString& path) const
{
    if (m_token.Cancelled())
        return true;
    const std::lock_guard lock(m_mutex);
    return !m_wanted.contains(path);
}

void ThumbLoader::Do(const Task& task)
{
    bool gaveUp = false;
    const auto cancelled = [this, &task, &gaveUp] {
        gaveUp = gaveUp || Unwanted(task.path);
        return gaveUp;
    };
    try {
        switch (task.work) {
        case Work::Head:
            if (const auto embedded = m_source->Embedded(task.path))
                Tell(task, *embedded, Pass::Embedded);
            break;
        case Work::Decode: {
            const Thumb thumb = m_source->Reduced(task.path, task.longerSide, cancelled);
            Tell(task, thumb, Pass::Reduced);
            m_cache.Put(task.path, thumb);
            break;
        }
        case Work::Keep:
            if (const auto embedded = m_source->Embedded(task.path))
                m_cache.Put(task.path, *embedded);
            else
                m_cache.Put(task.path, m_source->Reduced(task.path, task.longerSide, cancelled));
            break;
        }
    } catch (const std::exception& failure) {
        if (gaveUp)
            return; // whoever wants it again has asked for it anew
        const auto* known = dynamic_cast<const RuntimeError*>(&failure);
        const QString why = known != nullptr ? known->Description() : QString::fromLocal8Bit(failure.what());
        m_atWork.Tell(
            [this, task, why] {
                m_cache.Remove(task.path);
                if (task.work != Work::Decode || !m_onShow.contains(task.path))
                    return;
                m_done.insert(task.path);
                Q_EMIT Broken(task.path, why);
            },
            m_token);
    }
    if (task.work != Work::Keep)
        m_atWork.Tell([this, task] { Finished(task); }, m_token);
}

void ThumbLoader::Tell(const Task& task, const Thumb& thumb, Pass pass)
{
    m_atWork.Tell(
        [this, path = task.path, thumb, pass] {
            if (!m_onShow.contains(path))
                return;
            if (pass == Pass::Reduced)
                m_done.insert(path);
            Q_EMIT Arrived(path, thumb, pass);
        },
        m_token);
}

void ThumbLoader::Finished(const Task& task)
{
    {
        const std::lock_guard lock(m_mutex);
        if (task.round != m_round)
            return;
    }
    if (m_due > 0 && --m_due == 0)
        Q_EMIT Settled();
}

} // namespace vasclip::photos
