#pragma once

#include "support/unix.h"

#include <QElapsedTimer>

#include <functional>
#include <random>
#include <string>

namespace vasclip::tests {

/// Work in processes of its own that are killed at random moments. The first one is let through and tells how long it
/// takes; the moments follow what the machine does then, so that kills fall on both sides of the end.
class KilledWork
{
public:
    void Run(const std::function<void()>& work)
    {
        if (m_usual == 0) {
            QElapsedTimer timer;
            timer.start();
            Whole(work);
            m_usual = static_cast<useconds_t>(timer.nsecsElapsed() / 1000);
            return;
        }
        const pid_t child = Start(work);
        usleep(m_usual * static_cast<useconds_t>(15 + m_random() % 90) / 100);
        kill(child, SIGKILL);
        int status = 0;
        waitpid(child, &status, 0);
        const bool ended = WIFEXITED(status);
        EXPECT_TRUE(!ended || WEXITSTATUS(status) == 0) << "the work failed by itself";
        m_usual = ended ? m_usual * 2 / 3 + 1 : m_usual * 3 / 2 + 1;
        ++(ended ? m_ended : m_killed);
    }
    /// Lets it through to its end.
    void Whole(const std::function<void()>& work)
    {
        const pid_t child = Start(work);
        int status = 0;
        waitpid(child, &status, 0);
        EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0) << "the work failed by itself";
        ++m_ended;
    }
    [[nodiscard]] int Killed() const { return m_killed; }
    [[nodiscard]] int Ended() const { return m_ended; }
    /// For the account of a long run.
    ~KilledWork()
    {
        testing::Test::RecordProperty("killed", std::to_string(m_killed));
        testing::Test::RecordProperty("ended", std::to_string(m_ended));
    }

private:
    static pid_t Start(const std::function<void()>& work)
    {
        const pid_t child = fork();
        EXPECT_GE(child, 0);
        if (child == 0) {
            try {
                work();
            } catch (...) {
                _exit(1);
            }
            _exit(0);
        }
        return child;
    }

    std::mt19937 m_random{20040307};
    useconds_t m_usual = 0;
    int m_killed = 0;
    int m_ended = 0;
};

} // namespace vasclip::tests
