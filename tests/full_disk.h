#pragma once

#include <csignal>
#include <sys/resource.h>

namespace orvel {

// No file may grow beyond a size, as on a disk that is full.
class Full_Disk {
public:
    explicit Full_Disk(rlim_t bytes)
    {
        std::signal(SIGXFSZ, SIG_IGN);
        ::getrlimit(RLIMIT_FSIZE, &Before);
        const rlimit small{bytes, Before.rlim_max};
        ::setrlimit(RLIMIT_FSIZE, &small);
    }
    Full_Disk(const Full_Disk&) = delete;
    Full_Disk& operator=(const Full_Disk&) = delete;
    ~Full_Disk() { ::setrlimit(RLIMIT_FSIZE, &Before); }

private:
    rlimit Before{};
};

} // namespace orvel
