#pragma once

#include <cstdio>
#include <fcntl.h>
#include <filesystem>
#include <spawn.h>
#include <stdexcept>
#include <string>
#include <sys/wait.h>
#include <unistd.h>

namespace orvel {

// The minimum cost of a job: starting its programs and writing a small file for each.

inline void Spawn_And_Wait(const std::filesystem::path& program, char* const arguments[])
{
    pid_t child = -1;
    int status = 0;
    if (::posix_spawn(&child, program.c_str(), nullptr, nullptr, arguments, environ) != 0 ||
        ::waitpid(child, &status, 0) != child || status != 0)
        throw std::runtime_error("cannot run " + program.string());
}

inline void Spawn_Floor(int count, const std::filesystem::path& program)
{
    std::string name = program.string();
    char* arguments[] = {name.data(), nullptr};
    for (int i = 0; i < count; ++i)
        Spawn_And_Wait(program, arguments);
}

// Writes beside the target, then renames over it; not flushed, since a job's log is not either.
inline void Write_Floor(int count, std::size_t bytes, const std::filesystem::path& directory)
{
    const std::string text(bytes, 'x');
    for (int i = 0; i < count; ++i) {
        const std::string target = (directory / ("file" + std::to_string(i))).string(), beside = target + ".new";
        const int file = ::open(beside.c_str(), O_CREAT | O_TRUNC | O_WRONLY, 0644);
        if (file < 0 || ::write(file, text.data(), text.size()) < 0)
            throw std::runtime_error("cannot write " + beside);
        ::close(file);
        std::filesystem::rename(beside, target);
    }
}

} // namespace orvel
