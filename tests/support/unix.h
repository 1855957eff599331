#pragma once

#include <QtGlobal>

#include <gtest/gtest.h>

#include <csignal>
#include <fcntl.h>
#include <unistd.h>

/// VASCLIP_NEEDS_UNIX("what it needs") stands at the beginning of a test of something that Unix alone has; elsewhere the test is
/// skipped, with these words.
#ifdef Q_OS_UNIX

#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>

#define VASCLIP_NEEDS_UNIX(what) static_cast<void>(0)

#else

#define VASCLIP_NEEDS_UNIX(what) GTEST_SKIP() << (what) << ": Unix alone has that"

// For the compiler: no test gets as far.
constexpr int SIGKILL = 9, SIGHUP = 1, O_NONBLOCK = 0;
inline pid_t fork() { return -1; }
inline pid_t waitpid(pid_t, int*, int) { return -1; }
inline int kill(pid_t, int) { return -1; }
inline int pipe(int*) { return -1; }
inline int pause() { return -1; }
inline int mkfifo(const char*, int) { return -1; }
inline unsigned geteuid() { return 1; }
constexpr bool WIFEXITED(int) { return false; }
constexpr bool WIFSIGNALED(int) { return false; }
constexpr int WEXITSTATUS(int) { return -1; }

#endif
