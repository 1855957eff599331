#pragma once

#include "platform/work/workers.h"

#include <QObject>
#include <QThreadPool>

namespace vasclip::work {

/// Workers in threads of low priority, so that the window comes first. Asked from the thread that made them, whose
/// event loop carries what they tell. They end with the jobs that have begun.
class ThreadWorkers final : public Workers
{
public:
    explicit ThreadWorkers(int threads = DefaultThreads());
    ~ThreadWorkers() override;

    void Run(Job job, Done done, const CancelToken& token) override;
    void Tell(Done news, const CancelToken& token) override;
    [[nodiscard]] int AtOnce() const override { return m_pool.maxThreadCount(); }

    /// A processor each, at most four: more only wait for the same disk.
    [[nodiscard]] static int DefaultThreads();

private:
    QObject m_home; ///< in the thread that asks
    QThreadPool m_pool;
};

} // namespace vasclip::work
