#pragma once

#include <QtGlobal>

#include <csignal>
#include <sys/resource.h>

namespace vasclip::tests {

/// As if the disk were full: no file grows beyond `bytes` while this stands.
class FileLimit
{
public:
    explicit FileLimit(qint64 bytes)
    {
        std::signal(SIGXFSZ, SIG_IGN);
        getrlimit(RLIMIT_FSIZE, &m_before);
        const rlimit limit{static_cast<rlim_t>(bytes), m_before.rlim_max};
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FileLimit() { Lift(); }
    void Lift() { setrlimit(RLIMIT_FSIZE, &m_before); }
    FileLimit(const FileLimit&) = delete;
    FileLimit& operator=(const FileLimit&) = delete;

private:
    rlimit m_before{};
};

} // namespace vasclip::tests
