#pragma once

#include "support/unix.h"

#include <QtGlobal>

namespace vasclip::tests {

/// As if the disk were full: no file grows beyond `bytes` while this stands.
class FileLimit
{
public:
#ifdef Q_OS_UNIX
    explicit FileLimit(qint64 bytes)
    {
        std::signal(SIGXFSZ, SIG_IGN);
        getrlimit(RLIMIT_FSIZE, &m_before);
        const rlimit limit{static_cast<rlim_t>(bytes), m_before.rlim_max};
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    void Lift() { setrlimit(RLIMIT_FSIZE, &m_before); }

private:
    rlimit m_before{};

public:
#else
    explicit FileLimit(qint64) {}
    void Lift() {}
#endif
    ~FileLimit() { Lift(); }
    FileLimit(const FileLimit&) = delete;
    FileLimit& operator=(const FileLimit&) = delete;
};

} // namespace vasclip::tests
