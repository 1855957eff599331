#pragma once

#include <gtest/gtest.h>

#include <QElapsedTimer>

#include <functional>
#include <random>

#include <csignal>
#include <sys/wait.h>
#include <unistd.h>

namespace vasclip::tests {

/// Work in processes of its own that are killed at random moments. The first one is let through and tells how long it
/// takes; the moments follow what the machine does then, so that kills fall on both sides of the end.
class KilledWork
{
public:
    void Run(const std::function<void()>& work)
    {
        const pid_t child = fork();
        ASSERT_GE(child, 0);
        if (child == 0) {
            try {
                work();
            } catch (...) {
                _exit(1);
            }
            _exit(0);
        }
        int status = 0;
        if (m_usual == 0) {
            QElapsedTimer timer;
            timer.start();
            waitpid(child, &status, 0);
            m_usual = static_cast<useconds_t>(timer.nsecsElapsed() / 1000);
            return;
        }
        usleep(m_usual * static_cast<useconds_t>(15 + m_random() % 90) / 100);
        kill(child, SIGKILL);
        waitpid(child, &status, 0);
        m_usual = WIFEXITED(status) ? m_usual * 5 / 6 + 1 : m_usual * 7 / 6 + 1;
    }

private:
    std::mt19937 m_random{20040307};
    useconds_t m_usual = 0;
};

} // namespace vasclip::tests
