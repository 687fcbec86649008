// Runs a command and prints its peak resident memory in MB on standard error: peak_memory PROGRAM ARGUMENTS...
// A program this small does not hide the other's memory behind its own.
#include <cstdio>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>

int main(int, char** argv)
{
    pid_t child = 0;
    int status = 0;
    struct rusage use {};
    if (!argv[1] || ::posix_spawnp(&child, argv[1], nullptr, nullptr, argv + 1, environ) != 0 ||
        ::wait4(child, &status, 0, &use) != child)
        return 2;
    std::fprintf(stderr, "%.1f MB\n", static_cast<double>(use.ru_maxrss) / 1024);
    return WIFEXITED(status) ? WEXITSTATUS(status) : 2;
}
