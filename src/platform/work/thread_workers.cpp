#include "platform/work/thread_workers.h"

#include <QThread>

#include <algorithm>

namespace vasclip::work {

int ThreadWorkers::DefaultThreads()
{
    constexpr int kMost = 4;
    return std::clamp(QThread::idealThreadCount(), 1, kMost);
}

ThreadWorkers::ThreadWorkers(int threads)
{
    m_pool.setMaxThreadCount(std::max(threads, 1));
    m_pool.setThreadPriority(QThread::LowPriority);
}

ThreadWorkers::~ThreadWorkers()
{
    m_pool.clear();
    m_pool.waitForDone();
}

void ThreadWorkers::Run(Job job, Done done, const CancelToken& token)
{
    m_pool.start([this, job = std::move(job), done = std::move(done), token] {
        {
            const Running running(token);
            if (!running)
                return;
            job(token);
        }
        if (done)
            Tell(done, token);
    });
}

void ThreadWorkers::Tell(Done news, const CancelToken& token)
{
    QMetaObject::invokeMethod(
        &m_home,
        [news = std::move(news), token] {
            if (!token.Cancelled())
                news();
        },
        Qt::QueuedConnection);
}

} // namespace vasclip::work
