#pragma once

#include <csignal>
#include <sys/resource.h>

namespace vorel::test {

// A file can take no more bytes while one lives: what a full disk does to a write.
class FullDisk {
public:
    explicit FullDisk(rlim_t bytes)
    {
        m_handler = std::signal(SIGXFSZ, SIG_IGN);
        ::getrlimit(RLIMIT_FSIZE, &m_before);
        rlimit tight = m_before;
        tight.rlim_cur = bytes;
        ::setrlimit(RLIMIT_FSIZE, &tight);
    }
    ~FullDisk()
    {
        ::setrlimit(RLIMIT_FSIZE, &m_before);
        std::signal(SIGXFSZ, m_handler);
    }

private:
    rlimit m_before {};
    void (*m_handler)(int) = nullptr;
};

}
